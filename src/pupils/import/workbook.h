#pragma once

#include "pupils/import/source_table.h"

namespace pupils {

// A workbook (.xlsx): formulas by the values stored with them, dates by their number formats, as yyyy-mm-dd.
// What is no workbook, or claims to be larger than a school's, is a Refused_Source. sheet: from 0; one that
// isn't there is the first.
Source_Table Read_Workbook(const QByteArray& bytes, int sheet);

} // namespace pupils
