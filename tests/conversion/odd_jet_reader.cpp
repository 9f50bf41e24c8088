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
        stream.Put_Record(Record::Table_End);
        stream.Put(std::uint32_t{0});
    }
}

void Text(Stream& stream, const std::string& text) {
    stream.Put_Value(Value_Tag::Text, text);
}

void Finish(Stream& stream, std::uint32_t rows) {
    stream.Put_Record(Record::Table_End);
    stream.Put(rows);
    stream.Put_Record(Record::End);
}

const std::vector<Column> Pupil = {{"StudentCode"}, {"Surname"}};

void Pupils(Stream& stream, std::uint32_t told, const std::vector<std::string>& codes) {
    Start(stream, 1, told);
    Table(stream, "Mevo_Pupils", told, Pupil);
    for (const std::string& code : codes) {
        stream.Put_Record(Record::Row);
        Text(stream, code);
        Text(stream, "Surname of " + code);
    }
}

// ---- sound, but like none of the genuine files

void Twins(Stream& stream) {
    Pupils(stream, 4, {"AAA", "BBB", "AAA", "CCC"});
    Finish(stream, 4);
}

// ---- unsound

void Endless(Stream& stream) {
    Start(stream, 1, 4'000'000'000);
    Table(stream, "Mevo_Pupils", 4'000'000'000, Pupil);
    for (;;) {
        stream.Put_Record(Record::Row);
        Text(stream, "");
        Text(stream, std::string(100'000, 'x'));
    }
}

void Silent(Stream& stream) {
    Pupils(stream, 2, {"AAA"});
    stream.Flush();
    std::this_thread::sleep_for(std::chrono::hours(1));
}

void Crashing(Stream& stream) {
    Pupils(stream, 2, {"AAA"});
    stream.Put_Record(Record::Row);
    stream.Flush();
    std::abort();
}

void One_Row_Less(Stream& stream) {
    Pupils(stream, 2, {"AAA"});
    Finish(stream, 1);
}

void One_Row_More(Stream& stream) {
    Pupils(stream, 1, {"AAA", "BBB"});
    Finish(stream, 1);
}

void Without_An_End(Stream& stream) {
    Pupils(stream, 1, {"AAA"});
    stream.Put_Record(Record::Table_End);
    stream.Put(std::uint32_t{1});
}

void Long_Claim(Stream& stream) {
    Pupils(stream, 1, {});
    stream.Put_Record(Record::Row);
    stream.Put(Value_Tag::Text);
    stream.Put(std::uint32_t{0xffffffff});
}

void No_Such_Value(Stream& stream) {
    Pupils(stream, 1, {});
    stream.Put_Record(Record::Row);
    stream.Put(std::uint8_t{99});
}

void No_Such_Key(Stream& stream) {
    Start(stream, 1, 0);
    Table(stream, "Mevo_Pupils", 0, Pupil, {7});
    Finish(stream, 0);
}

void No_Columns(Stream& stream) {
    Start(stream, 1, 0);
    Table(stream, "Mevo_Pupils", 0, {});
    Finish(stream, 0);
}

void No_Name(Stream& stream) {
    Start(stream, 1, 0);
    Table(stream, "", 0, Pupil);
    Finish(stream, 0);
}

void No_Column_Name(Stream& stream) {
    Start(stream, 1, 0);
    Table(stream, "Mevo_Pupils", 0, {{"StudentCode"}, {""}});
    Finish(stream, 0);
}

void Impossible_Date(Stream& stream) {
    Start(stream, 1, 1);
    Table(stream, "Mevo_Pupils", 1, {{"DOB", Column_Type::Date, 8}});
    stream.Put_Record(Record::Row);
    stream.Put(Value_Tag::Date);
    stream.Put(1e300);
    Finish(stream, 1);
}

void Two_Tables_Of_A_Name(Stream& stream) {
    Start(stream, 2, 0);
    for (int i = 0; i < 2; ++i) {
        Table(stream, "Mevo_Pupils", 0, Pupil);
        stream.Put_Record(Record::Table_End);
        stream.Put(std::uint32_t{0});
    }
    stream.Put_Record(Record::End);
}

void A_Table_Too_Few(Stream& stream) {
    Start(stream, 0, 0, "Mevo_Means");
    stream.Put_Record(Record::End);
}

void Noise(Stream& stream) {
    for (int i = 0; i < 100'000; ++i)
        stream.Put(static_cast<std::uint8_t>(i * 7919 >> 3));
}

void Nothing(Stream&) {
}

} // namespace

int main() {
    const std::map<std::string, std::function<void(Stream&)>> ways = {
        {"twins", Twins},
        {"endless", Endless},
        {"silent", Silent},
        {"crashing", Crashing},
        {"one row less", One_Row_Less},
        {"one row more", One_Row_More},
        {"without an end", Without_An_End},
        {"long claim", Long_Claim},
        {"no such value", No_Such_Value},
        {"no such key", No_Such_Key},
        {"no columns", No_Columns},
        {"no name", No_Name},
        {"no column name", No_Column_Name},
        {"impossible date", Impossible_Date},
        {"two tables of a name", Two_Tables_Of_A_Name},
        {"a table too few", A_Table_Too_Few},
        {"noise", Noise},
        {"nothing", Nothing},
    };
    const char* way = std::getenv("MEVO_ODD_READER");
    Stream stream;
    ways.at(way ? way : "")(stream);
    stream.Flush();
    return 0;
}
