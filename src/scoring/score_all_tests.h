#pragma once

#include "scoring/scoring.h"
#include "scoring/summary_table.h"

#include <functional>

namespace scoring {

// Called with the width of the progress strip, in pixels, as each test is through; empty where no progress is
// shown.
using Progress_Strip = std::function<void(int width)>;

// The raw pass over all nine tests of the pupil at place p. A test is scored only if its status is 1.
void Score_All_Tests(int p, const Progress_Strip& show_progress, Scoring& scoring);

// The time pass over the eight normed tests, once for each raw pass. It ends with the strip at width 1.
void Compute_Raw_Scores_Times(int p, const Progress_Strip& show_progress, Scoring& scoring);

// The time pass of one normed test, if it was completed; its slot alone is filled.
void Time_One_Test(int t, int p, Scoring& scoring);

// The raw pass of one test alone, over a row that the caller has opened.
void Score_One_Test(int t, int p, database::Recordset& row, Scoring& scoring);

enum class Passes_Wanted { Raw, Raw_And_Time };

// What choosing the pupil at place p does to the score store, and to the names in the summary, in the one
// order that keeps earlier pupils' results out of sight.
void Score_Chosen_Pupil(int p, Passes_Wanted wanted, const Progress_Strip& show_progress, Scoring& scoring,
                        Summary_Cells& cells);

} // namespace scoring
