#include "platform/database/engine_files.h"

#include <QHash>
#include <algorithm>
#include <cstring>
#include <new>
#include <utility>
#include <vector>

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
        return flushed.kept.Sync(flushed.System(), flags);
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
        File& asked = File::Of(file);
        return asked.kept.Control(asked.System(), operation, argument);
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
    static int Wrap(sqlite3_file* file, Engine_Files& owner, const Open& open) {
        file->pMethods = nullptr; // until it is open
        File& wrapped = File::Of(file);
        const int result = open(wrapped.System());
        if (result != SQLITE_OK) return result;
        new (&wrapped.kept) Kept(owner);
        file->pMethods = &Methods;
        return SQLITE_OK;
    }
};

constexpr sqlite3_int64 Piece_Size = 64 * 1024; // as much as a share gives in one answer; no page is larger
constexpr int Most_Pieces = 64;
constexpr int Smallest_Page = 512;

// Pieces of the file, good as long as its version is the one that was in force when they were read. The
// engine trusts its own pages by that too, and asks for the version at each lock. What the engine writes is
// good from its commit on.
class Pieces {
public:
    static constexpr int Version_Place = 24;
    static constexpr int Version_Size = 16;

    void Take_Version(const char* read) {
        if (version != QByteArrayView(read, Version_Size)) pieces.clear();
        version = QByteArray(read, Version_Size);
        are_good = true;
    }
    void Lock_Is_Gone() {
        if (std::exchange(is_uncommitted, false)) pieces.clear();
        are_good = false;
    }
    bool Are_Good() const { return are_good; }

    const char* Find(sqlite3_int64 place, int count) {
        const auto piece = pieces.constFind(place / Piece_Size);
        if (!are_good || piece == pieces.cend()) return nullptr;
        const sqlite3_int64 offset = place % Piece_Size;
        return offset + count <= piece->size() ? piece->constData() + offset : nullptr;
    }
    void Keep(sqlite3_int64 place, const QByteArray& bytes) {
        if (pieces.size() >= Most_Pieces) pieces.clear();
        pieces.insert(place / Piece_Size, bytes);
    }
    void Write(sqlite3_int64 place, const char* bytes, int count) {
        is_uncommitted = true;
        const auto piece = pieces.find(place / Piece_Size);
        const sqlite3_int64 offset = place % Piece_Size;
        if (piece != pieces.end() && offset <= piece->size() && offset + count <= Piece_Size)
            piece->replace(offset, count, QByteArrayView(bytes, count));
        else if (piece != pieces.end())
            pieces.erase(piece);
        if (place == 0 && count >= Smallest_Page) version = QByteArray(bytes + Version_Place, Version_Size);
    }
    void Is_Committed() { is_uncommitted = false; }
    void Forget() { pieces.clear(); }

private:
    QHash<sqlite3_int64, QByteArray> pieces; // by their number
    QByteArray version;
    bool are_good = false;
    bool is_uncommitted = false;
};

class Main_File {
public:
    explicit Main_File(Engine_Files& owner) : owner(owner) {}

    // The lock that the engine has given up for a lower one already, but not yet for none.
    int Settle(sqlite3_file* system) {
        if (!downgrade_is_due) return SQLITE_OK;
        downgrade_is_due = false;
        return system->pMethods->xUnlock(system, SQLITE_LOCK_SHARED);
    }

    // After a transaction the engine takes two steps with nothing between them.
    int Unlock(sqlite3_file* system, int level) {
        downgrade_is_due = level == SQLITE_LOCK_SHARED;
        if (downgrade_is_due) return SQLITE_OK;
        pieces.Lock_Is_Gone();
        return system->pMethods->xUnlock(system, level);
    }

