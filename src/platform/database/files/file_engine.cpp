#include "platform/database/files/file_engine.h"

#include "platform/basics/system_failure.h"
#include "platform/database/database_file.h"
#include "platform/database/engine_errors.h"
#include "platform/database/hardening.h"

#include <QScopeGuard>
#include <algorithm>
#include <sqlite3.h>

using namespace Qt::StringLiterals;

namespace database {
namespace {

constexpr int Longest_Statement_Ms = 60'000;
constexpr sqlite3_int64 Piece = 1024 * 1024;

int End_If_Too_Long(void* since) {
    return static_cast<QElapsedTimer*>(since)->hasExpired(Longest_Statement_Ms) ? 1 : 0;
}

bool Is_Damage(int result) {
    const int kind = result & 0xff;
    return kind == SQLITE_NOTADB || kind == SQLITE_CORRUPT;
}

void Raise(sqlite3* engine, int result) {
    // The engine knows a full disk, but takes a used-up quota and a bounded file size for a device that
    // fails.
    const bool out_of_room = basics::Number_Of_Last_Failure() == basics::errors::Disk_Full;
    const int kind = result & 0xff;
    if (kind == SQLITE_FULL || (kind == SQLITE_IOERR && out_of_room))
        basics::Raise(basics::errors::Disk_Full);
    if (kind == SQLITE_READONLY || kind == SQLITE_PERM || kind == SQLITE_CANTOPEN)
        basics::Raise(basics::errors::Permission_Denied);
    if (kind == SQLITE_IOERR) basics::Raise(basics::errors::Device_Error);
    const bool noted = (sqlite3_errcode(engine) & 0xff) == kind; // not for a step of a replacement
    try {
        Raise_Engine_Error(noted ? engine : nullptr, result);
    } catch (const basics::Run_Time_Error& error) {
        if (kind == SQLITE_BUSY) throw File_In_Use(error.Number, error.Source, error.Description);
        if (!Is_Damage(result)) throw;
        throw Damaged_File(error.Number, error.Source, error.Description);
    }
}

} // namespace

File_Engine::File_Engine(const QString& file, Access access, int timeout_seconds) {
    Open(file, access, timeout_seconds);
    // Beyond full: a journal's removal is on the disk before a commit is reported.
    Run(u"PRAGMA synchronous = EXTRA"_s);
}

QByteArray File_Engine::Open(const QString& file, Access access, int timeout_seconds) {
    engine.emplace(file, access, Raise);
    const QByteArray header = engine->First_Bytes(Header_Size);
    const bool in_wal_mode = Has_Write_Ahead_Log(header);
    Prepare(timeout_seconds);
    if (in_wal_mode) Refuse_Log_Of_Read_Only_File(engine->Get());
    if (in_wal_mode && Run(u"PRAGMA journal_mode = DELETE"_s) != QStringList{u"delete"_s})
        engine->Check(SQLITE_BUSY);
    return header;
}

// The first question takes the lock, which the transaction keeps; with the second the tables are looked over.
Database_At_Rest::Database_At_Rest(const QString& file, int timeout_seconds) try {
    const QByteArray header = Open(file, Access::Read_Write, timeout_seconds);
    if (!Begins_A_Database(header)) Refuse_What_Is_No_Database(file);
    Run(u"BEGIN"_s);
    Run(u"PRAGMA schema_version"_s);
    Run(u"SELECT count(*) FROM sqlite_master"_s);
} catch (const basics::Run_Time_Error&) {
    Refuse_What_Is_No_Database(file); // tells what the engine has no words for
}

File_Engine::File_Engine(const QByteArray& bytes) {
    engine.emplace(u":memory:"_s, Access::Read_Write, Raise);
    auto* content = reinterpret_cast<unsigned char*>(const_cast<char*>(bytes.data()));
    engine->Check(sqlite3_deserialize(engine->Get(), "main", content, bytes.size(), bytes.size(),
                                      SQLITE_DESERIALIZE_READONLY));
    Prepare(0);
}

void File_Engine::Prepare(int timeout_seconds) {
    waiting.Install(engine->Get(), timeout_seconds);
    since.start();
    sqlite3_progress_handler(engine->Get(), 10'000, End_If_Too_Long, &since);
    Harden(engine->Get());
    Run(u"PRAGMA cell_size_check = ON"_s);
}

QStringList File_Engine::Run(const QString& sql) {
    since.start();
    const auto waited = qScopeGuard([this] { waiting.Is_Over(); });
    QStringList column;
    for (Engine_Statement statement(*engine, sql); statement.Step();)
        column.append(statement.Text(0));
    return column;
}

static sqlite3_file* Opened_File(const Engine_Handle& engine) {
    sqlite3_file* file = nullptr;
    sqlite3_file_control(engine.Get(), "main", SQLITE_FCNTL_FILE_POINTER, &file);
    if (!file || !file->pMethods) engine.Check(SQLITE_CANTOPEN);
    return file;
}

QByteArray File_Engine::Read(qint64 place, qint64 size) const {
    sqlite3_file* file = Opened_File(*engine);
    QByteArray bytes(static_cast<qsizetype>(size), Qt::Uninitialized);
    engine->Check(file->pMethods->xRead(file, bytes.data(), static_cast<int>(size), place));
    return bytes;
}

void File_Engine::Read_All(const Take& take) const {
    sqlite3_file* file = Opened_File(*engine);
    sqlite3_int64 size = 0;
    engine->Check(file->pMethods->xFileSize(file, &size));
    for (sqlite3_int64 place = 0; place < size; place += Piece)
        take(Read(place, std::min(Piece, size - place)));
}

// The engine attaches a file of its own meanwhile, which is otherwise out of the question.
static auto With_Room_To_Attach(sqlite3* engine) {
    const int most = sqlite3_limit(engine, SQLITE_LIMIT_ATTACHED, 1);
    return qScopeGuard([engine, most] { sqlite3_limit(engine, SQLITE_LIMIT_ATTACHED, most); });
}

void File_Engine::Compact_Into(const QString& file) {
    const auto room = With_Room_To_Attach(engine->Get());
    since.start();
    Engine_Statement statement(*engine, u"VACUUM INTO ?1"_s);
    statement.Bind_Text(1, file.toUtf8());
    statement.Step();
}

void Compact(File_Engine& engine) {
    const auto room = With_Room_To_Attach(engine.Handle().Get());
    engine.Run(u"VACUUM"_s);
}

void Replacing_Transaction::Finisher::operator()(sqlite3_backup* backup) const {
    sqlite3_backup_finish(backup);
}

Replacing_Transaction::Replacing_Transaction(File_Engine& source, File_Engine& target)
    : target(target),
      backup(sqlite3_backup_init(target.Handle().Get(), "main", source.Handle().Get(), "main")) {
    if (!backup) target.Handle().Check(sqlite3_errcode(target.Handle().Get()));
    // A step of no pages begins the exclusive transaction, which takes back what a crash left half done, and
    // changes nothing yet.
    target.Handle().Check(sqlite3_backup_step(backup.get(), 0));
}

Replacing_Transaction::~Replacing_Transaction() = default;

void Replacing_Transaction::Commit() {
    constexpr int all_pages = -1;
    target.Handle().Check(sqlite3_backup_step(backup.get(), all_pages));
}

} // namespace database
