#pragma once

#include "scoring/scoring.h"

namespace scoring {

// The tests whose items are lists. The sequence errors of Tolvens and Blik's Friends are summed only when
// their detail tables are filled; the other two count them in the raw pass.

void Score_Tolvens(int p, database::Recordset* rs, Scoring& scoring);
void Time_Tolvens(int p, database::Recordset* rs, Scoring& scoring);

void Score_BliksFriends(int p, database::Recordset* rs, Scoring& scoring);
void Time_BliksFriends(int p, database::Recordset* rs, Scoring& scoring);

void Score_BliksLetters(int p, database::Recordset* rs, Scoring& scoring);
void Time_BliksLetters(int p, database::Recordset* rs, Scoring& scoring);

void Score_Drell(int p, database::Recordset* rs, Scoring& scoring);
void Time_Drell(int p, database::Recordset* rs, Scoring& scoring);

} // namespace scoring
