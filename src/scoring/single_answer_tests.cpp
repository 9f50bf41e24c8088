#include "scoring/single_answer_tests.h"

#include "scoring/test_pass.h"

namespace scoring {

namespace {

using test_index::Karrel;
using test_index::Letter_Names;
using test_index::Mirvel;
using test_index::Yoon;

constexpr Word_Pair Patterns_For_Colours[] = {
    {u"Red", "Checkers"}, {u"Yellow", "Bullseye"}, {u"Blue", "Stripes"},
    {u"Purple", "Spots"}, {u"Green", "Waves"},     {u"Cyan", "Triangles"},
};

bool Is_Right(const Test_Items& items, int i) {
    return items.Item_Chosen(i) == items.Item_Requested(i);
}

// Nothing asked and nothing answered is not a right answer.
void Count_Right_Answers(int t, Scoring& scoring) {
    Test_Items& items = scoring.items[t];
    items.Raw_Total = 0;
    for (int i = 1; i <= Test_At(t).Items; ++i) {
        const int points = Is_Right(items, i) && !items.Item_Requested(i).Reads(u"") ? 1 : 0;
        items.Raw_Total += points;
        Tell_Item(t, i, Counting::Equal_Answer, points, scoring);
    }
}

int Count_Valid_Times(int t, const Item_Store& store) {
    int count = 0;
    for (int i = 1; i <= Test_At(t).Items; ++i)
        if (Is_Valid_Time(store[t].Item_Time(i))) ++count;
    return count;
}

} // namespace

Item_Range Mirvel_Window(int months) {
    return months >= Older_From ? Item_Range{5, 16} : Item_Range{1, 8};
}

void Score_Karrel(int p, database::Recordset* rs, Scoring& scoring) {
    Test_Items& items = scoring.items[Karrel];
    items.Time_Sum = 0;
    Load_Items(Karrel, All_Items(Karrel), Item_Load::Answers_And_Times, p, rs, scoring);
    items.Time_Count = Count_Valid_Times(Karrel, scoring.items);
    Rename_Karrel_Items(scoring.pupils.Test_Age[Karrel][p], scoring.items);
    Count_Right_Answers(Karrel, scoring);
    Look_Up_Raw_Total(Karrel, p, scoring);
}

void Rename_Karrel_Items(int months, Item_Store& items) {
    if (months >= Older_From) Replace_Words(Patterns_For_Colours, Karrel, items);
}

void Time_Karrel(int p, database::Recordset* rs, Scoring& scoring) {
    scoring.items[Karrel].Raw_Total = 0; // the detail table shows this 0; Raw_Score keeps its value
    Load_Items(Karrel, All_Items(Karrel), Item_Load::Times, p, rs, scoring);
    Add_Up_Times(Karrel, All_Items(Karrel), p, scoring);
}

void Score_BLN(int p, database::Recordset* rs, Scoring& scoring) {
    Load_Items(Letter_Names, All_Items(Letter_Names), Item_Load::Answers, p, rs, scoring);
    Count_Right_Answers(Letter_Names, scoring);
    Look_Up_Raw_Total(Letter_Names, p, scoring);
}

void Time_BLN(int p, database::Recordset* rs, Scoring& scoring) {
    scoring.items[Letter_Names].Raw_Total = 0; // as in Karrel
    Time_Items(Letter_Names, All_Items(Letter_Names), p, rs, scoring);
}

void Score_Mirvel(int p, database::Recordset* rs, Scoring& scoring) {
    Test_Items& items = scoring.items[Mirvel];
    const Item_Range window = Mirvel_Window(scoring.pupils.Test_Age[Mirvel][p]);
    Load_Items(Mirvel, window, Item_Load::Answers, p, rs, scoring);
    items.Raw_Total = 0;
    for (int i = window.First; i <= window.Last; ++i) {
        const int points = Is_Right(items, i) ? 1 : 0; // here two empty fields count as right
        items.Raw_Total += points;
        Tell_Item(Mirvel, i, Counting::Equal_Or_Empty, points, scoring);
    }
    Look_Up_Raw_Total(Mirvel, p, scoring);
}

void Time_Mirvel(int p, database::Recordset* rs, Scoring& scoring) {
    Time_Items(Mirvel, Mirvel_Window(scoring.pupils.Test_Age[Mirvel][p]), p, rs, scoring);
}

void Score_Yoon(int p, database::Recordset* rs, Scoring& scoring) {
    Load_Items(Yoon, All_Items(Yoon), Item_Load::Answers, p, rs, scoring);
    Count_Right_Answers(Yoon, scoring);
    Look_Up_Raw_Total(Yoon, p, scoring);
}

void Time_Yoon(int p, database::Recordset* rs, Scoring& scoring) {
    Time_Items(Yoon, All_Items(Yoon), p, rs, scoring);
}

} // namespace scoring
