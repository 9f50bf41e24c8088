// Makes a local folder as slow as a share: each operation on a file below SHARE_FOLDER for which a client
// would have to ask its server waits SHARE_DELAY_US microseconds first (1000 unless told), and is counted.
// Preloaded into any program:
//   SHARE_FOLDER=/srv/mevo SHARE_REPORT=trips.txt LD_PRELOAD=build/bin/libslow_share.so build/bin/mevo
// At its exit the counts are appended to SHARE_REPORT. Each single trip is told to SHARE_LOG, with the file
// that it asks about, and each moment at which the program asked for the counts.
//
// Counted: open, stat and access by path, locks, reads, writes, flushes, truncation, unlink, rename. Not
// counted: fstat, seek and close, which clients answer themselves. What a client's cache would answer, reads
// under a lease, is counted: so a figure is on the high side.

#include "slow_share.h"

#include <array>
#include <atomic>
#include <cerrno>
#include <climits>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <dlfcn.h>
#include <fcntl.h>
#include <string>
#include <sys/stat.h>
#include <tuple>
#include <unistd.h>

namespace {

enum Kind { Opening, Look, Lock, Read, Write, Flush, Other, Kinds };
constexpr const char* Names[Kinds] = {"open", "look", "lock", "read", "write", "flush", "other"};
enum Of : unsigned char { Elsewhere, A_Database, The_Folder, Beside };
constexpr int Most_Descriptors = 65536;

struct Server {
    std::atomic<long> trips[Kinds] = {};
    std::atomic<long> beside = 0;
    std::array<unsigned char, Most_Descriptors> files{};
};

Server& The_Server() {
    static Server server; // what is preloaded is handed nothing
    return server;
}

// A database with its journal, whose name begins alike; the folder itself; or what else lies on the share.
Of Of_Path(const char* path) {
    const char* folder = std::getenv("SHARE_FOLDER");
    const std::size_t length = folder ? std::strlen(folder) : 0;
    if (!folder || !path || std::strncmp(path, folder, length) != 0) return Elsewhere;
    if (std::strlen(path) <= length + 1) return The_Folder;
    return std::strstr(path, ".mdb") ? A_Database : Beside;
}

Of Of_File(int file) {
    return file >= 0 && file < Most_Descriptors ? Of(The_Server().files[static_cast<unsigned>(file)])
                                                : Elsewhere;
}

FILE* Log() {
    const char* name = std::getenv("SHARE_LOG");
    static FILE* const log = name ? std::fopen(name, "a") : nullptr;
    return log;
}

void Tell(const char* what, bool is_beside, const char* path) {
    if (!Log()) return;
    std::fprintf(Log(), "%s%s %s\n", is_beside ? "beside " : "", what, path);
    std::fflush(Log());
}

void Ask(Of of, Kind kind, const char* path) {
    if (of == Elsewhere) return;
    const int kept = errno;
    // The folder is opened and flushed where a journal has gone.
    const bool is_beside = of == Beside || (of == The_Folder && kind == Look);
    ++(is_beside ? The_Server().beside : The_Server().trips[kind]);
    Tell(Names[kind], is_beside, path);
    constexpr long usual_us = 1000;
    constexpr long us_in_a_second = 1'000'000;
    const char* told = std::getenv("SHARE_DELAY_US");
    const long us = told ? std::atol(told) : usual_us;
    const timespec delay{us / us_in_a_second, us % us_in_a_second * 1000};
    if (us > 0) nanosleep(&delay, nullptr);
    errno = kept;
}

void Ask(const char* path, Kind kind) {
    Ask(Of_Path(path), kind, path);
}
void Ask(int file, Kind kind) {
    std::array<char, PATH_MAX> path{};
    const std::string link = "/proc/self/fd/" + std::to_string(file);
    if (Log() && Of_File(file) != Elsewhere)
        std::ignore = readlink(link.c_str(), path.data(), path.size() - 1);
    Ask(Of_File(file), kind, path.data());
}

int Opened(int file, const char* path) {
    if (file >= 0 && file < Most_Descriptors) The_Server().files[static_cast<unsigned>(file)] = Of_Path(path);
    return file;
}

// What the program would have called without this library in front.
template<class Function>
Function* Real(Function*, const char* name) {
    return reinterpret_cast<Function*>(dlsym(RTLD_NEXT, name));
}

struct Report_At_Exit {
    ~Report_At_Exit() {
        const char* name = std::getenv("SHARE_REPORT");
        FILE* report = name ? std::fopen(name, "a") : nullptr;
        if (!report) return;
        for (int kind = 0; kind < Kinds; ++kind)
            std::fprintf(report, "%s %ld  ", Names[kind], The_Server().trips[kind].load());
        std::fprintf(report, "sum %ld  beside %ld\n", mevo_share_trips(), mevo_share_trips_beside());
        std::fclose(report);
    }
} const report_at_exit;

} // namespace

