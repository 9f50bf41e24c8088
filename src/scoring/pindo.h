#pragma once

#include "scoring/scoring.h"

namespace scoring {

// The colour test has no norms: it gives a count of attempts and a verdict on it.
// rs as in all passes: a row that the caller has opened, or null for the pupil's own.
void Score_Pindo(int p, Scoring& scoring, database::Recordset* rs = nullptr);

// Which try of which body part an item is, from 1: "Hat 1st".
QString Pindo_Try(int item);

// All three are empty without a verdict: fewer attempts than body parts, or a test not completed.
struct Pindo_Verdict {
    QString Summary_Cell; // "OK", "2 errs"
    QString Page_Text;    // a sentence for reports
    QString Table_Word;   // "Satisfactory", "Unsatisfactory"
};
Pindo_Verdict Verdict_On_Pindo(int p, const Pupil_Lists& pupils, const Score_Store& scores);

} // namespace scoring
