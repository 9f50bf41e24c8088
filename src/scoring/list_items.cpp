#include "scoring/list_items.h"

#include "scoring/test_pass.h"

namespace scoring {

static void Add_Item(int t, int i, Scoring& scoring) {
    Test_Items& items = scoring.items[t];
    int correct = 0;
    Score_Item(items.Item_Requested(i), items.Item_Chosen(i), correct, Item_Form::List, scoring.work);
    items.Raw_Total += correct;
    Tell_Item(t, i, Counting::Elements_In_Place, correct, scoring);
}

void Add_Up_Lists(int t, Scoring& scoring) {
    scoring.items[t].Raw_Total = 0;
    for (int i = 1; i <= Test_At(t).Items; ++i)
        Add_Item(t, i, scoring);
}

void Add_Up_Lists_And_Sequence_Errors(int t, Sequence_Errors_Rule rule, Scoring& scoring) {
    Test_Items& items = scoring.items[t];
    items.Raw_Total = 0;
    items.Sequence_Errors = 0;
    for (int i = 1; i <= Test_At(t).Items; ++i) {
        Add_Item(t, i, scoring);
        int errors = 0;
        rule(items.Item_Requested(i), items.Item_Chosen(i), errors, Item_Form::List, scoring.work);
        items.Sequence_Errors += errors;
        if (scoring.trace) scoring.trace->Take_Sequence_Errors(t, i, errors);
    }
}

bool Has_Unreached_Item(int t, const Item_Store& items) {
    for (int i = 1; i <= Test_At(t).Items; ++i)
        if (items[t].Item_Requested(i).Reads(Not_Reached)) return true;
    return false;
}

} // namespace scoring
