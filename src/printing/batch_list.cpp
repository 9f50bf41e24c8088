#include "printing/batch_list.h"

#include "platform/basics/run_time_error.h"
#include "platform/database/recordset.h"

using namespace Qt::StringLiterals;

namespace printing {

namespace {

void Read_Field(const QString& connection_string, const QString& sql, const QString& field,
                const Take_Text& take) {
    database::Connection connection;
    connection.ConnectionString = connection_string;
    connection.Open();
    database::Recordset rows;
    rows.Source = sql;
    rows.Set_ActiveConnection(&connection);
    rows.Open();
    for (; !rows.Eof(); rows.MoveNext())
        take(rows.Fields(field).Value().Text_Or_Empty());
}

bool Read_In_Silence(const QString& connection_string, const QString& sql, const QString& field,
                     const Take_Text& take) {
    try {
        Read_Field(connection_string, sql, field, take);
        return true;
    } catch (const basics::Run_Time_Error&) {
        return false; // the list stays as far as it came; nobody is told
    }
}

} // namespace

bool Read_Group_Names(const QString& connection_string, const Take_Text& take) {
    return Read_In_Silence(connection_string, u"SELECT group_name FROM Mevo_Groups ORDER  by group_name"_s,
                           u"group_name"_s, take);
}

// Pindo isn't in the sum: a pupil who has done nothing else has no profile.
bool Read_Pupil_Entries(const QString& connection_string, const QString& group, const Take_Text& take) {
    QString sql = u"SELECT   surname + ', ' + forename + ' - ' + studentcode AS student "
                  "FROM     Mevo_Pupils "
                  "WHERE    group_class LIKE '?group' "
                  "AND      (Tolvens + BliksFriends + Karrel + BliksLetters + BliksLetterNames + Drell + "
                  "Mirvel + Yoon) > 0 "
                  "ORDER BY surname + ', ' + forename + ' - ' + studentcode"_s;
    sql.replace(u"?group"_s, group == All_Groups() ? u"%"_s : group);
    return Read_In_Silence(connection_string, sql, u"student"_s, take);
}

const QString Divider = u" - "_s;

static QString Behind_Divider(const QString& entry, qsizetype place) {
    return entry.mid(place + Divider.size());
}

// A name without a value leaves the entry empty, and so the code: place 0, which holds no pupil, would match
// it.
static qint16 Place_Of(const QString& code, const scoring::Pupil_Lists& pupils) {
    return code.isEmpty() ? qint16(-1) : FindInArray(pupils.Student_Code, code);
}

QList<qint16> Places_Of(const QStringList& entries, const scoring::Pupil_Lists& pupils) {
    QList<qint16> places;
    for (const QString& entry : entries)
        places.append(Place_Of(Behind_Divider(entry, entry.indexOf(Divider)), pupils));
    return places;
}

static qint16 Place_By_Any_Divider(const QString& entry, const scoring::Pupil_Lists& pupils) {
    for (qsizetype at = entry.indexOf(Divider); at >= 0; at = entry.indexOf(Divider, at + 1))
        if (const qint16 place = Place_Of(entry.mid(at + Divider.size()), pupils); place > 0) return place;
    return -1;
}

Found_Entries Find_By_Code(const QStringList& entries, const scoring::Pupil_Lists& pupils) {
    Found_Entries found;
    for (const QString& entry : entries) {
        const qint16 place = Place_By_Any_Divider(entry, pupils);
        if (place < 0)
            found.lost.append(entry.isEmpty() ? u"A pupil without a whole name"_s : entry);
        else
            found.places.append(place);
    }
    return found;
}

QString Surname_Message(qsizetype errors) {
    return u"There are %1 surnames in the database which are composed of two names separated by "
           "space-hyphen-space.\r\r"
           "Example: Thompson - Ellis\r\r"
           "This situation causes errors in the SQL code used within the software.\r"
           "Please edit all such surnames using the 'Fine Tuning' menu option and locate the students, "
           "manually remove spaces before and after the hyphen separating their twin surnames and then save "
           "the changes.\r\r"
           "Example: Thompson-Ellis\r\r"
           "If in doubt about what to do please contact Quend Research technical support for advice."_s.arg(
               errors);
}

QString AgeFromMonths(int months) {
    return QString::number(months / 12) + u':' + QString::number(months % 12).rightJustified(2, u'0');
}

void Compute_All_Scores(const scoring::Progress_Label& show_progress, scoring::Cohort_Tables& cohort,
                        scoring::Scoring& scoring) {
    const int listed = scoring.pupils.Pupils_Listed;
    for (int n = 1; n <= listed; ++n)
        cohort.Cohort_Pupil[n] = static_cast<qint16>(n);
    scoring::Score_Cohort(listed, show_progress, cohort, scoring);
}

void Take_Batch(const QList<qint16>& places, scoring::Cohort_Tables& cohort) {
    int rank = 0;
    for (const qint16 place : places)
        cohort.Cohort_Pupil[++rank] = place;
}

} // namespace printing
