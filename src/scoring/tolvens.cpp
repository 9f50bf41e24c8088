#include "scoring/tolvens.h"

#include "scoring/list_items.h"
#include "scoring/test_pass.h"

namespace scoring {

using test_index::Tolvens;

void Score_Tolvens(int p, database::Recordset* rs, Scoring& scoring) {
    Load_Items(Tolvens, All_Items(Tolvens), Item_Load::Answers, p, rs, scoring);
    scoring.scores.Tolvens_Terminated = false;
    Add_Up_Lists(Tolvens, scoring);
    if (Has_Unreached_Item(Tolvens, scoring.items)) scoring.scores.Tolvens_Terminated = true;
    Look_Up_Raw_Total(Tolvens, p, scoring);
}

void Time_Tolvens(int p, database::Recordset* rs, Scoring& scoring) {
    Time_Items(Tolvens, All_Items(Tolvens), p, rs, scoring);
}

} // namespace scoring
