#pragma once

#include "scoring/score_all_tests.h"

namespace scoring {

inline constexpr int Largest_Cohort = 2000;
inline constexpr int Pupils_A_Lock =
    100; // are read under one at most, so that nobody who writes waits for long

// A batch of pupils and their results, by place i in the batch, from 1.
struct Cohort_Tables {
    template<class T>
    using Of_Each_Entry = basics::Bounded<T, Largest_Cohort>;

    Of_Each_Entry<qint16> Cohort_Pupil;                                      // the place p in the pupil list
    Of_Each_Entry<basics::Bounded<qint16, Normed_Tests>> Cohort_Raw_Centile; // [i][t]
    Of_Each_Entry<basics::Bounded<qint16, Normed_Tests>> Cohort_Time_Centile;
    Of_Each_Entry<basics::Bounded<float, Normed_Tests>> Cohort_Raw_ZScore;
    Of_Each_Entry<basics::Bounded<float, Normed_Tests>> Cohort_Time_ZScore;

    Of_Each_Pupil<bool> Cohort_Tolvens_Terminated; // these two by place p in the pupil list
    Of_Each_Pupil<bool> Cohort_Friends_Terminated;
};

// Called with the text of the batch page's progress label.
using Progress_Label = std::function<void(const QString& text)>;

// The raw pass for the first count entries of Cohort_Pupil. Afterwards the score store has the centiles again
// that it had before; Raw_Score and Raw_ZScore stay those of the last entry. The terminated flags aren't
// cleared from entry to entry, so one who didn't take the test inherits the one before.
void Score_Cohort(int count, const Progress_Label& show_progress, Cohort_Tables& cohort, Scoring& scoring);

} // namespace scoring
