#pragma once

#include "platform/desktop/ports.h"
#include "platform/preview/view_pro.h"

#include <QString>

namespace printing {

// What both reports do alike with a sheet of paper.

inline constexpr int Usual_Line = 10; // twips

// The settings with which a report page opens.
void Set_Up_Sheet(preview::ViewPro& sheet, int cell_padding);

// The line of head and foot in the bar notation.
void Draw_Running_Texts(preview::ViewPro& sheet, const QString& head, const QString& foot);

// A line of bold text that is centred above the body of the sheet.
void Draw_Centred(preview::ViewPro& sheet, int y, int width, int font_size, const QString& text);

// A rule over the width of the sheet's body, at height y.
void Draw_Rule(preview::ViewPro& sheet, int y);

// A text as one cell of a table or one part of a running line: it must not hold what divides these.
QString Cell(QString text);

// The row of a table.
QString Table_Row(const QStringList& texts);

// Today's date as it is printed.
QString Today(const desktop::Clock& clock);

} // namespace printing
