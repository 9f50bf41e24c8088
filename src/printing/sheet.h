#pragma once

#include "platform/desktop/ports.h"
#include "platform/preview/view_pro.h"

#include <QString>

namespace printing {

// What both reports do alike with a sheet of paper. Lengths are twips, font sizes points.

inline constexpr int Usual_Line = 10; // the width of a pen

// The settings with which a report page opens.
void Set_Up_Sheet(preview::ViewPro& sheet, int cell_padding);

// Head and foot of every page, each as "left|centre|right".
void Draw_Running_Texts(preview::ViewPro& sheet, const QString& head, const QString& foot);

// A line of bold text, centred above the body of the sheet.
void Draw_Centred(preview::ViewPro& sheet, int y, int width, int font_size, const QString& text);

// A rule over the width of the sheet's body.
void Draw_Rule(preview::ViewPro& sheet, int y);

// A text as one cell of a table or one part of a running line: it must not hold what divides these.
QString Cell(QString text);

// A row for ViewPro::TableText; makes each text a cell.
QString Table_Row(const QStringList& texts);

// As dd/mm/yyyy.
QString Today(const desktop::Clock& clock);

} // namespace printing