    int Read(sqlite3_file* system, char* into, int count, sqlite3_int64 place) {
        if (const int result = Settle(system)) return result;
        if (count < Smallest_Page) return Read_Head(system, into, count, place);
        if (!Fetched(system, into, count, place))
            if (const int result = system->pMethods->xRead(system, into, count, place)) return result;
        if (place == 0) pieces.Take_Version(into + Pieces::Version_Place);
        return SQLITE_OK;
    }
    int Write(sqlite3_file* system, const char* bytes, int count, sqlite3_int64 place) {
        pieces.Write(place, bytes, count);
        if (const int result = Settle(system)) return result;
        return system->pMethods->xWrite(system, bytes, count, place);
    }
    int Truncate(sqlite3_file* system, sqlite3_int64 size) {
        pieces.Forget();
        if (const int result = Settle(system)) return result;
        return system->pMethods->xTruncate(system, size);
    }
    int Sync(sqlite3_file* system, int flags) {
        if (const int result = Settle(system)) return result;
        return system->pMethods->xSync(system, flags);
    }
    int Size(sqlite3_file* system, sqlite3_int64* size) { return system->pMethods->xFileSize(system, size); }
    int Control(sqlite3_file* system, int operation, void* argument) {
        if (operation == SQLITE_FCNTL_COMMIT_PHASETWO) pieces.Is_Committed();
        if (operation == SQLITE_FCNTL_HAS_MOVED) return owner.Has_Moved(system, static_cast<int*>(argument));
        return system->pMethods->xFileControl(system, operation, argument);
    }

private:
    // The version, at each lock, or the file's first bytes, twice as it is opened.
    int Read_Head(sqlite3_file* system, char* into, int count, sqlite3_int64 place) {
        if (place == 0 && count == head.size()) {
            std::memcpy(into, head.constData(), static_cast<std::size_t>(count));
            head.clear();
            return SQLITE_OK;
        }
        const int result = system->pMethods->xRead(system, into, count, place);
        if (result != SQLITE_OK) return result;
        if (place == 0) head = QByteArray(into, count);
        if (place == Pieces::Version_Place && count == Pieces::Version_Size) pieces.Take_Version(into);
        return SQLITE_OK;
    }

    bool Fetched(sqlite3_file* system, char* into, int count, sqlite3_int64 place) {
        if (!pieces.Are_Good() || owner.Has_Log()) return false;
        const char* found = pieces.Find(place, count);
        if (!found && Read_Piece(system, place)) found = pieces.Find(place, count);
        if (found) std::memcpy(into, found, static_cast<std::size_t>(count));
        return found;
    }
    bool Read_Piece(sqlite3_file* system, sqlite3_int64 place) {
        const sqlite3_int64 begin = place - place % Piece_Size;
        sqlite3_int64 size = 0;
        if (system->pMethods->xFileSize(system, &size) != SQLITE_OK || size <= place) return false;
        QByteArray bytes(std::min(Piece_Size, size - begin), Qt::Uninitialized);
        const int count = static_cast<int>(bytes.size());
        if (system->pMethods->xRead(system, bytes.data(), count, begin) != SQLITE_OK) return false;
        pieces.Keep(begin, bytes);
        return true;
    }

    Engine_Files& owner;
    Pieces pieces;
    QByteArray head; // between its two readings
    bool downgrade_is_due = false;
};

// Nobody else touches it: whoever has it open holds the lock that lets one write.
class Journal {
public:
    explicit Journal(Engine_Files& owner) : owner(owner) {}

    // The system's own call takes less than 128 kB at once, and takes more for a full disk.
    int Settle(sqlite3_file* system) {
        for (sqlite3_int64 done = 0; done < waiting.size(); done += Piece_Size) {
            const int count = static_cast<int>(std::min(Piece_Size, waiting.size() - done));
            if (const int result =
                    system->pMethods->xWrite(system, waiting.constData() + done, count, at + done))
                return result;
        }
        waiting.clear();
        return SQLITE_OK;
    }

    int Write(sqlite3_file* system, const char* bytes, int count, sqlite3_int64 place) {
        const bool belongs_to_it = place >= at && place <= at + waiting.size();
        if (!belongs_to_it || place + count > at + Largest)
            if (const int result = Settle(system)) return result;
        is_empty = false;
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
        is_empty = size == 0;
        if (is_empty) waiting.clear();
        if (const int result = Settle(system)) return result;
        return system->pMethods->xTruncate(system, size);
    }

