#pragma once

#include <QString>

namespace basics {

// A path of the program's texts, whose folders are divided by backslashes, as this system takes it:
// absolute, and with the letter case of the entries that lie on the disk where they differ only in that.
// A part that doesn't exist stays as it was written.
QString Native_Path(const QString& path);

// The same for a file that is to be made: its own name keeps its spelling, as another file may differ from it
// in letter case alone.
QString Native_Target(const QString& path);

} // namespace basics
