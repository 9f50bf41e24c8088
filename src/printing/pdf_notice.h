#pragma once

#include "platform/desktop/ports.h"

#include <QString>

namespace printing {

// Tells where the pages went when no printer was set up to take them; an empty name tells nothing.
void Tell_Of_Pdf(const QString& pdf, desktop::Platform& platform);

} // namespace printing
