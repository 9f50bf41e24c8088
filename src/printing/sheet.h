#pragma once

#include "platform/desktop/ports.h"
#include "platform/preview/view_pro.h"

#include <QColor>
#include <QRect>
#include <QString>
#include <QStringList>

namespace printing {

// What both reports do alike with a sheet of paper. Lengths are twips, font sizes points.

inline constexpr int Usual_Line = 10; // the width of a pen

// The settings with which a report page opens.
void Set_Up_Sheet(preview::ViewPro& sheet, int cell_padding);

// Head and foot of every page, each as "left|centre|right".
void Draw_Running_Texts(preview::ViewPro& sheet, const QString& head, const QString& foot);

// A line of bold text, centred above the body of the sheet.
void Draw_Centred(preview::ViewPro& sheet, int y, int width, int font_size, const QString& text);

struct Fitting {
    int largest; // font sizes
    int smallest;
    int lines = 1; // at most; broken between words
};

// A text in the middle of the place's height, aligned as is in force, in the largest font in which it fits.
void Draw_Fitted(preview::ViewPro& sheet, const QRect& place, const QString& text, const Fitting& fitting);

// A filled rectangle without an outline.
void Fill(preview::ViewPro& sheet, const QRect& place, const QColor& colour);

// A rule over the width of the sheet's body.
void Draw_Rule(preview::ViewPro& sheet, int y);

// A text as one cell of a table or one part of a running line: it must not hold what divides these.
QString Cell(QString text);

// A row for ViewPro::TableText; makes each text a cell.
QString Table_Row(const QStringList& texts);

// As dd/mm/yyyy.
QString Today(const desktop::Clock& clock);

} // namespace printing
