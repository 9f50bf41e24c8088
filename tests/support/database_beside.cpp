#include "support/database_beside.h"

#include <sqlite3.h>
#include <stdexcept>

using namespace Qt::StringLiterals;

namespace test_support {

static sqlite3* Opened(const QString& file) {
    sqlite3* engine = nullptr;
    sqlite3_open_v2(file.toUtf8().constData(), &engine, SQLITE_OPEN_READWRITE, nullptr);
    return engine;
}

Database_Beside::Database_Beside(const QString& file, int longest_wait_ms)
    : engine(Opened(file), sqlite3_close) {
    sqlite3_busy_timeout(engine.get(), longest_wait_ms);
}

static QString Cell(sqlite3_stmt* statement, int column) {
    const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(statement, column));
    if (!text) return {};
    const QString told = QString::fromUtf8(text);
    const double number = sqlite3_column_double(statement, column);
    const bool is_rounded =
        sqlite3_column_type(statement, column) == SQLITE_FLOAT && told.toDouble() != number;
    return is_rounded ? QString::number(number, 'g', 17) : told;
}

QList<QStringList> Database_Beside::Rows(const QString& sql) const {
    sqlite3_stmt* prepared = nullptr;
    int step = sqlite3_prepare_v2(engine.get(), sql.toUtf8().constData(), -1, &prepared, nullptr);
    const std::unique_ptr<sqlite3_stmt, int (*)(sqlite3_stmt*)> statement(prepared, sqlite3_finalize);
    QList<QStringList> rows;
    while (prepared && (step = sqlite3_step(prepared)) == SQLITE_ROW) {
        rows.emplaceBack();
        for (int column = 0; column < sqlite3_column_count(prepared); ++column)
            rows.last().append(Cell(prepared, column));
    }
    if (step != SQLITE_DONE && step != SQLITE_OK)
        throw std::runtime_error(sql.left(200).toStdString() + ": " + sqlite3_errmsg(engine.get()));
    return rows;
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
