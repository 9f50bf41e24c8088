#pragma once

#include "foundation/installation.h"
#include "platform/desktop/ports.h"
#include "platform/grid/spread.h"
#include "printing/pdf_file.h"
#include "reports/state/report_state.h"

#include <QString>

namespace printing {

// Which grid of the Reports page is printed: fpSpread2plus, fpSpread1 or fpSpread2.
enum class Table_To_Print { Wide_Detail = 1, Summary = 2, Detail = 3 };

struct Chosen_Table {
    Table_To_Print table_to_print;
    grid::fpSpread& grid;
    QString title; // the caption of Label3
};

// Prints a table of the Reports page on the printer chosen last, or saves it, as Put_Out does and with its
// answer.
bool Print_Table(const Chosen_Table& table, const reports::Report_State& state,
                 const foundation::Installation& installation, desktop::Platform& platform,
                 Outlet outlet = Outlet::Printer);

} // namespace printing
