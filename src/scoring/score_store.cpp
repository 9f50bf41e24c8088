#include "scoring/score_store.h"

namespace scoring {

Score_Store::Score_Store() {
    for (auto* scores : {&Raw_Score, &Raw_ZScore, &Time_Score, &Time_Centile, &Time_ZScore})
        scores->Fill(0);
}

void Clear_Scores(Score_Store& scores) {
    scores.Pindo_Attempts = 0;
    for (int t = 1; t <= Normed_Tests; ++t) {
        scores.Raw_Centile[t] = 0;
        scores.Time_Centile[t] = 0;
    }
}

void Clear_Terminated_Flags(Score_Store& scores) {
    scores.Friends_Terminated = false;
    scores.Tolvens_Terminated = false;
}

} // namespace scoring
