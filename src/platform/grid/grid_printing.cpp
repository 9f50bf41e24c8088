#include "platform/grid/grid_printing.h"

#include "platform/basics/twips.h"

#include <QPainter>
#include <algorithm>
#include <memory>
#include <optional>

namespace grid {
namespace {

constexpr double Paper_Width = 11906;
constexpr double Paper_Height = 16838;
constexpr double Other_Margins = 720; // right, top and bottom
constexpr double Gap = 120;           // between the grid and what stands above and below it
constexpr double Cell_Padding = 24;
constexpr double Indent = 60; // of a text that stands at the left
constexpr double Row_Padding = 26;
constexpr double Border = 8;
constexpr int Most_Lines = 6; // of a cell
constexpr QColor Head_Ground(0xE3, 0xE7, 0xEC);
constexpr QColor Border_Colour(0x8C, 0x96, 0xA0);

// Text shrinks with the columns, but stays large enough to be read.
constexpr double Full_Size = 10;
constexpr double Least_Size = 7.5;

// One row, its cells broken into lines.
struct Set_Row {
    std::vector<QStringList> cells;
    double height = 0;
};

class Grid_Setter {
public:
    explicit Grid_Setter(const Printed_Grid& grid)
        : grid(grid),
          left(grid.margin_left),
          room(Paper_Width - left - Other_Margins),
          widths(Fitted_Widths(grid.columns, room)) {
        body.size = head.size = Text_Size();
        head.bold = true;
        for (const QStringList& row : grid.heads)
            heads.push_back(Set(row, head));
        for (const QStringList& row : grid.rows)
            rows.push_back(Set(row, body));
    }

    std::vector<Sheet> Sheets() {
        const double top = Other_Margins + Running_Lines(grid.header, 1).height + Gap;
        const double bottom = Paper_Height - Other_Margins - Running_Lines(grid.footer, 1).height - Gap;
        double heads_height = 0;
        for (const Set_Row& row : heads)
            heads_height += row.height;
        std::vector<double> heights;
        for (const Set_Row& row : rows)
            heights.push_back(row.height);
        std::vector<Sheet> sheets;
        for (const Row_Range& range : Page_Breaks(heights, bottom - top - heads_height))
            sheets.push_back(Sheet_With(range, static_cast<int>(sheets.size()) + 1, top));
        return sheets;
    }

private:
    double Text_Size() const {
        double natural = 0;
        double fitted = 0;
        for (std::size_t i = 0; i < widths.size(); ++i) {
            natural += grid.columns[i].width * basics::Twips_Per_Pixel;
            fitted += widths[i];
        }
        return natural > 0 ? std::clamp(Full_Size * fitted / natural, Least_Size, Full_Size) : Full_Size;
    }

    Text_Block Running_Lines(const Marked_Text& marked, int page) const {
        return Set_Lines(Parse_Markup(marked.text, page, marked.values), room);
    }

    Set_Row Set(const QStringList& texts, const Print_Font& font) const {
        Set_Row row;
        std::size_t lines = 1;
        for (std::size_t i = 0; i < widths.size(); ++i) {
            const QString text = texts.value(static_cast<qsizetype>(i));
            row.cells.push_back(Broken_Text(font, text, Room_In(i), Most_Lines));
            lines = std::max(lines, static_cast<std::size_t>(row.cells.back().size()));
        }
        row.height = static_cast<double>(lines) * Line_Height(font) + 2 * Row_Padding;
        return row;
    }

    Sheet Sheet_With(const Row_Range& range, int page, double top) const {
        Sheet sheet;
        Place(Running_Lines(grid.header, page), Other_Margins, sheet);
        double y = top;
        for (const Set_Row& row : heads)
            y = Place(row, true, y, sheet);
        for (std::size_t i = range.first; i < range.end; ++i)
            y = Place(rows[i], false, y, sheet);
        const Text_Block footer = Running_Lines(grid.footer, page);
        Place(footer, Paper_Height - Other_Margins - footer.height, sheet);
        return sheet;
    }

