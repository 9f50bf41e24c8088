#include "printing/pdf_notice.h"

using namespace Qt::StringLiterals;

namespace printing {

void Tell_Of_Pdf(const QString& pdf, desktop::Platform& platform) {
    if (pdf.isEmpty()) return;
    platform.boxes.Ask(desktop::Box_Style::Information, u"Saved as a PDF"_s,
                       u"No printer is set up on this computer. The pages were written to this file instead:"
                       u"\r\r"_s +
                           pdf);
}

} // namespace printing
