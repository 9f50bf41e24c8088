#include "keeping/side_file.h"

#include "platform/basics/native_path.h"
#include "platform/database/files/file_rights.h"
#include "platform/database/files/new_file.h"

#include <QFile>
#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace keeping {

using basics::Run_Time_Error;

namespace {

class Later_Version : public Run_Time_Error {
public:
    using Run_Time_Error::Run_Time_Error;
};

void Set_Up(const Side_Kind& kind, database::File_Engine& engine) {
    engine.Run(u"BEGIN IMMEDIATE"_s);
    for (const QString& table : kind.tables)
        engine.Run(table);
    engine.Run(u"PRAGMA application_id = %1"_s.arg(kind.mark));
    engine.Run(u"PRAGMA user_version = %1"_s.arg(kind.version));
    engine.Run(u"COMMIT"_s);
}

// Complete before it has its name: whoever else makes one at the same time finds it so.
void Make(const Side_Kind& kind, const QString& file, const QString& database) {
    database::New_File made(file, basics::Native_Path(database));
    made.Flush_And_Close();
    {
        database::File_Engine engine(made.Path(), database::Access::Read_Write, Longest_Wait);
        Set_Up(kind, engine);
    }
    // A journal of one that has gone would be taken for the new one's.
    if (!QFileInfo::exists(file)) QFile::remove(file + u"-journal"_s);
    made.Move_Unless_Taken();
}

const QString& Made_If_Missing(const Side_Kind& kind, const QString& file, const QString& database) {
    if (!QFileInfo::exists(file)) Make(kind, file, database);
    return file;
}

Side_Look Looked_At(const Side_Kind& kind, const QString& file) {
    Side_File opened(kind, file);
    if (opened.Run(u"PRAGMA quick_check(1)"_s) != QStringList{u"ok"_s})
        return {Side_State::Damaged, kind.what + u" is damaged."_s};
    if (!database::May_Be_Written(file))
        return {Side_State::Read_Only,
                kind.what + u" is read-only for this account: nothing can be added to it."_s};
    return {Side_State::Ready, {}};
}

} // namespace

Side_File::Side_File(const Side_Kind& kind, const QString& file)
    : engine(file, database::Access::Read_Write, Longest_Wait) {
    Require_Its_Kind(kind);
    engine.Run(u"PRAGMA secure_delete = ON"_s);
}

Side_File::Side_File(const Side_Kind& kind, const QString& file, const QString& database)
    : Side_File(kind, Made_If_Missing(kind, file, database)) {
}

void Side_File::Require_Its_Kind(const Side_Kind& kind) {
    using namespace basics::errors;
    if (engine.Run(u"SELECT count(*) FROM sqlite_master"_s) == QStringList{u"0"_s}) Set_Up(kind, engine);
    if (engine.Run(u"PRAGMA application_id"_s).value(0).toInt() != kind.mark)
        throw database::Damaged_File(Engine_Failure, u"Mevo"_s, u"The file is another program's."_s);
    if (engine.Run(u"PRAGMA user_version"_s).value(0).toInt() > kind.version)
        throw Later_Version(Engine_Failure, u"Mevo"_s, u"The file is of a later version of the program."_s);
}

void Side_File::Change(const std::function<void()>& work) {
    engine.Run(u"BEGIN IMMEDIATE"_s);
    work();
    engine.Run(u"COMMIT"_s);
}

Side_Look Look_At(const Side_Kind& kind, const QString& file) {
    if (!QFileInfo::exists(file)) return {};
    try {
        return Looked_At(kind, file);
    } catch (const Later_Version&) {
        return {Side_State::Of_A_Later_Version,
                kind.what + u" was written by a later version of the program, and is left alone."_s};
    } catch (const database::Damaged_File& error) {
        return {Side_State::Damaged, kind.what + u" is damaged: "_s + error.Description};
    } catch (const database::File_In_Use&) {
        return {Side_State::In_Use, kind.what + u" is in use by another computer at this moment."_s};
    } catch (const Run_Time_Error& error) {
        return {Side_State::Unreadable, kind.what + u" can't be used now: "_s + error.Description};
    }
}

bool Quietly(const std::function<void()>& work) {
    try {
        work();
        return true;
    } catch (const std::exception&) {
        return false;
    }
}

QString Beside(const QString& database, const QString& name) {
    return QFileInfo(basics::Native_Path(database)).absolutePath() + u'/' + name;
}

} // namespace keeping
