#include "scoring/sequence_tests.h"

#include "scoring/list_items.h"
#include "scoring/test_pass.h"

namespace scoring {

using test_index::Bliks_Friends;
using test_index::Bliks_Letters;
using test_index::Drell;
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

void Score_BliksFriends(int p, database::Recordset* rs, Scoring& scoring) {
    Load_Items(Bliks_Friends, All_Items(Bliks_Friends), Item_Load::Answers, p, rs, scoring);
    scoring.scores.Friends_Terminated = false;
    Add_Up_Lists(Bliks_Friends, scoring);
    if (Has_Unreached_Item(Bliks_Friends, scoring.items)) scoring.scores.Friends_Terminated = true;
    Look_Up_Raw_Total(Bliks_Friends, p, scoring);
}

void Time_BliksFriends(int p, database::Recordset* rs, Scoring& scoring) {
    Time_Items(Bliks_Friends, All_Items(Bliks_Friends), p, rs, scoring);
}

void Score_BliksLetters(int p, database::Recordset* rs, Scoring& scoring) {
    Load_Items(Bliks_Letters, All_Items(Bliks_Letters), Item_Load::Answers, p, rs, scoring);
    Add_Up_Lists_And_Sequence_Errors(Bliks_Letters, Seq_Errors_Misplaced, scoring);
    Look_Up_Raw_Total(Bliks_Letters, p, scoring);
}

void Time_BliksLetters(int p, database::Recordset* rs, Scoring& scoring) {
    Time_Items(Bliks_Letters, All_Items(Bliks_Letters), p, rs, scoring);
}

void Score_Drell(int p, database::Recordset* rs, Scoring& scoring) {
    Load_Items(Drell, All_Items(Drell), Item_Load::Answers, p, rs, scoring);
    Add_Up_Lists_And_Sequence_Errors(Drell, Seq_Errors_Direct, scoring);
    Look_Up_Raw_Total(Drell, p, scoring);
}

void Time_Drell(int p, database::Recordset* rs, Scoring& scoring) {
    Time_Items(Drell, All_Items(Drell), p, rs, scoring);
}

} // namespace scoring
