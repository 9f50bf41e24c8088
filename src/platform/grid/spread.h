#pragma once

#include "platform/grid/grid_printing.h"

#include <QColor>
#include <QMap>
#include <QTableView>
#include <functional>
#include <vector>

namespace grid {

// How cells of one text are drawn on screen.
struct Cell_Look {
    QColor ground; // none: the grid's own
    QColor ink;
    bool bold = false;
};

// Where a grid's sheets go, and what they are called there.
struct Print_Outlet {
    QString document; // as a printer's queue names it
    std::function<void(const desktop::Printed_Document& sheets)> take;
};

class Cells;

// The grid control: cells addressed by column and row from 1, filled by the program and read by the user. A
// double click on it is told to its page.
//
// Row 0 is the header row, which stays while the others scroll. A column that was given no heading has its
// letter there, and the row is shown as soon as one heading has been written.
class fpSpread : public QTableView {
    Q_OBJECT
public:
    // A row count for a grid that gets its rows as they are written.
    static constexpr int Rows_As_Written = -1;

    fpSpread(const QString& name, int columns, int rows, QWidget* parent);

    int rowCount() const;
    int columnCount() const;

    // A cell outside the grid takes no text.
    void Set_Text(int column, int row, const QString& text);
    QString Text(int column, int row) const;        // empty text for a cell never written
    void Set_MaxRows(int rows);                     // drops the rows behind the last
    void Set_All_Texts(std::vector<QString> texts); // row by row: the grid has these rows and no others
    void Set_ColWidth(int column, int pixels);      // 0 puts the column away, also on paper
    void Narrow_On_Screen(int column, int pixels);  // on paper it stays as wide as it was set
    void Set_Left_Aligned(int column); // from the start column 1 alone is; the others are centred
    // Row 1 is the heading: on screen it stands in the header row, of that height in pixels.
    void Set_Heading_Row(int height);
    // Gives each row the height that its cells need at the widths of their columns, the usual one at least.
    void Fit_Rows();
    // Marks rows in their header, which is shown while there is a mark, and tells the words in the row's tool
    // tips and to a screen reader. What is printed stays as it is.
    void Set_Marks(const QMap<int, QString>& words_by_row);
    QString Mark_Of(int row) const;                            // empty text if it has none
    static constexpr int Mark_Width = 22;                      // pixels of the header
    void Set_Look(const QString& text, const Cell_Look& look); // of all cells that hold the text

    static constexpr int Portrait = 1;
    static constexpr int Action_Print = 32;

    int PrintOrientation = Portrait;
    QString PrintHeader; // both in the mark-up
    QString PrintFooter;
    std::vector<Value_Span> PrintHeaderValues; // where PrintHeader has values in place of codes
    int PrintMarginLeft = 720;                 // twips
    bool PrintColHeaders = true;
    bool PrintRowHeaders = true; // the rows' numbers
    bool PrintDataOnly = false;  // leaves out the rows and columns behind the last that hold data

    void Set_PrintHeader(const Marked_Text& header);

    // 32 prints the grid. A fault of the printer, an action or an orientation that the grid doesn't know is a
    // run-time error.
    void Action(int action, const Print_Outlet& outlet);

    // The grid as Action would print it now.
    Printed_Grid Printed() const;

Q_SIGNALS:
    void Double_Click();

protected:
    bool viewportEvent(QEvent* event) override; // the whole text of a cell as its tool tip

private:
    struct Extent {
        int columns = 0;
        int rows = 0;
    };

    void Set_Heading(int column, const QString& text);
    QStringList Row_Texts(int row, const Extent& extent) const;
    Extent Printed_Extent() const;

    Cells* cells;
    bool rows_as_written;
    bool heading_row = false;
    std::vector<int> wider_on_paper; // pixels, by column
};

} // namespace grid
