#include "printing/sheet.h"

#include "platform/basics/dates.h"
#include "platform/preview/text_metrics.h"

#include <QStringList>
#include <algorithm>

using namespace Qt::StringLiterals;

namespace printing {

constexpr int Side_Margin = 720; // twips
constexpr int Head_Margin = 1080;

void Set_Up_Sheet(preview::ViewPro& sheet, int cell_padding) {
    sheet.PaperSize = preview::ViewPro::Paper_A4;
    sheet.LineWidth = Usual_Line;
    sheet.Set_PageMargins(Side_Margin, Side_Margin, Side_Margin, Head_Margin);
    sheet.TextAlign = 0;
    sheet.TableBorders = 0;
    sheet.CellPadding = cell_padding;
    sheet.RowPadding = 90;
    sheet.LineSpacing = 100;
}

// The rows of all later tables keep the padding that is set here.
void Draw_Running_Texts(preview::ViewPro& sheet, const QString& head, const QString& foot) {
    sheet.RowPadding = 30;
    sheet.FontSize = 16;
    sheet.FontBold = true;
    sheet.HeaderText(head);
    sheet.FontSize = 9;
    sheet.FontBold = false;
    sheet.FooterText(foot);
}

void Draw_Centred(preview::ViewPro& sheet, int y, int width, int font_size, const QString& text) {
    sheet.CurrentY = y;
    sheet.TextWidth = width;
    sheet.CurrentX = (sheet.PageWidth() - width) / 2 - Side_Margin;
    sheet.FontSize = font_size;
    sheet.FontBold = true;
    sheet.TextAlign = 1;
    sheet.TableBorders = 0;
    sheet.Text(text);
}

void Draw_Fitted(preview::ViewPro& sheet, const QRect& place, const QString& text, const Fitting& fitting) {
    QStringList lines;
    for (sheet.FontSize = fitting.largest; sheet.FontSize >= fitting.smallest; --sheet.FontSize) {
        lines = preview::Wrapped({sheet.FontSize, sheet.FontBold, sheet.FontFixed}, text, place.width());
        const bool whole_words = lines.join(u' ').simplified() == text.simplified();
        const int most = std::min(fitting.lines, std::max(place.height() / sheet.TextHeight(), 1));
        if (whole_words && lines.size() <= most) break;
    }
    // A single line keeps its blanks as they are. At the worst it is set half as wide, as Text can.
    sheet.FontSize = std::max(sheet.FontSize, fitting.smallest);
    if (lines.size() == 1) lines = {text};
    if (lines.size() > fitting.lines)
        lines = {preview::Elided({sheet.FontSize, sheet.FontBold, sheet.FontFixed}, text, 2 * place.width())};
    sheet.CurrentX = place.x();
    sheet.CurrentY = place.y() + (place.height() - static_cast<int>(lines.size()) * sheet.TextHeight()) / 2;
    sheet.TextWidth = place.width();
    for (const QString& line : lines)
        sheet.Text(line);
}

void Fill(preview::ViewPro& sheet, const QRect& place, const QColor& colour) {
    sheet.FillStyle = 1;
    sheet.FillColor = colour;
    sheet.DrawRectangle2(place.x(), place.y(), place.width(), place.height());
    sheet.FillStyle = 0;
    sheet.FillColor = Qt::black;
}

void Draw_Rule(preview::ViewPro& sheet, int y) {
    sheet.DrawLine(0, y, sheet.PageWidth() - 2 * Side_Margin, y);
}

QString Cell(QString text) {
    constexpr QChar semicolon_in_looks(0x037E); // every font draws it as a semicolon
    constexpr QChar broken_bar(0x00A6);
    return text.replace(u';', semicolon_in_looks).replace(u'|', broken_bar);
}

QString Table_Row(const QStringList& texts) {
    QStringList cells;
    for (const QString& text : texts)
        cells.append(Cell(text));
    return cells.join(u'|') + u';';
}

QString Today(const desktop::Clock& clock) {
    return basics::Date_Text(clock.Now().date().startOfDay());
}

} // namespace printing
