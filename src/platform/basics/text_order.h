#pragma once

#include <algorithm>
#include <cstdint>
#include <optional>
#include <string_view>

namespace basics {

// The order of names in lists, the same on every system: below 0 where the left one comes first, 0 where the
// two are the same but for case. Blanks come first, then punctuation, other signs, digits, the Latin letters
// and all other letters. Accents count where two names differ in nothing else. Texts are in UTF-8; bytes that
// aren't count as U+FFFD.
int Compare_Names(std::string_view left, std::string_view right);

// How a text begins, by the places of its first letters in that order: what a long list is sorted by wherever
// these tell two names apart. Looking at the names takes several times as long.
class Name_Start {
public:
    Name_Start() = default; // tells nothing
    explicit Name_Start(std::string_view utf8);

    // As Compare_Names of the two texts; none where more of them must be looked at.
    friend std::optional<int> Compare_Starts(const Name_Start& left, const Name_Start& right) {
        const int known = std::min(left.known, right.known);
        const int rest = 8 * (Most - known);
        const std::uint64_t one = known == 0 ? 0 : left.places >> rest;
        const std::uint64_t other = known == 0 ? 0 : right.places >> rest;
        if (one != other) return one < other ? -1 : 1;
        return left.is_whole && right.is_whole ? std::optional(0) : std::nullopt;
    }

private:
    static constexpr int Most = 8;
    std::uint64_t places = 0; // a byte to a letter, the first in the highest; 0 behind the last
    int known = 0;            // how many bytes hold: up to a letter that isn't a plain one
    bool is_whole = false;    // nothing follows
};

// Whether the part stands in the text, whatever the case and the accents of either: "zizek" in "Luka Žižek".
bool Stands_In(std::string_view part, std::string_view text);

} // namespace basics
