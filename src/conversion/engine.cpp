#include "conversion/engine.h"

#include "conversion/refusal.h"
#include "platform/database/hardening.h"

#include <sqlite3.h>

using namespace Qt::StringLiterals;

namespace conversion {

[[noreturn]] static void Refuse(sqlite3* engine, int) {
    throw Refusal(u"The converted database: "_s + QString::fromUtf8(sqlite3_errmsg(engine)) + u'.');
}

Engine::Engine(const QString& file, Access access) : Engine_Handle(file, access, Refuse) {
    constexpr int longest_wait_ms = 15'000; // as long as the program waits for others
    sqlite3_busy_timeout(Get(), longest_wait_ms);
    database::Harden(Get());
}

qint64 Engine::Number(const QString& sql) const {
    Statement statement(*this, sql);
    return statement.Step() ? statement.Whole(0) : 0;
}

} // namespace conversion
