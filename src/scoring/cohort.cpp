#include "scoring/cohort.h"

#include "scoring/score_conversion.h"

using namespace Qt::StringLiterals;

namespace scoring {

static float Single_ZScore(qint16 centile) {
    return static_cast<float>(Centile_To_ZScore(centile));
}

static void Keep_Results(int i, const Score_Store& scores, Cohort_Tables& cohort) {
    for (int t = 1; t <= Normed_Tests; ++t) {
        cohort.Cohort_Raw_Centile[i][t] = scores.Raw_Centile[t];
        cohort.Cohort_Time_Centile[i][t] = scores.Time_Centile[t].As_Integer();
    }
    const int p = cohort.Cohort_Pupil[i];
    cohort.Cohort_Tolvens_Terminated[p] = scores.Tolvens_Terminated;
    cohort.Cohort_Friends_Terminated[p] = scores.Friends_Terminated;
    for (int t = 1; t <= Normed_Tests; ++t) {
        const bool is_scored = scores.Raw_Centile[t] != 0;
        cohort.Cohort_Raw_ZScore[i][t] = is_scored ? Single_ZScore(cohort.Cohort_Raw_Centile[i][t]) : 0;
        cohort.Cohort_Time_ZScore[i][t] = is_scored ? Single_ZScore(cohort.Cohort_Time_Centile[i][t]) : 0;
    }
}

void Score_Cohort(int count, const Progress_Label& show_progress, Cohort_Tables& cohort, Scoring& scoring) {
    Score_Store& scores = scoring.scores;
    const auto saved_centiles = scores.Raw_Centile;
    const auto saved_time_centiles = scores.Time_Centile;
    const auto act = scoring.holder.Begin_Act();
    for (int i = 1; i <= count; ++i) {
        if (i % Pupils_A_Lock == 0) scoring.holder.End_Shared_Lock();
        show_progress(u"Scoring student %1/%2"_s.arg(i).arg(count));
        Clear_Scores(scores);
        Score_All_Tests(cohort.Cohort_Pupil[i], {}, scoring);
        Keep_Results(i, scores, cohort);
    }
    scores.Raw_Centile = saved_centiles;
    scores.Time_Centile = saved_time_centiles;
    scores.Left_By_A_Batch = count > 0;
}

} // namespace scoring
