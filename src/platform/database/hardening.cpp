#include "platform/database/hardening.h"

#include <sqlite3.h>

namespace database {

void Harden(sqlite3* engine) {
    const auto set = [engine](int option, int value) { sqlite3_db_config(engine, option, value, nullptr); };
    set(SQLITE_DBCONFIG_DEFENSIVE, 1);
    set(SQLITE_DBCONFIG_TRUSTED_SCHEMA, 0);
    set(SQLITE_DBCONFIG_ENABLE_TRIGGER, 0);
    set(SQLITE_DBCONFIG_ENABLE_VIEW, 0);
    set(SQLITE_DBCONFIG_ENABLE_LOAD_EXTENSION, 0);
    set(SQLITE_DBCONFIG_DQS_DML, 0);
    set(SQLITE_DBCONFIG_DQS_DDL, 0);
    sqlite3_limit(engine, SQLITE_LIMIT_ATTACHED, 0);
    sqlite3_limit(engine, SQLITE_LIMIT_LENGTH, 64 * 1024 * 1024);
    sqlite3_limit(engine, SQLITE_LIMIT_SQL_LENGTH, 1024 * 1024);
    sqlite3_limit(engine, SQLITE_LIMIT_EXPR_DEPTH, 200);
    sqlite3_limit(engine, SQLITE_LIMIT_VDBE_OP, 250'000);
}

} // namespace database
