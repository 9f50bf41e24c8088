#pragma once

#include "platform/database/files/file_look.h"

#include <QList>
#include <QString>
#include <QStringList>

// The tables of a version 5.1 database. The program's own statements name what they need; this
// description serves whatever has to make a whole database or carry one over.
namespace foundation {

enum class Column_Kind { Key, Text, Text_50, Date, Number };

struct Column {
    QString name;
    Column_Kind kind;
};

struct Table {
    QString name;
    QList<Column> columns;
};

// What one column of an item holds, whatever the test calls it.
enum class Item_Field {
    Requested,
    Chosen,
    Time, // milliseconds
    Shown,
    Choices,
    Target_Alien,
    Distracter,
    Rhyming_With,
    Distractor
};
constexpr int Item_Field_Count = 9;

// An item's column is named prefix + stem + item number within its level + suffix.
struct Item_Part {
    QString prefix;
    QString suffix;
    Item_Field field;
};

struct Item_Level {
    QString stem;
    int items;
};

struct Test_Tables {
    QString status; // column of Mevo_Pupils; "_age" and "_date" are added to it for the two others
    QString data_table;
    QList<Item_Level> levels;
    QList<Item_Part> parts;
    bool counts_repeats; // the data table ends in RepeatCount and PauseCount
    QString norms;       // both empty for a test without norms
    QString time_norms;
};

// The nine tests in the order of scoring; the first stands at place 0.
const QList<Test_Tables>& Tests_In_Order();
QStringList Status_Columns();
// `item` counts from 1 within its level.
QString Item_Column(const Item_Level& level, int item, const Item_Part& part);

QList<Table> Database_Tables();

// What a file of any version must hold to be a database of the suite: its tables, each with the column by
// which the program finds rows in it. What version 5.1 brought isn't among them.
database::Tables Needed_Tables();
// Both names are compared letter by letter, as when a database is opened.
bool Is_Of_Version_51(const database::Tables& tables);

// Before the first table of a new file: of the pages that wide rows fill, half as many are read and written.
inline constexpr QStringView Page_Size_Statement = u"PRAGMA page_size = 8192";

QString Declared_Type(const Column& column);
QString Create_Table_Statement(const Table& table);

} // namespace foundation
