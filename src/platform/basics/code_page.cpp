#include "platform/basics/code_page.h"

#include <QChar>
#include <QList>
#include <algorithm>
#include <iterator>

#ifdef _WIN32
#include <windows.h>
#endif

namespace basics {
namespace {

// What the code page holds from 0x80 to 0x9F, where alone it differs from Latin-1; 0 is a place that it
// leaves empty.
constexpr char16_t From_0x80[] = {u'€', 0,    u'‚', u'ƒ', u'„', u'…', u'†', u'‡', u'ˆ', u'‰', u'Š',
                                  u'‹', u'Œ', 0,    u'Ž', 0,    0,    u'‘', u'’', u'“', u'”', u'•',
                                  u'–', u'—', u'˜', u'™', u'š', u'›', u'œ', 0,    u'ž', u'Ÿ'};

struct Like_Sign {
    char32_t character;
    char like;
};

// Letters that no accent can be taken from, and signs that look alike.
constexpr Like_Sign Like_Signs[] = {
    {U'Ł', 'L'},      {U'ł', 'l'},      {U'Đ', 'D'},       {U'đ', 'd'},       {U'ı', 'i'},
    {U'Ħ', 'H'},      {U'ħ', 'h'},      {U'Ŧ', 'T'},       {U'ŧ', 't'},       {U'Ŋ', 'N'},
    {U'ŋ', 'n'},      {U'ẞ', '\xDF'},   {U'\u2010', '-'},  {U'\u2011', '-'},  {U'\u2012', '-'},
    {U'\u2015', '-'}, {U'\u2212', '-'}, {U'\u02BC', '\''}, {U'\u2032', '\''}, {U'\u2033', '"'},
};

char In_Code_Page(char32_t character) {
    if (character < 0x80 || (character >= 0xA0 && character <= 0xFF)) return char(character);
    const auto* place = std::find(std::begin(From_0x80), std::end(From_0x80), character);
    return place == std::end(From_0x80) ? '\0' : char(0x80 + (place - std::begin(From_0x80)));
}

char Like_Character(char32_t character) {
    const auto* row =
        std::find_if(std::begin(Like_Signs), std::end(Like_Signs),
                     [character](const Like_Sign& sign) { return sign.character == character; });
    return row == std::end(Like_Signs) ? '\0' : row->like;
}

bool Joins_The_One_Before(char32_t character) {
    return QChar::isMark(character) || QChar::category(character) == QChar::Other_Format;
}

} // namespace

QByteArray To_Code_Page_1252(char32_t character) {
    if (Joins_The_One_Before(character)) return {};
    if (QChar::isSpace(character) || character == 0) return " ";
    if (const char own = In_Code_Page(character)) return QByteArray(1, own);
    if (const char like = Like_Character(character)) return QByteArray(1, like);
    const QString parts = QChar::decomposition(character);
    if (parts.isEmpty()) return "?";
    return To_Code_Page_1252(parts.toUcs4().first());
}

QString From_Code_Page_1252(const QByteArray& bytes) {
    QString text = QString::fromLatin1(bytes);
    for (QChar& character : text) {
        const int place = character.unicode() - 0x80;
        const bool own = place >= 0 && place < int(std::size(From_0x80)) && From_0x80[place] != 0;
        if (own) character = From_0x80[place];
    }
    return text;
}

QString From_Code_Page(const QByteArray& bytes) {
#ifdef _WIN32
    CPINFO code_page = {};
    const bool single_byte = GetCPInfo(CP_ACP, &code_page) && code_page.MaxCharSize == 1;
    if (single_byte) return QString::fromLocal8Bit(bytes);
#endif
    return From_Code_Page_1252(bytes);
}

} // namespace basics
