#pragma once

#include "platform/basics/run_time_error.h"

namespace scoring {

// The detail tables are filled with errors passed over: what can't be worked out is left, and the rest goes
// on.
template<class Step>
void Passing_Over_Errors(Step step) {
    try {
        step();
    } catch (const basics::Run_Time_Error&) {
    }
}

} // namespace scoring
