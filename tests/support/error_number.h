#pragma once

#include "platform/basics/run_time_error.h"

namespace test_support {

// The number of the run-time error that the work ends in; 0 if it doesn't.
template<class Work>
int Error_Number(Work work) {
    try {
        work();
    } catch (const basics::Run_Time_Error& error) {
        return error.Number;
    }
    return 0;
}

} // namespace test_support
