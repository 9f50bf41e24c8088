#pragma once

#include "scoring/scoring.h"

#include <array>

namespace scoring {

// The texts of the summary table: row 1 the headings, row t + 1 test t; rows and columns from 1. The page
// copies them to its grid, and reports read them.
class Summary_Cells {
public:
    static constexpr int Rows = 10;
    static constexpr int Columns = 10;

    Summary_Cells(); // the headings alone
    QString& operator()(int row, int column) { return cells[Place(row, column)]; }
    const QString& operator()(int row, int column) const { return cells[Place(row, column)]; }

private:
    static std::size_t Place(int row, int column);
    std::array<QString, Rows * Columns> cells;
};

namespace summary_column {
inline constexpr int Module = 1;
inline constexpr int Score = 2; // in Pindo's row the verdict
inline constexpr int Centile = 3;
inline constexpr int Standard_Score = 4;
inline constexpr int ZScore = 5;
inline constexpr int Time = 6;
inline constexpr int Time_Centile = 7;
inline constexpr int Time_ZScore = 8;
inline constexpr int Test_Date = 9;
inline constexpr int Test_Age = 10;
} // namespace summary_column

constexpr int Summary_Row(int t) {
    return t + 1;
}

// The nine test names, with all else of their rows emptied.
void Show_Test_Names(Summary_Cells& cells);

// Columns 2 to 8. The time columns show what the score store holds, also before a time pass.
void Fill_SummaryTable_With_Scores(int p, const Pupil_Lists& pupils, const Score_Store& scores,
                                   Summary_Cells& cells);

// Columns 9 and 10.
void Fill_SummaryTable_With_Ages(int p, const Pupil_Lists& pupils, Summary_Cells& cells);

} // namespace scoring
