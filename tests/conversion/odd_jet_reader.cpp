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

void Whole(Stream& stream, std::int64_t number) {
    stream.Put(Value_Tag::Whole);
    stream.Put(number);
}

void Real(Stream& stream, Value_Tag tag, double number) {
    stream.Put(tag);
    stream.Put(number);
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

void Shuffled_Norms(Stream& stream) {
    Start(stream, 1, 3, "Karrel_Norms");
    Table(stream, "Karrel_Norms", 3,
          {{"Raw Score", Column_Type::Number, 4}, {"Age 4 Centile", Column_Type::Number, 4}});
    for (const int score : {10, 2, 1}) {
        stream.Put_Record(Record::Row);
        Whole(stream, score);
        Whole(stream, score * 3);
    }
    Finish(stream, 3);
}

void Norms_As_Texts(Stream& stream) {
    Start(stream, 1, 4, "Karrel_Norms");
    Table(stream, "Karrel_Norms", 4, {{"Raw Score"}, {"Age 4 Centile"}});
    for (const char* score : {"10", "2", "1"}) {
        stream.Put_Record(Record::Row);
        Text(stream, score);
        Text(stream, score);
    }
    stream.Put_Record(Record::Row);
    stream.Put(Value_Tag::Null);
    stream.Put(Value_Tag::Null);
    Finish(stream, 4);
}

void All_Types(Stream& stream) {
    Start(stream, 1, 2, "");
    Table(stream, "A school's \"own\" table", 2,
          {{"Year", Column_Type::Number, 4},
           {"Select", Column_Type::Text, 10},
           {"a \"b\"", Column_Type::Bytes, 0},
           {"When", Column_Type::Date, 8},
           {"Rate", Column_Type::Number, 8}},
          {0, 1});
    stream.Put_Record(Record::Row);
    Whole(stream, 9007199254740993); // no double has this value
    Text(stream, std::string("a\0b", 3));
    stream.Put_Value(Value_Tag::Bytes, std::string("\0\xff", 2));
    Real(stream, Value_Tag::Date, 38143.75);
    Real(stream, Value_Tag::Real, 0.1);
    stream.Put_Record(Record::Row);
    Whole(stream, -1);
    Text(stream, "");
    stream.Put(Value_Tag::Null);
    Real(stream, Value_Tag::Date, -1.25); // a quarter of a day behind the midnight of 29 December 1899
    stream.Put(Value_Tag::Null);
    Finish(stream, 2);
}

void Numbered_Pupils(Stream& stream) {
    Start(stream, 1, 2);
    Table(stream, "Mevo_Pupils", 2, {{"StudentCode", Column_Type::Number, 4}, {"DOB", Column_Type::Date, 8}});
    for (const int code : {12, 7}) {
        stream.Put_Record(Record::Row);
        Whole(stream, code);
        Real(stream, Value_Tag::Date, code);
    }
    Finish(stream, 2);
}

// The program's columns, in types that a school may have given them.
void Other_Types(Stream& stream) {
    Start(stream, 1, 1);
    Table(stream, "MEVO_PUPILS", 1,
          {{"studentcode"}, {"Group_Class", Column_Type::Text, 255}, {"Tolvens"}, {"DOB"}, {"Yoon"}});
    stream.Put_Record(Record::Row);
    Text(stream, "AAA");
    Text(stream, std::string(80, 'g'));
    Text(stream, "1");
    Text(stream, "3/4/2005");
    Text(stream, "");
    Finish(stream, 1);
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
    Real(stream, Value_Tag::Date, 1e300);
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
        {"shuffled norms", Shuffled_Norms},
        {"norms as texts", Norms_As_Texts},
        {"all types", All_Types},
        {"numbered pupils", Numbered_Pupils},
        {"other types", Other_Types},
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
