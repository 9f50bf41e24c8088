#pragma once

#include "foundation/schema.h"

#include <QList>
#include <QString>
#include <array>

namespace scoring {

using foundation::Item_Field;

// The test index t: the order of scoring, of every array, of the summary's rows and of the bars.
namespace test_index {
inline constexpr int Tolvens = 1;
inline constexpr int Bliks_Friends = 2;
inline constexpr int Karrel = 3;
inline constexpr int Bliks_Letters = 4;
inline constexpr int Letter_Names = 5;
inline constexpr int Drell = 6;
inline constexpr int Mirvel = 7;
inline constexpr int Yoon = 8;
inline constexpr int Pindo = 9;
} // namespace test_index

inline constexpr int Normed_Tests = 8; // Pindo, the last test, has no norms
inline constexpr int All_Tests = 9;
inline constexpr int Older_From = 84; // months: from here on another set of items and other words

// The names of a test's items in a row of its data table, made once.
class Item_Columns {
public:
    void Append(Item_Field field, const QString& name);
    const QStringList& Names(Item_Field field) const { return names[static_cast<std::size_t>(field)]; }

private:
    std::array<QStringList, foundation::Item_Field_Count> names;
};

struct Test_Entry {
    QString Test_Name; // as tables and reports show it
    QString Module;    // as the keys of Mevo_Means begin
    QString Data_Table;
    QString Norm_Table; // both empty for Pindo
    QString Time_Norm_Table;
    QString Status_Column; // of Mevo_Pupils
    QString Age_Column;
    QString Date_Column;
    int Items;
    int Highest_Item;    // what the answer store has room for
    bool Counts_Repeats; // its data table has RepeatCount and PauseCount
    bool Null_List_Reads_As_Empty;
    QList<Item_Field> Fields;
    Item_Columns Columns;
};

// t from 1 to 9; any other is run-time error 9.
const Test_Entry& Test_At(int t);

const QStringList& Test_Columns(); // of Mevo_Pupils: status, age and date of each test

} // namespace scoring
