#pragma once

#include "scoring/scoring.h"

namespace scoring {

// Blik's Friends, Blik's Letters and Drell. Those of Blik's Friends are summed only when its detail table
// is filled; the other two count their sequence errors in the raw pass.

void Score_BliksFriends(int p, database::Recordset* rs, Scoring& scoring);
void Time_BliksFriends(int p, database::Recordset* rs, Scoring& scoring);

void Score_BliksLetters(int p, database::Recordset* rs, Scoring& scoring);
void Time_BliksLetters(int p, database::Recordset* rs, Scoring& scoring);

void Score_Drell(int p, database::Recordset* rs, Scoring& scoring);
void Time_Drell(int p, database::Recordset* rs, Scoring& scoring);

} // namespace scoring
