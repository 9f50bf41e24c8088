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

void Tell_Of_Pdf(const QString& pdf, desktop::Platform& platform) {
    if (pdf.isEmpty()) return;
    platform.boxes.Ask(desktop::Box_Style::Information, u"Saved as a PDF"_s,
                       u"No printer is set up on this computer. The pages were written to this file instead:"
                       u"\r\r"_s +
                           pdf);
}

} // namespace printing
