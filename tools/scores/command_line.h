#pragma once

#include <QIODevice>
#include <QStringList>
#include <QTextStream>

namespace score_export {

// The whole program: arguments[0] is its name. Gives the exit status; output gets all or nothing.
int Run_Command(const QStringList& arguments, QIODevice& output, QTextStream& errors);

} // namespace score_export
