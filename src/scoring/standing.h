#pragma once

#include "scoring/norm_tables.h"
#include "scoring/pupil_lists.h"

namespace scoring {

// Why a test has a score, or why it has none.
enum class Standing {
    Scored,
    Not_Taken,
    Retest_Allowed, // set back to not taken, with the date of the earlier test still there
    Not_Scored,     // a status that no scoring takes
    No_Norms,       // the age's column is empty
    Outside_Norms   // an empty cell, or a raw score behind the last row
};

// Of test t, 1 to 8, after the pupil at place p was scored.
Standing Standing_Of(int t, int p, const Pupil_Lists& pupils, const Score_Store& scores,
                     const Norm_Tables& norms);

// "not taken"; empty for a test with a score.
QString In_Words(Standing standing);

} // namespace scoring
