#include "conversion/new_database.h"

#include "conversion/refusal.h"
#include "foundation/schema.h"
#include "platform/basics/dates.h"

#include <sqlite3.h>

using namespace Qt::StringLiterals;

namespace conversion {

using jet_stream::Value_Tag;

New_Database::New_Database(const QString& file) : engine(file, Access::Read_Write) {
    engine.Run(foundation::Page_Size_Statement.toString());
    engine.Run(u"PRAGMA journal_mode = MEMORY"_s);
    engine.Run(u"PRAGMA synchronous = OFF"_s); // the whole file is written out before it gets its name
    engine.Run(u"PRAGMA locking_mode = EXCLUSIVE"_s);
    engine.Run(u"BEGIN"_s);
}

void New_Database::Begin_Table(const Source_Table& table) {
    source = table;
    target = Target_Of(source);
    summary.append({source.name});
    engine.Run(Create_Statement(target));
    Prepare_Insert();
}

void New_Database::Prepare_Insert() {
    insert = std::make_unique<Statement>(
        engine, u"INSERT INTO %1 VALUES (?%2)"_s.arg(Quoted(target.name),
                                                     u", ?"_s.repeated(target.columns.size() - 1)));
}

void New_Database::Bind(const Source_Row& row) {
    int place = 0;
    for (const Source_Value& value : row) {
        ++place;
        switch (value.tag) {
        case Value_Tag::Null:
            insert->Bind_Null(place);
            break;
        case Value_Tag::Whole:
            insert->Bind(place, value.whole);
            break;
        case Value_Tag::Real:
            insert->Bind(place, value.real);
            break;
        case Value_Tag::Text:
            insert->Bind_Text(place, value.bytes);
            break;
        case Value_Tag::Bytes:
            insert->Bind_Bytes(place, value.bytes);
            break;
        case Value_Tag::Date: {
            const std::optional<QDateTime> date = Date_Of(value.real);
            if (!date)
                throw Refusal(u"It is damaged: table %1 holds a date in %2 that no calendar has."_s.arg(
                    source.name, target.columns[place - 1]));
            insert->Bind_Text(place, basics::Date_Text(*date).toUtf8());
            break;
        }
        }
    }
}

// False where the row would break a key, which leaves all as it was.
static bool Is_Taken(const Engine& engine, Statement& insert) {
    const int result = sqlite3_step(insert.Get());
    const bool breaks_key = result == SQLITE_CONSTRAINT_PRIMARYKEY;
    if (!breaks_key) engine.Check(result);
    insert.Reset();
    return !breaks_key;
}

void New_Database::Take_Row(const Source_Row& row) {
    Bind(row);
    if (!Is_Taken(engine, *insert)) {
        Give_Up_Key();
        Bind(row);
        insert->Step();
        insert->Reset();
    }
    ++summary.last().read;
}

// A database without keys is allowed to hold two rows for one pupil. None may be lost.
void New_Database::Give_Up_Key() {
    insert.reset();
    Write_Anew(Without_Key(source));
    summary.last().lost_key = true;
    Prepare_Insert();
}

void New_Database::Write_Anew(const Target_Table& table) {
    const QString before = Quoted(table.name + u" as it came"_s);
    engine.Run(u"ALTER TABLE %1 RENAME TO %2"_s.arg(Quoted(table.name), before));
    target = table;
    engine.Run(Create_Statement(target));
    const QString order = target.order_by.isEmpty() ? u"rowid"_s : Quoted(target.order_by) + u", rowid"_s;
    engine.Run(u"INSERT INTO %1 SELECT * FROM %2 ORDER BY %3"_s.arg(Quoted(target.name), before, order));
    engine.Run(u"DROP TABLE "_s + before);
}

void New_Database::End_Table() {
    insert.reset();
    if (!target.order_by.isEmpty()) Write_Anew(target);
}

QList<Table_Summary> New_Database::Finish() {
    engine.Run(u"COMMIT"_s);
    Statement look_over(engine, u"PRAGMA integrity_check"_s);
    if (!look_over.Step() || look_over.Bytes(0) != "ok")
        throw Refusal(u"The converted database came out damaged."_s);
    for (Table_Summary& table : summary) {
        table.written = engine.Number(u"SELECT count(*) FROM "_s + Quoted(table.table));
        if (table.written != table.read)
            throw Refusal(u"Of table %1 %2 rows were read and %3 written."_s.arg(table.table)
                              .arg(table.read)
                              .arg(table.written));
    }
    return summary;
}

} // namespace conversion
