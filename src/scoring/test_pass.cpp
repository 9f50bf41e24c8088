#include "scoring/test_pass.h"

#include "platform/basics/run_time_error.h"

#include <QStringBuilder>

using namespace Qt::StringLiterals;

namespace scoring {

namespace {

using basics::Value;

constexpr double Time_Limit = 1'000'000; // ms; the test modules store it for an item without an answer

bool Is_Loaded(Item_Field field, Item_Load load) {
    if (load == Item_Load::Answers_And_Times) return true;
    return (field == Item_Field::Time) == (load == Item_Load::Times);
}

struct Field_To_Read {
    Item_Array& kept;
    const std::vector<int>& columns;
    bool null_reads_as_empty;
};

std::vector<Field_To_Read> Fields_To_Read(const Test_Entry& test, Item_Load load, Test_Items& items) {
    std::vector<Field_To_Read> fields;
    fields.reserve(static_cast<std::size_t>(test.Fields.size()));
    for (const Item_Field field : test.Fields) {
        if (!Is_Loaded(field, load)) continue;
        const bool is_list = field == Item_Field::Requested || field == Item_Field::Chosen;
        fields.push_back(
            {items.Of(field), items.Places.Columns(field), is_list && test.Null_List_Reads_As_Empty});
    }
    return fields;
}

void Read_Items(const Test_Entry& test, Item_Range range, Item_Load load, const database::Recordset& row,
                Test_Items& items) {
    items.Places.Find(row, test.Columns);
    const std::vector<Field_To_Read> fields = Fields_To_Read(test, load, items);
    for (int i = range.First; i <= range.Last; ++i)
        for (const Field_To_Read& field : fields) {
            Value& item = field.kept[i];
            row.Read(field.columns.at(static_cast<std::size_t>(i) - 1), item);
            if (field.null_reads_as_empty && !item.Is_Text()) item = item.Text_Or_Empty();
        }
}

} // namespace

Item_Range All_Items(int t) {
    return {1, Test_At(t).Items};
}

void Load_Items(int t, Item_Range range, Item_Load load, int p, database::Recordset* rs, Scoring& scoring) {
    const Test_Entry& test = Test_At(t);
    Test_Items& items = scoring.items[t];
    if (rs) {
        Read_Items(test, range, load, *rs, items);
        return;
    }
    const QString row_of_pupil = "SELECT * FROM "_L1 % test.Data_Table % " WHERE StudentCode = '"_L1 %
                                 scoring.pupils.Student_Code[p] % u'\'';
    scoring.holder.ado_Open(scoring.installation.Connection_String, row_of_pupil, u"ReadOnly"_s);
    const database::Recordset& row = scoring.holder.Rows();
    Read_Items(test, range, load, row, items);
    if (test.Counts_Repeats && load != Item_Load::Times) {
        row.Read(items.Places.Repeat_Count, items.RepeatCount);
        row.Read(items.Places.Pause_Count, items.PauseCount);
    }
    scoring.holder.ado_Close();
}

bool Is_Valid_Time(const Value& time) {
    if (time.Reads(u"")) return false;
    const double milliseconds = time.As_Double();
    return milliseconds > 0 && milliseconds < Time_Limit;
}

void Tell_Item(int t, int i, Counting rule, int points, const Scoring& scoring) {
    if (!scoring.trace) return;
    const Test_Items& items = scoring.items[t];
    scoring.trace->Of(t).items.push_back(
        {i, items.Item_Requested(i), items.Item_Chosen(i), rule, points, 0, {}});
}

void Look_Up_Raw_Total(int t, int p, Scoring& scoring) {
    const int total = scoring.items[t].Raw_Total;
    const Norm_Band band = Norm_Band_Of(scoring.pupils.Test_Age[t][p]);
    Norm_Row* used = nullptr;
    if (scoring.trace) {
        Traced_Test& told = scoring.trace->Of(t);
        told.raw_total = total;
        told.band = band;
        used = &told.norm;
    }
    Raw_To_Centile(total, Test_At(t).Norm_Table, band.column.toString(), scoring.norms, scoring.scores, used);
}

void Add_Up_Times(int t, Item_Range range, int p, Scoring& scoring) {
    Test_Items& items = scoring.items[t];
    items.Time_Count = 0;
    for (int i = range.First; i <= range.Last; ++i) {
        const bool counts = Is_Valid_Time(items.Item_Time(i));
        if (scoring.trace) scoring.trace->Of(t).times.push_back({i, items.Item_Time(i), counts});
        if (!counts) continue;
        items.Time_Sum += items.Item_Time(i).As_Double();
        ++items.Time_Count;
    }
    if (items.Time_Count == 0) basics::Raise(basics::errors::Division_By_Zero);
    items.Mean_Time = Value(items.Time_Sum / items.Time_Count).As_Long();
    Time_Row* used = nullptr;
    if (scoring.trace) {
        scoring.trace->Of(t).time_sum = items.Time_Sum;
        used = &scoring.trace->Of(t).time.emplace();
    }
    Time_To_Centile(items.Mean_Time, Test_At(t).Time_Norm_Table,
                    Age_To_Norm_Column(scoring.pupils.Test_Age[t][p]), scoring.norms, scoring.scores, used);
}

void Time_Items(int t, Item_Range range, int p, database::Recordset* rs, Scoring& scoring) {
    scoring.items[t].Time_Sum = 0;
    Load_Items(t, range, Item_Load::Times, p, rs, scoring);
    Add_Up_Times(t, range, p, scoring);
}

} // namespace scoring
