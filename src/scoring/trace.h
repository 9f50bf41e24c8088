#pragma once

#include "platform/basics/value.h"
#include "scoring/item_arithmetic.h"
#include "scoring/norm_tables.h"
#include "scoring/test_catalogue.h"

#include <array>
#include <optional>
#include <vector>

namespace scoring {

// By which rule an item counts.
enum class Counting {
    Elements_In_Place, // each element of the list that stands where it was asked counts 1
    Equal_Answer,      // an answer that equals what was asked counts 1; where nothing was asked none does
    Equal_Or_Empty,    // the same, and two empty fields are equal too
    Timed_Try          // a try with a valid time is an attempt
};

struct Traced_Item {
    int number;
    basics::Value asked;
    basics::Value answered;
    Counting rule;
    int points; // added to the raw total
    int sequence_errors = 0;
    std::vector<Sequence_Pair> sequence_pairs;
};

struct Traced_Time {
    int number; // of the item
    basics::Value time;
    bool counts;
};

// What the passes of one test used, each step told by itself.
struct Traced_Test {
    std::vector<Traced_Item> items;
    int raw_total = 0;
    std::optional<Norm_Band> band;
    Norm_Row norm;
    std::vector<Traced_Time> times;
    double time_sum = 0; // milliseconds
    std::optional<Time_Row> time;
};

// Filled by the scoring steps while they work, for whoever wants to show their reckoning. Where nobody does,
// each step looks at a null pointer and no more.
struct Trace {
    std::array<Traced_Test, All_Tests + 1> tests; // by t from 1
    std::vector<Sequence_Pair> pairs;             // of the item at hand

    Traced_Test& Of(int t) { return tests[static_cast<std::size_t>(t)]; }
    const Traced_Test& Of(int t) const { return tests[static_cast<std::size_t>(t)]; }

    // The errors of the item, with the pairs that were heard for it.
    void Take_Sequence_Errors(int t, int item, int errors) {
        for (Traced_Item& traced : Of(t).items)
            if (traced.number == item) {
                traced.sequence_errors = errors;
                traced.sequence_pairs = pairs;
            }
        pairs.clear();
    }
};

} // namespace scoring
