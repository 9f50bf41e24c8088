#pragma once

#include "platform/database/engine.h"

#include <QObject>

namespace database {

// Keeps the engine of connections that come one after the other within one user action, since opening a file
// costs more than most queries. It lets go of it as soon as the program looks at its events again, so that
// nothing is held open between the user's actions.
class Kept_Engine {
public:
    // The engine for this connection string, with its statements: the one that was kept, if it still leads
    // to the very same file, or a new one.
    std::unique_ptr<Engine> Take(const QString& connection_string, int timeout_seconds);
    void Keep(std::unique_ptr<Engine> used);
    void Let_Go();

private:
    std::unique_ptr<Engine> engine;
    bool letting_go_later = false;
    QObject events; // receives the request to let go; one that is pending goes with it
};

} // namespace database
