#include "platform/basics/text_order.h"

#include <QChar>
#include <QList>
#include <QString>
#include <QVarLengthArray>
#include <algorithm>
#include <array>
#include <iterator>
#include <optional>
#include <set>

namespace basics {
namespace {

// What texts are compared by: the weights of their characters, in whose order they stand, and only where
// these are the same those of the accents, which are below all others.
using Weight = quint32;

// The groups of characters in their order. What isn't listed follows in its group by code point.
enum Group { Accents, Blanks, Punctuation, Signs, Currency, Digits, Latin, Others };

constexpr std::u16string_view Listed[] = {
    u"\u0301\u0300\u0306\u0302\u030C\u030A\u0308\u030B\u0303\u0307\u0338\u0327\u0328\u0304\u0335",
    u"\t\n\v\f\r\u0085 ",
    u"_-\u2010\u2012–—\u2015,;:!¡?¿.·'‘’‚‹›\"“”„«»()[]{}§¶@*/\\&#%‰†‡•",
    u"`´˜^¯˘˙¨˚˝¸˛ˆ°©®+±÷×<=>¬|¦~\u2044",
    u"¤¢$£¥€",
    u"0123456789",
    u"abɓcdɗeǝəɛfƒgɣhʻiıjkƙlmnŋoɔpqĸrstŧuvwxyƴzʒþʼ",
};

// A mark that no text holds, above all accents: of two letters that are written as one.
constexpr char16_t Joined = u'\uFDD0';

struct Spelling {
    char16_t letter;
    std::u16string_view spelt;
};

// Letters without a place of their own that Unicode takes no accent from.
constexpr Spelling Spellings[] = {
    {u'æ', u"a\uFDD0e"}, {u'ð', u"d\uFDD0"}, {u'đ', u"d\u0335"},  {u'ħ', u"h\u0335"},  {u'ŀ', u"l\uFDD0"},
    {u'ł', u"l\u0335"},  {u'ø', u"o\u0338"}, {u'œ', u"o\uFDD0e"}, {u'ß', u"s\uFDD0s"},
};

constexpr Weight Weight_In(Group group, std::size_t place) {
    return (Weight(group) << 24) + Weight(place);
}

constexpr Weight First_Character = Weight_In(Blanks, 0);

// 0 if it isn't listed.
Weight Listed_Weight(char32_t folded) {
    if (folded > U'€') return 0; // the last one
    for (int group = Accents; group < Others; ++group) {
        const std::size_t place = Listed[group].find(char16_t(folded));
        if (place != std::u16string_view::npos) return Weight_In(Group(group), place + 1);
    }
    return 0;
}

Group Group_Of(char32_t character) {
    if (QChar::combiningClass(character) != 0 || character == Joined) return Accents;
    if (QChar::isSpace(character)) return Blanks;
    if (QChar::isPunct(character)) return Punctuation;
    if (QChar::category(character) == QChar::Symbol_Currency) return Currency;
    const bool unreadable = character == QChar::ReplacementCharacter; // no sign that somebody wrote
    if (QChar::isSymbol(character) && !unreadable) return Signs;
    if (QChar::isNumber(character)) return Digits;
    return QChar::script(character) == QChar::Script_Latin ? Latin : Others;
}

bool Is_Invisible(char32_t character) {
    const QChar::Category category = QChar::category(character);
    return category == QChar::Other_Control || category == QChar::Other_Format;
}

// Empty for a character that stands for itself.
QString Parts_Of(char32_t character, char32_t folded) {
    for (const auto& [letter, spelt] : Spellings)
        if (letter == folded) return QString::fromUtf16(spelt.data(), qsizetype(spelt.size()));
    const int digit = QChar::digitValue(character);
    return digit >= 0 ? QString::number(digit) : QChar::decomposition(character);
}

using Weights = QVarLengthArray<Weight, 64>;

void Append(char32_t character, Weights& weights) {
    constexpr std::size_t behind_the_listed = 0x100;
    const char32_t folded = QChar::toCaseFolded(character);
    const Weight listed = Listed_Weight(folded);
    if (listed != 0) return weights.append(listed);
    const QString parts = Parts_Of(character, folded);
    if (!parts.isEmpty()) {
        for (const char32_t part : parts.toUcs4())
            Append(part, weights);
    } else if (!Is_Invisible(character)) {
        weights.append(Weight_In(Group_Of(folded), behind_the_listed + folded));
    }
}

// The characters that UTF-8 writes in one byte or two: the Latin, Greek, Cyrillic, Hebrew and Arabic ones.
constexpr char16_t Row_Count = 0x800;

struct Row {
    QVarLengthArray<Weight, 4> weights;
    Weight only_character = 0; // 0 where there is none or more, or where the letter before it matters
    bool has_none = true;
};

using Rows = std::array<Row, Row_Count>;

Row Row_Of(char32_t character) {
    Weights weights;
    Append(character, weights);
    Row row;
    row.weights.append(weights.data(), weights.size());
    const auto characters = std::count_if(weights.begin(), weights.end(),
                                          [](Weight weight) { return weight >= First_Character; });
    if (characters == 1 && character != u'·') row.only_character = weights.first();
    row.has_none = characters == 0;
    return row;
}

const Rows& All_Rows() {
    static const Rows rows = [] {
        Rows made;
        for (char32_t character = 0; character < made.size(); ++character)
            made[character] = Row_Of(character);
        return made;
    }();
    return rows;
}

// ---- the whole way

// Several accents of one letter are put in the one order that Unicode has for them.
QString With_Accents_In_Order(const QString& text) {
    const auto several = std::adjacent_find(text.cbegin(), text.cend(), [](QChar letter, QChar accent) {
        return letter.unicode() >= 0x80 && accent.combiningClass() != 0;
    });
    return several == text.cend() ? text : text.normalized(QString::NormalizationForm_D);
}

Weights Weights_Of(std::string_view utf8, const Rows& rows) {
    const QString text = With_Accents_In_Order(QString::fromUtf8(utf8));
    Weights weights;
    for (qsizetype at = 0; at < text.size(); ++at) {
        const char16_t unit = text[at].unicode();
        // The Catalan "l·l": the dot belongs to the letter.
        if (unit == u'·' && !weights.isEmpty() && weights.last() == rows[u'l'].only_character)
            Append(Joined, weights);
        else if (unit < Row_Count)
            weights.append(rows[unit].weights.data(), rows[unit].weights.size());
        else if (QChar::isHighSurrogate(unit))
            Append(QChar::surrogateToUcs4(unit, text[++at].unicode()), weights);
        else
            Append(unit, weights);
    }
    return weights;
}

Weight Next_Character(const Weight*& at, const Weight* end) {
    while (at != end && *at < First_Character)
        ++at;
    return at == end ? 0 : *at++;
}

int By_Characters(const Weights& left, const Weights& right) {
    const Weight* at_left = left.begin();
    const Weight* at_right = right.begin();
    while (true) {
        const Weight one = Next_Character(at_left, left.end());
        const Weight other = Next_Character(at_right, right.end());
        if (one != other) return one < other ? -1 : 1;
        if (one == 0) return 0;
    }
}

// Of texts with the same characters: where they differ first, one or both have an accent.
int By_Accents(const Weights& left, const Weights& right) {
    const auto [one, other] = std::mismatch(left.begin(), left.end(), right.begin(), right.end());
    const auto accent = [](const Weight* at, const Weight* end) {
        return at == end || *at >= First_Character ? 0 : *at;
    };
    const Weight of_left = accent(one, left.end());
    const Weight of_right = accent(other, right.end());
    if (of_left == of_right) return 0;
    return of_left < of_right ? -1 : 1;
}

int Compare_Wholly(std::string_view left, std::string_view right, const Rows& rows) {
    const Weights of_left = Weights_Of(left, rows);
    const Weights of_right = Weights_Of(right, rows);
    const int order = By_Characters(of_left, of_right);
    return order != 0 ? order : By_Accents(of_left, of_right);
}

// ---- the short way

// Takes off the text the character that it begins with, one of up to three bytes; nothing if it isn't one.
std::optional<char16_t> Take_Character(std::string_view& utf8) {
    const auto byte = [&utf8](std::size_t at) { return static_cast<unsigned char>(utf8[at]); };
    const unsigned first = byte(0);
    const std::size_t size = first < 0x80 ? 1 : first < 0xC2 ? 0 : first < 0xE0 ? 2 : first < 0xF0 ? 3 : 0;
    if (size == 0 || utf8.size() < size) return std::nullopt;
    unsigned character = size == 1 ? first : first & (0x7F >> size);
    for (std::size_t at = 1; at < size; ++at) {
        if ((byte(at) & 0xC0) != 0x80) return std::nullopt;
        character = character << 6 | (byte(at) & 0x3F);
    }
    if (size == 3 && (character < 0x800 || QChar::isSurrogate(character))) return std::nullopt;
    utf8.remove_prefix(size);
    return char16_t(character);
}

// Goes along a text from one character that counts to the next.
class Reader {
public:
    Reader(std::string_view utf8, const Rows& rows) : rest(utf8), rows(rows) {}

