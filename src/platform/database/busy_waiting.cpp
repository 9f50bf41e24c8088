#include "platform/database/busy_waiting.h"

#include <QCoreApplication>
#include <QThread>
#include <iterator>
#include <sqlite3.h>
#include <utility>

namespace database {

constexpr qint64 Told_After_Ms = 1000;     // a shorter wait isn't worth a word
constexpr unsigned long Way_Given_Ms = 10; // within which whoever waits has looked again

static void Send(int seconds_left) {
    auto* application = QCoreApplication::instance();
    if (!application || application->thread() != QThread::currentThread()) return;
    Waiting_Event event(seconds_left);
    QCoreApplication::sendEvent(application, &event);
}

void Busy_Waiting::Install(sqlite3* engine, int seconds) {
    longest_ms = qint64(seconds) * 1000;
    this->engine = engine;
    sqlite3_busy_handler(engine, Wait, this);
}

void Busy_Waiting::Is_Over() {
    if (told_left == Waiting_Event::Is_Over) return;
    told_left = Waiting_Event::Is_Over;
    Send(Waiting_Event::Is_Over);
}

void Busy_Waiting::Tell() {
    const qint64 waited_ms = since.elapsed();
    const int left = static_cast<int>((longest_ms - waited_ms + 999) / 1000);
    if (waited_ms < Told_After_Ms || left == told_left || left <= Waiting_Event::Is_Over) return;
    told_left = left;
    Send(left);
}

// Whether another is about to write. Who asks holds no lock meanwhile; on Windows asking would take one.
static bool Another_Writes(sqlite3* engine) {
#ifdef _WIN32
    Q_UNUSED(engine)
    return false;
#else
    if (sqlite3_txn_state(engine, nullptr) == SQLITE_TXN_WRITE)
        return false; // it waits for the readers to end
    sqlite3_file* file = nullptr;
    int is_reserved = 0;
    return sqlite3_file_control(engine, "main", SQLITE_FCNTL_FILE_POINTER, &file) == SQLITE_OK &&
           file->pMethods && file->pMethods->xCheckReservedLock(file, &is_reserved) == SQLITE_OK &&
           is_reserved;
#endif
}

// Uneven steps, so that two who wait for each other's pauses don't keep step; and short ones for who has
// waited for long, so that they are there first.
void Busy_Waiting::Pause(int times) const {
    constexpr qint64 long_ms = 3000;
    static constexpr unsigned long steps_ms[] = {1, 2, 3, 5, 2, 8, 4, 6};
    const bool is_late = since.hasExpired(long_ms);
    QThread::msleep(is_late ? 1 : steps_ms[static_cast<unsigned>(times) % std::size(steps_ms)]);
}

int Busy_Waiting::Wait(void* waiting, int times) {
    auto* self = static_cast<Busy_Waiting*>(waiting);
    self->others_are_there = true;
    if (times == 0) {
        self->Is_Over(); // of another lock
        self->since.start();
    }
    if (self->since.hasExpired(self->longest_ms)) {
        self->Is_Over();
        return 0;
    }
    self->Tell();
    // Whoever tries for a lock stands in the writer's way while they try, and a room of them for as long as
    // it takes to write ten times. So they look from outside, but try now and then: a reader may be let in.
    constexpr int most_looks = 16;
    for (int look = 0; look == 0 || (look < most_looks && Another_Writes(self->engine)); ++look)
        self->Pause(times + look);
    return 1;
}

void Busy_Waiting::Give_Way() {
    if (std::exchange(others_are_there, false)) QThread::msleep(Way_Given_Ms);
}

} // namespace database
