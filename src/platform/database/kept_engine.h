#pragma once

#include "platform/database/engine.h"

#include <QObject>
#include <vector>

namespace database {

// Keeps the engine of connections that come one after the other within one user action, since opening a file
// costs more than most queries. It lets go of it as soon as the program looks at its events again, so that
// nothing is held open between the user's actions.
//
// While a `Whole_Act` lives, reads that follow each other share one read lock, and an act that paints in
// between keeps the file open, without a lock.
class Kept_Engine {
public:
    // The engine for this connection string, with its statements: the one that was kept, if it still leads
    // to the very same file, or a new one.
    std::unique_ptr<Engine> Take(const QString& connection_string, int timeout_seconds);
    void Keep(std::unique_ptr<Engine> used);
    void Let_Go();
    void End_Shared_Lock(); // that of the engine here, and of those that were taken

private:
    friend class Whole_Act;

    std::unique_ptr<Engine> engine;
    std::vector<Engine*> taken;
    int acts = 0; // one within the other
    bool letting_go_later = false;
    QObject events; // receives the request to let go; one that is pending goes with it
};

// From a page's first read of an act to its last. No box may show and no event may be looked at while a
// shared lock is held: whoever does either in between calls End_Shared_Lock first.
class [[nodiscard]] Whole_Act {
public:
    explicit Whole_Act(Kept_Engine& kept);
    ~Whole_Act();
    Whole_Act(const Whole_Act&) = delete;
    Whole_Act& operator=(const Whole_Act&) = delete;

private:
    Kept_Engine& kept;
};

} // namespace database
