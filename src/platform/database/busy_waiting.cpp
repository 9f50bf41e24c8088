#include "platform/database/busy_waiting.h"

#include <QThread>
#include <iterator>
#include <sqlite3.h>

namespace database {

void Busy_Waiting::Install(sqlite3* engine, int seconds) {
    longest_ms = qint64(seconds) * 1000;
    sqlite3_busy_handler(engine, Wait, this);
}

int Busy_Waiting::Wait(void* waiting, int times) {
    // Uneven steps, so that two who wait for each other's pauses don't keep step.
    static constexpr unsigned long steps_ms[] = {1, 1, 2, 3, 1, 5, 2, 4};
    auto* self = static_cast<Busy_Waiting*>(waiting);
    if (times == 0) self->since.start();
    if (self->since.hasExpired(self->longest_ms)) return 0;
    QThread::msleep(steps_ms[static_cast<unsigned>(times) % std::size(steps_ms)]);
    return 1;
}

} // namespace database
