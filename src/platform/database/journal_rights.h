#pragma once

#include <QString>

namespace database {

// Whether the empty journal of a database may stay beside it between two changes: only where whoever may
// write the database may write the journal too, whichever account made it, and may remove it as other
// programs do. `file` is the database's native path.
bool Journal_May_Stay(const QString& file);

} // namespace database
