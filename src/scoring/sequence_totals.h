#pragma once

#include "scoring/scoring.h"

namespace scoring {

// What the sequence tests' detail tables would total after the pupil's raw pass. For the two tests that
// count while their table is filled it is worked out on a copy of the work lists, so that asking changes
// nothing.
int Sequence_Total(int t, int p, const Scoring& scoring);
bool Has_Sequence_Total(int t);

// The rows that Tolvens's detail table shows for that age.
int Tolvens_Rows_Shown(int months);

} // namespace scoring
