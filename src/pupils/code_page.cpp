#include "pupils/code_page.h"

#ifdef _WIN32
#include <windows.h>
#endif

namespace pupils {
namespace {

constexpr char16_t First_Own = 0x80;
constexpr char16_t Last_Own = 0x9F;

// Windows-1252 differs from Latin-1 in these places alone. Five of them are unused; they stay what they are,
// as the system has it.
constexpr char16_t Own_Characters[Last_Own - First_Own + 1] = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178,
};

QString From_Windows_1252(const QByteArray& bytes) {
    QString text = QString::fromLatin1(bytes);
    for (QChar& character : text)
        if (character >= First_Own && character <= Last_Own)
            character = Own_Characters[character.unicode() - First_Own];
    return text;
}

} // namespace

QString From_Code_Page(const QByteArray& bytes) {
#ifdef _WIN32
    CPINFO code_page = {};
    const bool single_byte = GetCPInfo(CP_ACP, &code_page) && code_page.MaxCharSize == 1;
    if (single_byte) return QString::fromLocal8Bit(bytes);
#endif
    return From_Windows_1252(bytes);
}

} // namespace pupils
