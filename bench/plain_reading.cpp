#include "plain_reading.h"

#include <benchmark/benchmark.h>
#include <sqlite3.h>

namespace bench {

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

Plain_Reader::Plain_Reader(const QString& file) : engine(file, database::Access::Read_Write) {
}

Plain_Reader::Statement Plain_Reader::Prepare(const QString& sql) const {
    return {engine, sql};
}

int Plain_Reader::Read(Statement& statement) const {
    const int columns = sqlite3_column_count(statement.Get());
    int rows = 0;
    for (; statement.Step(); ++rows)
        for (int column = 0; column < columns; ++column)
            Read_Cell(statement.Get(), column);
    statement.Reset();
    return rows;
}

int Plain_Reader::Read(Statement& statement, const QByteArray& first_value) const {
    statement.Bind_Text(1, first_value);
    return Read(statement);
}

int Read_Plainly(const QString& file, const QString& sql) {
    const Plain_Reader reader(file);
    Plain_Reader::Statement statement = reader.Prepare(sql);
    return reader.Read(statement);
}

} // namespace bench
