#include "foundation/schema.h"

#include "platform/database/engine_handle.h"

using namespace Qt::StringLiterals;

namespace foundation {

namespace {

constexpr QStringView Key_Column = u"StudentCode";
const QString New_In_51 = u"Mevo_Groups"_s;
const QString Raw_Score = u"Raw Score"_s;

// The commonest item: three columns told apart by what follows the item's number.
QList<Item_Part> Answer_Parts(const QString& requested, const QString& chosen, const QString& time) {
    return {{{}, requested, Item_Field::Requested},
            {{}, chosen, Item_Field::Chosen},
            {{}, time, Item_Field::Time}};
}

QList<Test_Tables> Build_Tests() {
    return {
        {u"Tolvens"_s,
         u"Mevo_Tolvens_data"_s,
         {{u"Level_1"_s, 2}, {u"Level_2"_s, 2}, {u"Level_3"_s, 4}, {u"Level_4"_s, 3}, {u"Level_5"_s, 2}},
         Answer_Parts(u"_holes_req"_s, u"_holes_chosen"_s, u"_time"_s),
         true,
         u"Tolvens_Norms"_s,
         u"Tolvens_TimeNorms"_s},
        {u"BliksFriends"_s,
         u"Mevo_Friends_data"_s,
         {{u"Lev1"_s, 2}, {u"Lev2"_s, 2}, {u"Lev3"_s, 3}, {u"Lev4"_s, 4}, {u"Lev5"_s, 4}},
         Answer_Parts(u"req"_s, u"chosen"_s, u"time"_s),
         true,
         u"BliksFriends_Norms"_s,
         u"BliksFriends_TimeNorms"_s},
        {u"Karrel"_s,
         u"Mevo_Karrel_data"_s,
         {{u"Level_1"_s, 25}},
         Answer_Parts(u"_req"_s, u"_colourchosen"_s, u"_time"_s),
         false,
         u"Karrel_Norms"_s,
         u"Karrel_TimeNorms"_s},
        {u"BliksLetters"_s,
         u"Mevo_Letters_data"_s,
         {{u"Level1"_s, 2}, {u"Level2"_s, 4}, {u"Level3"_s, 4}, {u"Level4"_s, 2}},
         Answer_Parts(u"target"_s, u"chosen"_s, u"time"_s),
         true,
         u"BliksLetters_Norms"_s,
         u"BliksLetters_TimeNorms"_s},
        {u"BliksLetterNames"_s,
         u"Mevo_BLN_data"_s,
         {{{}, 12}},
         {{u"Shown_"_s, {}, Item_Field::Shown},
          {u"Req_"_s, {}, Item_Field::Requested},
          {u"Chosen_"_s, {}, Item_Field::Chosen},
          {u"Time_"_s, {}, Item_Field::Time}},
         true,
         u"BLNames_Norms"_s,
         u"BLNames_TimeNorms"_s},
        {u"Drell"_s,
         u"Mevo_Drell_data"_s,
         {{u"Level_1"_s, 2}, {u"Level_2"_s, 4}, {u"Level_3"_s, 3}},
         Answer_Parts(u"_req"_s, u"_chosen"_s, u"_time"_s),
         true,
         u"Drell_Norms"_s,
         u"Drell_TimeNorms"_s},
        {u"Mirvel"_s,
         u"Mevo_Mirvel_data"_s,
         {{u"Level_1"_s, 8}, {u"Level_2"_s, 8}},
         {{{}, u"_rhymingwith"_s, Item_Field::Rhyming_With},
          {{}, u"_distractor"_s, Item_Field::Distractor},
          {{}, u"_target"_s, Item_Field::Requested},
          {{}, u"_chosen"_s, Item_Field::Chosen},
          {{}, u"_time"_s, Item_Field::Time}},
         true,
         u"Mirvel_Norms"_s,
         u"Mirvel_TimeNorms"_s},
        {u"Yoon"_s,
         u"Mevo_Yoon_data"_s,
         {{{}, 25}},
         {{u"Shown_"_s, {}, Item_Field::Requested},
          {u"Choices_"_s, {}, Item_Field::Choices},
          {u"Chosen_"_s, {}, Item_Field::Chosen},
          {u"c"_s, {}, Item_Field::Target_Alien},
          {u"d"_s, {}, Item_Field::Distracter},
          {u"Time_"_s, {}, Item_Field::Time}},
         true,
         u"Yoon_Norms"_s,
         u"Yoon_TimeNorms"_s},
        {u"Pindo"_s,
         u"Mevo_Pindo_data"_s,
         {{u"Level_1"_s, 24}},
         Answer_Parts(u"_requested"_s, u"_chosen"_s, u"_time"_s),
         true,
         {},
         {}},
    };
}

QList<Column> Columns_Of_Kind(const QStringList& names, Column_Kind kind) {
    QList<Column> columns;
    for (const QString& name : names)
        columns.append({name, kind});
    return columns;
}

QStringList With_Suffix(QStringList names, const QString& suffix) {
    for (QString& name : names)
        name += suffix;
    return names;
}

// The four columns that version 5.1 brought stand last, where an upgraded database has them.
Table Pupils_Table() {
    Table pupils = {u"Mevo_Pupils"_s,
                    {{Key_Column.toString(), Column_Kind::Key},
                     {u"Surname"_s, Column_Kind::Text},
                     {u"Forename"_s, Column_Kind::Text},
                     {u"Sex"_s, Column_Kind::Text},
                     {u"DOB"_s, Column_Kind::Date},
                     {u"Comment"_s, Column_Kind::Text}}};
    const QStringList statuses = Status_Columns();
    pupils.columns += Columns_Of_Kind(statuses, Column_Kind::Number);
    pupils.columns += Columns_Of_Kind(With_Suffix(statuses, u"_age"_s), Column_Kind::Number);
    pupils.columns += Columns_Of_Kind(With_Suffix(statuses, u"_date"_s), Column_Kind::Date);
    pupils.columns += {{u"Show_Name"_s, Column_Kind::Number},
                       {u"Group_Class"_s, Column_Kind::Text_50},
                       {u"Password"_s, Column_Kind::Text_50},
                       {u"Dob_as_pw"_s, Column_Kind::Number}};
    return pupils;
}

Table Groups_Table() {
    return {New_In_51,
            {{u"ID"_s, Column_Kind::Number},
             {u"Group_Name"_s, Column_Kind::Text_50},
             {u"Dob_as_pw"_s, Column_Kind::Number},
             {u"Show_On_List"_s, Column_Kind::Number},
             {u"XtraField"_s, Column_Kind::Text_50}}};
}

Table Customer_Table() {
    return {u"Customer_Details"_s, Columns_Of_Kind({u"Product_Name"_s, u"Product_Version"_s,
                                                    u"CustomerName"_s, u"Institution"_s, u"Admin_Password"_s},
                                                   Column_Kind::Text)};
}

Table Means_Table() {
    Table means = {u"Mevo_Means"_s, {{u"Module"_s, Column_Kind::Text}}};
    means.columns += Columns_Of_Kind({u"Time_Mean"_s, u"Time_SD"_s, u"Correct_Mean"_s, u"Correct_SD"_s,
                                      u"Seq_Errors_Mean"_s, u"Seq_Errors_SD"_s},
                                     Column_Kind::Number);
    return means;
}

void Append_Items(const Test_Tables& test, const Item_Level& level, QList<Column>& columns) {
    for (int item = 1; item <= level.items; ++item) {
        for (const Item_Part& part : test.parts) {
            const bool is_time = part.field == Item_Field::Time;
            columns.append(
                {Item_Column(level, item, part), is_time ? Column_Kind::Number : Column_Kind::Text});
        }
    }
}

Table Data_Table(const Test_Tables& test) {
    Table table = {test.data_table, {{Key_Column.toString(), Column_Kind::Key}}};
    for (const Item_Level& level : test.levels)
        Append_Items(test, level, table.columns);
    if (test.counts_repeats)
        table.columns += Columns_Of_Kind({u"RepeatCount"_s, u"PauseCount"_s}, Column_Kind::Number);
    return table;
}

constexpr int Youngest_Norm_Age = 4;
constexpr int Oldest_Norm_Age = 8;

// Its columns: `first`, then one for each year of age, which `pattern` names with the age as %1.
Table Norm_Table(const QString& name, const QString& first, const QString& pattern) {
    QStringList columns = {first};
    for (int age = Youngest_Norm_Age; age <= Oldest_Norm_Age; ++age)
        columns.append(pattern.arg(age));
    return {name, Columns_Of_Kind(columns, Column_Kind::Number)};
}

} // namespace

const QList<Test_Tables>& Tests_In_Order() {
    static const QList<Test_Tables> tests = Build_Tests();
    return tests;
}

QStringList Status_Columns() {
    QStringList columns;
    for (const Test_Tables& test : Tests_In_Order())
        columns.append(test.status);
    return columns;
}

QString Item_Column(const Item_Level& level, int item, const Item_Part& part) {
    return part.prefix + level.stem + QString::number(item) + part.suffix;
}

QList<Table> Database_Tables() {
    QList<Table> tables = {Pupils_Table(), Groups_Table(), Customer_Table(), Means_Table()};
    for (const Test_Tables& test : Tests_In_Order())
        tables.append(Data_Table(test));
    for (const Test_Tables& test : Tests_In_Order()) {
        if (test.norms.isEmpty()) continue;
        tables.append(Norm_Table(test.norms, Raw_Score, u"Age %1 Centile"_s));
        tables.append(Norm_Table(test.time_norms, u"Centile"_s, u"Raw score %1"_s));
    }
    return tables;
}

database::Tables Needed_Tables() {
    database::Tables needed;
    for (const Table& table : Database_Tables()) {
        const QString& first = table.columns.first().name;
        if (table.name == New_In_51) continue;
        // A raw score is told by the place of its row, whatever its column is called.
        needed[table.name] = first == Raw_Score ? QStringList() : QStringList{first};
    }
    return needed;
}

bool Is_Of_Version_51(const database::Tables& tables) {
    return tables.contains(New_In_51) && tables[u"Mevo_Pupils"_s].contains("Dob_as_pw"_L1);
}

QString Declared_Type(const Column& column) {
    switch (column.kind) {
    case Column_Kind::Key:
        // The program replaces NOCASE by rules of its own; an index built on those would look
        // corrupt to every other SQLite tool, so whatever is indexed keeps the plain collation.
        return u"TEXT PRIMARY KEY"_s;
    case Column_Kind::Text:
        return u"TEXT COLLATE NOCASE"_s;
    case Column_Kind::Text_50:
        return u"TEXT(50) COLLATE NOCASE CHECK(length(%1) <= 50)"_s.arg(database::Quoted(column.name));
    case Column_Kind::Date:
        return u"DATE"_s;
    case Column_Kind::Number:
        break;
    }
    return u"NUMBER"_s;
}

QString Create_Table_Statement(const Table& table) {
    QStringList columns;
    for (const Column& column : table.columns)
        columns.append(database::Quoted(column.name) + u' ' + Declared_Type(column));
    return u"CREATE TABLE "_s + database::Quoted(table.name) + u" ("_s + columns.join(u", "_s) + u')';
}

} // namespace foundation
