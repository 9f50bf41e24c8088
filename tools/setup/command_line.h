#pragma once

#include "setup/set_up.h"

#include <QIODevice>
#include <QStringList>
#include <QTextStream>

namespace set_up {

// The exit statuses.
inline constexpr int Succeeded = 0;
inline constexpr int Wants_Attention = 1; // a check found something, or product.ini couldn't be written
inline constexpr int Failed = 2;

struct Streams {
    QIODevice& input;
    QIODevice& output;
    QTextStream& errors;
};

// Setting up without a window: arguments[0] is the program's name. Gives the exit status. Whatever is wrong
// is one line among the errors.
int Run_Command(const QStringList& arguments, const Around& around, const Streams& streams);

} // namespace set_up
