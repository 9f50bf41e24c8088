#pragma once

#include "scoring/scoring.h"

namespace scoring {

// The colour test has no norms: it gives a count of attempts and a verdict on it.
void Score_Pindo(int p, Scoring& scoring);

// All three are empty without a verdict: fewer attempts than body parts, or a test not completed.
struct Pindo_Verdict {
    QString Summary_Cell; // "OK", "2 errs"
    QString Page_Text;    // a sentence for reports
    QString Table_Word;   // "Satisfactory", "Unsatisfactory"
};
Pindo_Verdict Verdict_On_Pindo(int p, const Pupil_Lists& pupils, const Score_Store& scores);

} // namespace scoring
