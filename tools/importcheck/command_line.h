#pragma once

#include <QDateTime>
#include <QIODevice>
#include <QStringList>
#include <QTextStream>

namespace import_check {

// The whole program: arguments[0] is its name. Gives the exit status; output gets all or nothing.
int Run_Command(const QStringList& arguments, QIODevice& output, QTextStream& errors,
                const QDateTime& now = QDateTime::currentDateTime());

} // namespace import_check
