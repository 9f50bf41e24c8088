#pragma once

#include "platform/desktop/ports.h"
#include "print/print_request.h"

namespace paper_output {

// The pages that the request asks for, as the program's own pages would print them. What stands in the way is
// a Print_Fault.
desktop::Printed_Document Printed_Report(const Print_Request& request, desktop::Platform& platform);

} // namespace paper_output
