#pragma once

#include "foundation/installation.h"
#include "platform/desktop/ports.h"
#include "platform/grid/spread.h"

#include <QString>
#include <QWidget>

namespace printing {

// The pages that print the grid called Spread1; the number selects the end of the heading.
enum class Grid_Kind { Testing_Progress = 1, Import_Preview = 2, Security_Settings = 3 };

// Prints the page's grid on the printer chosen last. Where no printer is set up the user is told which PDF
// holds the sheets; gives whether a printer got them. A fault of the printer is a run-time error.
bool Grid_Print(Grid_Kind kind, const QWidget& page, const foundation::Installation& installation,
                desktop::Platform& platform);

// The beginning of a heading: the school's name in the middle of its line.
grid::Marked_Text List_Heading(const foundation::Installation& installation);

// Prints a page's list below a heading, which begins with the school's name. Answers as Grid_Print does.
bool Print_List(grid::fpSpread& grid, const grid::Marked_Text& heading, const QString& document,
                const foundation::Installation& installation, desktop::Platform& platform);

// Prints a grid whose properties are set. Tells of the PDF and gives the answer as Grid_Print does.
bool Print_On_Paper(grid::fpSpread& grid, const QString& document,
                    const foundation::Installation& installation, desktop::Platform& platform,
                    const QString& about = {});

} // namespace printing
