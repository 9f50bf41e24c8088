#include "scoring/summary_table.h"

#include "platform/basics/number_text.h"
#include "platform/basics/run_time_error.h"
#include "scoring/pindo.h"
#include "scoring/score_conversion.h"

#include <algorithm>
#include <iterator>

using namespace Qt::StringLiterals;

namespace scoring {

static const QString Headings[Summary_Cells::Columns] = {
    u"Module"_s,     u"Score"_s,        u"Centile"_s,     u"Std score"_s, u"Z Score"_s,
    u"Time (sec)"_s, u"Time Centile"_s, u"Time ZScore"_s, u"Test date"_s, u"Test age"_s,
};

Summary_Cells::Summary_Cells() {
    std::copy(std::begin(Headings), std::end(Headings), cells.begin());
}

std::size_t Summary_Cells::Place(int row, int column) {
    if (row < 1 || row > Rows || column < 1 || column > Columns)
        basics::Raise(basics::errors::Subscript_Out_Of_Range);
    return static_cast<std::size_t>((row - 1) * Columns + column - 1);
}

void Show_Test_Names(Summary_Cells& cells) {
    for (int t = 1; t <= All_Tests; ++t) {
        for (int column = 1; column <= Summary_Cells::Columns; ++column)
            cells(Summary_Row(t), column).clear();
        cells(Summary_Row(t), summary_column::Module) = Test_At(t).Test_Name;
    }
}

static void Fill_Scored_Row(int t, const Score_Store& scores, Summary_Cells& cells) {
    using namespace summary_column;
    const int row = Summary_Row(t);
    const qint16 centile = scores.Raw_Centile[t];
    cells(row, Score) = scores.Raw_Score[t].As_Text();
    cells(row, Centile) = QString::number(centile);
    cells(row, Standard_Score) = Centile_To_Standard_Score(centile);
    cells(row, ZScore) = scores.Raw_ZScore[t].As_Text();
    cells(row, Time) = basics::Two_Decimals(scores.Time_Score[t].As_Double() / 1000);
    cells(row, Time_Centile) = scores.Time_Centile[t].As_Text();
    cells(row, Time_ZScore) = scores.Time_ZScore[t].As_Text();
}

void Fill_SummaryTable_With_Scores(int p, const Pupil_Lists& pupils, const Score_Store& scores,
                                   Summary_Cells& cells) {
    const int pindo_row = Summary_Row(test_index::Pindo);
    cells(pindo_row, summary_column::Module) = u"Pindo"_s;
    const QString verdict = Verdict_On_Pindo(p, pupils, scores).Summary_Cell;
    if (!verdict.isEmpty()) cells(pindo_row, summary_column::Score) = verdict;
    for (int t = 1; t <= Normed_Tests; ++t) {
        cells(Summary_Row(t), summary_column::Module) = Test_At(t).Test_Name;
        if (scores.Raw_Centile[t] != 0) Fill_Scored_Row(t, scores, cells);
    }
}

void Fill_SummaryTable_With_Ages(int p, const Pupil_Lists& pupils, Summary_Cells& cells) {
    for (int t = 1; t <= All_Tests; ++t) {
        const int row = Summary_Row(t);
        cells(row, summary_column::Test_Date) = pupils.Test_Date[t][p];
        const int months = pupils.Test_Age[t][p];
        if (months == 0) continue;
        cells(row, summary_column::Test_Age) =
            basics::Signed_Number(months / 12) + u" y "_s + basics::Signed_Number(months % 12) + u" m"_s;
    }
}

} // namespace scoring
