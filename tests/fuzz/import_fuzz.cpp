// Feeds the import path with files that nobody would write: decoding, lines, fields, validation, dates, and
// the statements that a record is spliced into, as the engine would get them. CONTRIBUTING.md tells how it is
// run.

#include "foundation/schema.h"
#include "platform/basics/run_time_error.h"
#include "platform/database/jet_sql.h"
#include "pupils/import/import_file.h"
#include "pupils/import/pupil_fields.h"
#include "pupils/new_pupil.h"

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <sqlite3.h>

using namespace Qt::StringLiterals;

namespace place = pupils::place;

namespace {

void Require(bool holds, const char* rule) {
    if (holds) return;
    std::fputs(rule, stderr);
    std::abort();
}

// An empty database with the two tables that free text is spliced for.
sqlite3* Open_Engine() {
    sqlite3* engine = nullptr;
    Require(sqlite3_open(":memory:", &engine) == SQLITE_OK, "no engine");
    for (const foundation::Table& table : foundation::Database_Tables())
        if (table.name == "Mevo_Pupils"_L1 || table.name == "Mevo_Groups"_L1)
            Require(sqlite3_exec(engine, foundation::Create_Table_Statement(table).toUtf8().constData(),
                                 nullptr, nullptr, nullptr) == SQLITE_OK,
                    "no tables");
    return engine;
}

// Empty if the translator refuses it.
QByteArray Translated(const database::Lifted_Statement& statement) {
    try {
        return database::Translate_Jet(statement).sql.toUtf8();
    } catch (const basics::Run_Time_Error&) {
        return {};
    }
}

// Whatever was spliced in, the engine sees the one statement that was meant, or refuses it. It is run with
// its texts lifted out, which must change nothing but that.
void Require_One_Statement(const QString& jet, sqlite3* engine) {
    const database::Lifted_Statement lifted = database::Lift_Texts(jet);
    const QByteArray sql = Translated(lifted);
    Require(sql.isEmpty() == Translated({jet, {}, false}).isEmpty(), "lifting texts changes what is refused");
    if (sql.isEmpty()) return;
    sqlite3_stmt* statement = nullptr;
    const char* behind = nullptr;
    if (sqlite3_prepare_v2(engine, sql.constData(), static_cast<int>(sql.size()), &statement, &behind) ==
        SQLITE_OK) {
        Require(behind == sql.constData() + sql.size(), "something stands behind the statement");
        const QByteArray word = QByteArray(sqlite3_sql(statement)).left(6);
        Require(word == "INSERT" || word == "UPDATE", "another statement than the one meant");
        Require(sqlite3_bind_parameter_count(statement) == static_cast<int>(lifted.texts.size()),
                "a text without its place, or a place without its text");
    }
    sqlite3_finalize(statement);
}

template<class Statement>
void Try_Statement(Statement make, sqlite3* engine) {
    try {
        Require_One_Statement(make(), engine);
    } catch (const basics::Run_Time_Error&) {
        // Too long for a statement.
    }
}

void Check_Good_Record(QStringList& fields, qint16 line_number, sqlite3* engine) {
    Require(line_number > 0, "a record without a line");
    Require(fields.size() == 6 || fields.size() == 7, "the number of fields");
    Require(!fields[place::Surname].isEmpty() && !fields[place::Forename].isEmpty(), "a name is missing");
    Require(fields[place::Sex] == "M"_L1 || fields[place::Sex] == "F"_L1,
            "the gender isn't in its kept form");
    const QString& date = fields[place::Date_Of_Birth];
    Require(date.size() == 8 && date[2] == u'/' && date[5] == u'/', "the date isn't in its kept form");
    Require(pupils::Is_Import_Date(date) && pupils::Format_Import_Date(date) == date, "a kept date changes");

    Try_Statement([&] { return pupils::New_Pupil_Statement(fields, u"SMIJAN417QXZ"_s); }, engine);
    const QString& group = fields[place::Group];
    Try_Statement([&] { return pupils::Group_Test_Statement(group); }, engine);
    Try_Statement([&] { return pupils::New_Group_Statement(group); }, engine);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static sqlite3* const engine = Open_Engine();
    const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    const QString text = pupils::Decoded_Import_Text(bytes);

    qsizetype records = 0;
    for (pupils::Line_Reader reader(text); !reader.At_End();) {
        const QStringView line = reader.Next_Line();
        Require(!line.contains(u'\r') && !line.contains(u'\n'), "a line end within a line");
        records += line.isEmpty() ? 0 : 1;
    }

    pupils::Import_Pass pass;
    qsizetype good = 0;
    try {
        const pupils::Import_Steps steps{[&](QStringList& fields, qint16 line_number) {
                                             ++good;
                                             Check_Good_Record(fields, line_number, engine);
                                         },
                                         {}};
        pupils::Walk_Import_Text(text, pass, steps);
        Require(good + pass.error_count == records, "a record is neither good nor bad");
        Require(pass.error_text.count(u"\r\n"_s) == pass.error_count, "a bad record isn't told");
    } catch (const basics::Run_Time_Error& error) {
        Require(error.Number == basics::errors::Overflow, "another error than too many lines");
    }
    return 0;
}
