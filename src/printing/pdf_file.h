#pragma once

#include "platform/desktop/ports.h"

namespace printing {

// Asks where the document is to be saved, offers its name, and writes it there as a PDF. False if that was
// cancelled, or if the file can't be written, which a critical box has told by then.
bool Save_As_Pdf(const desktop::Printed_Document& document, desktop::Platform& platform);

} // namespace printing
