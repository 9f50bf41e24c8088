#include "scoring/tables/raw_tables.h"

#include "platform/basics/number_text.h"
#include "scoring/list_items.h"
#include "scoring/passing_over_errors.h"
#include "scoring/test_pass.h"

#include <functional>

using namespace Qt::StringLiterals;

namespace scoring {

namespace {

using namespace test_index;
using basics::Plain_Number;
using basics::Two_Decimals;
using basics::Value;
using grid::fpSpread;

constexpr int Last_Row_Used = 94;
constexpr int First_Item_Row = 2;

enum class Shown_As {
    Row_Number,
    Stored,            // the field as it came
    Requested_Or_Note, // a note in place of an item that wasn't reached
    Chosen_Or_Blank,   // blank for an item without an answer
    Target_Position,
    Plain_Time,
    Rounded_Time,
    Equal,   // "1" or "0"
    Correct, // elements in their place
    Sequence_Errors
};

struct Detail_Column {
    QString heading;
    Shown_As shown_as;
    Item_Field field = Item_Field::Requested;
};

struct Detail_Table {
    int t;
    QList<Detail_Column> columns;
    int label_column; // the totals' labels; time, correct and sequence errors stand to its right
    Item_Range shown_younger;
    Item_Range shown_older; // from 84 months
    Sequence_Errors_Rule sequence_errors = nullptr;
    bool sums_sequence_errors = false; // here, and not in the raw pass
    bool counts_repeats = true;
};

const Detail_Column Level{u"Test level"_s, Shown_As::Row_Number};
const Detail_Column Quotient{u"Time"_s, Shown_As::Plain_Time};
const Detail_Column Seconds{u"Time"_s, Shown_As::Rounded_Time};
const Detail_Column Correct{u"Correct"_s, Shown_As::Correct};
const Detail_Column Seq_Errors{u"Seq errors"_s, Shown_As::Sequence_Errors};

Detail_Column Field(const QString& heading, Item_Field field) {
    return {heading, Shown_As::Stored, field};
}

const Detail_Table& Table_Of(int t) {
    using enum Item_Field;
    static const Detail_Table tables[] = {
        {Tolvens,
         {Level,
          {u"Holes shown"_s, Shown_As::Requested_Or_Note},
          {u"Holes chosen"_s, Shown_As::Chosen_Or_Blank},
          Quotient,
          Correct,
          Seq_Errors},
         3,
         {1, 10},
         {1, 13},
         Seq_Errors_Direct,
         true},
        {Bliks_Friends,
         {Level,
          {u"Cols shown"_s, Shown_As::Requested_Or_Note},
          {u"Cols chosen"_s, Shown_As::Chosen_Or_Blank},
          Quotient,
          Correct,
          Seq_Errors},
         3,
         {1, 15},
         {1, 15},
         Seq_Errors_Misplaced,
         true},
        {Karrel,
         {Level,
          Field(u"Requested"_s, Requested),
          Field(u"Chosen"_s, Chosen),
          Seconds,
          {u"Correct"_s, Shown_As::Equal}},
         3,
         {1, 25}, // as many of them as were tried
         {1, 25},
         nullptr,
         false,
         false},
        {Bliks_Letters,
         {Level, Field(u"Symbols shown"_s, Requested), Field(u"Symbs chosen"_s, Chosen), Quotient, Correct,
          Seq_Errors},
         3,
         {1, 10},
         {1, 12},
         Seq_Errors_Misplaced},
        {Letter_Names,
         {Level, Field(u"Symb shown"_s, Shown), Field(u"Symb req"_s, Requested),
          Field(u"Symb chosen"_s, Chosen), Seconds, Correct},
         4,
         {1, 8},
         {1, 12}},
        {Drell,
         {Level, Field(u"Finish order"_s, Requested), Field(u"Order chosen"_s, Chosen), Quotient, Correct,
          Seq_Errors},
         3,
         {1, 7},
         {1, 9},
         Seq_Errors_Direct},
        {Mirvel,
         {Level, Field(u"Rhyming with item"_s, Rhyming_With), Field(u"Distractor"_s, Distractor),
          Field(u"Rhyme target"_s, Requested), Field(u"Picture chosen"_s, Chosen), Quotient, Correct},
         5,
         {1, 8},
         {5, 16}},
        {Yoon,
         {Level,
          Field(u"Target alien"_s, Target_Alien),
          {u"Target pos"_s, Shown_As::Target_Position},
          Field(u"Distracter"_s, Distracter),
          Field(u"Target word"_s, Requested),
          Field(u"Word chosen"_s, Chosen),
          Seconds,
          Correct},
         6,
         {1, 15},
         {1, 25}},
    };
    return tables[t - 1];
}

// The word's side of the two on offer; empty text for an item without a target.
QString Target_Position(const Test_Items& items, int i) {
    const QString target = items.Item_Requested(i).Text_Or_Empty();
    if (target.isEmpty()) return {};
    const QString left = items.Of(Item_Field::Choices)[i].Text_Or_Empty().section(u',', 0, 0);
    return left == target ? u"Left"_s : u"Right"_s;
}

class Filler {
public:
    Filler(int t, int p, fpSpread& grid, Scoring& scoring)
        : table(Table_Of(t)),
          grid(grid),
          scoring(scoring),
          items(scoring.items[t]),
          months(scoring.pupils.Test_Age[t][p]),
          shown(months < Older_From ? table.shown_younger : table.shown_older) {
        if (t == Karrel) shown.Last = items.Time_Count;
    }

