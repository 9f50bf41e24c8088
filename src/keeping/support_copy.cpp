#include "keeping/support_copy.h"

#include "foundation/installation.h"
#include "foundation/schema.h"
#include "platform/basics/dates.h"
#include "platform/basics/native_path.h"
#include "platform/database/connection.h"
#include "platform/database/files/file_engine.h"
#include "platform/database/files/new_file.h"
#include "platform/database/files/safe_copy.h"
#include "platform/database/recordset.h"

#include <QHash>
#include <algorithm>

using namespace Qt::StringLiterals;

namespace keeping {
namespace {

using database::Engine_Statement;
using database::Quoted;

struct Pupil_To_Hide {
    QString code;
    basics::Value born;
};

// In the order in which all pages list them, which the new names keep.
QList<Pupil_To_Hide> Pupils_In_Order(const QString& file) {
    database::Connection connection;
    connection.ConnectionString = foundation::Connection_String_For(file);
    connection.Open();
    database::Recordset rows;
    rows.Source = u"SELECT StudentCode, DOB FROM Mevo_Pupils ORDER BY Surname,Forename"_s;
    rows.Set_ActiveConnection(&connection);
    QList<Pupil_To_Hide> pupils;
    for (rows.Open(); !rows.Eof(); rows.MoveNext())
        pupils.append({rows.Fields(0).Value().Text_Or_Empty(), rows.Fields(1).Value()});
    return pupils;
}

class Hiding {
public:
    Hiding(const QString& file, const std::function<double()>& random)
        : engine(file, database::Access::Read_Write, 0), random(random) {}

    void Hide(const QList<Pupil_To_Hide>& pupils) {
        engine.Run(u"PRAGMA secure_delete = ON"_s);
        engine.Run(u"BEGIN IMMEDIATE"_s);
        Drop_What_Is_Unknown();
        int number = 0;
        for (const Pupil_To_Hide& pupil : pupils)
            Hide_Pupil(pupil, ++number);
        Hide_Rows_Without_A_Pupil(number);
        Hide_Groups();
        Hide_School();
        engine.Run(u"COMMIT"_s);
        database::Compact(engine);
    }

private:
    void Run(const QString& sql, const QStringList& values) {
        Engine_Statement statement(engine.Handle(), sql);
        int place = 0;
        for (const QString& value : values)
            statement.Bind_Text(++place, value.toUtf8());
        statement.Step();
    }

    void Drop_What_Is_Unknown() {
        QHash<QString, foundation::Table> known;
        for (const foundation::Table& table : foundation::Database_Tables())
            known.insert(table.name.toLower(), table);
        for (const QString& kind : {u"trigger"_s, u"view"_s, u"table"_s})
            for (const QString& name : engine.Run(
                     u"SELECT name FROM sqlite_master WHERE type = '%1' AND name NOT LIKE 'sqlite%'"_s.arg(
                         kind))) {
                const auto table = known.constFind(name.toLower());
                if (kind == "table"_L1 && table != known.cend())
                    Empty_Unknown_Columns(*table);
                else
                    engine.Run(u"DROP %1 %2"_s.arg(kind, Quoted(name)));
            }
    }

    void Empty_Unknown_Columns(const foundation::Table& table) {
        if (table.name.contains(u"Norms"_s)) return; // read by the place of their rows
        for (const QString& name :
             engine.Run(u"SELECT name FROM pragma_table_info('%1')"_s.arg(table.name))) {
            const bool known = std::any_of(table.columns.begin(), table.columns.end(),
                                           [&](const foundation::Column& column) {
                                               return column.name.compare(name, Qt::CaseInsensitive) == 0;
                                           });
            if (!known) engine.Run(u"UPDATE %1 SET %2 = NULL"_s.arg(table.name, Quoted(name)));
        }
    }

    static QString New_Code(int number) { return u"MEVO%1"_s.arg(number, 8, 10, QChar(u'0')); }

