#include "platform/basics/number_text.h"
#include "scoring/passing_over_errors.h"
#include "scoring/pindo.h"
#include "scoring/tables/raw_tables.h"

using namespace Qt::StringLiterals;

namespace scoring {

namespace {

using basics::Two_Decimals;
using grid::fpSpread;

constexpr int Rows = 28;

void Write_Row_Labels(fpSpread& grid) {
    const QString headings[] = {u"Body part"_s,   u"Requested"_s, u"Chosen"_s,
                                u"Time (secs)"_s, u"Correct"_s,   u"Age at test"_s};
    int column = 1;
    for (const QString& heading : headings)
        grid.Set_Text(column++, 1, heading);
    for (int i = 1; i <= Test_At(test_index::Pindo).Items; ++i)
        grid.Set_Text(1, i + 1, Pindo_Try(i));
}

// Gives the sum of the times shown, in milliseconds.
double Fill_Pindo_Rows(fpSpread& grid, const Test_Items& items) {
    double sum = 0;
    for (int i = 1; i <= Test_At(test_index::Pindo).Items; ++i) {
        const int row = i + 1;
        grid.Set_Text(2, row, items.Item_Requested(i).Text_Or_Empty());
        grid.Set_Text(3, row, items.Item_Chosen(i).Text_Or_Empty());
        Passing_Over_Errors([&] {
            const double time = items.Item_Time(i).As_Double();
            if (!(time > 0)) return;
            sum += time;
            grid.Set_Text(4, row, Two_Decimals(time / Milliseconds_A_Second));
            grid.Set_Text(5, row, items.Item_Chosen(i) == items.Item_Requested(i) ? u"Yes"_s : u"No"_s);
        });
    }
    return sum;
}

} // namespace

void Show_Raw_Table_Pindo(int p, fpSpread& grid, Scoring& scoring) {
    if (grid.rowCount() < Rows) grid.Set_MaxRows(Rows); // what is written below the last row would be lost
    Write_Row_Labels(grid);
    const double sum = Fill_Pindo_Rows(grid, scoring.items[test_index::Pindo]);
    const int totals = Test_At(test_index::Pindo).Items + 2;
    grid.Set_Text(3, totals, u"Total time (secs)"_s);
    grid.Set_Text(4, totals, Two_Decimals(sum / Milliseconds_A_Second));
    grid.Set_Text(3, totals + 1, u"Attempts (optimum=6)"_s);
    grid.Set_Text(4, totals + 1, QString::number(scoring.scores.Pindo_Attempts));
    const QString word = Verdict_On_Pindo(p, scoring.pupils, scoring.scores).Table_Word;
    if (!word.isEmpty()) grid.Set_Text(2, totals + 1, word);
    grid.Set_MaxRows(Rows);
    grid.show();
}

} // namespace scoring
