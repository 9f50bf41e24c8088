#pragma once

#include "platform/basics/run_time_error.h"

namespace basics {

// The run-time error for the last call of the system that failed, to be asked directly behind it: 61 where
// there was no room, 70 where the account may not, 76 where a folder is missing, 57 for the rest.
int Number_Of_Last_Failure();

// The same as the error itself. For 57 its description holds the system's own words.
Run_Time_Error Last_Failure();

} // namespace basics
