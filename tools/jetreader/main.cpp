// mevo-jet-reader FILE: writes all user tables of a Jet database to the standard output, in the records of
// conversion/jet_stream.h. The library that reads the file can be brought down by a damaged one, so it has
// this process to itself.

#include "jetreader/limits.h"
#include "jetreader/table_reader.h"

#include <cstdio>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#ifdef _WIN32
#include <fcntl.h>
#include <io.h>
#include <windows.h>

#include <shellapi.h>
#endif

using conversion::jet_stream::Record;
using jet_reader::Damage;
using jet_reader::Stream;
using jet_reader::Table_Reader;

namespace {

struct Closer {
    void operator()(MdbHandle* file) const { mdb_close(file); }
};

// The catalogue is a table itself, on the same page in each file, and says how many rows it has. A page of it
// that is missing would take its tables along without a word.
unsigned Entries_Promised(MdbHandle* file) {
    constexpr unsigned long catalogue_page = 2;
    MdbCatalogEntry entry{};
    entry.mdb = file;
    entry.object_type = MDB_TABLE;
    entry.table_pg = catalogue_page;
    const std::unique_ptr<MdbTableDef, decltype(&mdb_free_tabledef)> catalogue(mdb_read_table(&entry),
                                                                               mdb_free_tabledef);
    return catalogue ? catalogue->num_rows : 0;
}

std::vector<MdbCatalogEntry*> User_Tables(MdbHandle* file) {
    const GPtrArray* catalogue = mdb_read_catalog(file, MDB_ANY);
    if (!catalogue) throw Damage("the list of its tables can't be read");
    const unsigned promised = Entries_Promised(file);
    if (catalogue->len != promised)
        throw Damage("the list of its tables says that it has " + std::to_string(promised) +
                     " entries, and " + std::to_string(catalogue->len) + " can be read");
    std::vector<MdbCatalogEntry*> tables;
    for (unsigned i = 0; i < catalogue->len; ++i) {
        auto* entry = static_cast<MdbCatalogEntry*>(g_ptr_array_index(catalogue, i));
        if (entry->object_type == MDB_TABLE && mdb_is_user_table(entry)) tables.push_back(entry);
    }
    if (tables.empty()) throw Damage("the list of its tables is empty");
    return tables;
}

void Write_All(const std::u8string& path, Stream& stream) {
    const std::uint64_t size = std::filesystem::file_size(std::filesystem::path(path));
    jet_reader::Limit_This_Process(size);
    const std::unique_ptr<MdbHandle, Closer> file(
        mdb_open(reinterpret_cast<const char*>(path.c_str()), MDB_NOFLAGS));
    if (!file) throw Damage("its first page can't be read");
    const std::vector<MdbCatalogEntry*> tables = User_Tables(file.get());
    std::uint64_t rows = 0;
    for (MdbCatalogEntry* entry : tables)
        rows += Table_Reader(file.get(), entry, size).Rows_Promised();

    stream.Put_Record(Record::Start);
    stream.Put(conversion::jet_stream::Version);
    stream.Put(static_cast<std::uint32_t>(tables.size()));
    stream.Put(rows);
    for (MdbCatalogEntry* entry : tables)
        Table_Reader(file.get(), entry, size).Write_To(stream);
    stream.Put_Record(Record::End);
}

#ifdef _WIN32

// The system's own form of an argument: what main gets has lost the characters that the code page lacks.
std::u8string First_Argument(char**) {
    int count = 0;
    wchar_t** wide = CommandLineToArgvW(GetCommandLineW(), &count);
    const std::u8string first = std::filesystem::path(wide[1]).u8string();
    LocalFree(wide);
    return first;
}

#else

std::u8string First_Argument(char** argv) {
    const std::string first = argv[1];
    return {first.begin(), first.end()};
}

#endif

} // namespace

int main(int argc, char** argv) {
    if (argc != 2) {
        std::fputs("Usage: mevo-jet-reader FILE\n", stderr);
        return 2;
    }
#ifdef _WIN32
    _setmode(_fileno(stdout), _O_BINARY);
#endif
    Stream stream;
    int status = 0;
    try {
        Write_All(First_Argument(argv), stream);
    } catch (const std::exception& fault) {
        stream.Put_Record(Record::Fault);
        stream.Put_Text(fault.what());
        status = 2;
    }
    stream.Flush();
    return status;
}
