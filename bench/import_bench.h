#pragma once

#include "platform/desktop/ports.h"

#include <benchmark/benchmark.h>

namespace bench {

// Of the same statements, one by one.
inline constexpr double Most_Times_One_By_One = 1.1;

// Imports a class on the Import page, beside the same statements run one by one on the engine alone, and goes
// on with the next class until the school is full. Both times are by the clock on the wall: what takes long
// is waiting for the disk.
inline constexpr int Classes = 25;
void Import_A_School(benchmark::State& state, desktop::Platform& platform);

// The same for deleting: 2400 of 2500 pupils on the Delete page, a hundred a selection, with the bar painted
// and the list read anew behind each.
inline constexpr int Selections = 24;
void Delete_A_School(benchmark::State& state, desktop::Platform& platform);

} // namespace bench
