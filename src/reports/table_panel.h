#pragma once

#include "foundation/installation.h"
#include "platform/basics/value.h"
#include "platform/desktop/ports.h"
#include "platform/grid/spread.h"
#include "printing/pdf_file.h"
#include "reports/profile_bars.h"
#include "reports/state/report_state.h"
#include "scoring/scoring.h"

#include <QLabel>
#include <QObject>

namespace reports {

// The tables that stand where the chart was, one at a time, under one heading: fpSpread1 the summary,
// fpSpread2 one test's answers, fpSpread2plus those of the two tests with eight columns. The grids are the
// frame's, so that nothing of the panel lies over the chart while no table is shown.
// t is the test, from 1 to 9; p the place in the pupil list, from 1.
class Table_Panel final : public QObject {
    Q_OBJECT
public:
    // heading stands above the tables; corner is where they stand on the frame.
    static constexpr QSize Size{764, Chart_Height};
    Table_Panel(QLabel* heading, scoring::Scoring& scoring, const QPoint& corner, QWidget* frame);

    void Set_Heading(const QString& text);
    void Hide();

    void Fill_Summary(const scoring::Summary_Cells& cells);
    void Show_Summary();

    void Clear_For(int t); // the grid that the test's answers will use
    void FillCell2(const basics::Value& column, const basics::Value& row,
                   const basics::Value& text); // of fpSpread2
    void Show_Which_Raw_Data(int t, int p);    // any other t does nothing

    // Prints the table on screen, with its heading, on the printer chosen last; nothing if there is none. A
    // fault of the printer is shown in a box.
    void Print(const Report_State& state, const foundation::Installation& installation,
               desktop::Platform& platform, printing::Outlet outlet);

Q_SIGNALS:
    void Closed(); // a table, by a double click

private:
    grid::fpSpread* Make_Grid(const QString& name, const QString& described, const QRect& place, int columns,
                              int rows);

    scoring::Scoring& scoring;
    QLabel* Label3;
    grid::fpSpread* fpSpread1;
    grid::fpSpread* fpSpread2;
    grid::fpSpread* fpSpread2plus;
};

} // namespace reports
