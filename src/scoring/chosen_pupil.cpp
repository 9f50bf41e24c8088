#include "scoring/chosen_pupil.h"

namespace scoring {

void Score_Chosen_Pupil(int p, Passes_Wanted wanted, const Progress_Strip& show_progress, Scoring& scoring,
                        Summary_Cells& cells) {
    Clear_Scores(scoring.scores);
    Show_Test_Names(cells);
    Clear_Terminated_Flags(scoring.scores);
    Score_All_Tests(p, show_progress, scoring);
    if (wanted == Passes_Wanted::Raw_And_Time) Compute_Raw_Scores_Times(p, show_progress, scoring);
}

} // namespace scoring
