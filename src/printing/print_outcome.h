#pragma once

#include "platform/desktop/ports.h"

#include <QString>
#include <functional>

namespace printing {

// Runs a print job. A fault of the printer is shown in a box, as the control's own error would be, and the
// page goes on: nothing of the teacher's work hangs on a sheet of paper.
void Telling_Printer_Errors(desktop::Platform& platform, const std::function<void()>& job);

// Shows where the pages went when no printer was set up to take them; nothing for an empty name.
void Tell_Of_Pdf(const QString& pdf, desktop::Platform& platform);

} // namespace printing
