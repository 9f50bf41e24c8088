#pragma once

namespace database {

class Engine_Handle;

// Gives the connection its text order: TEXT_ORDER, and NOCASE too.
void Install_Text_Order(const Engine_Handle& engine);

// Whether the file holds an index in NOCASE, which another program built by the plain order and which would
// be searched wrongly by ours.
bool Holds_Foreign_Indexes(const Engine_Handle& engine);

// Gives NOCASE its plain order back. No statement may be running.
void Install_Plain_No_Case(const Engine_Handle& engine);

} // namespace database
