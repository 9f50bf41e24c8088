#pragma once

#include "foundation/access_holder.h"
#include "foundation/installation.h"

#include <QString>

namespace scoring {

struct Population_Means {
    basics::Value Time_Mean; // milliseconds, as Time_SD
    basics::Value Time_SD;
    basics::Value Correct_Mean;
    basics::Value Correct_SD;
    basics::Value Seq_Errors_Mean;
    basics::Value Seq_Errors_SD;
};

// Reads the row of a test's module text and the age band of that many months; means stay as they are if
// there is none. module becomes the row's key.
void Get_Population_Means(QString& module, int months, Population_Means& means,
                          foundation::Access_Holder& holder, const foundation::Installation& installation);

} // namespace scoring
