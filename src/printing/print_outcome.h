#pragma once

#include "platform/desktop/ports.h"

#include <QStringList>
#include <functional>

namespace printing {

// Runs a print job. A fault of the printer is shown in a box, as the control's own error would be, and the
// page goes on: nothing of the teacher's work hangs on a sheet of paper.
void Telling_Printer_Errors(desktop::Platform& platform, const std::function<void()>& job);

// Pupils line by line, as many as a box has room for, and how many more there are.
QString Named(const QStringList& pupils);

} // namespace printing
