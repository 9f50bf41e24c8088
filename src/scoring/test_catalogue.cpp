#include "scoring/test_catalogue.h"

#include "platform/basics/run_time_error.h"

using namespace Qt::StringLiterals;

namespace scoring {

namespace {

// What the schema doesn't know of a test.
struct Facts {
    QString test_name;
    QString module;
    int highest_item;
    bool null_list_reads_as_empty;
};

const Facts Known_Facts[All_Tests] = {
    {u"Tolvens"_s, u"Tolvens"_s, 15, false},
    {u"Bliks friends"_s, u"Bliks friends"_s, 20, false},
    {u"Karrel"_s, u"Karrel"_s, 26, false},
    {u"Bliks letters"_s, u"Bliks letters"_s, 20, true},
    {u"Letter names"_s, u"Bliks letter names"_s, 15, false},
    {u"Drell"_s, u"Drell"_s, 10, true},
    {u"Mirvel"_s, u"Mirvel"_s, 20, false},
    {u"Yoon"_s, u"Yoon"_s, 30, false},
    {u"Pindo"_s, {}, 30, false},
};

void Name_Columns(const foundation::Test_Tables& tables, Test_Entry& entry) {
    for (const foundation::Item_Part& part : tables.parts) {
        entry.Fields.append(part.field);
        for (const foundation::Item_Level& level : tables.levels)
            for (int item = 1; item <= level.items; ++item)
                entry.Columns.Append(part.field, foundation::Item_Column(level, item, part));
    }
}

Test_Entry Entry_From(const foundation::Test_Tables& tables, const Facts& facts) {
    Test_Entry entry;
    entry.Test_Name = facts.test_name;
    entry.Module = facts.module;
    entry.Data_Table = tables.data_table;
    entry.Norm_Table = tables.norms;
    entry.Time_Norm_Table = tables.time_norms;
    entry.Status_Column = tables.status;
    entry.Age_Column = tables.status + u"_age"_s;
    entry.Date_Column = tables.status + u"_date"_s;
    entry.Items = 0;
    for (const foundation::Item_Level& level : tables.levels)
        entry.Items += level.items;
    entry.Highest_Item = facts.highest_item;
    entry.Counts_Repeats = tables.counts_repeats;
    entry.Null_List_Reads_As_Empty = facts.null_list_reads_as_empty;
    Name_Columns(tables, entry);
    return entry;
}

QList<Test_Entry> Build_Catalogue() {
    QList<Test_Entry> catalogue;
    for (const foundation::Test_Tables& tables : foundation::Tests_In_Order())
        catalogue.append(Entry_From(tables, Known_Facts[catalogue.size()]));
    return catalogue;
}

} // namespace

void Item_Columns::Append(Item_Field field, const QString& name) {
    names[static_cast<std::size_t>(field)].append(name);
}

const Test_Entry& Test_At(int t) {
    static const QList<Test_Entry> catalogue = Build_Catalogue();
    if (t < 1 || t > All_Tests) basics::Raise(basics::errors::Subscript_Out_Of_Range);
    return catalogue.at(t - 1);
}

const QStringList& Test_Columns() {
    static const QStringList columns = [] {
        QStringList names;
        for (int t = 1; t <= All_Tests; ++t)
            names << Test_At(t).Status_Column << Test_At(t).Age_Column << Test_At(t).Date_Column;
        return names;
    }();
    return columns;
}

} // namespace scoring
