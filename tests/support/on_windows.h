#pragma once

namespace test_support {

// Some of what a case needs isn't had there; it says what and is skipped. Files' rights, for one, aren't
// POSIX's, and a file that a process has open is neither renamed nor replaced.
#ifdef _WIN32
inline constexpr bool On_Windows = true;
#else
inline constexpr bool On_Windows = false;
#endif

} // namespace test_support