    void Place(const Text_Block& block, double y, Sheet& sheet) const {
        for (const Placed_Text& text : block.texts)
            sheet.texts.push_back({left + text.x, y + text.baseline, text.text, text.font});
    }

    // Gives the place of the next row.
    double Place(const Set_Row& row, bool is_head, double y, Sheet& sheet) const {
        const Print_Font& font = is_head ? head : body;
        double x = left;
        for (std::size_t i = 0; i < widths.size(); ++i) {
            sheet.boxes.push_back({QRectF(x, y, widths[i], row.height), is_head});
            double baseline = y + Row_Padding + Ascent_Of(is_head);
            for (const QString& line : row.cells[i]) {
                sheet.texts.push_back({x + Start_In(i, font, line), baseline, line, font});
                baseline += Height_Of(is_head);
            }
            x += widths[i];
        }
        return y + row.height;
    }

    double Indent_Of(std::size_t column) const {
        return grid.columns[column].side == Side::Left ? Indent : Cell_Padding;
    }

    double Room_In(std::size_t column) const {
        return std::max(0.0, widths[column] - Indent_Of(column) - Cell_Padding);
    }

    double Start_In(std::size_t column, const Print_Font& font, const QString& line) const {
        const double rest = Room_In(column) - Text_Width(font, line);
        const double share[] = {0, 0.5, 1}; // of the rest that stands before the text, by side
        return Indent_Of(column) + rest * share[static_cast<std::size_t>(grid.columns[column].side)];
    }

    double Ascent_Of(bool is_head) const { return Ascent(is_head ? head : body); }
    double Height_Of(bool is_head) const { return Line_Height(is_head ? head : body); }

    const Printed_Grid& grid;
    double left;
    double room;
    std::vector<double> widths;
    Print_Font body;
    Print_Font head;
    std::vector<Set_Row> heads;
    std::vector<Set_Row> rows;
};

void Paint(const Sheet& sheet, QPainter& painter) {
    painter.setPen(QPen(Border_Colour, Border));
    for (const Cell_Box& box : sheet.boxes) {
        painter.setBrush(box.head ? QBrush(Head_Ground) : QBrush(Qt::NoBrush));
        painter.drawRect(box.place);
    }
    painter.setPen(Qt::black);
    std::optional<Print_Font> set; // a change of font costs more than a text
    for (const Placed_Text& text : sheet.texts) {
        if (set != text.font) painter.setFont(Font_For(text.font));
        set = text.font;
        painter.drawText(QPointF(text.x, text.baseline), text.text);
    }
}

} // namespace

std::vector<double> Fitted_Widths(const std::vector<Printed_Column>& columns, double room) {
    std::vector<double> widths;
    double sum = 0;
    for (const Printed_Column& column : columns) {
        widths.push_back(column.width * basics::Twips_Per_Pixel);
        sum += widths.back();
    }
    if (sum > room)
        for (double& width : widths)
            width *= room / sum;
    return widths;
}

std::vector<Row_Range> Page_Breaks(const std::vector<double>& row_heights, double room) {
    std::vector<Row_Range> pages;
    Row_Range page;
    double used = 0;
    for (std::size_t row = 0; row < row_heights.size(); ++row) {
        if (row > page.first && used + row_heights[row] > room) {
            pages.push_back(page);
            page = {row, row};
            used = 0;
        }
        used += row_heights[row];
        page.end = row + 1;
    }
    pages.push_back(page);
    return pages;
}

std::vector<Sheet> Lay_Out_Sheets(const Printed_Grid& grid) {
    return Grid_Setter(grid).Sheets();
}

desktop::Printed_Document Document_Of(std::vector<Sheet> sheets, const QString& name) {
    const auto kept = std::make_shared<const std::vector<Sheet>>(std::move(sheets));
    desktop::Printed_Document document;
    document.name = name;
    document.pages = static_cast<int>(kept->size());
    document.paint = [kept](QPainter& painter, int page) {
        Paint(kept->at(static_cast<std::size_t>(page) - 1), painter);
    };
    return document;
}

} // namespace grid
