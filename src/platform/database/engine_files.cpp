#include "platform/database/engine_files.h"

#include <algorithm>
#include <cstring>
#include <new>

namespace database {
namespace {

// The system's own file, which comes last, behind what is kept of it.
template<class Kept>
struct Wrapped {
    sqlite3_file file; // what the engine knows of it
    Kept kept;
    alignas(sqlite3_int64) char system[1];

    static Wrapped& Of(sqlite3_file* file) { return *reinterpret_cast<Wrapped*>(file); }
    sqlite3_file* System() { return reinterpret_cast<sqlite3_file*>(system); }
};

// Each of the system's calls, for a file that keeps what `Kept` tells.
template<class Kept>
struct Calls {
    using File = Wrapped<Kept>;

    static int Close(sqlite3_file* file) {
        File& closed = File::Of(file);
        closed.kept
            .~Kept(); // what of a journal wasn't flushed, nobody needs: no page was written that it guards
        return closed.System()->pMethods->xClose(closed.System());
    }
    static int Read(sqlite3_file* file, void* into, int count, sqlite3_int64 place) {
        File& read = File::Of(file);
        return read.kept.Read(read.System(), static_cast<char*>(into), count, place);
    }
    static int Write(sqlite3_file* file, const void* bytes, int count, sqlite3_int64 place) {
        File& written = File::Of(file);
        return written.kept.Write(written.System(), static_cast<const char*>(bytes), count, place);
    }
    static int Truncate(sqlite3_file* file, sqlite3_int64 size) {
        File& cut = File::Of(file);
        return cut.kept.Truncate(cut.System(), size);
    }
    static int Sync(sqlite3_file* file, int flags) {
        File& flushed = File::Of(file);
        const int result = flushed.kept.Settle(flushed.System());
        return result == SQLITE_OK ? flushed.System()->pMethods->xSync(flushed.System(), flags) : result;
    }
    static int Size(sqlite3_file* file, sqlite3_int64* size) {
        File& asked = File::Of(file);
        return asked.kept.Size(asked.System(), size);
    }
    static int Lock(sqlite3_file* file, int level) {
        File& locked = File::Of(file);
        const int result = locked.kept.Settle(locked.System());
        return result == SQLITE_OK ? locked.System()->pMethods->xLock(locked.System(), level) : result;
    }
    static int Unlock(sqlite3_file* file, int level) {
        File& unlocked = File::Of(file);
        return unlocked.kept.Unlock(unlocked.System(), level);
    }
    static int Check_Reserved(sqlite3_file* file, int* result) {
        sqlite3_file* system = File::Of(file).System();
        return system->pMethods->xCheckReservedLock(system, result);
    }
    static int Control(sqlite3_file* file, int operation, void* argument) {
        sqlite3_file* system = File::Of(file).System();
        return system->pMethods->xFileControl(system, operation, argument);
    }
    static int Sector_Size(sqlite3_file* file) {
        sqlite3_file* system = File::Of(file).System();
        return system->pMethods->xSectorSize(system);
    }
    static int Characteristics(sqlite3_file* file) {
        sqlite3_file* system = File::Of(file).System();
        // A journal is closed at the end of each transaction, on every system: one that is kept open couldn't
        // be removed by programs that do so.
        return system->pMethods->xDeviceCharacteristics(system) & ~SQLITE_IOCAP_UNDELETABLE_WHEN_OPEN;
    }
    static int Map(sqlite3_file* file, int page, int size, int extend, void volatile** mapped) {
        sqlite3_file* system = File::Of(file).System();
        return system->pMethods->xShmMap(system, page, size, extend, mapped);
    }
    static int Map_Lock(sqlite3_file* file, int offset, int count, int flags) {
        sqlite3_file* system = File::Of(file).System();
        return system->pMethods->xShmLock(system, offset, count, flags);
    }
    static void Map_Barrier(sqlite3_file* file) {
        sqlite3_file* system = File::Of(file).System();
        system->pMethods->xShmBarrier(system);
    }
    static int Unmap(sqlite3_file* file, int remove) {
        sqlite3_file* system = File::Of(file).System();
        return system->pMethods->xShmUnmap(system, remove);
    }

    static constexpr sqlite3_io_methods Methods = {
        2,      Close,          Read,    Write,       Truncate,        Sync, Size,     Lock,
        Unlock, Check_Reserved, Control, Sector_Size, Characteristics, Map,  Map_Lock, Map_Barrier,
        Unmap,  nullptr,        nullptr,
    };

