#pragma once

#include <QStringList>
#include <QTextStream>

namespace paper_output {

// The whole program: arguments[0] is its name. Gives the exit status; each PDF is written whole or not at
// all.
int Run_Command(const QStringList& arguments, QTextStream& output, QTextStream& errors);

} // namespace paper_output
