#include "jetreader/text.h"

namespace jet_reader {

namespace {

char16_t Pair(const std::uint8_t* bytes) {
    return static_cast<char16_t>(bytes[0] | bytes[1] << 8);
}

std::u16string Lengthened(const std::uint8_t* bytes, std::size_t size) {
    std::u16string text;
    bool is_short = true;
    for (std::size_t at = 0; at < size;) {
        if (bytes[at] == 0) {
            is_short = !is_short;
            ++at;
        } else if (is_short) {
            text += static_cast<char16_t>(bytes[at++]);
        } else {
            if (at + 1 == size) break;
            text += Pair(bytes + at);
            at += 2;
        }
    }
    return text;
}

void Append(char32_t character, std::string& utf_8) {
    const auto tail = [&](int shift) { utf_8 += static_cast<char>(0x80 | (character >> shift & 0x3f)); };
    if (character < 0x80) {
        utf_8 += static_cast<char>(character);
    } else if (character < 0x800) {
        utf_8 += static_cast<char>(0xc0 | character >> 6);
        tail(0);
    } else if (character < 0x10000) {
        utf_8 += static_cast<char>(0xe0 | character >> 12);
        tail(6);
        tail(0);
    } else {
        utf_8 += static_cast<char>(0xf0 | character >> 18);
        tail(12);
        tail(6);
        tail(0);
    }
}

} // namespace

std::u16string Code_Units(const std::uint8_t* bytes, std::size_t size) {
    if (size >= 2 && bytes[0] == 0xff && bytes[1] == 0xfe) return Lengthened(bytes + 2, size - 2);
    std::u16string text;
    for (std::size_t at = 0; at + 1 < size; at += 2)
        text += Pair(bytes + at);
    return text;
}

std::string Utf_8(const std::u16string& text) {
    constexpr char32_t unknown = 0xfffd;
    const auto is_first = [](char16_t unit) { return unit >= 0xd800 && unit < 0xdc00; };
    const auto is_second = [](char16_t unit) { return unit >= 0xdc00 && unit < 0xe000; };
    std::string utf_8;
    for (std::size_t at = 0; at < text.size(); ++at) {
        const char16_t unit = text[at];
        if (is_first(unit) && at + 1 < text.size() && is_second(text[at + 1]))
            Append(static_cast<char32_t>(0x10000 + ((unit - 0xd800) << 10) + (text[++at] - 0xdc00)), utf_8);
        else
            Append(is_first(unit) || is_second(unit) ? unknown : unit, utf_8);
    }
    return utf_8;
}

} // namespace jet_reader
