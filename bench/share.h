#pragma once

#include <optional>

namespace bench {

// What each act asks of the server where the school's file lies on a share: its round trips, which are exact,
// beside their limit, and how long it takes with a millisecond each. Wants the library `slow_share`, and is
// silent without.
void Register_Share();

// The same round trips in a table, without a delay; gives 1 where one is above its limit.
int Tell_Round_Trips();

// This program is the process in which an act is done, too: its exit status if it was called as one.
std::optional<int> Started_On_A_Share(int argc, char** argv);

} // namespace bench
