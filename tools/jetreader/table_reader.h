#pragma once

#include "jetreader/stream.h"

#include <cstdint>
#include <glib.h> // first: the next one would include it with C linkage, which its templates can't have
#include <mdbtools.h>
#include <stdexcept>
#include <string>
#include <vector>

namespace jet_reader {

// The file isn't as it should be, in a few words.
class Damage : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

// Reads one table of an open file, from its description to its last row.
class Table_Reader {
public:
    // Throws Damage where the table's description can't be read.
    Table_Reader(MdbHandle* file, MdbCatalogEntry* entry, std::uint64_t file_size);
    ~Table_Reader();
    Table_Reader(const Table_Reader&) = delete;
    Table_Reader& operator=(const Table_Reader&) = delete;

    std::uint32_t Rows_Promised() const { return rows_promised; }
    // Throws Damage where rows are missing, or a value can't be read whole.
    void Write_To(Stream& stream);

private:
    const MdbColumn& Column(std::size_t place) const;
    std::vector<std::uint16_t> Key_Columns() const;
    void Write_Description(Stream& stream) const;
    void Write_Row(Stream& stream);
    void Write_Value(const MdbColumn& column, const MdbField& field, Stream& stream);
    void Write_Number(const MdbColumn& column, const std::uint8_t* bytes, int size, Stream& stream);
    std::string Text_Of(const std::uint8_t* bytes, std::size_t size) const;
    std::string Long_Value(const std::uint8_t* bytes, std::size_t size);
    std::string Chunk(std::uint32_t page_and_row);
    [[noreturn]] void Fail(const std::string& what) const;

    MdbHandle* file;
    MdbTableDef* table;
    std::uint64_t file_size;
    std::uint32_t rows_promised;
    std::string name;
};

} // namespace jet_reader
