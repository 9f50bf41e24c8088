#pragma once

#include <QByteArray>
#include <QString>

namespace preview {

// The Western code page of metafiles, one byte a character. A character that it lacks becomes its base letter
// ("ł" an "l", "ő" an "o") or a like sign; what has none becomes a question mark. A mark that only joins the
// character before it gives no byte.
QByteArray To_Code_Page_1252(char32_t character);

} // namespace preview
