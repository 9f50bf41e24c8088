#pragma once

#include "platform/desktop/printers.h"
#include "platform/grid/running_lines.h"

#include <QRectF>
#include <QString>
#include <QStringList>
#include <vector>

namespace grid {

// How a grid comes to paper, apart from the control on screen: its rows in, its sheets out. Measures are
// twips from the paper's top left corner; sheets are A4, upright.

struct Printed_Column {
    int width = 0; // pixels on screen
    Side side = Side::Left;
};

struct Printed_Grid {
    Marked_Text header; // both on each sheet
    Marked_Text footer;
    int margin_left = 0;
    std::vector<Printed_Column> columns;
    std::vector<QStringList> heads; // rows that are set apart and stand on top of each sheet
    std::vector<QStringList> rows;
};

struct Cell_Box {
    QRectF place;
    bool head = false;
};

struct Sheet {
    std::vector<Cell_Box> boxes;
    std::vector<Placed_Text> texts;
};

// Column widths in twips: those of the screen, or all of them shrunk alike to fit into the room.
std::vector<double> Fitted_Widths(const std::vector<Printed_Column>& columns, double room);

// The rows of one sheet: from the first up to, not including, the end.
struct Row_Range {
    std::size_t first = 0;
    std::size_t end = 0;
    bool operator==(const Row_Range&) const = default;
};

// Sheets break between rows. A row that is higher than the room gets a sheet of its own, and no row at all
// still makes one sheet.
std::vector<Row_Range> Page_Breaks(const std::vector<double>& row_heights, double room);

// One sheet at least. Document_Of gives them to the printer under a name that its queue shows.
std::vector<Sheet> Lay_Out_Sheets(const Printed_Grid& grid);
desktop::Printed_Document Document_Of(std::vector<Sheet> sheets, const QString& name);

} // namespace grid
