#pragma once

#include "platform/desktop/printers.h"
#include "platform/preview/drawing.h"
#include "platform/preview/running_text.h"

#include <QColor>
#include <QString>
#include <functional>
#include <vector>

namespace preview {

// A printed page as a list of drawing operations in twips (1440 to the inch) from the paper's top left
// corner. The preview, the printer, the PDF and the clipboard paint this one recording, so they can't differ.
//
// Plain members are the properties that hold until they are changed; the functions record or measure.
// Font sizes are points, angles tenths of a degree.
class ViewPro {
public:
    static constexpr int Paper_A4 = 9;

    int PaperSize = Paper_A4;
    int LineWidth = 10;
    int LineSpacing = 100;
    int CurrentX = 0;
    int CurrentY = 0;
    int TextWidth = 0; // of Text and Paragraph when set; of the text measured after MeasureText
    int TextAlign = 0; // 0 left, 1 centre
    int TextAngle = 0; // of DrawText: 0, or 900 to read upwards
    int FontSize = 10;
    bool FontBold = false;
    bool FontFixed = false; // letters of one width, which can't be taken for one another
    QColor ForeColor = Qt::black;
    QColor FillColor = Qt::black;
    QColor ObjectBKColor = Qt::white; // behind outlined rectangles and the cells of bordered tables
    int FillStyle = 0;                // of DrawRectangle2: 1 fills with FillColor, 0 outlines with ForeColor
    int ObjectAlign = 0;
    int TableBorders = 0;
    int CellPadding = 90;
    int RowPadding = 90;
    QString TableFormat; // column widths: "1440|720|720"
    // Places count from the corner of the left and the top margin instead of the paper's: all that is drawn
    // stands inside the margins, and the running header alone in its own. Holds for sheets that end from now
    // on.
    bool Keep_To_Margins = false;

    // For the properties of a PDF of the document.
    QString About;
    QString Title; // empty: the document's name
    QString Author;

    // Called before and after each cell of a hooked table, with the row from 1.
    std::function<void(int row)> Before_Cell;
    std::function<void(int row)> After_Cell;
    // Called by ShowOutput; the preview window sets it.
    std::function<void()> On_Show;

    void Set_PageMargins(int left, int right, int bottom, int top);
    int PageWidth() const;
    int PageHeight() const;
    int TextHeight() const; // of a line in the current font

    void BeginOutput(); // the outermost one starts the document anew, without a page as yet
    void EndOutput();
    void ShowOutput(); // lets the page just built appear in the preview window
    void NewPage();
    void Bookmark(const QString& title);  // in a PDF; leads to the sheet that is being built
    void HeaderText(const QString& text); // running texts: "left|centre|right"
    void FooterText(const QString& text);
    void MeasureText(const QString& text);
    void Text(const QString& text);
    void Paragraph(const QString& text);
    void DrawText(int x, int y, const QString& text);
    void DrawLine(int x1, int y1, int x2, int y2);
    void DrawBoxTo(int x, int y);
    void DrawRectangle2(int x, int y, int width, int height); // a negative height goes up from y
    void TableText(const QString& text);                      // rows end in ";", cells are divided by "|"
    void TableTextHooked(const QString& text);

    int PageCount() const;
    const Drawing& Page(int number) const; // from 1
    // All pages, first to last, for a printer or a PDF.
    desktop::Printed_Document Document(const QString& name, int first, int last) const;

private:
    struct Margins {
        int left = 0;
        int right = 0;
        int bottom = 0;
        int top = 0;
    };
    struct Printed_Cell {
        QStringList lines;
        Text_Style style;
        QColor colour;
        QColor ground;
    };

    Text_Style Style() const;
    int Line_Room() const;
    int Line_Step() const;
    Pen Current_Pen() const;
    Drawing& Sheet();
    void Begin_Sheet();
    void Finish_Sheet();
    void Put_Line(int x, int y, int width, const QString& text);
    void Print_Lines(const QStringList& lines);
    void Print_Table(const QString& text, bool hooked);
    std::vector<Printed_Cell> Table_Cells(const QStringList& texts, const QList<int>& widths, int row,
                                          bool hooked);
    int Row_Height(const std::vector<Printed_Cell>& cells) const;
    void Put_Row(const std::vector<Printed_Cell>& cells, const QList<int>& widths, int top, int height);
    void Put_Cell_Text(const Printed_Cell& cell, int left, int top, int width);
    void Put_Borders(const QList<int>& widths, const QList<int>& edges);

    Margins margins;
    Running_Text header;
    Running_Text footer;
    int open_batches = 0;
    std::vector<Drawing> sheets;
    std::vector<desktop::Bookmark> bookmarks;
};

} // namespace preview
