#include "jetreader/limits.h"

#ifndef _WIN32
#include <sys/resource.h>
#endif

namespace jet_reader {

#ifdef _WIN32

void Limit_This_Process(std::uint64_t) {
    // The converter's own wait bounds the time; memory is bounded by the file's claims, which are checked.
}

#else

// The address sanitizer maps terabytes that it never touches.
#if defined(__SANITIZE_ADDRESS__)
constexpr bool Bounds_Memory = false;
#else
constexpr bool Bounds_Memory = true;
#endif

static void Limit(int resource, rlim_t most) {
    const rlimit limit{most, most};
    setrlimit(resource, &limit);
}

void Limit_This_Process(std::uint64_t file_size) {
    constexpr std::uint64_t megabyte = 1024 * 1024;
    constexpr rlim_t seconds_at_least = 10;
    Limit(RLIMIT_CPU, seconds_at_least + file_size / megabyte);
    Limit(RLIMIT_CORE, 0);
    if (Bounds_Memory) Limit(RLIMIT_AS, 512 * megabyte);
}

#endif

} // namespace jet_reader
