#pragma once

#include "conversion/jet_stream.h"

#include <cstddef>
#include <string>

namespace jet_reader {

// Writes records to the standard output.
class Stream {
public:
    void Put_Record(conversion::jet_stream::Record record) { Put(record); }
    template<class Plain>
    void Put(Plain value) {
        Put_Bytes(&value, sizeof value);
    }
    void Put_Text(const std::string& text);
    void Put_Value(conversion::jet_stream::Value_Tag tag, const std::string& bytes);
    void Put_Bytes(const void* bytes, std::size_t size);
    void Flush();
};

} // namespace jet_reader
