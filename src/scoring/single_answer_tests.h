#pragma once

#include "scoring/scoring.h"
#include "scoring/test_pass.h"

namespace scoring {

// Karrel, Blik's Letter Names, Mirvel and Yoon: one answer an item, right when it equals what was asked.

void Score_Karrel(int p, database::Recordset* rs, Scoring& scoring);
// To be run once after the raw pass, never twice: it goes on with the time sum that the raw pass left at 0.
void Time_Karrel(int p, database::Recordset* rs, Scoring& scoring);
// Pupils of 84 months and more see patterns in place of colours.
void Rename_Karrel_Items(int months, Item_Store& items);

void Score_BLN(int p, database::Recordset* rs, Scoring& scoring);
void Time_BLN(int p, database::Recordset* rs, Scoring& scoring);

// Older pupils take the later half of level 1 and all of level 2, younger ones level 1.
Item_Range Mirvel_Window(int months);
void Score_Mirvel(int p, database::Recordset* rs, Scoring& scoring);
void Time_Mirvel(int p, database::Recordset* rs, Scoring& scoring);

void Score_Yoon(int p, database::Recordset* rs, Scoring& scoring);
void Time_Yoon(int p, database::Recordset* rs, Scoring& scoring);

} // namespace scoring