extern "C" {

long mevo_share_trips() {
    long sum = 0;
    for (const auto& trips : The_Server().trips)
        sum += trips;
    Tell("so far:", false, std::to_string(sum).c_str());
    return sum;
}

long mevo_share_trips_beside() {
    return The_Server().beside;
}

// ---- the system's calls, counted

#define REAL(name) static auto* const real = Real(&name, #name)

#define OPENS(name)                                                                                          \
    int name(const char* path, int flags, ...) {                                                             \
        REAL(name);                                                                                          \
        va_list rest;                                                                                        \
        va_start(rest, flags);                                                                               \
        const mode_t mode = va_arg(rest, mode_t);                                                            \
        va_end(rest);                                                                                        \
        Ask(path, Opening);                                                                                  \
        return Opened(real(path, flags, mode), path);                                                        \
    }
OPENS(open)
OPENS(open64)

#define OPENS_AT(name)                                                                                       \
    int name(int folder, const char* path, int flags, ...) {                                                 \
        REAL(name);                                                                                          \
        va_list rest;                                                                                        \
        va_start(rest, flags);                                                                               \
        const mode_t mode = va_arg(rest, mode_t);                                                            \
        va_end(rest);                                                                                        \
        Ask(path, Opening);                                                                                  \
        return Opened(real(folder, path, flags, mode), path);                                                \
    }
OPENS_AT(openat)
OPENS_AT(openat64)

int close(int file) {
    REAL(close);
    Opened(file, nullptr);
    return real(file);
}

#define LOOKS(name, type)                                                                                    \
    int name(const char* path, struct type* found) noexcept {                                                \
        REAL(name);                                                                                          \
        Ask(path, Look);                                                                                     \
        return real(path, found);                                                                            \
    }
LOOKS(stat, stat)
LOOKS(stat64, stat64)
LOOKS(lstat, stat)
LOOKS(lstat64, stat64)

int statx(int folder, const char* path, int flags, unsigned mask, struct statx* found) noexcept {
    REAL(statx);
    if (path && *path) Ask(path, Look);
    return real(folder, path, flags, mask, found);
}

int access(const char* path, int mode) noexcept {
    REAL(access);
    Ask(path, Look);
    return real(path, mode);
}

#define CONTROLS(name)                                                                                       \
    int name(int file, int command, ...) {                                                                   \
        REAL(name);                                                                                          \
        va_list rest;                                                                                        \
        va_start(rest, command);                                                                             \
        void* argument = va_arg(rest, void*);                                                                \
        va_end(rest);                                                                                        \
        if (command == F_SETLK || command == F_SETLKW || command == F_GETLK) Ask(file, Lock);                \
        return real(file, command, argument);                                                                \
    }
CONTROLS(fcntl)
CONTROLS(fcntl64)

#define MOVES(name, bytes, offset, kind)                                                                     \
    ssize_t name(int file, bytes place, size_t size, offset from) {                                          \
        REAL(name);                                                                                          \
        Ask(file, kind);                                                                                     \
        return real(file, place, size, from);                                                                \
    }
MOVES(pread, void*, off_t, Read)
MOVES(pread64, void*, off64_t, Read)
MOVES(pwrite, const void*, off_t, Write)
MOVES(pwrite64, const void*, off64_t, Write)

ssize_t read(int file, void* place, size_t size) {
    REAL(read);
    Ask(file, Read);
    return real(file, place, size);
}

ssize_t write(int file, const void* bytes, size_t size) {
    REAL(write);
    Ask(file, Write);
    return real(file, bytes, size);
}

int fsync(int file) {
    REAL(fsync);
    Ask(file, Flush);
    return real(file);
}

int fdatasync(int file) {
    REAL(fdatasync);
    Ask(file, Flush);
    return real(file);
}

int ftruncate(int file, off_t size) noexcept {
    REAL(ftruncate);
    Ask(file, Other);
    return real(file, size);
}

int ftruncate64(int file, off64_t size) noexcept {
    REAL(ftruncate64);
    Ask(file, Other);
    return real(file, size);
}

int unlink(const char* path) noexcept {
    REAL(unlink);
    Ask(path, Other);
    return real(path);
}

int rename(const char* from, const char* to) noexcept {
    REAL(rename);
    Ask(from, Other);
    return real(from, to);
}

} // extern "C"
