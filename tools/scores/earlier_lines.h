#pragma once

#include "platform/desktop/ports.h"

#include <QString>

namespace score_export {

// Each taking of each test by the pupils on the Reports page's list, the earlier ones too, a line each: as
// its page of earlier results shows them. An Export_Fault where those can't be read.
QString Earlier_Lines(const QString& database, desktop::Platform& platform);

} // namespace score_export
