#include "scoring/pupil_lists.h"

#include "platform/basics/age.h"
#include "scoring/passing_over_errors.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace scoring {

namespace {

using basics::Value;
using foundation::Access_Holder;

// A single status without a value leaves the sum without one, and so the pupil off the list, however many
// tests are done.
bool Belongs_On_List(Access_Holder& holder) {
    double sum = 0;
    for (int t = 1; t <= All_Tests; ++t) {
        const Value status = holder.Field(Test_At(t).Status_Column);
        if (status.Is_Empty()) return false;
        sum += status.As_Double();
    }
    return sum > 0;
}

qint16 Age_Now(const Value& date_of_birth, const desktop::Clock& clock) {
    if (date_of_birth.Is_Empty()) return 0;
    return static_cast<qint16>(basics::Age_In_Months(date_of_birth.As_Date(), clock.Now()));
}

void Take_Pupil(Access_Holder& holder, const desktop::Clock& clock, int p, Pupil_Lists& lists) {
    lists.Student_Code[p] = holder.Field(u"StudentCode"_s).Text_Or_Empty();
    lists.Pupil_Name_List[p] =
        holder.Field(u"Surname"_s).Text_Or_Empty() + u' ' + holder.Field(u"Forename"_s).Text_Or_Empty();
    const Value date_of_birth = holder.Field(u"DOB"_s);
    lists.Pupil_DOB_List[p] = date_of_birth.Text_Or_Empty();
    lists.Pupil_Class_List[p].clear();
    Passing_Over_Errors(
        [&] { lists.Pupil_Class_List[p] = holder.Field(u"Group_Class"_s).Text_Or_Empty().trimmed(); });
    lists.Pupil_Age_Now[p] = Age_Now(date_of_birth, clock);
    for (int t = 1; t <= All_Tests; ++t) {
        const Test_Entry& test = Test_At(t);
        lists.Test_Status[t][p] = holder.Field(test.Status_Column).As_Integer();
        lists.Test_Age[t][p] = holder.Field(test.Age_Column).As_Integer();
        lists.Test_Date[t][p] = holder.Field(test.Date_Column).Text_Or_Empty();
    }
    lists.Pupil_Test_Age[p] = Age_When_First_Tested(lists, p);
}

} // namespace

void Load_Pupil_Lists(Access_Holder& holder, const foundation::Installation& installation,
                      const desktop::Clock& clock, Pupil_Lists& lists) {
    holder.ado_Open(installation.Connection_String, u"SELECT * FROM Mevo_Pupils ORDER BY Surname,Forename"_s,
                    u"Optimistic"_s);
    qint16 rows = 0;
    holder.ado_RSCount(rows);
    int n = 0;
    for (int row = 1; row <= rows; ++row) {
        if (Belongs_On_List(holder)) Take_Pupil(holder, clock, ++n, lists);
        if (!holder.Rows().Eof()) holder.Rows().MoveNext();
    }
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
    return lists.Pupil_Name_List[p] + u" ("_s + lists.Student_Code[p] + u')';
}

} // namespace scoring