    int Rows() const { return shown.Last - shown.First + 1; }

    void Fill() {
        for (int column = 1; column <= table.columns.size(); ++column)
            grid.Set_Text(column, 1, table.columns[column - 1].heading);
        if (table.sums_sequence_errors) items.Sequence_Errors = 0;
        for (int i = shown.First; i <= shown.Last; ++i)
            Fill_Item(i);
        Fill_Totals();
    }

private:
    void Fill_Item(int i) {
        const int row = First_Item_Row + i - shown.First;
        const bool answered = !items.Item_Chosen(i).Reads(No_Answer);
        for (int column = 1; column <= table.columns.size(); ++column) {
            const Detail_Column& told = table.columns[column - 1];
            if (!answered && told.shown_as >= Shown_As::Plain_Time) continue;
            Passing_Over_Errors([&] { grid.Set_Text(column, row, Cell(told, i, row)); });
        }
    }

    QString Cell(const Detail_Column& told, int i, int row) {
        switch (told.shown_as) {
        case Shown_As::Row_Number:
            return QString::number(row - First_Item_Row + 1);
        case Shown_As::Stored:
            return items.Of(told.field)[i].Text_Or_Empty();
        case Shown_As::Requested_Or_Note:
            return items.Item_Requested(i).Reads(Not_Reached) ? u"Not attempted"_s
                                                              : items.Item_Requested(i).Text_Or_Empty();
        case Shown_As::Chosen_Or_Blank:
            return items.Item_Chosen(i).Reads(No_Answer) ? u""_s : items.Item_Chosen(i).Text_Or_Empty();
        case Shown_As::Target_Position:
            return Target_Position(items, i);
        case Shown_As::Plain_Time:
            return Plain_Number(items.Item_Time(i).As_Double() / Milliseconds_A_Second);
        case Shown_As::Rounded_Time:
            return Two_Decimals(items.Item_Time(i).As_Double() / Milliseconds_A_Second);
        case Shown_As::Equal:
            return items.Item_Chosen(i) == items.Item_Requested(i) ? u"1"_s : u"0"_s;
        case Shown_As::Correct:
            return QString::number(Counted(Score_Item, i));
        case Shown_As::Sequence_Errors:
            break;
        }
        const int errors = Counted(table.sequence_errors, i);
        if (table.sums_sequence_errors) items.Sequence_Errors += errors;
        return QString::number(errors);
    }

    int Counted(Sequence_Errors_Rule rule, int i) {
        int result = 0;
        rule(items.Item_Requested(i), items.Item_Chosen(i), result, Item_Form::List, scoring.work);
        return result;
    }

    void Put(int column, int row, const std::function<QString()>& text) {
        Passing_Over_Errors([&] { grid.Set_Text(column, row, text()); });
    }

