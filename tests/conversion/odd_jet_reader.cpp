// In place of the real reader, one that tells what no sound file holds, or that fails as a library can. Which
// of its ways it has is in the variable MEVO_ODD_READER.

#include "foundation/schema.h"
#include "jetreader/stream.h"

#include <chrono>
#include <cstdlib>
#include <functional>
#include <map>
#include <string>
#include <thread>
#include <vector>
#ifdef _WIN32
#include <fcntl.h>
#include <io.h>
#endif

using namespace conversion::jet_stream;
using jet_reader::Stream;

namespace {

struct Column {
    std::string name;
    Column_Type type = Column_Type::Text;
    std::uint32_t size = 255;
};

void Table(Stream& stream, const std::string& name, std::uint32_t rows, const std::vector<Column>& columns,
           const std::vector<std::uint16_t>& key = {}) {
    stream.Put_Record(Record::Table);
    stream.Put_Text(name);
    stream.Put(rows);
    stream.Put(static_cast<std::uint16_t>(columns.size()));
    for (const Column& column : columns) {
        stream.Put_Text(column.name);
        stream.Put(column.type);
        stream.Put(column.size);
    }
    stream.Put(static_cast<std::uint16_t>(key.size()));
    for (const std::uint16_t place : key)
        stream.Put(place);
}

void End_Table(Stream& stream, std::uint32_t rows) {
    stream.Put_Record(Record::Table_End);
    stream.Put(rows);
}

// The suite's other tables stand empty before those that a way tells of itself, so that none is refused for
// want of them.
void Start(Stream& stream, std::uint32_t tables, std::uint64_t rows, const char* own = "Mevo_Pupils") {
    database::Tables others = foundation::Needed_Tables();
    others.remove(QString::fromLatin1(own));
    stream.Put_Record(Record::Start);
    stream.Put(Version);
    stream.Put(tables + static_cast<std::uint32_t>(others.size()));
    stream.Put(rows);
    for (auto other = others.begin(); other != others.end(); ++other) {
        Table(stream, other.key().toStdString(), 0,
              {{other.value().value(0, QStringLiteral("Raw Score")).toStdString()}});
        End_Table(stream, 0);
    }
}

void Text(Stream& stream, const std::string& text) {
    stream.Put_Value(Value_Tag::Text, text);
}

void Finish(Stream& stream, std::uint32_t rows) {
    End_Table(stream, rows);
    stream.Put_Record(Record::End);
}

const std::vector<Column> Pupil = {{"StudentCode"}, {"Surname"}};

// A database that says it has one table and rows, and tells the table.
void One_Table(Stream& stream, std::uint32_t rows, const std::vector<Column>& columns = Pupil) {
    Start(stream, 1, rows);
    Table(stream, "Mevo_Pupils", rows, columns);
}

void Pupils(Stream& stream, std::uint32_t told, const std::vector<std::string>& codes) {
    One_Table(stream, told);
    for (const std::string& code : codes) {
        stream.Put_Record(Record::Row);
        Text(stream, code);
        Text(stream, "Surname of " + code);
    }
}

using Way = std::function<void(Stream&)>;

Way Told_Rows(std::uint32_t told, const std::vector<std::string>& codes, std::uint32_t counted) {
    return [=](Stream& stream) {
        Pupils(stream, told, codes);
        Finish(stream, counted);
    };
}

Way Told_Table(const std::vector<Column>& columns, const std::vector<std::uint16_t>& key = {},
               const char* name = "Mevo_Pupils") {
    return [=](Stream& stream) {
        Start(stream, 1, 0);
        Table(stream, name, 0, columns, key);
        Finish(stream, 0);
    };
}

// One row of one table, made of these parts.
template<class... Parts>
Way Told_Row(const Column& column, Parts... parts) {
    return [=](Stream& stream) {
        One_Table(stream, 1, {column});
        stream.Put_Record(Record::Row);
        (stream.Put(parts), ...);
        Finish(stream, 1);
    };
}

// Half of the rows, and then something else.
Way Half_Told(const std::function<void()>& then) {
    return [=](Stream& stream) {
        Pupils(stream, 2, {"AAA"});
        stream.Flush();
        then();
    };
}

const std::map<std::string, Way> Ways = {
    // Sound, but like none of the genuine files.
    {"twins", Told_Rows(4, {"AAA", "BBB", "AAA", "CCC"}, 4)},
    // Unsound.
    {"endless",
     [](Stream& stream) {
         One_Table(stream, 4'000'000'000);
         for (;;) {
             stream.Put_Record(Record::Row);
             Text(stream, "");
             Text(stream, std::string(100'000, 'x'));
         }
     }},
    {"silent", Half_Told([] { std::this_thread::sleep_for(std::chrono::hours(1)); })},
    {"crashing", Half_Told([] { std::abort(); })},
    {"one row less", Told_Rows(2, {"AAA"}, 1)},
    {"one row more", Told_Rows(1, {"AAA", "BBB"}, 1)},
    {"without an end",
     [](Stream& stream) {
         Pupils(stream, 1, {"AAA"});
         End_Table(stream, 1);
     }},
    {"long claim", Told_Row({"StudentCode"}, Value_Tag::Text, std::uint32_t{0xffffffff})},
    {"no such value", Told_Row({"StudentCode"}, std::uint8_t{99})},
    {"no such key", Told_Table(Pupil, {7})},
    {"no columns", Told_Table({})},
    {"no name", Told_Table(Pupil, {}, "")},
    {"no column name", Told_Table({{"StudentCode"}, {""}})},
    {"impossible date", Told_Row({"DOB", Column_Type::Date, 8}, Value_Tag::Date, 1e300)},
    {"two tables of a name",
     [](Stream& stream) {
         Start(stream, 2, 0);
         for (int i = 0; i < 2; ++i) {
             Table(stream, "Mevo_Pupils", 0, Pupil);
             End_Table(stream, 0);
         }
         stream.Put_Record(Record::End);
     }},
    {"a table too few",
     [](Stream& stream) {
         Start(stream, 0, 0, "Mevo_Means");
         stream.Put_Record(Record::End);
     }},
    {"noise",
     [](Stream& stream) {
         for (int i = 0; i < 100'000; ++i)
             stream.Put(static_cast<std::uint8_t>(i * 7919 >> 3));
     }},
    {"nothing", [](Stream&) {}},
};

} // namespace

int main() {
#ifdef _WIN32
    _setmode(_fileno(stdout), _O_BINARY);
#endif
    const char* way = std::getenv("MEVO_ODD_READER");
    Stream stream;
    Ways.at(way ? way : "")(stream);
    stream.Flush();
    return 0;
}
