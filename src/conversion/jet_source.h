#pragma once

#include "conversion/jet_stream.h"

#include <QByteArray>
#include <QList>
#include <QString>
#include <functional>

namespace conversion {

struct Source_Column {
    QString name;
    jet_stream::Column_Type type;
    quint32 size; // of a text column: the most characters it takes; 0 for any number
};

struct Source_Table {
    QString name;
    qint64 rows; // that the table says it has
    QList<Source_Column> columns;
    QStringList key; // names of the columns of its primary key, empty without one
};

struct Source_Value {
    jet_stream::Value_Tag tag = jet_stream::Value_Tag::Null;
    qint64 whole = 0;
    double real = 0;  // a date too: days since 30 December 1899
    QByteArray bytes; // UTF-8 of a text
};
using Source_Row = QList<Source_Value>; // a value a column, in the table's order

// Is handed a file's tables one after the other.
class Source_Visitor {
public:
    virtual ~Source_Visitor() = default;
    virtual void Begin_Table(const Source_Table& table) = 0;
    virtual void Take_Row(const Source_Row& row) = 0;
    virtual void End_Table() = 0;
};

struct Progress {
    QString table; // that is being read; empty before the first
    int table_number = 0;
    int tables = 0;
    qint64 rows = 0; // read so far, of all tables
    qint64 of_rows = 0;
};
// Called several times a second. What it throws ends the reading.
using Watcher = std::function<void(const Progress&)>;

struct Reader_Program {
    QString path;
    int longest_silence_ms = 20'000; // then it counts as hung
};
Reader_Program Reader_Beside_This_Program();

// Reads all user tables of a Jet file in a process of its own, which a damaged file may crash, hang or flood.
// Throws a Refusal where that happens, or where the file doesn't hold what it says it holds; the visitor has
// then seen a part.
void Read_Jet_File(const QString& file, const Reader_Program& reader, Source_Visitor& visitor,
                   const Watcher& watcher);

} // namespace conversion
