#include "jetreader/stream.h"

#include <cstdint>
#include <cstdio>
#include <cstdlib>

namespace jet_reader {

using conversion::jet_stream::Value_Tag;

void Stream::Put_Bytes(const void* bytes, std::size_t size) {
    if (std::fwrite(bytes, 1, size, stdout) != size) std::_Exit(1); // nobody listens any more
}

void Stream::Put_Text(const std::string& text) {
    Put(static_cast<std::uint32_t>(text.size()));
    Put_Bytes(text.data(), text.size());
}

void Stream::Put_Value(Value_Tag tag, const std::string& bytes) {
    Put(tag);
    Put_Text(bytes);
}

void Stream::Flush() {
    if (std::fflush(stdout) != 0) std::_Exit(1);
}

} // namespace jet_reader
