#pragma once

#include <cstdint>

// What the reader program tells the converter through a pipe: one record after the other, all numbers in the
// byte order of the machine, since both ends run on it. A text is its length in bytes (32 bits) and UTF-8.
//
//   Start      version (32 bits), number of tables (32), number of rows in all of them (64)
//   Table      name, number of rows that the table says it has (32), number of columns (16), then for each
//              column its name, type (8) and size (32); number of key columns (16), then the place of each
//              (16)
//   Row        for each column a Value_Tag (8) and what it announces
//   Table_End  number of rows read (32)
//   End
//   Fault      a text
//
// Nothing in it is believed: the reader walks through files that may be damaged or made to do harm.
namespace conversion::jet_stream {

inline constexpr std::uint32_t Version = 1;

enum class Record : std::uint8_t {
    Start = 'S',
    Table = 'T',
    Row = 'R',
    Table_End = 'E',
    End = 'Z',
    Fault = 'F'
};

enum class Column_Type : std::uint8_t { Number = 'N', Text = 'T', Date = 'D', Bytes = 'B' };

enum class Value_Tag : std::uint8_t {
    Null = 0,
    Whole = 1, // 64 bits, signed
    Real = 2,  // a double
    Text = 3,
    Date = 4, // a double: days since 30 December 1899, the time of day as a fraction
    Bytes = 5
};

// Wherever a length stands, no more is taken.
inline constexpr std::uint32_t Longest_Value = 64u * 1024 * 1024;
inline constexpr int Most_Columns = 255; // of a table in this format

} // namespace conversion::jet_stream
