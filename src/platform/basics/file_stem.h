#pragma once

#include <QString>

namespace basics {

// A text as the name of a file without its extension, as every file system takes it: what one of them refuses
// is "_", and a long one is cut. Never empty.
QString File_Stem(const QString& text);

} // namespace basics
