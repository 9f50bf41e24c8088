#pragma once

#include <cstdint>

namespace jet_reader {

// Bounds what this process may take from now on: memory and processor time. A damaged file can
// send the library round in circles; the system then ends the process, and whoever started it sees that.
void Limit_This_Process(std::uint64_t file_size);

} // namespace jet_reader
