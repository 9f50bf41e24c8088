#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

namespace jet_reader {

// A text of the later version as UTF-16. It is stored so, or in a short form that begins with the bytes FF
// FE: a byte a character, and a zero byte wherever it goes over to two bytes a character and back.
std::u16string Code_Units(const std::uint8_t* bytes, std::size_t size);

// Half a pair becomes the mark for a character that can't be shown.
std::string Utf_8(const std::u16string& text);

} // namespace jet_reader
