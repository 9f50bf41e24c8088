#include "platform/database/file_engine.h"

#include "platform/database/database_file.h"
#include "platform/database/engine_errors.h"
#include "platform/database/hardening.h"
#include "platform/database/system_failure.h"

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

} // namespace

void File_Engine::Closer::operator()(sqlite3* engine) const {
    sqlite3_close(engine);
}

File_Engine::File_Engine(const QString& file, Access access, int timeout_seconds) {
    const bool in_wal_mode = Has_Write_Ahead_Log(file);
    const int flags = access == Access::Read_Only ? SQLITE_OPEN_READONLY : SQLITE_OPEN_READWRITE;
    sqlite3* opened = nullptr;
    const int result =
        sqlite3_open_v2(file.toUtf8().constData(), &opened, flags | SQLITE_OPEN_NOMUTEX, nullptr);
    engine.reset(opened);
    if (result != SQLITE_OK) Raise(result);
    sqlite3_extended_result_codes(opened, 1);
    waiting.Install(opened, timeout_seconds);
    since.start();
    sqlite3_progress_handler(opened, 10'000, End_If_Too_Long, &since);
    Harden(opened);
    Run("PRAGMA cell_size_check = ON");
    // Beyond full: a journal's removal is on the disk before a commit is reported.
    Run("PRAGMA synchronous = EXTRA");
    if (in_wal_mode) Refuse_Log_Of_Read_Only_File(opened);
    if (in_wal_mode && Run("PRAGMA journal_mode = DELETE") != QStringList{u"delete"_s}) Raise(SQLITE_BUSY);
}

File_Engine::~File_Engine() = default;

void File_Engine::Raise(int result) const {
    // The engine knows a full disk, but takes a used-up quota and a bounded file size for a device that
    // fails.
    const bool out_of_room = Number_Of_Last_Failure() == basics::errors::Disk_Full;
    const int kind = result & 0xff;
    if (kind == SQLITE_FULL || (kind == SQLITE_IOERR && out_of_room))
        basics::Raise(basics::errors::Disk_Full);
    if (kind == SQLITE_READONLY || kind == SQLITE_PERM || kind == SQLITE_CANTOPEN)
        basics::Raise(basics::errors::Permission_Denied);
    if (kind == SQLITE_IOERR) basics::Raise(basics::errors::Device_Error);
    const bool noted = (sqlite3_errcode(Handle()) & 0xff) == kind; // not for a step of a replacement
    try {
        Raise_Engine_Error(noted ? Handle() : nullptr, result);
    } catch (const basics::Run_Time_Error& error) {
        if (!Is_Damage(result)) throw;
        throw Damaged_File(error.Number, error.Source, error.Description);
    }
}

QStringList File_Engine::Run(const char* sql) {
    since.start();
    sqlite3_stmt* statement = nullptr;
    int result = sqlite3_prepare_v2(Handle(), sql, -1, &statement, nullptr);
    QStringList column;
    if (result == SQLITE_OK) {
        while ((result = sqlite3_step(statement)) == SQLITE_ROW)
            column.append(
                QString::fromUtf8(reinterpret_cast<const char*>(sqlite3_column_text(statement, 0))));
    }
    sqlite3_finalize(statement);
    if (result != SQLITE_DONE) Raise(result);
    return column;
}

void File_Engine::Read_All(const Take& take) const {
    sqlite3_file* file = nullptr;
    sqlite3_file_control(Handle(), "main", SQLITE_FCNTL_FILE_POINTER, &file);
    if (!file || !file->pMethods) Raise(SQLITE_CANTOPEN);
    sqlite3_int64 size = 0;
    if (const int result = file->pMethods->xFileSize(file, &size); result != SQLITE_OK) Raise(result);
    for (sqlite3_int64 place = 0; place < size; place += Piece) {
        QByteArray bytes(static_cast<qsizetype>(std::min(Piece, size - place)), Qt::Uninitialized);
        const int result = file->pMethods->xRead(file, bytes.data(), static_cast<int>(bytes.size()), place);
        if (result != SQLITE_OK) Raise(result);
        take(bytes);
    }
}

void Replacing_Transaction::Finisher::operator()(sqlite3_backup* backup) const {
    sqlite3_backup_finish(backup);
}

Replacing_Transaction::Replacing_Transaction(File_Engine& source, File_Engine& target)
    : target(target), backup(sqlite3_backup_init(target.Handle(), "main", source.Handle(), "main")) {
    if (!backup) target.Raise(sqlite3_errcode(target.Handle()));
    // A step of no pages begins the exclusive transaction, which takes back what a crash left half done, and
    // changes nothing yet.
    const int result = sqlite3_backup_step(backup.get(), 0);
    if (result != SQLITE_OK && result != SQLITE_DONE) target.Raise(result);
}

Replacing_Transaction::~Replacing_Transaction() = default;

void Replacing_Transaction::Commit() {
    constexpr int all_pages = -1;
    const int result = sqlite3_backup_step(backup.get(), all_pages);
    if (result != SQLITE_DONE) target.Raise(result);
}

} // namespace database
