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

int Busy_Waiting::Wait(void* waiting, int times) {
    // Uneven steps, so that two who wait for each other's pauses don't keep step.
    static constexpr unsigned long steps_ms[] = {1, 1, 2, 3, 1, 5, 2, 4};
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
    QThread::msleep(steps_ms[static_cast<unsigned>(times) % std::size(steps_ms)]);
    return 1;
}

void Busy_Waiting::Give_Way() {
    if (std::exchange(others_are_there, false)) QThread::msleep(Way_Given_Ms);
}

} // namespace database
