#include "iconv.h"

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <string_view>
#include <windows.h>

namespace {

constexpr UINT Utf_16 = 1200;
constexpr UINT No_Page = 0;

struct Named_Page {
    std::string_view name;
    UINT page;
};

// Those whose number isn't the end of their name.
constexpr Named_Page Named_Pages[] = {
    {"UCS-2LE", Utf_16}, {"UTF-16LE", Utf_16}, {"UTF-8", CP_UTF8},     {"SHIFT-JIS", 932},
    {"BIG-5", 950},      {"KOI8-R", 20866},    {"KOI8-U", 21866},      {"EUC-JP", 51932},
    {"EUC-KR", 51949},   {"EUC-CN", 936},      {"ISO-8859-13", 28603}, {"ISO-8859-15", 28605},
};

UINT Page_Of(std::string_view name) {
    for (const Named_Page& named : Named_Pages)
        if (name == named.name) return named.page;
    if (name.substr(0, 9) == "ISO-8859-") return 28590 + static_cast<UINT>(std::atoi(name.data() + 9));
    for (const std::string_view family : {"WINDOWS-", "IBM", "CP"})
        if (name.substr(0, family.size()) == family)
            return static_cast<UINT>(std::atoi(name.data() + family.size()));
    return No_Page;
}

// A character of one or two units, so that what can't be converted is left where it stands.
struct Character {
    wchar_t units[2];
    int length = 0;
    std::size_t taken = 0;
};

bool Is_First_Half(wchar_t unit) {
    return unit >= 0xD800 && unit < 0xDC00;
}

Character Next_Of_Utf_16(const char* in, std::size_t left) {
    Character next;
    if (left < sizeof(wchar_t)) return next;
    next.length = 1;
    if (left >= 2 * sizeof(wchar_t)) {
        std::memcpy(next.units, in, sizeof(wchar_t));
        if (Is_First_Half(next.units[0])) next.length = 2;
    }
    next.taken = next.length * sizeof(wchar_t);
    std::memcpy(next.units, in, next.taken);
    return next;
}

Character Next_Of_Page(UINT page, const char* in, std::size_t left) {
    constexpr std::size_t longest = 4;
    Character next;
    for (std::size_t bytes = 1; bytes <= longest && bytes <= left; ++bytes) {
        next.length =
            MultiByteToWideChar(page, MB_ERR_INVALID_CHARS, in, static_cast<int>(bytes), next.units, 2);
        if (next.length == 0) continue;
        next.taken = bytes;
        return next;
    }
    return next;
}

// The number of bytes that `out` would take; 0 where the page lacks the character.
int To_Page(UINT page, const Character& character, char (&out)[8]) {
    if (page == Utf_16) {
        std::memcpy(out, character.units, character.length * sizeof(wchar_t));
        return character.length * static_cast<int>(sizeof(wchar_t));
    }
    BOOL lacks = FALSE;
    const bool is_utf_8 = page == CP_UTF8;
    const int size =
        WideCharToMultiByte(page, is_utf_8 ? WC_ERR_INVALID_CHARS : WC_NO_BEST_FIT_CHARS, character.units,
                            character.length, out, sizeof out, nullptr, is_utf_8 ? nullptr : &lacks);
    return lacks ? 0 : size;
}

} // namespace

struct Conversion {
    UINT to;
    UINT from;
};

iconv_t iconv_open(const char* to, const char* from) {
    const UINT to_page = Page_Of(to);
    const UINT from_page = Page_Of(from);
    if (to_page == No_Page || from_page == No_Page) return reinterpret_cast<iconv_t>(-1);
    return new Conversion{to_page, from_page};
}

size_t iconv(iconv_t conversion, char** in, size_t* in_left, char** out, size_t* out_left) {
    while (*in_left > 0) {
        const Character next = conversion->from == Utf_16 ? Next_Of_Utf_16(*in, *in_left)
                                                          : Next_Of_Page(conversion->from, *in, *in_left);
        char bytes[8];
        const int size = next.taken == 0 ? 0 : To_Page(conversion->to, next, bytes);
        const bool fits = static_cast<size_t>(size) <= *out_left;
        if (size == 0 || !fits) {
            errno = size == 0 ? EILSEQ : E2BIG;
            return static_cast<size_t>(-1);
        }
        std::memcpy(*out, bytes, static_cast<size_t>(size));
        *in += next.taken;
        *in_left -= next.taken;
        *out += size;
        *out_left -= static_cast<size_t>(size);
    }
    return 0;
}

int iconv_close(iconv_t conversion) {
    delete conversion;
    return 0;
}
