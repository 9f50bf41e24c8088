#pragma once

#include <QByteArray>
#include <sqlite3.h>

namespace database {

// How one engine reaches its database file and its journal: by the system's own calls, but with fewer of
// them, since each is a round trip where the file lies on a share. What reaches the disk, and in which order
// it is flushed, stays the engine's.
//
// - A journal's pieces are put together in memory and written at its next flush, before which nothing is sure
//   of them in any case: no page of the database is written earlier.
// - Pages that follow each other are read together, under the read lock, and forgotten with it.
// - A log beside a file that has a journal is looked for once.
// - The exclusive lock goes in one step, not by way of the read lock.
//
// It outlives the engine.
class Engine_Files {
public:
    Engine_Files();
    ~Engine_Files();
    Engine_Files(const Engine_Files&) = delete;
    Engine_Files& operator=(const Engine_Files&) = delete;

    const char* Name() const { return name.constData(); } // by which the engine is told to use it
    void Keep_Journal() { journal_stays = true; }         // it is truncated, not removed

    // What lies behind the engine's calls.
    int Open(const char* file, sqlite3_file* opened, int flags, int* flags_out);
    int Exists(const char* file, int flags, int* result);

private:
    int Open_Journal(const char* file, sqlite3_file* opened, int flags, int* flags_out) const;

    sqlite3_vfs* const system;
    sqlite3_vfs own;
    QByteArray name;
    QByteArray log;
    bool log_is_missing = false;
    bool journal_stays = false;
};

} // namespace database
