#pragma once

#include "foundation/installation.h"
#include "platform/desktop/ports.h"
#include "platform/grid/spread.h"
#include "printing/pdf_file.h"

#include <QString>
#include <QWidget>

namespace printing {

// The pages that print the grid called Spread1; the number selects the end of the heading.
enum class Grid_Kind { Testing_Progress = 1, Import_Preview = 2, Security_Settings = 3 };

// What sheets are called.
struct Sheet_Names {
    Sheet_Names(const QString& document, const QString& title = {}, const QString& about = {})
        : document(document), title(title), about(about) {}
    QString document; // in the printer's queue, where everybody reads it
    QString title;    // of a PDF and its file; empty: the same
    QString about;    // in a PDF's properties
};

// Prints the page's grid on the printer chosen last, or saves it, as Put_Out does and with its answer.
bool Grid_Print(Grid_Kind kind, const QWidget& page, const foundation::Installation& installation,
                desktop::Platform& platform, Outlet outlet = Outlet::Printer);

// The beginning of a heading: the school's name in the middle of its line.
grid::Marked_Text List_Heading(const foundation::Installation& installation);

// Prints a page's list below a heading, which begins with the school's name. Answers as Grid_Print does.
bool Print_List(grid::fpSpread& grid, const grid::Marked_Text& heading, const Sheet_Names& names,
                const foundation::Installation& installation, desktop::Platform& platform,
                Outlet outlet = Outlet::Printer);

// Prints a grid whose properties are set. Answers as Grid_Print does.
bool Print_On_Paper(grid::fpSpread& grid, const Sheet_Names& names,
                    const foundation::Installation& installation, desktop::Platform& platform,
                    Outlet outlet = Outlet::Printer);

} // namespace printing