    void Give_Code(const QString& code, int number) {
        for (const foundation::Test_Tables& test : foundation::Tests_In_Order())
            Run(u"UPDATE %1 SET StudentCode = ? WHERE StudentCode = ?"_s.arg(test.data_table),
                {New_Code(number), code});
    }

    // By some weeks either way, and never by none.
    QString Moved(const basics::Value& born) {
        constexpr int weeks = 6;
        constexpr int days_a_week = 7;
        const int days = 1 + static_cast<int>(random() * weeks * days_a_week);
        return basics::Date_Text(born.As_Date().addDays(random() < 0.5 ? -days : days));
    }

    void Hide_Pupil(const Pupil_To_Hide& pupil, int number) {
        Give_Code(pupil.code, number);
        Run(u"UPDATE Mevo_Pupils SET StudentCode = ?, Surname = 'Pupil', Forename = ?, Comment = NULL WHERE "
            "StudentCode = ?"_s,
            {New_Code(number), u"%1"_s.arg(number, 4, 10, QChar(u'0')), pupil.code});
        if (pupil.born.Is_Date())
            Run(u"UPDATE Mevo_Pupils SET DOB = ? WHERE StudentCode = ?"_s,
                {Moved(pupil.born), New_Code(number)});
        else
            Run(u"UPDATE Mevo_Pupils SET DOB = NULL WHERE StudentCode = ?"_s, {New_Code(number)});
    }

    // Somebody's who was deleted halfway, and a pupil without a code.
    void Hide_Rows_Without_A_Pupil(int number) {
        engine.Run(u"UPDATE Mevo_Pupils SET Surname = 'Pupil', Forename = '', DOB = NULL, Comment = NULL "
                   "WHERE StudentCode IS NULL"_s);
        for (const foundation::Test_Tables& test : foundation::Tests_In_Order())
            for (const QString& code :
                 engine.Run(u"SELECT StudentCode FROM %1 WHERE StudentCode NOT GLOB 'MEVO[0-9]*'"_s.arg(
                     test.data_table)))
                Give_Code(code, ++number);
    }

    // The default group's name is everybody's.
    void Hide_Groups() {
        if (!engine.Run(u"SELECT name FROM pragma_table_info('Mevo_Pupils')"_s).contains("Group_Class"_L1))
            return;
        int number = 0;
        for (const QString& name :
             engine.Run(u"SELECT Group_Name FROM Mevo_Groups WHERE Group_Name <> 'Universal' UNION SELECT "
                        "Group_Class FROM Mevo_Pupils WHERE Group_Class <> 'Universal'"_s)) {
            const QString hidden = u"Group %1"_s.arg(++number, 3, 10, QChar(u'0'));
            Run(u"UPDATE Mevo_Groups SET Group_Name = ? WHERE Group_Name = ?"_s, {hidden, name});
            Run(u"UPDATE Mevo_Pupils SET Group_Class = ? WHERE Group_Class = ?"_s, {hidden, name});
        }
        engine.Run(u"UPDATE Mevo_Groups SET XtraField = ''"_s);
        engine.Run(u"UPDATE Mevo_Pupils SET Password = 'word' WHERE Password <> ''"_s);
    }

    void Hide_School() {
        engine.Run(u"UPDATE Customer_Details SET CustomerName = '', Institution = 'Support copy', "
                   "Admin_Password = 'support'"_s);
    }

    database::File_Engine engine;
    const std::function<double()>& random;
};

} // namespace

void Write_Support_Copy(const QString& database, const QString& target,
                        const std::function<double()>& random) {
    database::New_File made(basics::Native_Target(target), basics::Native_Path(database));
    made.Flush_And_Close();
    database::Safe_Copies().Copy(database, made.Path());
    const QList<Pupil_To_Hide> pupils = Pupils_In_Order(made.Path());
    Hiding(made.Path(), random).Hide(pupils);
    made.Move_To_Its_Place();
}

} // namespace keeping
