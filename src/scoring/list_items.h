#pragma once

#include "scoring/scoring.h"

namespace scoring {

// Stored by the test modules in place of an answer.
inline constexpr QStringView Not_Reached = u"-1"; // requested: the test was ended before this item
inline constexpr QStringView No_Answer = u"-2";   // chosen

// How a test whose items are lists counts elements out of place.
using Sequence_Errors_Rule = void (*)(const basics::Value& requested, const basics::Value& chosen,
                                      int& result, Item_Form form, Work_Lists& work);

// The raw total of the four sequence tests: every element in its place counts 1, over all items, also
// behind one that wasn't reached.
void Add_Up_Lists(int t, Scoring& scoring);

// The same, with each item's sequence errors counted directly after its score.
void Add_Up_Lists_And_Sequence_Errors(int t, Sequence_Errors_Rule rule, Scoring& scoring);

// The raw pass must have loaded the items.
bool Has_Unreached_Item(int t, const Item_Store& items);

} // namespace scoring
