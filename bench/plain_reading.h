#pragma once

#include <QString>

namespace bench {

// Opens a connection of its own, runs one SELECT, reads every cell of every row and closes: the engine's own
// calls and nothing around them. Gives the number of rows; throws std::runtime_error with what the engine
// says.
int Read_Plainly(const QString& file, const QString& sql);

} // namespace bench
