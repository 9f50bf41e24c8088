#pragma once

#include "platform/desktop/ports.h"

namespace printing {

enum class Outlet { Printer, Pdf_File };

// Asks where the document is to be saved, offers its title, and writes it there as a PDF. False if that was
// cancelled, or if the file can't be written, which a critical box has told by then.
bool Save_As_Pdf(const desktop::Printed_Document& document, desktop::Platform& platform,
                 const QString& dialog_title = QStringLiteral("Save as PDF"));

// Prints the document on the printer chosen last. Where none is set up it is saved as a PDF instead, as it is
// where that is asked for. False as from Save_As_Pdf; a fault of the printer is a run-time error.
bool Put_Out(const desktop::Printed_Document& document, Outlet outlet, desktop::Platform& platform);

} // namespace printing
