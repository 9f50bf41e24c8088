#pragma once

#include "platform/desktop/ports.h"
#include "print/print_request.h"

namespace paper_output {

// Writes the pages that the request asks for, as the program's own pages would print them. Gives who was left
// out where each pupil of a group has a file, and why; all else that stands in the way is a Print_Fault or a
// basics::Run_Time_Error.
QStringList Print_Reports(const Print_Request& request, desktop::Platform& platform);

} // namespace paper_output
