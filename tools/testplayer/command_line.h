#pragma once

#include <QStringList>
#include <QTextStream>
#include <functional>

namespace test_player {

// Lets that many milliseconds go by; false once the playing is to end.
using Pause = std::function<bool(int milliseconds)>;

// Runs the command: rows until their number is reached or a pause says so, then one line with their number.
// A fault is one line among the errors. Gives the exit status.
int Run_Command(const QStringList& arguments, const Pause& pause, QTextStream& output, QTextStream& errors);

} // namespace test_player