    bool At_End() const { return rest.empty(); }
    bool Has_Passed_Accents() const { return has_passed_accents; }

    // Null where none is left, or what follows isn't one of up to three bytes.
    const Row* Next() {
        while (!rest.empty()) {
            const std::optional<char16_t> character = Take_Character(rest);
            if (!character) return nullptr;
            const Row* row = *character < Row_Count ? &rows[*character] : &(other_row = Row_Of(*character));
            if (!row->has_none) return row;
            has_passed_accents = true;
        }
        return nullptr;
    }

private:
    std::string_view rest;
    const Rows& rows;
    Row other_row;
    bool has_passed_accents = false;
};

// How many bytes the texts have in common, in whole characters.
std::size_t Common_Size(std::string_view left, std::string_view right) {
    const auto inside = [](std::string_view text, std::size_t at) {
        return at < text.size() && (static_cast<unsigned char>(text[at]) & 0xC0) == 0x80;
    };
    auto size =
        std::size_t(std::mismatch(left.begin(), left.end(), right.begin(), right.end()).first - left.begin());
    while (size > 0 && (inside(left, size) || inside(right, size)))
        --size;
    return size;
}

// 0 where more than the first bytes must be looked at.
int By_First_Letters(std::string_view left, std::string_view right, const Rows& rows) {
    if (left.empty() || right.empty()) return 0;
    const auto one = static_cast<unsigned char>(left.front());
    const auto other = static_cast<unsigned char>(right.front());
    if (one >= 0x80 || other >= 0x80) return 0;
    const Weight of_left = rows[one].only_character;
    const Weight of_right = rows[other].only_character;
    if (of_left == 0 || of_right == 0 || of_left == of_right) return 0;
    return of_left < of_right ? -1 : 1;
}

using Plain_Places = std::array<quint8, 0x80>;

// The places of those ASCII characters that count by themselves, from 1; 0 for the others.
Plain_Places Places_Of_Plain_Characters(const Rows& rows) {
    const auto weight_of = [&rows](std::size_t character) { return rows[character].only_character; };
    std::set<Weight> weights;
    for (std::size_t character = 0; character < Plain_Places().size(); ++character)
        weights.insert(weight_of(character));
    weights.insert(0);
    Plain_Places places{};
    for (std::size_t character = 0; character < places.size(); ++character)
        places[character] =
            static_cast<quint8>(std::distance(weights.begin(), weights.find(weight_of(character))));
    return places;
}

} // namespace

Name_Start::Name_Start(std::string_view utf8) : is_whole(utf8.size() <= Most) {
    static const Plain_Places plain = Places_Of_Plain_Characters(All_Rows());
    for (const char letter : utf8.substr(0, Most)) {
        const auto byte = static_cast<unsigned char>(letter);
        if (byte >= plain.size() || plain[byte] == 0) {
            is_whole = false;
            return;
        }
        ++known;
        places |= std::uint64_t(plain[byte]) << 8 * (Most - known);
    }
    known = Most;
}

static Weights Characters_Of(std::string_view utf8) {
    Weights weights = Weights_Of(utf8, All_Rows());
    weights.removeIf([](Weight weight) { return weight < First_Character; });
    return weights;
}

bool Stands_In(std::string_view part, std::string_view text) {
    const Weights wanted = Characters_Of(part);
    const Weights all = Characters_Of(text);
    return std::search(all.begin(), all.end(), wanted.begin(), wanted.end()) != all.end();
}

// Nearly always one character decides. Where none does, or what stands beside one matters, the texts are
// compared wholly.
int Compare_Names(std::string_view left, std::string_view right) {
    const Rows& rows = All_Rows();
    const std::size_t common = Common_Size(left, right);
    const int order = By_First_Letters(left.substr(common), right.substr(common), rows);
    if (order != 0) return order;
    Reader of_left(left.substr(common), rows);
    Reader of_right(right.substr(common), rows);
    bool same_accents = true;
    while (!of_left.At_End() && !of_right.At_End()) {
        const Row* one = of_left.Next();
        const Row* other = of_right.Next();
        if (!one || !other || one->only_character == 0 || other->only_character == 0)
            return Compare_Wholly(left, right, rows);
        if (one->only_character != other->only_character)
            return one->only_character < other->only_character ? -1 : 1;
        same_accents = same_accents && one->weights == other->weights;
    }
    const bool at_end = of_left.At_End() && of_right.At_End();
    const bool passed_accents = of_left.Has_Passed_Accents() || of_right.Has_Passed_Accents();
    return at_end && same_accents && !passed_accents ? 0 : Compare_Wholly(left, right, rows);
}

} // namespace basics
