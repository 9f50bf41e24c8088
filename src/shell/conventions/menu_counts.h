#pragma once

#include "platform/basics/value.h"

namespace shell {

// The Main menu's counts, taken each time it loads.
struct Menu_Counts {
    basics::Value Number_Of_Students; // registered pupils; registering adds to it
    qint16 Number_With_Results = 0;   // pupils with at least one of the eight normed tests done
};

} // namespace shell