    // `open` opens the system's file.
    template<class Open>
    static int Wrap(sqlite3_file* file, const Open& open) {
        file->pMethods = nullptr; // until it is open
        File& wrapped = File::Of(file);
        const int result = open(wrapped.System());
        if (result != SQLITE_OK) return result;
        new (&wrapped.kept) Kept;
        file->pMethods = &Methods;
        return SQLITE_OK;
    }
};

constexpr sqlite3_int64 Longest_Piece = 64 * 1024;

class Main_File {
public:
    // The lock that the engine has given up for a lower one already, but not yet for none.
    int Settle(sqlite3_file* system) {
        if (!downgrade_is_due) return SQLITE_OK;
        downgrade_is_due = false;
        return system->pMethods->xUnlock(system, SQLITE_LOCK_SHARED);
    }

    // After a transaction the engine takes two steps with nothing between them.
    int Unlock(sqlite3_file* system, int level) {
        Forget();
        downgrade_is_due = level == SQLITE_LOCK_SHARED;
        return downgrade_is_due ? SQLITE_OK : system->pMethods->xUnlock(system, level);
    }

    int Read(sqlite3_file* system, char* into, int count, sqlite3_int64 place) {
        if (const int result = Settle(system)) return result;
        if (place >= at && place + count <= at + ahead.size()) {
            std::memcpy(into, ahead.constData() + (place - at), static_cast<std::size_t>(count));
            expected = std::max(expected, place + count);
            return SQLITE_OK;
        }
        const bool is_page = count >= smallest_page;
        length = is_page && place == expected ? std::min(2 * length, Longest_Piece) : count;
        if (is_page) expected = place + count;
        if (length > count && Read_Ahead(system, place)) return Read(system, into, count, place);
        return system->pMethods->xRead(system, into, count, place);
    }

    int Write(sqlite3_file* system, const char* bytes, int count, sqlite3_int64 place) {
        Forget();
        if (const int result = Settle(system)) return result;
        return system->pMethods->xWrite(system, bytes, count, place);
    }
    int Truncate(sqlite3_file* system, sqlite3_int64 size) {
        Forget();
        if (const int result = Settle(system)) return result;
        return system->pMethods->xTruncate(system, size);
    }
    int Size(sqlite3_file* system, sqlite3_int64* size) { return system->pMethods->xFileSize(system, size); }

private:
    static constexpr int smallest_page = 512;

    bool Read_Ahead(sqlite3_file* system, sqlite3_int64 place) {
        sqlite3_int64 size = 0;
        if (system->pMethods->xFileSize(system, &size) != SQLITE_OK) return false;
        ahead.resize(std::max<sqlite3_int64>(0, std::min(length, size - place)));
        at = place;
        const int count = static_cast<int>(ahead.size());
        const bool is_read = count >= smallest_page &&
                             system->pMethods->xRead(system, ahead.data(), count, place) == SQLITE_OK;
        if (!is_read) Forget();
        return is_read;
    }
    void Forget() {
        ahead.clear();
        expected = -1;
    }

    QByteArray ahead; // read under the lock that is held
    sqlite3_int64 at = 0;
    sqlite3_int64 expected = -1; // where the next page begins, if pages are read one behind the other
    sqlite3_int64 length = 0;
    bool downgrade_is_due = false;
};

// Nobody else touches it: whoever has it open holds the lock that lets one write.
class Journal {
public:
    int Settle(sqlite3_file* system) {
        if (waiting.isEmpty()) return SQLITE_OK;
        const int result =
            system->pMethods->xWrite(system, waiting.constData(), static_cast<int>(waiting.size()), at);
        if (result == SQLITE_OK) waiting.clear();
        return result;
    }

    int Write(sqlite3_file* system, const char* bytes, int count, sqlite3_int64 place) {
        const bool belongs_to_it = place >= at && place <= at + waiting.size();
        if (!belongs_to_it || place + count > at + Largest)
            if (const int result = Settle(system)) return result;
        if (waiting.isEmpty()) at = place;
        const sqlite3_int64 offset = place - at;
        if (offset + count > waiting.size()) waiting.resize(offset + count);
        std::memcpy(waiting.data() + offset, bytes, static_cast<std::size_t>(count));
        return SQLITE_OK;
    }

