#pragma once

#include "platform/desktop/printers.h"

#include <memory>

namespace desktop {

// Writes the document as a PDF: the whole file or none. Throws basics::Run_Time_Error if it can't be written.
void Write_Pdf(const Printed_Document& document, const QString& file);

std::unique_ptr<Printers> Make_Qt_Printers();
std::unique_ptr<Clipboard> Make_Qt_Clipboard();

} // namespace desktop
