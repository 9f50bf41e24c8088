#pragma once

#include <QFile>
#include <cstdio>

#ifdef _WIN32
#include <fcntl.h>
#include <io.h>
#endif

namespace console {

// For who writes line ends of its own: on Windows each would get a second carriage return.
inline void Leave_Line_Ends_As_Written() {
#ifdef _WIN32
    _setmode(_fileno(stdout), _O_BINARY);
#endif
}

// Opens it without a buffer, so that whoever writes learns at once that nothing more is taken.
inline bool Opens_Standard_Output(QFile& output) {
    std::setvbuf(stdout, nullptr, _IONBF, 0);
    return output.open(stdout, QIODevice::WriteOnly | QIODevice::Unbuffered);
}

} // namespace console
