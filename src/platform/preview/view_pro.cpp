#include "platform/preview/view_pro.h"

#include "platform/preview/painters.h"
#include "platform/preview/table_layout.h"
#include "platform/preview/text_metrics.h"

#include <algorithm>
#include <cmath>
#include <memory>
#include <numeric>

namespace preview {
namespace {

// A4, 210 by 297 millimetres, in twips.
constexpr int A4_Width = 11906;
constexpr int A4_Height = 16838;

constexpr int Centred = 1;
constexpr int Filled = 1;

int Whole(double twips) {
    return int(std::lround(twips));
}

// A size that is negative goes back from the start.
void Set_Span(int start, int size, int& from, int& length) {
    from = std::min(start, start + size);
    length = std::abs(size);
}

void Move(const QPoint& by, Text_Operation& text) {
    text.x += by.x();
    text.y += by.y();
}

void Move(const QPoint& by, Rectangle_Operation& rectangle) {
    rectangle.x += by.x();
    rectangle.y += by.y();
}

void Move(const QPoint& by, Line_Operation& line) {
    line.x1 += by.x();
    line.y1 += by.y();
    line.x2 += by.x();
    line.y2 += by.y();
}

void Move_All(const QPoint& by, Drawing& sheet) {
    for (Operation& operation : sheet.operations)
        std::visit([&by](auto& kind) { Move(by, kind); }, operation);
}

// How far the sheet may go down before its lowest text comes to the running footer's last line: with a long
// comment that is less than the margin.
int Room_Below(const Drawing& sheet, const Running_Text& footer) {
    const Text_Operation* lowest = nullptr;
    for (const Operation& operation : sheet.operations) {
        const auto* text = std::get_if<Text_Operation>(&operation);
        if (text && (!lowest || text->y > lowest->y)) lowest = text;
    }
    if (!lowest) return sheet.height;
    const double bottom = lowest->y + Line_Height(lowest->style) + Line_Height(footer.style);
    return std::max(0, sheet.height - Whole(bottom));
}

// A line that needs more than the paddings leave takes of the right one first.
double Left_Indent(const Cell_Room& room, double taken) {
    const double margin = (room.width - Widest_Line(room)) / 2.0;
    return std::min<double>(room.padding, room.width - margin - taken);
}

} // namespace

void ViewPro::Set_PageMargins(int left, int right, int bottom, int top) {
    margins = {left, right, bottom, top};
}

int ViewPro::PageWidth() const {
    return A4_Width;
}

int ViewPro::PageHeight() const {
    return A4_Height;
}

int ViewPro::TextHeight() const {
    return Whole(Line_Height(Style()));
}

void ViewPro::BeginOutput() {
    if (open_batches++ > 0) return;
    sheets.clear();
    bookmarks.clear();
    header = {};
    footer = {};
}

void ViewPro::EndOutput() {
    if (open_batches == 0) return;
    if (--open_batches == 0 && !sheets.empty()) Finish_Sheet();
}

void ViewPro::ShowOutput() {
    if (On_Show) On_Show();
}

void ViewPro::NewPage() {
    Finish_Sheet();
    Begin_Sheet();
}

void ViewPro::Bookmark(const QString& title) {
    bookmarks.push_back({title, std::max(1, PageCount())});
}

void ViewPro::HeaderText(const QString& text) {
    header = {text, Style(), ForeColor};
}

void ViewPro::FooterText(const QString& text) {
    footer = {text, Style(), ForeColor};
}

void ViewPro::MeasureText(const QString& text) {
    TextWidth = Whole(Text_Width(Style(), Printable(text)));
}

// A line that is too wide is set narrower, further than the letters of a label: a second one would land on
// what stands below, and leave the running header no strip of its own.
void ViewPro::Text(const QString& text) {
    constexpr double tightest = 0.5;
    const QString line = Printable(text);
    const bool one_line = Fits_On_One_Line(Style(), line, Line_Room(), tightest);
    Print_Lines(one_line ? QStringList{line} : Wrapped(Style(), text, Line_Room()));
}

void ViewPro::Paragraph(const QString& text) {
    Print_Lines(Wrapped(Style(), text, Line_Room()));
}

void ViewPro::DrawText(int x, int y, const QString& text) {
    if (text.trimmed().isEmpty()) return;
    Sheet().operations.push_back(Text_Operation{x, y, Printable(text), Style(), ForeColor, TextAngle, 1.0});
}

void ViewPro::DrawLine(int x1, int y1, int x2, int y2) {
    Sheet().operations.push_back(Line_Operation{x1, y1, x2, y2, Current_Pen()});
}

void ViewPro::DrawBoxTo(int x, int y) {
    Rectangle_Operation box;
    Set_Span(CurrentX, x - CurrentX, box.x, box.width);
    Set_Span(CurrentY, y - CurrentY, box.y, box.height);
    box.outline = Current_Pen();
    Sheet().operations.push_back(box);
}

// An outline has a ground, so that nothing of what lies beneath shows between a bar's frame and its inside.
void ViewPro::DrawRectangle2(int x, int y, int width, int height) {
    Rectangle_Operation rectangle;
    Set_Span(x, width, rectangle.x, rectangle.width);
    Set_Span(y, height, rectangle.y, rectangle.height);
    if (FillStyle == Filled) {
        rectangle.fill = FillColor;
    } else {
        rectangle.outline = Current_Pen();
        rectangle.fill = ObjectBKColor;
    }
    Sheet().operations.push_back(rectangle);
}

void ViewPro::TableText(const QString& text) {
    Print_Table(text, false);
}

void ViewPro::TableTextHooked(const QString& text) {
    Print_Table(text, true);
}

int ViewPro::PageCount() const {
    return int(sheets.size());
}

const Drawing& ViewPro::Page(int number) const {
    return sheets.at(size_t(number) - 1);
}

desktop::Printed_Document ViewPro::Document(const QString& name, int first, int last) const {
    const int from = std::max(first, 1);
    const int to = std::min(last, PageCount());
    desktop::Printed_Document document;
    document.name = name;
    document.about = About;
    document.title = Title;
    document.author = Author;
    if (from > to) return document;
    for (const desktop::Bookmark& bookmark : bookmarks)
        if (bookmark.page >= from && bookmark.page <= to)
            document.bookmarks.push_back({bookmark.title, bookmark.page - from + 1});
    // A copy, as the pages may be built anew while a printer still takes these.
    const auto pages =
        std::make_shared<const std::vector<Drawing>>(sheets.begin() + (from - 1), sheets.begin() + to);
    document.pages = to - from + 1;
    document.paint = [pages](QPainter& painter, int page) { Paint(pages->at(size_t(page) - 1), painter); };
    return document;
}

Text_Style ViewPro::Style() const {
    return {FontSize, FontBold, FontFixed};
}

int ViewPro::Line_Room() const {
    return TextWidth > 0 ? TextWidth : std::max(0, PageWidth() - margins.right - CurrentX);
}

int ViewPro::Line_Step() const {
    return Whole(Line_Height(Style()) * LineSpacing / 100);
}

Pen ViewPro::Current_Pen() const {
    return {ForeColor, LineWidth};
}

// The first thing drawn begins the document, in a batch or before any: one with nothing on it has no page.
Drawing& ViewPro::Sheet() {
    if (sheets.empty()) Begin_Sheet();
    return sheets.back();
}

void ViewPro::Begin_Sheet() {
    sheets.push_back({PageWidth(), PageHeight(), {}});
}

void ViewPro::Finish_Sheet() {
    Drawing& sheet = Sheet();
    if (Keep_To_Margins) sheet.moved_by = {margins.left, std::min(margins.top, Room_Below(sheet, footer))};
    Move_All(sheet.moved_by, sheet);
    const int right = PageWidth() - margins.right;
    Add_Running_Text(header, {margins.left, right, 0, margins.top}, sheet);
    Add_Running_Text(footer, {margins.left, right, PageHeight() - margins.bottom, PageHeight()}, sheet);
}

// One line inside a box of that width, aligned in it and never wider than it.
void ViewPro::Put_Line(int x, int y, int width, const QString& text) {
    const QString line = TextAlign == Centred ? text.trimmed() : text;
    if (line.trimmed().isEmpty()) return;
    const double squeeze = Squeeze_To_Fit(Style(), line, width);
    const double spare = std::max(0.0, width - Text_Width(Style(), line) * squeeze);
    const int indent = TextAlign == Centred ? Whole(spare / 2) : 0;
    Sheet().operations.push_back(Text_Operation{x + indent, y, line, Style(), ForeColor, 0, squeeze});
}

void ViewPro::Print_Lines(const QStringList& lines) {
    for (const QString& line : lines) {
        Put_Line(CurrentX, CurrentY, Line_Room(), line);
        CurrentY += Line_Step();
    }
}

void ViewPro::Print_Table(const QString& text, bool hooked) {
    const QList<int> widths = Column_Widths(TableFormat);
    const QList<QStringList> rows = Table_Rows(text);
    if (widths.isEmpty() || rows.isEmpty()) return;
    QList<int> edges{CurrentY};
    for (qsizetype row = 0; row < rows.size(); ++row) {
        const std::vector<Printed_Cell> cells = Table_Cells(rows[row], widths, int(row) + 1, hooked);
        const int height = Row_Height(cells);
        Put_Row(cells, widths, edges.last(), height);
        edges.append(edges.last() + height);
    }
    if (TableBorders != 0) Put_Borders(widths, edges);
    CurrentY = edges.last();
}

// The hooks come around each cell, and what they set holds for it.
std::vector<ViewPro::Printed_Cell> ViewPro::Table_Cells(const QStringList& texts, const QList<int>& widths,
                                                        int row, bool hooked) {
    std::vector<Printed_Cell> cells;
    for (qsizetype column = 0; column < widths.size(); ++column) {
        if (hooked && Before_Cell) Before_Cell(row);
        const Cell_Room room{widths[column], CellPadding, TableBorders != 0};
        cells.push_back({Cell_Lines(Style(), texts.value(column), room), Style(), ForeColor, ObjectBKColor});
        if (hooked && After_Cell) After_Cell(row);
    }
    return cells;
}

int ViewPro::Row_Height(const std::vector<Printed_Cell>& cells) const {
    double text_height = 0;
    for (const Printed_Cell& cell : cells)
        text_height = std::max(text_height, Line_Height(cell.style) * double(cell.lines.size()));
    return Whole(text_height) + 2 * RowPadding;
}

void ViewPro::Put_Row(const std::vector<Printed_Cell>& cells, const QList<int>& widths, int top, int height) {
    int left = CurrentX;
    for (size_t column = 0; column < cells.size(); ++column) {
        const int width = widths[qsizetype(column)];
        if (TableBorders != 0)
            Sheet().operations.push_back(
                Rectangle_Operation{left, top, width, height, std::nullopt, cells[column].ground});
        Put_Cell_Text(cells[column], left, top + RowPadding, width);
        left += width;
    }
}

void ViewPro::Put_Cell_Text(const Printed_Cell& cell, int left, int top, int width) {
    const Cell_Room room{width, CellPadding, TableBorders != 0};
    for (qsizetype number = 0; number < cell.lines.size(); ++number) {
        const QString& line = cell.lines[number];
        if (line.isEmpty()) continue;
        const double squeeze = Squeeze_To_Fit(cell.style, line, Widest_Line(room));
        const double taken = Text_Width(cell.style, line) * squeeze;
        const double indent = TextAlign == Centred ? (width - taken) / 2 : Left_Indent(room, taken);
        Sheet().operations.push_back(Text_Operation{left + Whole(indent),
                                                    top + Whole(Line_Height(cell.style) * double(number)),
                                                    line, cell.style, cell.colour, 0, squeeze});
    }
}

void ViewPro::Put_Borders(const QList<int>& widths, const QList<int>& edges) {
    const int right = std::accumulate(widths.begin(), widths.end(), CurrentX);
    for (const int y : edges)
        DrawLine(CurrentX, y, right, y);
    int x = CurrentX;
    DrawLine(x, edges.first(), x, edges.last());
    for (const int width : widths) {
        x += width;
        DrawLine(x, edges.first(), x, edges.last());
    }
}

} // namespace preview
