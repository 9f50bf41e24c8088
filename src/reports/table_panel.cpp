#include "reports/table_panel.h"

#include "printing/print_outcome.h"
#include "printing/print_table.h"
#include "reports/profile_bars.h"
#include "scoring/tables/raw_tables.h"

#include <QHeaderView>

using namespace Qt::StringLiterals;

namespace reports {

static void Set_Widths(grid::fpSpread& table, const std::vector<int>& widths) {
    int column = 1;
    for (const int width : widths)
        table.Set_ColWidth(column++, width);
}

// By what each test's answers need: lists of words are long, single words and holes short. A test without a
// last column puts that away.
static void Set_Detail_Widths(int t, grid::fpSpread& table) {
    static const std::vector<int> lists_of_words{78, 214, 232, 66, 70, 84};
    static const std::vector<int> widths[] = {
        {92, 172, 192, 92, 92, 104},         // Tolvens
        lists_of_words,                      // Blik's Friends
        {112, 184, 184, 132, 132, 0},        // Karrel
        lists_of_words,                      // Blik's Letters
        {84, 240, 112, 136, 90, 82},         // Blik's Letter Names
        lists_of_words,                      // Drell
        {84, 138, 112, 122, 136, 78, 74, 0}, // Mirvel
        {78, 98, 86, 96, 108, 118, 84, 76},  // Yoon
        {132, 132, 184, 100, 82, 114},       // Pindo
    };
    Set_Widths(table, widths[t - 1]);
}

grid::fpSpread* Table_Panel::Make_Grid(const QString& name, const QString& described, const QRect& place,
                                       int columns, int rows) {
    auto* made = new grid::fpSpread(name, columns, rows, qobject_cast<QWidget*>(parent()));
    made->setAccessibleName(described);
    made->setAccessibleDescription(u"The headings stay above the rows."_s);
    made->setGeometry(place);
    made->hide();
    return made;
}

Table_Panel::Table_Panel(QLabel* heading, scoring::Scoring& scoring, const QPoint& corner, QWidget* frame)
    : QObject(frame), scoring(scoring), Label3(heading) {
    constexpr int summary_row = 39;
    constexpr int detail_row = 25;
    const QRect place(corner, Size);
    const QString answers = u"The pupil's answers, item by item"_s;
    fpSpread1 =
        Make_Grid(u"fpSpread1"_s, u"Summary of the pupil's performance in the tests"_s, place, 10, 10);
    fpSpread2 = Make_Grid(u"fpSpread2"_s, answers, place, 6, 32);
    fpSpread2plus = Make_Grid(u"fpSpread2plus"_s, answers, place, 8, 32);
    Set_Widths(*fpSpread1, {112, 54, 68, 58, 66, 62, 72, 76, 96, 92});
    fpSpread1->verticalHeader()->setDefaultSectionSize(summary_row);
    for (grid::fpSpread* detail : {fpSpread2, fpSpread2plus}) {
        detail->verticalHeader()->setDefaultSectionSize(detail_row);
        detail->Set_Heading_Row(detail_row + 5);
    }
    // The headings have two lines, and take what the other nine rows leave.
    fpSpread1->Set_Heading_Row(Chart_Height - 4 - 9 * summary_row);
    for (grid::fpSpread* closing : {fpSpread1, fpSpread2})
        connect(closing, &grid::fpSpread::Double_Click, this, [this, closing] {
            closing->hide();
            Q_EMIT Closed();
        });
}

void Table_Panel::Set_Heading(const QString& text) {
    Label3->setText(text);
}

void Table_Panel::Hide() {
    for (grid::fpSpread* table : {fpSpread1, fpSpread2, fpSpread2plus})
        table->hide();
}

void Table_Panel::Fill_Summary(const scoring::Summary_Cells& cells) {
    for (int row = 1; row <= scoring::Summary_Cells::Rows; ++row)
        for (int column = 1; column <= scoring::Summary_Cells::Columns; ++column)
            fpSpread1->Set_Text(column, row, cells(row, column));
}

void Table_Panel::Show_Summary() {
    fpSpread1->show();
}

static bool Needs_Eight_Columns(int t) {
    return t == scoring::test_index::Mirvel || t == scoring::test_index::Yoon;
}

void Table_Panel::Clear_For(int t) {
    scoring::Clear_Grid(Needs_Eight_Columns(t) ? *fpSpread2plus : *fpSpread2);
}

void Table_Panel::FillCell2(const basics::Value& column, const basics::Value& row,
                            const basics::Value& text) {
    fpSpread2->Set_Text(column.As_Integer(), row.As_Integer(), text.Text_Or_Empty());
}

void Table_Panel::Show_Which_Raw_Data(int t, int p) {
    using namespace scoring;
    static constexpr void (*fillers[])(int p, grid::fpSpread& grid, Scoring& scoring) = {
        Show_Raw_Table_Tolvens, Show_Raw_Table_Friends, Show_Raw_Table_Karrel,
        Show_Raw_Table_Letters, Show_Raw_Table_BLN,     Show_Raw_Table_Drell,
        Show_Raw_Table_Mirvel,  Show_Raw_Table_Yoon,    Show_Raw_Table_Pindo,
    };
    if (t < 1 || t > All_Tests) return;
    grid::fpSpread& table = Needs_Eight_Columns(t) ? *fpSpread2plus : *fpSpread2;
    Set_Detail_Widths(t, table);
    fillers[t - 1](p, table, scoring);
    table.Fit_Rows();
    table.raise();
}

void Table_Panel::Print(const Report_State& state, const foundation::Installation& installation,
                        desktop::Platform& platform, printing::Outlet outlet) {
    using printing::Table_To_Print;
    const std::pair<Table_To_Print, grid::fpSpread*> kinds[] = {{Table_To_Print::Wide_Detail, fpSpread2plus},
                                                                {Table_To_Print::Summary, fpSpread1},
                                                                {Table_To_Print::Detail, fpSpread2}};
    for (const auto& [kind, table] : kinds) {
        if (table->isHidden()) continue;
        printing::Telling_Printer_Errors(platform, [&] {
            printing::Print_Table({kind, *table, Label3->text()}, state, installation, platform, outlet);
        });
        return;
    }
}

} // namespace reports
