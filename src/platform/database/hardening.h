#pragma once

struct sqlite3;

namespace database {

// Settings for a file that other hands write: no SQL that lies in it runs, nothing attaches, and sizes are
// bounded.
void Harden(sqlite3* engine);

} // namespace database
