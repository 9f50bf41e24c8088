#include "printing/pdf_file.h"

#include "platform/basics/native_path.h"
#include "platform/desktop/qt_printers.h"
#include "platform/desktop/wait_pointer.h"
#include "printing/print_outcome.h"
#include "shell/conventions/save_as.h"

using namespace Qt::StringLiterals;

namespace printing {

bool Save_As_Pdf(const desktop::Printed_Document& document, desktop::Platform& platform,
                 const QString& dialog_title) {
    const QString name = document.title.isEmpty() ? document.name : document.title;
    const QString file =
        shell::Ask_Where_To_Save({dialog_title, u"PDF documents (*.pdf)"_s, u"pdf"_s, name}, platform);
    if (file.isEmpty()) return false;
    bool saved = false;
    Telling_Printer_Errors(platform, [&] {
        const desktop::Wait_Pointer busy(platform.pointer);
        desktop::Write_Pdf(document, basics::Native_Target(file));
        saved = true;
    });
    return saved;
}

bool Put_Out(const desktop::Printed_Document& document, Outlet outlet, desktop::Platform& platform) {
    if (outlet == Outlet::Pdf_File) return Save_As_Pdf(document, platform);
    if (!platform.printers.Is_Any_Set_Up())
        return Save_As_Pdf(document, platform, u"No printer is set up: save as PDF"_s);
    const desktop::Wait_Pointer busy(platform.pointer);
    platform.printers.Print(document);
    return true;
}

} // namespace printing
