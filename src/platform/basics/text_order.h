#pragma once

#include <string_view>

namespace basics {

// The order of names in lists, the same on every system: below 0 where the left one comes first, 0 where the
// two are the same but for case. Blanks come first, then punctuation, other signs, digits, the Latin letters
// and all other letters. Accents count where two names differ in nothing else. Texts are in UTF-8; bytes that
// aren't count as U+FFFD.
int Compare_Names(std::string_view left, std::string_view right);

// Whether the part stands in the text, whatever the case and the accents of either: "zizek" in "Luka Žižek".
bool Stands_In(std::string_view part, std::string_view text);

} // namespace basics
