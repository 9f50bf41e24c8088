#pragma once

#include "platform/grid/markup.h"

#include <QFont>
#include <QStringList>
#include <vector>

namespace grid {

// Text set into a given width, without any painting. All measures are twips, whatever the resolution of a
// screen or printer.

QFont Font_For(const Print_Font& font);
double Text_Width(const Print_Font& font, const QString& text);
double Line_Height(const Print_Font& font);
double Ascent(const Print_Font& font);

struct Placed_Text {
    double x = 0; // of its left end
    double baseline = 0;
    QString text;
    Print_Font font;
};

struct Text_Block {
    std::vector<Placed_Text> texts;
    double height = 0;
};

// Lines of mark-up from the corner 0, 0. A line that is wider than the room is broken, and texts that would
// meet on a line get lines of their own, so nothing overlaps.
Text_Block Set_Lines(const std::vector<Text_Line>& lines, double width);

// The text with a place to break, of no width, behind each comma: lists of answers have no blanks.
QString With_Breaks_At_Commas(QString text);

// A text of one font broken to the width: at blanks and behind commas, and a word that is too long inside.
// What goes beyond the most lines is cut short with an ellipsis.
QStringList Broken_Text(const Print_Font& font, const QString& text, double width, int most_lines);

} // namespace grid
