#pragma once

#include "platform/preview/drawing.h"

#include <QList>
#include <QStringList>

namespace preview {

// The sums behind a printed table, without any drawing.

// Column widths in twips of a format such as "1440|720|720".
QList<int> Column_Widths(const QString& table_format);

// The cells of a table text: rows end in ";", cells are divided by "|". A last row may lack its end.
QList<QStringList> Table_Rows(const QString& table_text);

struct Cell_Room {
    int width = 0;   // from border to border
    int padding = 0; // kept clear at the left and the right
    bool bordered = true;
};

// The most that a line may take, in twips: a number or a name reads better whole, though it uses part of the
// paddings.
int Widest_Line(const Cell_Room& room);

// The lines that a cell's text takes. A text that is somewhat too wide is set narrower, in a table without
// borders a good deal: such rows are labels, and a second line would land on what they stand above. Otherwise
// it is broken at blanks, and a word that is too wide by itself is cut short, so that nothing runs over the
// neighbour.
QStringList Cell_Lines(const Text_Style& style, const QString& text, const Cell_Room& room);

} // namespace preview