    // The engine looks behind a journal's end too.
    int Read(sqlite3_file* system, char* into, int count, sqlite3_int64 place) {
        sqlite3_int64 size = 0;
        if (const int result = Size(system, &size)) return result;
        if (place >= size) {
            std::memset(into, 0, static_cast<std::size_t>(count));
            return SQLITE_IOERR_SHORT_READ;
        }
        const sqlite3_int64 begin = std::max(place, at);
        const sqlite3_int64 end = std::min(place + count, at + waiting.size());
        int result = SQLITE_OK;
        if (begin > place || end < place + count)
            result = system->pMethods->xRead(system, into, count, place);
        if (begin < end)
            std::memcpy(into + (begin - place), waiting.constData() + (begin - at),
                        static_cast<std::size_t>(end - begin));
        return result == SQLITE_IOERR_SHORT_READ && place + count <= size ? SQLITE_OK : result;
    }

    int Truncate(sqlite3_file* system, sqlite3_int64 size) {
        if (size == 0) waiting.clear();
        if (const int result = Settle(system)) return result;
        return system->pMethods->xTruncate(system, size);
    }

    int Size(sqlite3_file* system, sqlite3_int64* size) {
        const int result = system->pMethods->xFileSize(system, size);
        if (!waiting.isEmpty()) *size = std::max(*size, at + waiting.size());
        return result;
    }

    int Unlock(sqlite3_file*, int) { return SQLITE_OK; } // never locked

private:
    static constexpr sqlite3_int64 Largest = 1024 * 1024;

    QByteArray waiting; // to be written
    sqlite3_int64 at = 0;
};

Engine_Files& Owner(sqlite3_vfs* vfs) {
    return *static_cast<Engine_Files*>(vfs->pAppData);
}

} // namespace

Engine_Files::Engine_Files() : system(sqlite3_vfs_find(nullptr)), own(*system) {
    name = "engine-" + QByteArray::number(reinterpret_cast<quintptr>(this), 16);
    own.iVersion = 2;
    own.szOsFile += static_cast<int>(std::max(sizeof(Wrapped<Main_File>), sizeof(Wrapped<Journal>)));
    own.pNext = nullptr;
    own.zName = name.constData();
    own.pAppData = this;
    own.xOpen = [](sqlite3_vfs* vfs, const char* file, sqlite3_file* opened, int flags, int* flags_out) {
        return Owner(vfs).Open(file, opened, flags, flags_out);
    };
    own.xAccess = [](sqlite3_vfs* vfs, const char* file, int flags, int* result) {
        return Owner(vfs).Exists(file, flags, result);
    };
    constexpr int not_for_others = 0;
    sqlite3_vfs_register(&own, not_for_others);
}

Engine_Files::~Engine_Files() {
    sqlite3_vfs_unregister(&own);
}

int Engine_Files::Open(const char* file, sqlite3_file* opened, int flags, int* flags_out) {
    if (flags & SQLITE_OPEN_WAL) log.clear();
    if (flags & SQLITE_OPEN_MAIN_DB) {
        log = sqlite3_filename_wal(file);
        log_is_missing = false;
        return Calls<Main_File>::Wrap(opened, [&](sqlite3_file* inner) {
            return system->xOpen(system, file, inner, flags, flags_out);
        });
    }
    if (flags & SQLITE_OPEN_MAIN_JOURNAL)
        return Calls<Journal>::Wrap(
            opened, [&](sqlite3_file* inner) { return Open_Journal(file, inner, flags, flags_out); });
    return system->xOpen(system, file, opened, flags, flags_out);
}

// One that stays has its rights, and its folder's entry is on the disk: opened as it is, the system needn't
// see to either.
int Engine_Files::Open_Journal(const char* file, sqlite3_file* opened, int flags, int* flags_out) const {
    if (journal_stays && (flags & SQLITE_OPEN_CREATE)) {
        int got = 0;
        const int result =
            system->xOpen(system, file, opened, SQLITE_OPEN_READWRITE | SQLITE_OPEN_SUBJOURNAL, &got);
        if (result == SQLITE_OK && (got & SQLITE_OPEN_READWRITE)) {
            if (flags_out) *flags_out = flags;
            return SQLITE_OK;
        }
        if (result == SQLITE_OK) opened->pMethods->xClose(opened);
    }
    return system->xOpen(system, file, opened, flags, flags_out);
}

// A file that is turned to a log says so in its first page, which the engine reads whenever another has
// written.
int Engine_Files::Exists(const char* file, int flags, int* result) {
    const bool is_log = flags == SQLITE_ACCESS_EXISTS && !log.isEmpty() && log == file;
    if (is_log && log_is_missing) {
        *result = 0;
        return SQLITE_OK;
    }
    const int done = system->xAccess(system, file, flags, result);
    if (is_log) log_is_missing = done == SQLITE_OK && *result == 0;
    return done;
}

} // namespace database
