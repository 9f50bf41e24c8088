#pragma once

#include "conversion/jet_source.h"

#include <QIODevice>
#include <QStringList>
#include <QTextStream>
#include <functional>

namespace convert_command {

// The exit statuses.
inline constexpr int Done = 0;
inline constexpr int Different = 1; // only of a comparison
inline constexpr int Failed = 2;

struct Surroundings {
    QIODevice& output;
    QTextStream& errors;
    bool shows_progress;               // among the errors: somebody sits before them
    std::function<bool()> interrupted; // asked several times a second
    conversion::Reader_Program reader;
};

// The whole program: arguments[0] is its name. Gives the exit status. Each file that fails is one line among
// the errors.
int Run_Command(const QStringList& arguments, const Surroundings& around);

} // namespace convert_command
