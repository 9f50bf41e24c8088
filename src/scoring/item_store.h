#pragma once

#include "platform/basics/run_time_error.h"
#include "platform/basics/value.h"
#include "platform/database/recordset.h"
#include "scoring/test_catalogue.h"

#include <array>
#include <memory>
#include <vector>

namespace scoring {

// One field of a test's items as the database holds it, by item number from 1. An item beyond the test's
// highest is run-time error 9.
class Item_Array {
public:
    explicit Item_Array(int highest = 0, const basics::Value& initial = {})
        : values(static_cast<std::size_t>(highest) + 1, initial) {}
    basics::Value& operator[](int item) { return values[Checked(item)]; }
    const basics::Value& operator[](int item) const { return values[Checked(item)]; }

private:
    std::size_t Checked(int item) const {
        if (item < 0 || static_cast<std::size_t>(item) >= values.size())
            basics::Raise(basics::errors::Subscript_Out_Of_Range);
        return static_cast<std::size_t>(item);
    }
    std::vector<basics::Value> values;
};

// The columns of a row that hold a test's items; looked up once for all rows of a shape.
class Item_Places {
public:
    void Find(const database::Recordset& rows, const Item_Columns& names);
    // By item, the first of which is item 1; -1 for a column that the rows don't have.
    const std::vector<int>& Columns(Item_Field field) const {
        return places[static_cast<std::size_t>(field)];
    }
    int Repeat_Count = -1;
    int Pause_Count = -1;

private:
    std::shared_ptr<const database::Row_Shape> found_for;
    std::array<std::vector<int>, foundation::Item_Field_Count> places;
};

// The answers of one test, and what its passes count. They are those of the pupil scored last, and items
// that a pass doesn't read keep what an earlier pupil left.
class Test_Items {
public:
    explicit Test_Items(int highest_item) {
        arrays.fill(Item_Array(highest_item));
        Of(Item_Field::Time) = Item_Array(highest_item, 0); // what a table shows before any time pass
    }

    Item_Array& Of(Item_Field field) { return arrays[static_cast<std::size_t>(field)]; }
    const Item_Array& Of(Item_Field field) const { return arrays[static_cast<std::size_t>(field)]; }

    const basics::Value& Item_Requested(int i) const { return Of(Item_Field::Requested)[i]; }
    const basics::Value& Item_Chosen(int i) const { return Of(Item_Field::Chosen)[i]; }
    const basics::Value& Item_Time(int i) const { return Of(Item_Field::Time)[i]; } // milliseconds

    int Raw_Total = 0; // of the raw pass; the time pass of Karrel and of the letter names sets it to 0
    double Time_Sum = 0;
    int Time_Count = 0;      // item times used; in Karrel the attempts, which the raw pass counts as well
    qint32 Mean_Time = 0;    // rounded
    int Sequence_Errors = 0; // Blik's Letters and Drell: of the raw pass
    basics::Value RepeatCount;
    basics::Value PauseCount;
    Item_Places Places; // in the rows that were read last

private:
    std::array<Item_Array, foundation::Item_Field_Count> arrays;
};

class Item_Store {
public:
    Item_Store();
    Test_Items& operator[](int t) { return tests[Checked(t)]; }
    const Test_Items& operator[](int t) const { return tests[Checked(t)]; }

private:
    static std::size_t Checked(int t);
    std::vector<Test_Items> tests;
};

} // namespace scoring
