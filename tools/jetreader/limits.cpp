#include "jetreader/limits.h"

#ifdef _WIN32
#include <windows.h>
#else
#include <sys/resource.h>
#endif

namespace jet_reader {

constexpr std::uint64_t Megabyte = 1024 * 1024;
constexpr std::uint64_t Most_Memory = 512 * Megabyte;

static std::uint64_t Most_Seconds(std::uint64_t file_size) {
    constexpr std::uint64_t at_least = 10;
    return at_least + file_size / Megabyte;
}

#ifdef _WIN32

// A process joins a job for good, and the job lives as long as the process.
void Limit_This_Process(std::uint64_t file_size) {
    constexpr std::uint64_t ticks_a_second = 10'000'000;
    JOBOBJECT_EXTENDED_LIMIT_INFORMATION limits{};
    limits.BasicLimitInformation.LimitFlags = JOB_OBJECT_LIMIT_PROCESS_MEMORY | JOB_OBJECT_LIMIT_PROCESS_TIME;
    limits.BasicLimitInformation.PerProcessUserTimeLimit.QuadPart =
        static_cast<LONGLONG>(Most_Seconds(file_size) * ticks_a_second);
    limits.ProcessMemoryLimit = Most_Memory;
    const HANDLE job = CreateJobObjectW(nullptr, nullptr);
    if (!job) return;
    SetInformationJobObject(job, JobObjectExtendedLimitInformation, &limits, sizeof limits);
    AssignProcessToJobObject(job, GetCurrentProcess());
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
    Limit(RLIMIT_CPU, Most_Seconds(file_size));
    Limit(RLIMIT_CORE, 0);
    if (Bounds_Memory) Limit(RLIMIT_AS, Most_Memory);
}

#endif

} // namespace jet_reader
