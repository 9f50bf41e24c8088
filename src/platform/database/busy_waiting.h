#pragma once

#include <QElapsedTimer>

struct sqlite3;

namespace database {

// Waiting for a file that others have locked, up to a time. It looks again every few milliseconds: the
// engine's own waiting soon looks ten times a second only, and finds a file that is written without a pause
// always locked. It must outlive the connection that it is installed on.
class Busy_Waiting {
public:
    void Install(sqlite3* engine, int seconds);

private:
    static int Wait(void* waiting, int times);

    QElapsedTimer since;
    qint64 longest_ms = 0;
};

} // namespace database
