#pragma once

#include "platform/database/engine_handle.h"

namespace bench {

// The engine's own calls and nothing around them: one connection whose statements are prepared once and
// bound. Throws std::runtime_error with what the engine says.
class Plain_Reader {
public:
    using Statement = database::Engine_Statement;

    explicit Plain_Reader(const QString& file);
    Statement Prepare(const QString& sql) const;
    // Reads every cell of every row; gives the number of rows.
    int Read(Statement& statement) const;
    int Read(Statement& statement, const QByteArray& first_value) const;

private:
    database::Engine_Handle engine;
};

// Opens a connection of its own, runs one SELECT and closes.
int Read_Plainly(const QString& file, const QString& sql);

} // namespace bench
