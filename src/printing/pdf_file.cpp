#include "printing/pdf_file.h"

#include "platform/basics/native_path.h"
#include "platform/desktop/qt_printers.h"
#include "platform/desktop/wait_pointer.h"
#include "printing/print_outcome.h"
#include "shell/conventions/save_as.h"

using namespace Qt::StringLiterals;

namespace printing {

bool Save_As_Pdf(const desktop::Printed_Document& document, desktop::Platform& platform) {
    const QString file = shell::Ask_Where_To_Save(
        {u"Save as PDF"_s, u"PDF documents (*.pdf)"_s, u"pdf"_s, document.name}, platform);
    if (file.isEmpty()) return false;
    bool saved = false;
    Telling_Printer_Errors(platform, [&] {
        const desktop::Wait_Pointer busy(platform.pointer);
        desktop::Write_Pdf(document, basics::Native_Target(file));
        saved = true;
    });
    return saved;
}

} // namespace printing
