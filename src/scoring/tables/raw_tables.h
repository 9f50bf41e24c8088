#pragma once

#include "platform/grid/spread.h"
#include "scoring/scoring.h"

namespace scoring {

inline constexpr double Milliseconds_A_Second = 1000; // item times are kept in the one and shown in the other

// Fills the detail table of one test for the pupil at place p: their answers item by item, and their totals
// against those of their age. The test's raw pass must have loaded the answers; the times are those of the
// last time pass. No score changes, but here the sequence errors of Tolvens and Blik's Friends are summed.
//
// A cell that can't be worked out is passed over and stays as it was. The grid is shown at the end.
void Show_Raw_Table_Tolvens(int p, grid::fpSpread& grid, Scoring& scoring);
void Show_Raw_Table_Friends(int p, grid::fpSpread& grid, Scoring& scoring);
void Show_Raw_Table_Karrel(int p, grid::fpSpread& grid, Scoring& scoring);
void Show_Raw_Table_Letters(int p, grid::fpSpread& grid, Scoring& scoring);
void Show_Raw_Table_BLN(int p, grid::fpSpread& grid, Scoring& scoring);
void Show_Raw_Table_Drell(int p, grid::fpSpread& grid, Scoring& scoring);
void Show_Raw_Table_Mirvel(int p, grid::fpSpread& grid, Scoring& scoring); // the two that need eight columns
void Show_Raw_Table_Yoon(int p, grid::fpSpread& grid, Scoring& scoring);
void Show_Raw_Table_Pindo(int p, grid::fpSpread& grid, Scoring& scoring);

// Blanks the rows that any test may have used.
void Clear_Grid(grid::fpSpread& grid);

// "7:03" for 87 months.
QString Show_Age_At_Test(int months);

} // namespace scoring
