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
    QList<QStringList> rows =
        Plain_Rows(file, u"SELECT \"%1\" FROM \"%2\" ORDER BY rowid"_s.arg(columns.join(u"\", \""_s), table));
    static const QRegularExpression whole_number(
        u"^-?\\d+\\.0$"_s); // a real in one file may be whole in the other
    for (QStringList& row : rows)
        for (qsizetype i = 0; i < columns.size(); ++i) {
            if (whole_number.match(row[i]).hasMatch()) row[i].chop(2);
            if (Holds_Dates(columns[i])) row[i] = Day_Of(row[i]);
        }
    return rows;
}

QString Columns_Of(const QString& table) {
    return u"SELECT name FROM pragma_table_info('%1') ORDER BY cid"_s.arg(table);
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
    const Database_Beside one(expected), other(file);
    QStringList differences;
    if (one.Column(Table_Names) != other.Column(Table_Names)) differences.append(u"the tables' names"_s);
    for (const QString& table : one.Column(Table_Names)) {
        const QStringList columns = one.Column(Columns_Of(table));
        if (other.Column(Columns_Of(table)) != columns)
            differences.append(table + u": its columns"_s);
        else if (Comparable_Rows(expected, table, columns) != Comparable_Rows(file, table, columns))
            differences.append(table);
    }
    return differences;
}

} // namespace test_support
