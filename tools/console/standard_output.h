#pragma once

#include <QFile>
#include <cstdio>

namespace console {

// Opens it without a buffer, so that whoever writes learns at once that nothing more is taken.
inline bool Opens_Standard_Output(QFile& output) {
    std::setvbuf(stdout, nullptr, _IONBF, 0);
    return output.open(stdout, QIODevice::WriteOnly | QIODevice::Unbuffered);
}

} // namespace console
