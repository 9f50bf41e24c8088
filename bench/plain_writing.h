#pragma once

#include "platform/database/engine_handle.h"

namespace bench {

// A connection that stays open and runs one statement after the other, each on its own: the engine's calls
// and nothing around them. The file is written as safely as the program writes it, by a rollback journal and
// with full synchronisation. Throws std::runtime_error with what the engine says.
class Plain_Writer {
public:
    explicit Plain_Writer(const QString& file);

    int Run(const QString& sql); // gives the number of rows that it touched

private:
    database::Engine_Handle engine;
};

} // namespace bench
