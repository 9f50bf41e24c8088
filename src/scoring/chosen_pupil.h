#pragma once

#include "scoring/score_all_tests.h"
#include "scoring/summary_table.h"

namespace scoring {

enum class Passes_Wanted { Raw, Raw_And_Time };

// What choosing the pupil at place p does to the score store, and to the names in the summary, in the one
// order that keeps earlier pupils' results out of sight.
void Score_Chosen_Pupil(int p, Passes_Wanted wanted, const Progress_Strip& show_progress, Scoring& scoring,
                        Summary_Cells& cells);

} // namespace scoring