    // That it is empty may reach the disk later. Until then a loss of power takes back the change before,
    // which it does as well where journals are removed; and the next change flushes this file before anything
    // else.
    int Sync(sqlite3_file* system, int flags) {
        if (is_empty && owner.Owes_Flush()) return SQLITE_OK;
        if (const int result = Settle(system)) return result;
        owner.Has_Flushed();
        return system->pMethods->xSync(system, flags);
    }

    int Size(sqlite3_file* system, sqlite3_int64* size) {
        const int result = system->pMethods->xFileSize(system, size);
        if (!waiting.isEmpty()) *size = std::max(*size, at + waiting.size());
        return result;
    }

    int Unlock(sqlite3_file*, int) { return SQLITE_OK; } // never locked
    int Control(sqlite3_file* system, int operation, void* argument) {
        return system->pMethods->xFileControl(system, operation, argument);
    }

private:
    static constexpr sqlite3_int64 Largest = 1024 * 1024;

    Engine_Files& owner;
    QByteArray waiting; // to be written
    sqlite3_int64 at = 0;
    bool is_empty = false;
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
    Pay_Flush();
    sqlite3_vfs_unregister(&own);
}

int Engine_Files::Open(const char* file, sqlite3_file* opened, int flags, int* flags_out) {
    if (flags & SQLITE_OPEN_WAL) {
        has_log = true;
        log.clear();
    }
    if (flags & SQLITE_OPEN_MAIN_DB) {
        log = sqlite3_filename_wal(file);
        log_is_missing = false;
        return Calls<Main_File>::Wrap(opened, *this, [&](sqlite3_file* inner) {
            return system->xOpen(system, file, inner, flags, flags_out);
        });
    }
    if (flags & SQLITE_OPEN_MAIN_JOURNAL)
        return Calls<Journal>::Wrap(
            opened, *this, [&](sqlite3_file* inner) { return Open_Journal(file, inner, flags, flags_out); });
    return system->xOpen(system, file, opened, flags, flags_out);
}

// One that stays has its rights, and its folder's entry is on the disk: opened as it is, the system needn't
// see to either.
int Engine_Files::Open_Journal(const char* file, sqlite3_file* opened, int flags, int* flags_out) {
    journal = file;
    if (journal_stays && (flags & SQLITE_OPEN_CREATE) && Open_Kept_Journal(opened)) {
        if (flags_out) *flags_out = flags;
        return SQLITE_OK;
    }
    return system->xOpen(system, file, opened, flags, flags_out);
}

// As a file of no kind that the system would see to.
bool Engine_Files::Open_Kept_Journal(sqlite3_file* opened) const {
    int got = 0;
    constexpr int as_it_is = SQLITE_OPEN_READWRITE | SQLITE_OPEN_SUBJOURNAL;
    if (system->xOpen(system, journal.constData(), opened, as_it_is, &got) != SQLITE_OK) return false;
    if (got & SQLITE_OPEN_READWRITE) return true;
    opened->pMethods->xClose(opened);
    return false;
}

bool Engine_Files::Owes_Flush() {
    owes_flush = journal_stays;
    return owes_flush;
}

void Engine_Files::Pay_Flush() {
    if (!owes_flush) return;
    owes_flush = false;
    std::vector<sqlite3_int64> room(static_cast<std::size_t>(system->szOsFile) / sizeof(sqlite3_int64) + 1);
    auto* opened = reinterpret_cast<sqlite3_file*>(room.data());
    if (!Open_Kept_Journal(opened)) return; // removed by another program
    opened->pMethods->xSync(opened, SQLITE_SYNC_NORMAL);
    opened->pMethods->xClose(opened);
}

int Engine_Files::Has_Moved(sqlite3_file* file, int* result) {
    constexpr int believed_ms = 250;
    if (seen_in_its_place.isValid() && !seen_in_its_place.hasExpired(believed_ms)) {
        *result = 0;
        return SQLITE_OK;
    }
    const int asked = file->pMethods->xFileControl(file, SQLITE_FCNTL_HAS_MOVED, result);
    if (asked == SQLITE_OK && *result == 0) seen_in_its_place.start();
    return asked;
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
