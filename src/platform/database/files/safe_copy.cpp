#include "platform/database/files/safe_copy.h"

#include "platform/basics/native_path.h"
#include "platform/basics/run_time_error.h"
#include "platform/database/database_file.h"
#include "platform/database/engine_errors.h"
#include "platform/database/files/file_engine.h"
#include "platform/database/files/kept_copies.h"

#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace database {
namespace {

using basics::Native_Path;

void Refuse_Impossible(const QString& source, const QString& target) {
    const QFileInfo from(source);
    const QFileInfo to(target);
    if (!from.exists()) basics::Raise(basics::errors::File_Not_Found);
    if (Is_Path_Too_Long(target))
        throw basics::Run_Time_Error(basics::errors::Device_Error, u"Mevo"_s,
                                     u"Device I/O error: the path is too long for a database"_s);
    if (!to.exists()) return;
    const bool onto_itself = from.canonicalFilePath() == to.canonicalFilePath();
    const bool open_to_us = to.isFile() && to.isReadable() && to.isWritable();
    if (onto_itself || !open_to_us) basics::Raise(basics::errors::Permission_Denied);
}

void Write_Copy(const QString& source, New_File& copy, int timeout_seconds) {
    {
        const Database_At_Rest engine(source, timeout_seconds);
        engine.Read_All([&copy](const QByteArray& bytes) { copy.Write(bytes); });
    }
    copy.Flush_And_Close();
}

void Require_Sound(const QString& file, const Tables& tables) {
    const File_Look look = Look_Into(file);
    if (!look.damage.isEmpty()) Raise_Engine_Error(errors::Engine_Failure, look.damage);
    const QString lacking = Lacking(look.tables, tables).value(0);
    if (lacking.contains(u'.')) Raise_Engine_Error(errors::Unknown_Name, u"no such column: "_s + lacking);
    if (!lacking.isEmpty()) Raise_Engine_Error(errors::Unknown_Table, u"no such table: "_s + lacking);
}

void Write_Plain_Copy(const QString& file, New_File& copy) {
    constexpr qint64 piece = 1024 * 1024;
    QFile opened(file);
    if (!opened.open(QIODevice::ReadOnly)) basics::Raise(basics::errors::Permission_Denied);
    while (!opened.atEnd()) {
        const QByteArray bytes = opened.read(piece);
        if (bytes.isEmpty()) basics::Raise(basics::errors::Device_Error);
        copy.Write(bytes);
    }
}

// Keeps the target's present content; null where nothing is kept. It is called when nobody else can change
// it.
using Keep = std::function<std::unique_ptr<Kept_Copy>(const Kept_Copy::Write&)>;

void Stay(const std::unique_ptr<Kept_Copy>& kept) {
    if (kept) kept->Stay();
}

// A database that other programs may have open, with all of them kept out.
struct Live_Target {
    Live_Target(File_Engine& fresh, const QString& file, int timeout_seconds)
        : engine(file, Access::Read_Write, timeout_seconds), transaction(fresh, engine) {}
    File_Engine engine;
    Replacing_Transaction transaction;
};

// Null if the file isn't fit to hold a transaction.
std::unique_ptr<Live_Target> Locked(File_Engine& fresh, const QString& target, int timeout_seconds) {
    try {
        return std::make_unique<Live_Target>(fresh, target, timeout_seconds);
    } catch (const Damaged_File&) {
        return nullptr;
    }
}

bool Replace_In_Place(const QString& fresh, const QString& target, const Keep& keep, int timeout_seconds) {
    if (!Looks_Like_A_Database(target)) return false;
    File_Engine source(fresh, Access::Read_Only, 0);
    const auto live = Locked(source, target, timeout_seconds);
    if (!live) return false;
    const auto kept = keep([&live](New_File& copy) {
        live->engine.Read_All([&copy](const QByteArray& bytes) { copy.Write(bytes); });
    });
    live->transaction.Commit();
    Stay(kept);
    return true;
}

void Put_In_Place(New_File& fresh, const QString& target, const Keep& keep, int timeout_seconds) {
    if (Replace_In_Place(fresh.Path(), target, keep, timeout_seconds)) return;
    std::unique_ptr<Kept_Copy> kept;
    if (QFileInfo::exists(target)) kept = keep([&target](New_File& copy) { Write_Plain_Copy(target, copy); });
    // Left beside a file that has gone, or that the engine refuses, they would be taken for the new one's.
    for (const QString& beside : {u"-journal"_s, u"-wal"_s, u"-shm"_s})
        QFile::remove(target + beside);
    fresh.Move_To_Its_Place();
    Stay(kept);
}

} // namespace

void Safe_Copies::Copy(const QString& source, const QString& target) {
    const QString from = Native_Path(source);
    const QString to = basics::Native_Target(target);
    Refuse_Impossible(from, to);
    New_File copy(to, from);
    Write_Copy(from, copy, timeout_seconds);
    const Keep nothing = [](const Kept_Copy::Write&) { return nullptr; };
    Put_In_Place(copy, to, nothing, timeout_seconds);
}

void Rewrite(const QString& database, const std::function<void(File_Engine&)>& work, int timeout_seconds) {
    constexpr qint64 header_size = 100; // the count of changes is in it
    const QString file = Native_Path(database);
    New_File copy(file, file);
    Write_Copy(file, copy, timeout_seconds);
    New_File fresh(file, file);
    fresh.Flush_And_Close();
    QByteArray header;
    {
        File_Engine engine(copy.Path(), Access::Read_Write, 0);
        header = engine.Read(0, header_size);
        work(engine);
        engine.Compact_Into(fresh.Path());
    }
    Require_Sound(fresh.Path(), {});
    File_Engine source(fresh.Path(), Access::Read_Only, 0);
    Live_Target live(source, file, timeout_seconds);
    if (live.engine.Read(0, header_size) != header)
        throw File_In_Use(errors::Engine_Failure, u"Mevo"_s, u"The file was written to meanwhile."_s);
    live.transaction.Commit();
}

void Safe_Copies::Replace(const Replacement& order) {
    const QString from = Native_Path(order.source);
    const QString to = Native_Path(order.target);
    Refuse_Impossible(from, to);
    New_File copy(to, from);
    Write_Copy(from, copy, timeout_seconds);
    Require_Sound(copy.Path(), order.tables);
    const Keep keep = [&order](const Kept_Copy::Write& write) {
        return std::make_unique<Kept_Copy>(order, write);
    };
    Put_In_Place(copy, to, keep, timeout_seconds);
}

} // namespace database
