#pragma once

namespace database {

class Engine_Handle;

// Gives the connection its text order: TEXT_ORDER always, and NOCASE too unless the file holds an index in
// NOCASE, which another program built by the plain order and which would be searched wrongly by ours.
void Install_Text_Order(const Engine_Handle& engine);

} // namespace database
