#include "plain_writing.h"

#include <sqlite3.h>
#include <stdexcept>

using namespace Qt::StringLiterals;

namespace bench {

void Plain_Writer::Closer::operator()(sqlite3* engine) const {
    sqlite3_close(engine);
}

Plain_Writer::Plain_Writer(const QString& file) {
    sqlite3* opened = nullptr;
    const int opening = sqlite3_open_v2(file.toUtf8().constData(), &opened, SQLITE_OPEN_READWRITE, nullptr);
    engine.reset(opened);
    if (opening != SQLITE_OK) throw std::runtime_error(sqlite3_errmsg(opened));
    Run(u"PRAGMA journal_mode = DELETE"_s);
    Run(u"PRAGMA synchronous = FULL"_s);
}

int Plain_Writer::Run(const QString& sql) {
    sqlite3_stmt* statement = nullptr;
    int result = sqlite3_prepare_v2(engine.get(), sql.toUtf8().constData(), -1, &statement, nullptr);
    while (result == SQLITE_OK || result == SQLITE_ROW)
        result = sqlite3_step(statement);
    sqlite3_finalize(statement);
    if (result != SQLITE_DONE) throw std::runtime_error(sqlite3_errmsg(engine.get()));
    return sqlite3_changes(engine.get());
}

} // namespace bench
