#pragma once

#include "scoring/scoring.h"

namespace scoring {

void Score_Tolvens(int p, database::Recordset* rs, Scoring& scoring);
void Time_Tolvens(int p, database::Recordset* rs, Scoring& scoring);

} // namespace scoring
