#pragma once

struct sqlite3;

namespace database {

// Gives the connection its text order: TEXT_ORDER always, and NOCASE too unless the file holds an index in
// NOCASE, which another program built by the plain order and which would be searched wrongly by ours.
void Install_Text_Order(sqlite3* engine);

} // namespace database
