#pragma once

#include <QByteArray>
#include <QString>

namespace basics {

// Windows-1252, the Western code page, one byte a character. A character that it lacks becomes its base
// letter ("ł" an "l", "ő" an "o") or a like sign; what has none becomes a question mark. A mark that only
// joins the character before it gives no byte.
QByteArray To_Code_Page_1252(char32_t character);

// Text in Windows-1252. The five bytes that it leaves empty stay as they came.
QString From_Code_Page_1252(const QByteArray& bytes);

// Text in the system's single-byte code page; Windows-1252 where none is set.
QString From_Code_Page(const QByteArray& bytes);

} // namespace basics
