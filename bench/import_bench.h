#pragma once

#include "platform/desktop/ports.h"

#include <benchmark/benchmark.h>

namespace bench {

// Imports a class on the Import page, beside the same statements run one by one on the engine alone, and goes
// on with the next class until the school is full. Both times are by the clock on the wall: what takes long
// is waiting for the disk.
inline constexpr int Classes = 25;
void Import_A_School(benchmark::State& state, desktop::Platform& platform);

} // namespace bench
