#pragma once

#include <QElapsedTimer>
#include <QEvent>

struct sqlite3;

namespace database {

// What a wait tells to whoever filters the application's events: at its first second and at each one behind
// it, and once more when it is over. It is delivered inside the wait, and no event loop runs for it.
class Waiting_Event final : public QEvent {
public:
    static constexpr Type Kind = static_cast<Type>(User + 257);
    static constexpr int Is_Over = 0;

    explicit Waiting_Event(int seconds_left) : QEvent(Kind), seconds_left(seconds_left) {}

    const int seconds_left; // of the connection's own limit, at least 1; Is_Over at the end
};

// Waiting for a file that others have locked, up to a time. It looks again every few milliseconds: the
// engine's own waiting soon looks ten times a second only, and finds a file that is written without a pause
// always locked. It must outlive the connection that it is installed on.
class Busy_Waiting {
public:
    Busy_Waiting() = default;
    ~Busy_Waiting() { Is_Over(); }
    Busy_Waiting(const Busy_Waiting&) = delete;
    Busy_Waiting& operator=(const Busy_Waiting&) = delete;

    void Install(sqlite3* engine, int seconds);
    // The engine tells of no end: whoever has called it says that it came back.
    void Is_Over();
    // Before one change of many, with no lock in hand: where others were at work on the file since the last
    // time, they get a moment. Who changes row after row would else mostly be there first.
    void Give_Way();

private:
    static int Wait(void* waiting, int times);
    void Pause(int times) const;
    void Tell();

    QElapsedTimer since;
    sqlite3* engine = nullptr;
    qint64 longest_ms = 0;
    bool others_are_there = false;
    int told_left = Waiting_Event::Is_Over; // the seconds told last
};

} // namespace database
