#pragma once

#include <QString>
#include <vector>

namespace grid {

// The mark-up of a printed grid's header and footer: plain text with codes between, such as
// /fn"Arial" /fz"14" /fb1 /fb0 for the font, /c and /r for what follows on the line, /n for a new line and
// /p for the page's number.

struct Print_Font {
    QString name = QStringLiteral("Arial");
    double size = 9; // points
    bool bold = false;
    bool operator==(const Print_Font&) const = default;
};

enum class Side { Left, Centre, Right };

// A piece of a line in one font.
struct Text_Run {
    QString text;
    Print_Font font;
    Side side = Side::Left;
};

struct Text_Line {
    std::vector<Text_Run> runs;
    Print_Font font; // in force at the line's end: a line without text is as high as this font
};

// Where a value stands in a text with mark-up: it holds no codes, whatever a name looks like.
struct Value_Span {
    qsizetype from = 0;
    qsizetype length = 0;
};

// A text with mark-up as it is put together of codes and values.
struct Marked_Text {
    Marked_Text& Add_Markup(const QString& markup);
    Marked_Text& Add_Value(const QString& value);

    QString text;
    std::vector<Value_Span> values; // from first to last
};

// The lines of a text with mark-up, as they stand on the page of that number. The font holds until it is
// changed, the side until the line ends. What isn't one of the codes prints as it stands: a date has slashes.
std::vector<Text_Line> Parse_Markup(const QString& markup, int page,
                                    const std::vector<Value_Span>& values = {});

} // namespace grid
