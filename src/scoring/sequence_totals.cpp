#include "scoring/sequence_totals.h"

#include "scoring/list_items.h"
#include "scoring/passing_over_errors.h"

namespace scoring {

namespace {

using test_index::Bliks_Friends;
using test_index::Bliks_Letters;
using test_index::Drell;
using test_index::Tolvens;

int Total_Of_Shown_Rows(int t, int rows, Sequence_Errors_Rule rule, const Scoring& scoring) {
    const Test_Items& items = scoring.items[t];
    Work_Lists work = scoring.work;
    int total = 0;
    for (int i = 1; i <= rows; ++i) {
        const basics::Value& requested = items.Item_Requested(i);
        const basics::Value& chosen = items.Item_Chosen(i);
        if (chosen.Reads(No_Answer)) continue;
        int correct = 0;
        int errors = 0;
        Passing_Over_Errors([&] { Score_Item(requested, chosen, correct, Item_Form::List, work); });
        Passing_Over_Errors([&] { rule(requested, chosen, errors, Item_Form::List, work); });
        total += errors;
        if (scoring.trace) scoring.trace->Take_Sequence_Errors(t, i, errors);
    }
    return total;
}

} // namespace

int Tolvens_Rows_Shown(int months) {
    return months < Older_From ? 10 : 13;
}

bool Has_Sequence_Total(int t) {
    return t == Tolvens || t == Bliks_Friends || t == Bliks_Letters || t == Drell;
}

int Sequence_Total(int t, int p, const Scoring& scoring) {
    switch (t) {
    case Tolvens:
        return Total_Of_Shown_Rows(t, Tolvens_Rows_Shown(scoring.pupils.Test_Age[Tolvens][p]),
                                   Seq_Errors_Direct, scoring);
    case Bliks_Friends:
        return Total_Of_Shown_Rows(t, Test_At(t).Items, Seq_Errors_Misplaced, scoring);
    default:
        return scoring.items[t].Sequence_Errors;
    }
}

} // namespace scoring
