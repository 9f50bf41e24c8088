#pragma once

#include <QByteArray>
#include <QElapsedTimer>
#include <sqlite3.h>

namespace database {

// How one engine reaches its database file and its journal: by the system's own calls, but with fewer of
// them, since each is a round trip where the file lies on a share. What reaches the disk, and in which order
// it is flushed, stays the engine's.
//
// - A journal's pieces are put together in memory and written at its next flush, before which nothing is sure
//   of them in any case: no page of the database is written earlier.
// - That a journal was emptied is flushed once for changes that follow each other, behind the last.
// - Pages are read some together, and are good as long as the file's version is.
// - Whether the file still stands under its name is asked four times a second at most, and a log beside a
// file
//   that has a journal is looked for once.
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

    void Look_Anew() { seen_in_its_place.invalidate(); } // whether the file stands under its name
    void Pay_Flush();                                    // the one that is left over, if there is one

    // What lies behind the engine's calls.
    int Open(const char* file, sqlite3_file* opened, int flags, int* flags_out);
    int Exists(const char* file, int flags, int* result);
    int Has_Moved(sqlite3_file* file, int* result);
    bool Owes_Flush();                       // of an emptied journal; false: it is due now
    bool Has_Log() const { return has_log; } // then the file's version tells nothing
    void Has_Flushed() { owes_flush = false; }

private:
    int Open_Journal(const char* file, sqlite3_file* opened, int flags, int* flags_out);
    bool Open_Kept_Journal(sqlite3_file* opened) const;

    sqlite3_vfs* const system;
    sqlite3_vfs own;
    QByteArray name;
    QByteArray log;
    QByteArray journal;
    QElapsedTimer seen_in_its_place;
    bool owes_flush = false;
    bool log_is_missing = false;
    bool has_log = false;
    bool journal_stays = false;
};

} // namespace database