    void Fill_Totals() {
        const int first = Rows() + 3;
        const int label = table.label_column;
        const bool sequence = table.sequence_errors != nullptr;
        const auto seconds = [](double milliseconds) {
            return Two_Decimals(milliseconds / Milliseconds_A_Second);
        };

        const QString labels[] = {u"Child's total"_s, u"Child's avge"_s, u"Popul'n mean"_s, u"Popul'n SD"_s};
        for (int line = 0; line < 4; ++line)
            grid.Set_Text(label, first + line, labels[line]);
        Put(label + 1, first, [&] { return seconds(items.Time_Sum); });
        Put(label + 2, first, [&] { return QString::number(items.Raw_Total); });
        if (sequence) Put(label + 3, first, [&] { return QString::number(items.Sequence_Errors); });
        Put(label + 1, first + 1, [&] { return seconds(items.Mean_Time); });

        const Population_Means means = Means();
        Put(label + 1, first + 2, [&] { return seconds(means.Time_Mean.As_Double()); });
        Put(label + 2, first + 2, [&] { return means.Correct_Mean.As_Text(); });
        if (sequence) Put(label + 3, first + 2, [&] { return means.Seq_Errors_Mean.As_Text(); });
        Put(label + 1, first + 3, [&] { return seconds(means.Time_SD.As_Double()); });
        Put(label + 2, first + 3, [&] { return means.Correct_SD.As_Text(); });
        if (sequence) Put(label + 3, first + 3, [&] { return means.Seq_Errors_SD.As_Text(); });

        if (!table.counts_repeats) return;
        grid.Set_Text(2, first + 2, u"Paused:"_s + items.PauseCount.Text_Or_Empty());
        grid.Set_Text(2, first + 3, u"Repeated:"_s + items.RepeatCount.Text_Or_Empty());
    }

    Population_Means Means() {
        Population_Means means;
        QString module = Test_At(table.t).Module;
        Passing_Over_Errors(
            [&] { Get_Population_Means(module, months, means, scoring.holder, scoring.installation); });
        return means;
    }

    const Detail_Table& table;
    fpSpread& grid;
    Scoring& scoring;
    Test_Items& items;
    int months;
    Item_Range shown;
};

void Fill_And_Show(int t, int p, fpSpread& grid, Scoring& scoring) {
    Filler(t, p, grid, scoring).Fill();
    grid.show();
}

} // namespace

void Clear_Grid(fpSpread& grid) {
    for (int row = 1; row <= Last_Row_Used; ++row)
        for (int column = 1; column <= grid.columnCount(); ++column)
            grid.Set_Text(column, row, u" "_s);
}

QString Show_Age_At_Test(int months) {
    return u"%1:%2"_s.arg(months / 12).arg(months % 12, 2, 10, QChar(u'0'));
}

// Some fillers set the number of rows and some leave it as it stood, also where that cuts their table short.

static void Fill_And_Set_Rows(int t, int rows, int p, fpSpread& grid, Scoring& scoring) {
    if (grid.rowCount() < rows) grid.Set_MaxRows(rows); // what is written below the last row would be lost
    Fill_And_Show(t, p, grid, scoring);
    grid.Set_MaxRows(rows);
}

void Show_Raw_Table_Tolvens(int p, fpSpread& grid, Scoring& scoring) {
    Fill_And_Set_Rows(Tolvens, 20, p, grid, scoring);
}

void Show_Raw_Table_Friends(int p, fpSpread& grid, Scoring& scoring) {
    Fill_And_Set_Rows(Bliks_Friends, 22, p, grid, scoring);
}

void Show_Raw_Table_Karrel(int p, fpSpread& grid, Scoring& scoring) {
    grid.Set_MaxRows(scoring.items[Karrel].Time_Count + 7);
    Fill_And_Show(Karrel, p, grid, scoring);
}

void Show_Raw_Table_Letters(int p, fpSpread& grid, Scoring& scoring) {
    Fill_And_Show(Bliks_Letters, p, grid, scoring);
}

void Show_Raw_Table_BLN(int p, fpSpread& grid, Scoring& scoring) {
    Fill_And_Show(Letter_Names, p, grid, scoring);
}

void Show_Raw_Table_Drell(int p, fpSpread& grid, Scoring& scoring) {
    Fill_And_Show(Drell, p, grid, scoring);
}

void Show_Raw_Table_Mirvel(int p, fpSpread& grid, Scoring& scoring) {
    const int rows = scoring.pupils.Test_Age[Mirvel][p] < Older_From ? 14 : 18;
    Fill_And_Set_Rows(Mirvel, rows, p, grid, scoring);
}

void Show_Raw_Table_Yoon(int p, fpSpread& grid, Scoring& scoring) {
    Fill_And_Show(Yoon, p, grid, scoring);
}

} // namespace scoring
