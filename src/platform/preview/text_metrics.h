#pragma once

#include "platform/preview/drawing.h"

#include <QFont>
#include <QRectF>
#include <QStringList>

namespace preview {

// The one place where text is measured, in twips. A font is sized in units of a twip, so that the resolution
// of a screen or printer changes nothing.

QFont Font_Of(const Text_Style& style);

double Text_Width(const Text_Style& style, const QString& text);
double Line_Height(const Text_Style& style);
double Ascent(const Text_Style& style);     // from the line's top down to the baseline
double Cap_Height(const Text_Style& style); // of a capital letter above the baseline
double Descent(const Text_Style& style);    // of a "g" below the baseline

// What a reader sees of a line: from the top of its capitals down to the foot of a "g".
QRectF Ink_Of(const Text_Operation& line);

// How narrow the letters of a line that is too long may be set before it is broken or cut.
inline constexpr double Tightest_Letters = 0.7;

// How much narrower than its natural width a line must be set to fit; 1 if it fits as it is.
double Squeeze_To_Fit(const Text_Style& style, const QString& text, double width);
// Whether a text may stand on one line of that width when it is set narrower by that factor at most.
bool Fits_On_One_Line(const Text_Style& style, const QString& text, double width, double tightest);

// Text as it can stand on a line: what isn't printable is a blank.
QString Printable(const QString& text);

// The lines of a text that is broken at blanks to fit the width; its own line breaks stay, and a word that is
// wider than the line is broken inside. No line is wider than the width, unless one character is.
QStringList Wrapped(const Text_Style& style, const QString& text, double width);

// The text, or as much of its beginning as fits with an ellipsis behind it.
QString Elided(const Text_Style& style, const QString& text, double width);

} // namespace preview
