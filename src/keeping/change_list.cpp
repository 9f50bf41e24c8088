#include "keeping/change_list.h"

#include "platform/basics/native_path.h"

#include <QFileInfo>
#include <QSysInfo>

using namespace Qt::StringLiterals;

namespace keeping {

using database::Engine_Statement;

namespace {

const Side_Kind& Changes_Kind() {
    static const Side_Kind kind{
        u"The list of changes"_s,
        0x4d436831,
        1,
        {u"CREATE TABLE Changes (Id INTEGER PRIMARY KEY, Happened_At TEXT, Workstation TEXT, Act TEXT, "
         "Subject TEXT, Detail TEXT)"_s}};
    return kind;
}

// Removes what the statement finds for each of the values; the rows' ids come back from it.
int Removed(const QString& working_database, const QString& sql, const QStringList& values) {
    const QString list = Changes_Of(working_database);
    if (!QFileInfo::exists(list)) return 0;
    Side_File file(Changes_Kind(), list);
    int removed = 0;
    file.Change([&] {
        for (const QString& value : values) {
            Engine_Statement statement = file.Prepared(sql);
            statement.Bind_Text(1, value.toUtf8());
            while (statement.Step())
                ++removed;
        }
    });
    if (removed > 0) file.Compact();
    return removed;
}

// The list is the working database's. What was done with pupils while the program looked at another file says
// so; copying and replacing are about the working one whatever is in view.
QString In_Another_Database(Act act, const foundation::Installation& installation) {
    const QString& string = installation.Connection_String;
    const bool of_whole_files = act >= Act::Archived && act <= Act::Gone_Back;
    if (of_whole_files || string == foundation::Connection_String_For(installation.Database_Path)) return {};
    const QString file = basics::Native_Path(foundation::Database_Named_In(string));
    return u" (in %1)"_s.arg(QFileInfo(file).fileName());
}

} // namespace

QStringList All_Acts_In_Words() {
    return {u"Registered"_s, u"Imported"_s,  u"Corrected"_s,          u"Retest allowed"_s,
            u"Moved"_s,      u"Deleted"_s,   u"Archived"_s,           u"Loaded"_s,
            u"Cleared"_s,    u"Gone back"_s, u"Removed everywhere"_s, u"Printed batch"_s};
}

QString In_Words(Act act) {
    return All_Acts_In_Words().at(static_cast<qsizetype>(act));
}

QString Changes_Of(const QString& working_database) {
    return Beside(working_database, u"Mevo05Changes.sqlite"_s);
}

Side_Look Look_At_Changes(const QString& working_database) {
    return Look_At(Changes_Kind(), Changes_Of(working_database));
}

void Add_Changes(const QString& working_database, Act act, const QStringList& subjects, const QString& detail,
                 const QDateTime& when) {
    if (subjects.isEmpty()) return;
    Side_File file(Changes_Kind(), Changes_Of(working_database), working_database);
    file.Change([&] {
        Engine_Statement insert = file.Prepared(
            u"INSERT INTO Changes (Happened_At, Workstation, Act, Subject, Detail) VALUES (?, ?, ?, ?, ?)"_s);
        for (const QString& subject : subjects) {
            int place = 0;
            for (const QString& text :
                 {when.toString(Moment_Form), QSysInfo::machineHostName(), In_Words(act), subject, detail})
                insert.Bind_Text(++place, text.toUtf8());
            insert.Step();
            insert.Reset();
        }
    });
}

void Note(const foundation::Installation& installation, const desktop::Clock& clock, Act act,
          const QStringList& subjects, const QString& detail) {
    Quietly([&] {
        Add_Changes(installation.Database_Path, act, subjects,
                    detail + In_Another_Database(act, installation), clock.Now());
    });
}

QList<Change> Changes_In(const QString& working_database) {
    const QString list = Changes_Of(working_database);
    if (!QFileInfo::exists(list)) return {};
    const Side_File file(Changes_Kind(), list);
    Engine_Statement rows = file.Prepared(
        u"SELECT Act, Subject, Detail, Happened_At, Workstation FROM Changes ORDER BY Id DESC"_s);
    QList<Change> changes;
    while (rows.Step())
        changes.append({rows.Text(0), rows.Text(1), rows.Text(2),
                        QDateTime::fromString(rows.Text(3), Moment_Form), rows.Text(4)});
    return changes;
}

int Remove_Changes_Before(const QString& working_database, const QDateTime& moment) {
    return Removed(working_database, u"DELETE FROM Changes WHERE Happened_At < ? RETURNING Id"_s,
                   {moment.toString(Moment_Form)});
}

int Remove_Changes_About(const QString& working_database, const QStringList& codes) {
    return Removed(working_database, u"DELETE FROM Changes WHERE Subject = ? RETURNING Id"_s, codes);
}

} // namespace keeping
