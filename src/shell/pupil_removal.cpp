#include "shell/pupil_removal.h"

#include "keeping/change_list.h"
#include "keeping/earlier_takings.h"
#include "platform/basics/native_path.h"
#include "platform/basics/run_time_error.h"
#include "platform/basics/text_order.h"
#include "platform/database/database_file.h"
#include "platform/database/files/file_engine.h"
#include "platform/database/files/kept_copies.h"
#include "platform/database/files/safe_copy.h"

#include <QDir>
#include <QMap>
#include <QSet>
#include <algorithm>

using namespace Qt::StringLiterals;

namespace shell {

namespace {

constexpr int To_Look = 1;         // seconds, for a file in use
constexpr QChar Between = u'\x1f'; // no program writes it into a name

QList<Gone_Pupil> Everyone_In(const QString& file) {
    database::Refuse_What_Is_No_Database(file);
    database::File_Engine engine(file, database::Access::Read_Only, To_Look);
    QList<Gone_Pupil> everyone;
    for (const QString& row : engine.Run(
             u"SELECT StudentCode || char(31) || coalesce(Surname, '') || char(31) || coalesce(Forename, '') "
             "|| char(31) || coalesce(DOB, '') FROM Mevo_Pupils WHERE StudentCode IS NOT NULL"_s)) {
        const QStringList cells = row.split(Between);
        everyone.append({cells.value(0), cells.value(1), cells.value(2), cells.value(3), 1});
    }
    return everyone;
}

QString Quoted_Text(QString text) {
    return u'\'' + text.replace(u'\'', u"''"_s) + u'\'';
}

// Whatever tables the file has: one may come from another version.
void Delete_Rows(database::File_Engine& engine, const QString& code) {
    const QStringList tables = engine.Run(
        u"SELECT t.name FROM sqlite_master AS t, pragma_table_info(t.name) AS c WHERE t.type = 'table' AND "
        "c.name = 'StudentCode' COLLATE NOCASE"_s);
    for (const QString& table : tables)
        engine.Run(u"DELETE FROM "_s + database::Quoted(table) + u" WHERE StudentCode = "_s +
                   Quoted_Text(code) + u" COLLATE NOCASE"_s);
}

void Take_Out_Of(const QString& file, const Removal& removal) {
    database::Rewrite(
        file, [&](database::File_Engine& engine) { Delete_Rows(engine, removal.code); },
        removal.longest_wait);
}

void Require_That_They_Are_Gone(const QString& file, const QString& code) {
    database::File_Engine engine(file, database::Access::Read_Only, To_Look);
    const QStringList found = engine.Run(u"SELECT count(*) FROM Mevo_Pupils WHERE StudentCode = "_s +
                                         Quoted_Text(code) + u" COLLATE NOCASE"_s);
    if (found != QStringList{u"0"_s})
        throw basics::Run_Time_Error(basics::errors::Permission_Denied, u"Mevo"_s,
                                     u"the pupil is registered in it, and must be deleted first."_s);
}

int Compare(const QString& left, const QString& right) {
    return basics::Compare_Names(left.toStdString(), right.toStdString());
}

// The work on one file after the other; what fails is told.
class Told {
public:
    void Do(const QString& file, const std::function<void()>& work) {
        const QString name = QDir::toNativeSeparators(file);
        try {
            work();
        } catch (const database::File_In_Use&) {
            in_use = true;
            failures.append(name + u" is in use by others. Please repeat this when nobody works with it."_s);
        } catch (const basics::Run_Time_Error& error) {
            failures.append(name + u" couldn't be changed: "_s + error.Description);
        }
    }
    QStringList failures;
    bool in_use = false;
};

} // namespace

QList<Gone_Pupil> Find_Gone_Pupils(const QString& working, const QStringList& files) {
    QSet<QString> there;
    for (const Gone_Pupil& pupil : Everyone_In(basics::Native_Path(working)))
        there.insert(pupil.code.toUpper());
    QMap<QString, Gone_Pupil> gone; // as the first of the files names them
    for (const QString& file : files)
        keeping::Quietly([&] {
            for (const Gone_Pupil& pupil : Everyone_In(basics::Native_Path(file))) {
                const QString key = pupil.code.toUpper();
                if (there.contains(key)) continue;
                if (gone.contains(key))
                    ++gone[key].files;
                else
                    gone.insert(key, pupil);
            }
        });
    QList<Gone_Pupil> found = gone.values();
    std::stable_sort(found.begin(), found.end(), [](const Gone_Pupil& left, const Gone_Pupil& right) {
        const int by_surname = Compare(left.surname, right.surname);
        return by_surname != 0 ? by_surname < 0 : Compare(left.forename, right.forename) < 0;
    });
    return found;
}

QStringList Remove_Everywhere(const Removal& removal) {
    Told told;
    const QString working = basics::Native_Path(removal.working);
    told.Do(working, [&] {
        Require_That_They_Are_Gone(working, removal.code);
        Take_Out_Of(working, removal);
    });
    if (!told.failures.isEmpty()) return told.failures;
    const QStringList codes{removal.code};
    told.Do(keeping::Changes_Of(working), [&] { keeping::Remove_Changes_About(working, codes); });
    QStringList companions{keeping::Companion_Of(working)};
    for (const QString& file : removal.files)
        companions.append(database::Companion_Of_Archive(basics::Native_Path(file)));
    for (const QString& companion : companions)
        told.Do(companion, [&] { keeping::Remove_Takings(companion, codes); });
    if (told.in_use) return told.failures; // a damaged one never gets better
    for (int done = 0; done < removal.files.size(); ++done) {
        removal.progress(done, static_cast<int>(removal.files.size()));
        const QString file = basics::Native_Path(removal.files[done]);
        told.Do(file, [&] { Take_Out_Of(file, removal); });
    }
    return told.failures;
}

} // namespace shell
