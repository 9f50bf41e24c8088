#include "jetreader/table_reader.h"

#include "jetreader/text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdlib>
#include <cstring>
#include <memory>

namespace jet_reader {

using conversion::jet_stream::Column_Type;
using conversion::jet_stream::Longest_Value;
using conversion::jet_stream::Most_Columns;
using conversion::jet_stream::Record;
using conversion::jet_stream::Value_Tag;

namespace {

constexpr int Offset_Mask = 0x1fff; // the bits above it say what became of a row
constexpr unsigned char Primary_Key = 1;
constexpr std::size_t Long_Value_Head = 12; // length, place and four bytes of no use here
constexpr std::uint32_t Inline_Mark = 0x80000000u;
constexpr std::uint32_t One_Chunk_Mark = 0x40000000u;
constexpr std::uint32_t Length_Mask = 0x3fffffffu;

struct Table_Type {
    int in_file;
    Column_Type told;
    int size; // in bytes, of a value that has one; 0 for values of any size
};
constexpr Table_Type Types[] = {
    {MDB_BOOL, Column_Type::Number, 0},   {MDB_BYTE, Column_Type::Number, 1},
    {MDB_INT, Column_Type::Number, 2},    {MDB_LONGINT, Column_Type::Number, 4},
    {MDB_MONEY, Column_Type::Number, 8},  {MDB_FLOAT, Column_Type::Number, 4},
    {MDB_DOUBLE, Column_Type::Number, 8}, {MDB_DATETIME, Column_Type::Date, 8},
    {MDB_BINARY, Column_Type::Bytes, 0},  {MDB_TEXT, Column_Type::Text, 0},
    {MDB_OLE, Column_Type::Bytes, 0},     {MDB_MEMO, Column_Type::Text, 0},
    {MDB_REPID, Column_Type::Text, 16},   {MDB_NUMERIC, Column_Type::Number, 17},
};

const Table_Type* Type_Of(const MdbColumn& column) {
    const auto* found = std::find_if(std::begin(Types), std::end(Types),
                                     [&](const Table_Type& type) { return type.in_file == column.col_type; });
    return found == std::end(Types) ? nullptr : found;
}

template<class Plain>
Plain Plain_At(const std::uint8_t* bytes) {
    Plain value;
    std::memcpy(&value, bytes, sizeof value);
    return value;
}

// The shortest decimal number that this single stands for: what was typed in as 0.1 stays 0.1 as a double.
double Widened(float single) {
    if (!std::isfinite(single)) return single;
    std::array<char, 32> text{};
    const auto end = std::to_chars(text.data(), text.data() + text.size(), single).ptr;
    double value = 0;
    std::from_chars(text.data(), end, value);
    return value;
}

} // namespace

Table_Reader::Table_Reader(MdbHandle* file, MdbCatalogEntry* entry, std::uint64_t file_size)
    : file(file), table(mdb_read_table(entry)), file_size(file_size), name(entry->object_name) {
    if (!table) Fail("its description can't be read");
    const GPtrArray* columns = mdb_read_columns(table);
    if (!columns || table->num_cols == 0 || table->num_cols > Most_Columns || columns->len != table->num_cols)
        Fail("its columns can't be read");
    for (std::size_t place = 0; place < table->num_cols; ++place)
        if (!Type_Of(Column(place))) Fail(std::string("column ") + Column(place).name + " has no known type");
    rows_promised = table->num_rows;
    // Each row takes two bytes at least for its place on a page.
    if (rows_promised > file_size / 2) Fail("it claims more rows than the file can hold");
}

Table_Reader::~Table_Reader() {
    if (table) mdb_free_tabledef(table);
}

void Table_Reader::Fail(const std::string& what) const {
    throw Damage("table " + name + ": " + what);
}

const MdbColumn& Table_Reader::Column(std::size_t place) const {
    return *static_cast<const MdbColumn*>(g_ptr_array_index(table->columns, place));
}

std::vector<std::uint16_t> Table_Reader::Key_Columns() const {
    std::vector<std::uint16_t> key;
    const GPtrArray* indices = mdb_read_indices(table);
    for (unsigned i = 0; indices && i < indices->len; ++i) {
        const auto* index = static_cast<const MdbIndex*>(g_ptr_array_index(indices, i));
        if (!index || index->index_type != Primary_Key) continue;
        for (unsigned column = 0; column < index->num_keys && column < MDB_MAX_IDX_COLS; ++column) {
            const int place = index->key_col_num[column] - 1;
            if (place < 0 || place >= static_cast<int>(table->num_cols)) Fail("its key names no column");
            key.push_back(static_cast<std::uint16_t>(place));
        }
        return key;
    }
    return key;
}

void Table_Reader::Write_Description(Stream& stream) const {
    stream.Put_Record(Record::Table);
    stream.Put_Text(name);
    stream.Put(rows_promised);
    stream.Put(static_cast<std::uint16_t>(table->num_cols));
    for (std::size_t place = 0; place < table->num_cols; ++place) {
        const MdbColumn& column = Column(place);
        // A text's size is told in bytes, and this format takes two for a character.
        const int bytes = std::max(column.col_size, 0);
        const bool two_bytes = column.col_type == MDB_TEXT && !IS_JET3(file);
        stream.Put_Text(column.name);
        stream.Put(Type_Of(column)->told);
        stream.Put(static_cast<std::uint32_t>(two_bytes ? bytes / 2 : bytes));
    }
    const std::vector<std::uint16_t> key = Key_Columns();
    stream.Put(static_cast<std::uint16_t>(key.size()));
    for (const std::uint16_t place : key)
        stream.Put(place);
}

void Table_Reader::Write_To(Stream& stream) {
    Write_Description(stream);
    mdb_rewind_table(table);
    table->num_rows = std::max(table->num_rows, 1u); // at 0 the library wouldn't look for rows at all
    std::uint32_t read = 0;
    for (; mdb_fetch_row(table); ++read) {
        if (read == rows_promised) Fail("it holds more rows than it says");
        Write_Row(stream);
    }
    if (read != rows_promised)
        Fail("it says that it holds " + std::to_string(rows_promised) + " rows, and " + std::to_string(read) +
             " can be read");
    stream.Put_Record(Record::Table_End);
    stream.Put(read);
}

// No column is bound: a bound one can't tell NULL from an empty text, and is cut at the size of its buffer.
void Table_Reader::Write_Row(Stream& stream) {
    int start = 0;
    std::size_t size = 0;
    if (mdb_find_row(file, static_cast<int>(table->cur_row) - 1, &start, &size) != 0)
        Fail("a row can't be found");
    start &= Offset_Mask;
    std::array<MdbField, MDB_MAX_COLS> fields{};
    const int count = mdb_crack_row(table, start, size, fields.data());
    if (count != static_cast<int>(table->num_cols)) Fail("a row can't be taken apart");

    std::array<const MdbField*, MDB_MAX_COLS> by_place{};
    for (int i = 0; i < count; ++i) {
        const int place = fields[static_cast<std::size_t>(i)].colnum;
        if (place < 0 || place >= count) Fail("a row names no column");
        by_place[static_cast<std::size_t>(place)] = &fields[static_cast<std::size_t>(i)];
    }
    stream.Put_Record(Record::Row);
    for (std::size_t place = 0; place < table->num_cols; ++place) {
        if (!by_place[place]) Fail("a row lacks a column");
        Write_Value(Column(place), *by_place[place], stream);
    }
}

void Table_Reader::Write_Value(const MdbColumn& column, const MdbField& field, Stream& stream) {
    if (column.col_type == MDB_BOOL) { // the mark for NULL is the value itself; True is -1 in this format
        stream.Put(Value_Tag::Whole);
        stream.Put(static_cast<std::int64_t>(field.is_null ? 0 : -1));
        return;
    }
    if (field.is_null) {
        stream.Put(Value_Tag::Null);
        return;
    }
    if (field.start < 0 || field.siz < 0 || field.start + field.siz > file->fmt->pg_size)
        Fail(std::string("column ") + column.name + " reaches beyond its page");
    const std::uint8_t* bytes = file->pg_buf + field.start;
    const auto size = static_cast<std::size_t>(field.siz);
    const int fixed_size = Type_Of(column)->size;
    if (fixed_size != 0 && field.siz != fixed_size)
        Fail(std::string("column ") + column.name + " has a value of a wrong size");

    switch (column.col_type) {
    case MDB_TEXT:
        return stream.Put_Value(Value_Tag::Text, Text_Of(bytes, size));
    case MDB_MEMO: {
        const std::string value = Long_Value(bytes, size);
        return stream.Put_Value(Value_Tag::Text,
                                Text_Of(reinterpret_cast<const std::uint8_t*>(value.data()), value.size()));
    }
    case MDB_OLE:
        return stream.Put_Value(Value_Tag::Bytes, Long_Value(bytes, size));
    case MDB_BINARY:
        return stream.Put_Value(Value_Tag::Bytes, std::string(bytes, bytes + size));
    default:
        return Write_Number(column, bytes, field.start, stream);
    }
}

void Table_Reader::Write_Number(const MdbColumn& column, const std::uint8_t* bytes, int start,
                                Stream& stream) {
    const auto whole = [&](std::int64_t value) {
        stream.Put(Value_Tag::Whole);
        stream.Put(value);
    };
    const auto real = [&](Value_Tag tag, double value) {
        if (!std::isfinite(value)) Fail(std::string("column ") + column.name + " has a number that is none");
        stream.Put(tag);
        stream.Put(value);
    };
    // The library hands these two over as text alone.
    const auto text = [&](char* made) {
        const std::unique_ptr<char, decltype(&g_free)> owned(made, g_free);
        return std::string(made ? made : "");
    };
    switch (column.col_type) {
    case MDB_BYTE:
        return whole(*bytes);
    case MDB_INT:
        return whole(Plain_At<std::int16_t>(bytes));
    case MDB_LONGINT:
        return whole(Plain_At<std::int32_t>(bytes));
    case MDB_MONEY: {
        constexpr double units = 10'000;
        return real(Value_Tag::Real, static_cast<double>(Plain_At<std::int64_t>(bytes)) / units);
    }
    case MDB_FLOAT:
        return real(Value_Tag::Real, Widened(Plain_At<float>(bytes)));
    case MDB_DOUBLE:
        return real(Value_Tag::Real, Plain_At<double>(bytes));
    case MDB_DATETIME:
        return real(Value_Tag::Date, Plain_At<double>(bytes));
    case MDB_NUMERIC: {
        const std::string digits =
            text(mdb_numeric_to_string(file, start, column.col_scale, column.col_prec));
        return real(Value_Tag::Real, std::strtod(digits.c_str(), nullptr));
    }
    case MDB_REPID:
        return stream.Put_Value(Value_Tag::Text, text(mdb_uuid_to_string(file->pg_buf, start)));
    default:
        Fail(std::string("column ") + column.name + " has no known type");
    }
}

// The later version's texts are taken apart here: the library puts question marks for rare characters.
std::string Table_Reader::Text_Of(const std::uint8_t* bytes, std::size_t size) const {
    if (size == 0) return {};
    if (!IS_JET3(file)) return Utf_8(Code_Units(bytes, size));
    constexpr std::size_t most_for_a_byte = 3; // a character of an eight-bit set in UTF-8
    std::string text(size * most_for_a_byte + 4, '\0');
    const int length =
        mdb_unicode2ascii(file, reinterpret_cast<const char*>(bytes), size, text.data(), text.size());
    if (length < 0 || static_cast<std::size_t>(length) > text.size()) Fail("a text can't be read");
    text.resize(static_cast<std::size_t>(length));
    return text;
}

std::string Table_Reader::Chunk(std::uint32_t page_and_row) {
    void* page = nullptr;
    int start = 0;
    std::size_t size = 0;
    if (mdb_find_pg_row(file, static_cast<int>(page_and_row), &page, &start, &size) != 0 || !page)
        Fail("a long text leads to a missing page");
    start &= Offset_Mask;
    if (static_cast<ssize_t>(start + size) > file->fmt->pg_size) Fail("a long text reaches beyond its page");
    return {static_cast<const char*>(page) + start, size};
}

// One of three forms: behind its head, in one chunk elsewhere, or in a chain of chunks, each of which begins
// with the place of the next.
std::string Table_Reader::Long_Value(const std::uint8_t* bytes, std::size_t size) {
    if (size < Long_Value_Head) Fail("a long text lacks its head");
    const auto head = Plain_At<std::uint32_t>(bytes);
    auto next = Plain_At<std::uint32_t>(bytes + 4);
    const std::size_t length = head & Length_Mask;
    if (length > file_size || length > Longest_Value) Fail("a long text claims to be longer than the file");
    std::string value;
    if (head & Inline_Mark) {
        value.assign(bytes + Long_Value_Head, bytes + size);
    } else if (head & One_Chunk_Mark) {
        value = Chunk(next);
    } else {
        while (next != 0 && value.size() < length) {
            const std::string chunk = Chunk(next);
            if (chunk.size() <= sizeof next) Fail("a long text breaks off");
            next = Plain_At<std::uint32_t>(reinterpret_cast<const std::uint8_t*>(chunk.data()));
            value.append(chunk, sizeof next, std::string::npos);
        }
    }
    if (value.size() < length) Fail("a long text breaks off");
    value.resize(length);
    return value;
}

} // namespace jet_reader
