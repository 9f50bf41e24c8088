#include "scoring/pupil_lists.h"

#include "foundation/row_fields.h"
#include "platform/basics/age.h"
#include "platform/basics/dates.h"
#include "scoring/passing_over_errors.h"

#include <QStringBuilder>
#include <algorithm>

using namespace Qt::StringLiterals;

namespace scoring {

namespace {

using basics::Value;
using foundation::Row_Fields;

using Statuses = basics::Bounded<double, All_Tests>; // of one pupil's tests, as they are stored

// A single status without a value leaves the sum without one, and so the pupil off the list, however many
// tests are done.
bool Belongs_On_List(Row_Fields& field, Statuses& statuses) {
    double sum = 0;
    for (int t = 1; t <= All_Tests; ++t) {
        const Value& status = field(Test_At(t).Status_Column);
        if (status.Is_Empty()) return false;
        statuses[t] = status.As_Double();
        sum += statuses[t];
    }
    return sum > 0;
}

qint16 Age_At(const QDateTime& now, const Value& date_of_birth) {
    return date_of_birth.Is_Empty() ? qint16(0) : basics::Age_In_Months(date_of_birth.As_Date(), now);
}

void Take_Birthday(Row_Fields& field, const QDateTime& now, int p, Pupil_Lists& lists) {
    lists.Pupil_DOB_List[p] = field.Text(u"DOB"_s);
    const QDate usual = basics::Written_Day(lists.Pupil_DOB_List[p]);
    lists.Pupil_Age_Now[p] =
        usual.isValid() ? basics::Age_In_Months(usual, now.date()) : Age_At(now, field(u"DOB"_s));
}

void Take_Pupil(Row_Fields& field, const Statuses& statuses, const QDateTime& now, int p,
                Pupil_Lists& lists) {
    lists.Student_Code[p] = field.Text(u"StudentCode"_s);
    const QString surname = field.Text(u"Surname"_s);
    lists.Pupil_Name_List[p] = surname % u' ' % field.Text(u"Forename"_s);
    Take_Birthday(field, now, p, lists);
    lists.Pupil_Class_List[p].clear();
    Passing_Over_Errors([&] { lists.Pupil_Class_List[p] = field.Text(u"Group_Class"_s).trimmed(); });
    for (int t = 1; t <= All_Tests; ++t) {
        const Test_Entry& test = Test_At(t);
        lists.Test_Status[t][p] = Value(statuses[t]).As_Integer();
        lists.Test_Age[t][p] = field.Integer(test.Age_Column);
        field.Keep(test.Date_Column, lists.Test_Date[t][p]);
    }
    lists.Pupil_Test_Age[p] = Age_When_First_Tested(lists, p);
}

// Gives how many they are.
int Take_Those_With_Results(foundation::Access_Holder& holder, int rows, const desktop::Clock& clock,
                            Pupil_Lists& lists) {
    Row_Fields field(holder);
    const QDateTime now = clock.Now();
    Statuses statuses;
    int n = 0;
    for (int row = 1; row <= rows; ++row) {
        if (Belongs_On_List(field, statuses)) Take_Pupil(field, statuses, now, ++n, lists);
        if (!field.Is_Behind_The_Last()) field.Next_Row();
    }
    return n;
}

} // namespace

void Load_Pupil_Lists(foundation::Access_Holder& holder, const foundation::Installation& installation,
                      const desktop::Clock& clock, Pupil_Lists& lists) {
    static const QStringList columns =
        QStringList{u"StudentCode"_s, u"Surname"_s, u"Forename"_s, u"DOB"_s, u"Group_Class"_s} +
        Test_Columns();
    holder.ado_Open(installation.Connection_String, u"SELECT * FROM Mevo_Pupils ORDER BY Surname,Forename"_s,
                    u"Optimistic"_s, columns);
    qint16 rows = 0;
    holder.ado_RSCount(rows);
    const int n = rows > 0 ? Take_Those_With_Results(holder, rows, clock, lists) : 0;
    holder.ado_Close();
    lists.Pupils_Listed = n;
}

qint16 Age_When_First_Tested(const Pupil_Lists& lists, int p) {
    qint16 months = 0;
    for (int t = 1; t <= All_Tests; ++t)
        months = std::max(months, lists.Test_Age[t][p]);
    return months;
}

QString Pupil_List_Entry(const Pupil_Lists& lists, int p) {
    return lists.Pupil_Name_List[p] % " ("_L1 % lists.Student_Code[p] % u')';
}

} // namespace scoring
