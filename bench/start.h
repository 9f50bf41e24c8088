#pragma once

#include <benchmark/benchmark.h>
#include <optional>

namespace bench {

// Starts of the program in processes of their own: how long until the Main menu is painted, and how much
// memory the process has taken when a full list stands on the Reports page. The reference is a process that
// paints an empty window by the toolkit.
void Register_Starts();

// This program is the process that is started, too: its exit status if it was called as one.
std::optional<int> Started_To_Be_Measured(int argc, char** argv);

} // namespace bench
