#include "conversion/comparison.h"

#include "platform/basics/dates.h"

#include <algorithm>
#include <sqlite3.h>

using namespace Qt::StringLiterals;

namespace conversion {

using jet_stream::Value_Tag;

namespace {

constexpr qsizetype Most_Examples = 20;
constexpr qsizetype Longest_Shown = 60;

QByteArray Number_Text(const Source_Value& value) {
    return value.tag == Value_Tag::Whole ? QByteArray::number(value.whole)
                                         : QByteArray::number(value.real, 'g', 17);
}

double As_Double(const Source_Value& value) {
    return value.tag == Value_Tag::Whole ? static_cast<double>(value.whole) : value.real;
}

bool Same_Number(const Source_Value& value, const Statement& row, int column) {
    switch (row.Type(column)) {
    case SQLITE_INTEGER: // a double wouldn't tell the largest apart
        if (value.tag == Value_Tag::Whole) return row.Whole(column) == value.whole;
        [[fallthrough]];
    case SQLITE_FLOAT:
        return row.Real(column) == As_Double(value);
    case SQLITE_TEXT: {
        bool is_number = false;
        return row.Bytes(column).toDouble(&is_number) == As_Double(value) && is_number;
    }
    default:
        return false;
    }
}

// A column of numbers keeps "12" as 12, and one of texts keeps 12 as "12".
bool Same_Text(const QByteArray& text, const Statement& row, int column) {
    const int type = row.Type(column);
    if (type == SQLITE_INTEGER || type == SQLITE_FLOAT) {
        bool is_number = false;
        return text.toDouble(&is_number) == row.Real(column) && is_number;
    }
    return type == SQLITE_TEXT && row.Bytes(column) == text;
}

bool Same_Date(double days, const Statement& row, int column) {
    const std::optional<QDateTime> date = Date_Of(days);
    return date && row.Type(column) == SQLITE_TEXT &&
           basics::Stored_Date(QString::fromUtf8(row.Bytes(column))) == date;
}

bool Same_Value(const Source_Value& value, const Statement& row, int column) {
    switch (value.tag) {
    case Value_Tag::Null:
        return row.Type(column) == SQLITE_NULL;
    case Value_Tag::Whole:
    case Value_Tag::Real:
        return Same_Number(value, row, column);
    case Value_Tag::Text:
        return Same_Text(value.bytes, row, column);
    case Value_Tag::Date:
        return Same_Date(value.real, row, column);
    case Value_Tag::Bytes:
        return row.Type(column) == SQLITE_BLOB && row.Bytes(column) == value.bytes;
    }
    return false;
}

// A text that is a number counts too: a column of numbers keeps "12" as 12.
std::optional<double> Number_In(const Source_Value& value) {
    if (value.tag == Value_Tag::Whole || value.tag == Value_Tag::Real) return As_Double(value);
    bool is_number = false;
    const double number = value.bytes.toDouble(&is_number);
    return is_number ? std::optional(number) : std::nullopt;
}

// As the engine sorts a column of numbers: NULL, then numbers, then what is none.
bool Comes_Before(const Source_Value& one, const Source_Value& other) {
    const auto rank = [](const Source_Value& value) {
        return value.tag == Value_Tag::Null ? 0 : Number_In(value) ? 1 : 2;
    };
    if (rank(one) != rank(other)) return rank(one) < rank(other);
    return rank(one) == 1 ? Number_In(one) < Number_In(other) : one.bytes < other.bytes;
}

QString Shown_Text(const QByteArray& utf8) {
    const QString text = QString::fromUtf8(utf8).simplified();
    const QString start = text.size() > Longest_Shown ? text.left(Longest_Shown) + u"..."_s : text;
    return u'\'' + start + u'\'';
}

QString Shown(const Source_Value& value) {
    switch (value.tag) {
    case Value_Tag::Null:
        return u"NULL"_s;
    case Value_Tag::Date: {
        const std::optional<QDateTime> date = Date_Of(value.real);
        return date ? basics::Date_Text(*date) : u"an impossible date"_s;
    }
    case Value_Tag::Text:
        return Shown_Text(value.bytes);
    case Value_Tag::Bytes:
        return u"%1 bytes"_s.arg(value.bytes.size());
    default:
        return QString::fromLatin1(Number_Text(value));
    }
}

QString Shown(const Statement& row, int column) {
    switch (row.Type(column)) {
    case SQLITE_NULL:
        return u"NULL"_s;
    case SQLITE_TEXT:
        return Shown_Text(row.Bytes(column));
    case SQLITE_BLOB:
        return u"%1 bytes"_s.arg(row.Bytes(column).size());
    default:
        return QString::fromUtf8(row.Bytes(column));
    }
}

} // namespace

Comparison::Comparison(const QString& database) : engine(database, Access::Read_Only) {
}

void Comparison::Note(const QString& what) {
    ++tables.last().differing;
    if (examples.size() < Most_Examples) examples.append(tables.last().table + u": "_s + what);
}

bool Comparison::Has_Table(const QString& name) {
    Statement table(engine, u"SELECT 1 FROM sqlite_schema WHERE type = 'table' AND name = ?"_s);
    table.Bind_Text(1, name.toUtf8());
    return table.Step();
}

bool Comparison::Has_Same_Columns() {
    Statement columns(engine, u"SELECT name FROM pragma_table_info(?)"_s);
    columns.Bind_Text(1, source.name.toUtf8());
    QStringList only_there;
    while (columns.Step())
        only_there.append(QString::fromUtf8(columns.Bytes(0)));
    QStringList only_here;
    for (const Source_Column& column : std::as_const(source.columns))
        if (!only_there.removeOne(column.name)) only_here.append(column.name);
    for (const QString& name : only_here)
        Note(u"the database has no column "_s + name);
    for (const QString& name : only_there)
        Note(u"the source has no column "_s + name);
    return only_here.isEmpty();
}

bool Comparison::Can_Be_Looked_Up(const Source_Column& column, const QString& table) {
    using jet_stream::Column_Type;
    if (column.type != Column_Type::Text && column.type != Column_Type::Number) return false;
    return engine.Number(u"SELECT count(*) = count(DISTINCT %1) FROM %2"_s.arg(Quoted(column.name), table)) ==
           1;
}

void Comparison::Prepare_Rows() {
    QStringList names;
    for (const Source_Column& column : std::as_const(source.columns))
        names.append(Quoted(column.name));
    const Target_Table target = Target_Of(source);
    ordered_by = names.indexOf(Quoted(target.order_by));
    const QString table = Quoted(source.name);
    looked_up_by = target.key.size() == 1 ? names.indexOf(Quoted(target.key.first())) : -1;
    if (looked_up_by >= 0 && !Can_Be_Looked_Up(source.columns[looked_up_by], table)) looked_up_by = -1;
    const QString which =
        looked_up_by >= 0 ? u"WHERE %1 = ? COLLATE BINARY"_s.arg(names[looked_up_by]) : u"ORDER BY rowid"_s;
    rows =
        std::make_unique<Statement>(engine, u"SELECT %1 FROM %2 %3"_s.arg(names.join(u", "_s), table, which));
}

void Comparison::Begin_Table(const Source_Table& table) {
    source = table;
    tables.append({table.name});
    rows.reset();
    if (!Has_Table(table.name)) return Note(u"the database has no such table"_s);
    if (!Has_Same_Columns()) return;
    Prepare_Rows();
}

QString Comparison::Row_Name(const Source_Row& row) const {
    if (looked_up_by < 0) return u"row %1"_s.arg(tables.last().rows);
    return source.columns[looked_up_by].name + u' ' + Shown(row[looked_up_by]);
}

void Comparison::Take_Row(const Source_Row& row) {
    if (rows && ordered_by >= 0)
        waiting.append(row);
    else
        Compare(row);
}

void Comparison::Compare(const Source_Row& row) {
    ++tables.last().rows;
    if (!rows) return;
    if (looked_up_by >= 0) {
        rows->Reset();
        const Source_Value& key = row[looked_up_by];
        if (key.tag == Value_Tag::Text)
            rows->Bind_Text(1, key.bytes);
        else if (key.tag == Value_Tag::Whole)
            rows->Bind(1, key.whole); // as a double it would be another text in a column of texts
        else
            rows->Bind(1, As_Double(key));
    }
    if (!rows->Step()) return Note(Row_Name(row) + u" isn't in the database"_s);
    for (int column = 0; column < row.size(); ++column) {
        if (Same_Value(row[column], *rows, column)) continue;
        Note(Row_Name(row) + u", "_s + source.columns[column].name + u": "_s + Shown(row[column]) +
             u" in the source, "_s + Shown(*rows, column) + u" in the database"_s);
    }
}

void Comparison::End_Table() {
    if (!rows) return;
    std::stable_sort(waiting.begin(), waiting.end(), [this](const Source_Row& one, const Source_Row& other) {
        return Comes_Before(one[ordered_by], other[ordered_by]);
    });
    for (const Source_Row& row : std::as_const(waiting))
        Compare(row);
    waiting.clear();
    rows.reset();
    const qint64 there = engine.Number(u"SELECT count(*) FROM "_s + Quoted(source.name));
    const qint64 more = there - tables.last().rows;
    if (more > 0) Note(u"%1 rows in the source, %2 in the database"_s.arg(tables.last().rows).arg(there));
}

void Comparison::Finish() {
    QStringList known;
    for (const Table_Comparison& table : std::as_const(tables))
        known.append(table.table);
    Statement there(engine, u"SELECT name FROM sqlite_schema WHERE type = 'table' ORDER BY name"_s);
    while (there.Step()) {
        const QString name = QString::fromUtf8(there.Bytes(0));
        if (known.contains(name)) continue;
        tables.append({name});
        Note(u"the source has no such table"_s);
    }
}

bool Comparison::All_Equal() const {
    return std::all_of(tables.begin(), tables.end(),
                       [](const Table_Comparison& table) { return table.differing == 0; });
}

} // namespace conversion
