#include "plain_reading.h"

#include <benchmark/benchmark.h>
#include <memory>
#include <sqlite3.h>
#include <stdexcept>

namespace bench {
namespace {

struct Closer {
    void operator()(sqlite3* engine) const { sqlite3_close(engine); }
    void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
};

void Require(bool well, sqlite3* engine) {
    if (!well) throw std::runtime_error(sqlite3_errmsg(engine));
}

} // namespace

int Read_Plainly(const QString& file, const QString& sql) {
    sqlite3* opened = nullptr;
    const int opening = sqlite3_open_v2(file.toUtf8().constData(), &opened, SQLITE_OPEN_READWRITE, nullptr);
    const std::unique_ptr<sqlite3, Closer> engine(opened);
    Require(opening == SQLITE_OK, opened);

    sqlite3_stmt* prepared = nullptr;
    const int preparing = sqlite3_prepare_v2(opened, sql.toUtf8().constData(), -1, &prepared, nullptr);
    const std::unique_ptr<sqlite3_stmt, Closer> statement(prepared);
    Require(preparing == SQLITE_OK, opened);

    const int columns = sqlite3_column_count(prepared);
    int rows = 0;
    int step = SQLITE_ROW;
    for (; (step = sqlite3_step(prepared)) == SQLITE_ROW; ++rows)
        for (int column = 0; column < columns; ++column)
            benchmark::DoNotOptimize(sqlite3_column_text(prepared, column));
    Require(step == SQLITE_DONE, opened);
    return rows;
}

} // namespace bench
