#pragma once

#include "scoring/scoring.h"

#include <string_view>

namespace scoring {

// What the passes of all tests share. rs is a row that the caller has opened, with the items under the names
// of the test's data table, or null, as everywhere today: then the pupil's own row is opened, read and
// closed.

struct Item_Range {
    int First;
    int Last;
};
Item_Range All_Items(int t);

enum class Item_Load { Answers, Times, Answers_And_Times };

// Reads items into the store; answers from the pupil's own row bring the counts of repeats and pauses along.
void Load_Items(int t, Item_Range range, Item_Load load, int p, database::Recordset* rs, Scoring& scoring);

// More than 0 and less than 1000000 milliseconds; an item that wasn't timed has none.
bool Is_Valid_Time(const basics::Value& time);

// For whoever listens: an item was counted by that rule.
void Tell_Item(int t, int i, Counting rule, int points, const Scoring& scoring);

// Takes the test's raw total to its norms, by the pupil's age at that test.
void Look_Up_Raw_Total(int t, int p, Scoring& scoring);

// Adds the valid times of the range to the test's sum, counts them, and takes their rounded mean to the
// norms. Without a valid time it is run-time error 11.
void Add_Up_Times(int t, Item_Range range, int p, Scoring& scoring);

// The time pass of all normed tests but Karrel: sets the sum of times to 0, reads the times and adds them up.
void Time_Items(int t, Item_Range range, int p, database::Recordset* rs, Scoring& scoring);

// One word that takes another's place, in requested and chosen alike; other texts pass unchanged.
struct Word_Pair {
    QStringView stored;
    std::string_view shown; // in plain letters
};
template<std::size_t Count>
void Replace_Words(const Word_Pair (&words)[Count], int t, Item_Store& store) {
    for (const Item_Field field : {Item_Field::Requested, Item_Field::Chosen})
        for (int i = 1; i <= Test_At(t).Items; ++i) {
            basics::Value& item = store[t].Of(field)[i];
            for (const Word_Pair& word : words) {
                if (!item.Reads(word.stored)) continue;
                item.Set_Text(word.shown.data(), static_cast<qsizetype>(word.shown.size()));
                break;
            }
        }
}

} // namespace scoring
