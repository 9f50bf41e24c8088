#include "foundation/school_look.h"

#include "foundation/schema.h"
#include "platform/basics/run_time_error.h"
#include "platform/database/database_file.h"
#include "platform/database/files/file_engine.h"
#include "platform/database/files/file_look.h"

#include <QFile>
#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace foundation {

namespace {

// The colour test has no norms, so whoever has done nothing else has no results.
QString Sum_Of_Normed_Statuses() {
    QStringList columns;
    for (const Test_Tables& test : Tests_In_Order())
        if (!test.norms.isEmpty()) columns.append(test.status);
    return columns.join(u" + "_s);
}

enum Question { Names, Pupils, With_Results };

// The last row of the product counts, as at start-up.
QStringList Questions() {
    return {
        u"SELECT Institution FROM Customer_Details WHERE Product_Name = 'MEVO' COLLATE BINARY ORDER BY rowid"_s,
        u"SELECT count(*) FROM Mevo_Pupils"_s,
        u"SELECT count(*) FROM Mevo_Pupils WHERE "_s + Sum_Of_Normed_Statuses() + u" > 0"_s};
}

bool Is_Of_Access(const QString& file) {
    QFile opened(file);
    return opened.open(QIODevice::ReadOnly) && opened.read(24).mid(4).startsWith("Standard Jet DB");
}

void Take_What_It_Tells(const QString& file, int timeout_seconds, School_Look& look) {
    using Kind = School_Look::Kind;
    const database::File_Look found = database::Look_Into(file, Questions(), timeout_seconds);
    look.why = found.damage;
    look.kind = Kind::Damaged;
    if (!found.damage.isEmpty()) return;
    const QString lacking = database::Lacking(found.tables, Needed_Tables()).value(0);
    look.why = u"It isn't a database of the suite: it has no %1."_s.arg(lacking);
    look.kind = Kind::Foreign;
    if (!lacking.isEmpty()) return;
    look.why.clear();
    look.kind = Kind::School;
    look.is_51 = Is_Of_Version_51(found.tables);
    look.school = found.answers[Names].isEmpty() ? QString() : found.answers[Names].last().simplified();
    look.pupils = found.answers[Pupils].value(0).toInt();
    look.with_results = found.answers[With_Results].value(0).toInt();
}

} // namespace

School_Look Look_At_School(const QString& file, int timeout_seconds) {
    using Kind = School_Look::Kind;
    School_Look look;
    look.last_change = QFileInfo(file).lastModified();
    if (Is_Of_Access(file)) {
        look.kind = Kind::Older_Format;
        look.why = u"It was saved in the older Access format and must be converted before it can be used."_s;
        return look;
    }
    try {
        Take_What_It_Tells(file, timeout_seconds, look);
    } catch (const basics::Run_Time_Error& error) {
        const QFileInfo info(file);
        const bool is_something_else =
            info.isFile() && info.isReadable() && !database::Looks_Like_A_Database(file);
        look.kind = is_something_else ? Kind::Foreign : Kind::Unreadable;
        look.why = error.Description;
    }
    return look;
}

School_Counts Count_School(const QString& file, int timeout_seconds) {
    database::Refuse_What_Is_No_Database(file);
    database::File_Engine engine(file, database::Access::Read_Only, timeout_seconds);
    const QStringList questions = Questions();
    return {engine.Run(questions[Pupils]).value(0).toInt(),
            engine.Run(questions[With_Results]).value(0).toInt()};
}

QString In_Words(const School_Look& look) {
    if (look.kind != School_Look::Kind::School) return look.why;
    const QString school = look.school.isEmpty() ? u"a school without a name"_s : look.school;
    const QString pupils = look.pupils == 0 ? u"no pupils"_s
                           : look.pupils == 1
                               ? u"1 pupil, %1 with results"_s.arg(look.with_results)
                               : u"%1 pupils, %2 with results"_s.arg(look.pupils).arg(look.with_results);
    return u"%1, %2, %3, last changed %4"_s.arg(school, pupils,
                                                look.is_51 ? u"version 5.1"_s : u"from before version 5.1"_s,
                                                look.last_change.toString(u"d MMMM yyyy, HH:mm"_s));
}

} // namespace foundation
