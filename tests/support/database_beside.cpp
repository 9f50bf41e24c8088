#include "support/database_beside.h"

#include <sqlite3.h>
#include <stdexcept>

using namespace Qt::StringLiterals;

namespace test_support {

Database_Beside::Database_Beside(const QString& file) : engine(file, database::Access::Read_Write) {
    constexpr int longest_wait_ms = 15'000; // on Windows two who begin to read at one moment meet a lock
    sqlite3_busy_timeout(engine.Get(), longest_wait_ms);
}

static QString Cell(const database::Engine_Statement& row, int column) {
    const QString told = row.Text(column);
    const bool is_rounded = row.Type(column) == SQLITE_FLOAT && told.toDouble() != row.Real(column);
    return is_rounded ? QString::number(row.Real(column), 'g', 17) : told;
}

QList<QStringList> Database_Beside::Rows(const QString& sql) const try {
    database::Engine_Statement statement(engine, sql);
    const int columns = sqlite3_column_count(statement.Get());
    QList<QStringList> rows;
    while (!statement.Is_Empty() && statement.Step()) {
        rows.emplaceBack();
        for (int column = 0; column < columns; ++column)
            rows.last().append(Cell(statement, column));
    }
    return rows;
} catch (const std::runtime_error& failure) {
    throw std::runtime_error(sql.left(200).toStdString() + ": " + failure.what());
}

QStringList Database_Beside::Column(const QString& sql) const {
    QStringList column;
    for (const QStringList& row : Rows(sql))
        column.append(row.first().isNull() ? u"NULL"_s : row.first());
    return column;
}

QString Database_Beside::Value(const QString& sql) const {
    return Column(sql).value(0, u"NULL"_s);
}

void Database_Beside::Run(const QStringList& statements) const {
    for (const QString& statement : statements)
        Rows(statement);
}

} // namespace test_support
