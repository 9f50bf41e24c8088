#include "printing/print_outcome.h"

#include "platform/basics/run_time_error.h"

using namespace Qt::StringLiterals;

namespace printing {

void Telling_Printer_Errors(desktop::Platform& platform, const std::function<void()>& job) {
    try {
        job();
    } catch (const basics::Run_Time_Error& error) {
        platform.boxes.Ask(desktop::Box_Style::Critical, desktop::Default_Box_Title(), error.Description);
    }
}

} // namespace printing
