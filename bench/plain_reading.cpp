#include "plain_reading.h"

#include <benchmark/benchmark.h>
#include <sqlite3.h>
#include <stdexcept>

namespace bench {

static void Require(bool well, sqlite3* engine) {
    if (!well) throw std::runtime_error(sqlite3_errmsg(engine));
}

static void Read_Cell(sqlite3_stmt* statement, int column) {
    switch (sqlite3_column_type(statement, column)) {
    case SQLITE_NULL:
        break;
    case SQLITE_INTEGER:
        benchmark::DoNotOptimize(sqlite3_column_int64(statement, column));
        break;
    case SQLITE_FLOAT:
        benchmark::DoNotOptimize(sqlite3_column_double(statement, column));
        break;
    default:
        benchmark::DoNotOptimize(sqlite3_column_text(statement, column));
        benchmark::DoNotOptimize(sqlite3_column_bytes(statement, column));
    }
}

void Plain_Reader::Closer::operator()(sqlite3* engine) const {
    sqlite3_close(engine);
}

void Plain_Reader::Closer::operator()(sqlite3_stmt* statement) const {
    sqlite3_finalize(statement);
}

Plain_Reader::Plain_Reader(const QString& file) {
    sqlite3* opened = nullptr;
    const int result = sqlite3_open_v2(file.toUtf8().constData(), &opened, SQLITE_OPEN_READWRITE, nullptr);
    engine.reset(opened);
    Require(result == SQLITE_OK, opened);
}

Plain_Reader::Statement Plain_Reader::Prepare(const QString& sql) const {
    sqlite3_stmt* prepared = nullptr;
    const int result = sqlite3_prepare_v2(engine.get(), sql.toUtf8().constData(), -1, &prepared, nullptr);
    Require(result == SQLITE_OK, engine.get());
    return Statement(prepared);
}

int Plain_Reader::Read(const Statement& statement) const {
    const int columns = sqlite3_column_count(statement.get());
    int rows = 0;
    int step = SQLITE_ROW;
    for (; (step = sqlite3_step(statement.get())) == SQLITE_ROW; ++rows)
        for (int column = 0; column < columns; ++column)
            Read_Cell(statement.get(), column);
    Require(step == SQLITE_DONE, engine.get());
    sqlite3_reset(statement.get());
    return rows;
}

int Plain_Reader::Read(const Statement& statement, const QByteArray& first_value) const {
    sqlite3_bind_text(statement.get(), 1, first_value.constData(), static_cast<int>(first_value.size()),
                      SQLITE_STATIC);
    return Read(statement);
}

int Read_Plainly(const QString& file, const QString& sql) {
    const Plain_Reader reader(file);
    return reader.Read(reader.Prepare(sql));
}

} // namespace bench
