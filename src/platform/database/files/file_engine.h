#pragma once

#include "platform/basics/run_time_error.h"
#include "platform/database/busy_waiting.h"
#include "platform/database/engine_handle.h"

#include <QElapsedTimer>
#include <QString>
#include <QStringList>
#include <functional>
#include <memory>
#include <optional>

struct sqlite3_backup;

namespace database {

// A file that begins as a database does, but that the engine can't make sense of.
class Damaged_File : public basics::Run_Time_Error {
public:
    using Run_Time_Error::Run_Time_Error;
};

// A file that others kept locked until the wait was over.
class File_In_Use : public basics::Run_Time_Error {
public:
    using Run_Time_Error::Run_Time_Error;
};

// The engine on one file, for copying it: its locks, and the file's bytes under them. The bytes are read
// through the engine's own handle, since on POSIX systems a second one would drop the locks when it is
// closed.
//
// Failures are run-time errors: those of the data layer, or 61, 70 and 57 where the disk has no room, the
// account may not write, or the device failed.
class File_Engine {
public:
    // A file that is written through a log beside it is turned back into one file.
    File_Engine(const QString& file, Access access, int timeout_seconds);
    // On the bytes of a database, which outlive it and are only read.
    explicit File_Engine(const QByteArray& bytes);
    File_Engine(const File_Engine&) = delete;
    File_Engine& operator=(const File_Engine&) = delete;

    // Runs one statement of the engine's own dialect; gives the first column. Ended after a minute.
    QStringList Run(const QString& sql);

    using Take = std::function<void(const QByteArray&)>;
    // Hands over the file's bytes from first to last. A lock must be held.
    void Read_All(const Take& take) const;

    // So many of the file's bytes from a place on. A lock must be held.
    QByteArray Read(qint64 place, qint64 size) const;

    // Writes the database into another file, which is empty or missing, without a byte of what was deleted.
    // Rows keep their numbers.
    void Compact_Into(const QString& file);

    const Engine_Handle& Handle() const { return *engine; }

protected:
    // Opens it as it is; a file that is written through a log is turned back. Gives its first bytes.
    File_Engine() = default;
    QByteArray Open(const QString& file, Access access, int timeout_seconds);

private:
    void Prepare(int timeout_seconds);

    QElapsedTimer since; // the running statement's start
    Busy_Waiting waiting;
    std::optional<Engine_Handle> engine;
};

// A database as it is between two transactions of those who write it, from the opening to the end: under a
// read lock, so that nobody's is halfway through; one that a crash left half done is taken back first.
// Refuses what is no database as `Refuse_What_Is_No_Database` does.
class Database_At_Rest : public File_Engine {
public:
    Database_At_Rest(const QString& file, int timeout_seconds);
};

// Writes the open file anew, without what its unused pages held. In no transaction.
void Compact(File_Engine& engine);

// Replaces everything that is in the database `target` by what is in `source`, in one transaction of the
// target: other programs see the old content or the new one, and so does whoever opens the file after a
// crash.
class Replacing_Transaction {
public:
    // Waits until nobody else is in the target, and keeps them out from here on.
    Replacing_Transaction(File_Engine& source, File_Engine& target);
    ~Replacing_Transaction(); // without Commit the target stays as it was
    Replacing_Transaction(const Replacing_Transaction&) = delete;
    Replacing_Transaction& operator=(const Replacing_Transaction&) = delete;

    // Keeps all others out of the target from here on; waits for them. False if the target is too damaged to
    // hold a transaction.
    bool Lock();
    void Commit();

private:
    struct Finisher {
        void operator()(sqlite3_backup* backup) const;
    };
    File_Engine& target;
    std::unique_ptr<sqlite3_backup, Finisher> backup;
};

} // namespace database
