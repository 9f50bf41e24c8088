#include "conversion/plain_database.h"

#include <QRegularExpression>
#include <gtest/gtest.h>
#include <memory>
#include <sqlite3.h>

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
    sqlite3* opened = nullptr;
    EXPECT_EQ(sqlite3_open_v2(file.toUtf8().constData(), &opened, SQLITE_OPEN_READONLY, nullptr), SQLITE_OK);
    const std::unique_ptr<sqlite3, decltype(&sqlite3_close)> engine(opened, sqlite3_close);
    sqlite3_stmt* statement = nullptr;
    EXPECT_EQ(sqlite3_prepare_v2(opened, query.toUtf8().constData(), -1, &statement, nullptr), SQLITE_OK)
        << sqlite3_errmsg(opened);
    QList<QStringList> rows;
    while (sqlite3_step(statement) == SQLITE_ROW) {
        QStringList row;
        for (int i = 0; i < sqlite3_column_count(statement); ++i) {
            const int type = sqlite3_column_type(statement, i);
            const QString text =
                QString::fromUtf8(reinterpret_cast<const char*>(sqlite3_column_text(statement, i)));
            if (type == SQLITE_FLOAT)
                row.append(QString::number(sqlite3_column_double(statement, i), 'g', 17));
            else
                row.append(type == SQLITE_NULL ? u"NULL"_s : text.isEmpty() ? u"''"_s : text);
        }
        rows.append(row);
    }
    sqlite3_finalize(statement);
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
