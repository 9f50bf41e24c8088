#include "conversion/plain_database.h"

#include "support/database_beside.h"

#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace test_support {

namespace {

const QString Table_Names = u"SELECT name FROM sqlite_schema WHERE type = 'table' ORDER BY name"_s;

bool Holds_Dates(const QString& column) {
    return column == u"DOB"_s || column.endsWith(u"_date"_s);
}

// dd/mm/yyyy, dd/mm/yy and yyyy-mm-dd as yyyy-mm-dd; anything else as it is.
QString Day_Of(const QString& text) {
    static const QRegularExpression day_first(u"^(\\d\\d)/(\\d\\d)/(\\d\\d|\\d{4})$"_s);
    const auto match = day_first.match(text);
    if (!match.hasMatch()) return text == u"''"_s ? u"NULL"_s : text;
    QString year = match.captured(3);
    if (year.size() == 2) year.prepend(year.toInt() < 30 ? u"20"_s : u"19"_s);
    return year + u'-' + match.captured(2) + u'-' + match.captured(1);
}

QList<QStringList> Comparable_Rows(const QString& file, const QString& table, const QStringList& columns) {
    QStringList quoted;
    for (const QString& column : columns)
        quoted.append(u'"' + column + u'"');
    QList<QStringList> rows =
        Plain_Rows(file, u"SELECT %1 FROM \"%2\" ORDER BY rowid"_s.arg(quoted.join(u", "_s), table));
    static const QRegularExpression whole_number(
        u"^-?\\d+\\.0$"_s); // a real in one file may be whole in the other
    for (QStringList& row : rows)
        for (QString& cell : row)
            if (whole_number.match(cell).hasMatch()) cell.chop(2);
    for (qsizetype i = 0; i < columns.size(); ++i) {
        if (!Holds_Dates(columns[i])) continue;
        for (QStringList& row : rows)
            row[i] = Day_Of(row[i]);
    }
    return rows;
}

QStringList Columns_Of(const QString& file, const QString& table) {
    QStringList columns;
    for (const QStringList& row :
         Plain_Rows(file, u"SELECT name FROM pragma_table_info('%1') ORDER BY cid"_s.arg(table)))
        columns.append(row.first());
    return columns;
}

QString First_Difference(const QList<QStringList>& expected, const QList<QStringList>& rows) {
    if (expected.size() != rows.size())
        return u"%1 rows instead of %2"_s.arg(rows.size()).arg(expected.size());
    for (qsizetype row = 0; row < rows.size(); ++row) {
        for (qsizetype cell = 0; cell < rows[row].size(); ++cell)
            if (rows[row][cell] != expected[row][cell])
                return u"row %1: %2 instead of %3"_s.arg(row).arg(rows[row][cell], expected[row][cell]);
    }
    return {};
}

} // namespace

QList<QStringList> Plain_Rows(const QString& file, const QString& query) {
    QList<QStringList> rows = Database_Beside(file).Rows(query);
    for (QStringList& row : rows)
        for (QString& cell : row)
            if (cell.isEmpty()) cell = cell.isNull() ? u"NULL"_s : u"''"_s;
    return rows;
}

QStringList Tables_That_Differ(const QString& expected, const QString& file) {
    QStringList differences;
    if (Plain_Rows(expected, Table_Names) != Plain_Rows(file, Table_Names))
        differences.append(u"the tables' names"_s);
    for (const QStringList& name : Plain_Rows(expected, Table_Names)) {
        const QString table = name.first();
        const QStringList columns = Columns_Of(expected, table);
        if (Columns_Of(file, table) != columns) {
            differences.append(table + u": its columns"_s);
            continue;
        }
        const QString difference = First_Difference(Comparable_Rows(expected, table, columns),
                                                    Comparable_Rows(file, table, columns));
        if (!difference.isEmpty()) differences.append(table + u": "_s + difference);
    }
    return differences;
}

} // namespace test_support
