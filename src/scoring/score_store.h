#pragma once

#include "platform/basics/bounded.h"
#include "platform/basics/value.h"
#include "scoring/test_catalogue.h"

namespace scoring {

// The outcome of scoring, one pupil at a time; t from 1, Pindo apart.
struct Score_Store {
    Score_Store();

    template<class T>
    using Of_Each_Test = basics::Bounded<T, Normed_Tests>;

    Of_Each_Test<basics::Value> Raw_Score; // may be an earlier pupil's while Raw_Centile is 0
    Of_Each_Test<qint16> Raw_Centile;      // 0, and nothing else, marks a test without a score
    Of_Each_Test<basics::Value> Raw_ZScore;
    Of_Each_Test<basics::Value> Time_Score;   // mean item time in milliseconds
    Of_Each_Test<basics::Value> Time_Centile; // higher is faster; 0 until the time pass has run
    Of_Each_Test<basics::Value> Time_ZScore;

    int Pindo_Attempts = 0; // 0: not scored; 6 is the optimum
    int Pindo_Correct = 0;  // grows from pupil to pupil; nothing shows it

    int Current_Test = 0; // the slot that the running pass fills
    bool Tolvens_Terminated = false;
    bool Friends_Terminated = false;
    bool Left_By_A_Batch = false; // all but the centiles is that of the last entry of a batch
};

// Sets the centiles to 0, which marks tests without a score, and Pindo's attempts; what else an earlier pupil
// left isn't shown then.
void Clear_Scores(Score_Store& scores);

void Clear_Terminated_Flags(Score_Store& scores);

} // namespace scoring
