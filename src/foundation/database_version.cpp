#include "foundation/database_version.h"

#include "platform/basics/bounded.h"
#include "platform/basics/number_text.h"
#include "platform/database/connection.h"
#include "platform/database/recordset.h"

using namespace Qt::StringLiterals;

namespace foundation {

using basics::Bounded;
using desktop::Box_Style;

constexpr int Most_Names = 100; // of tables in a file, and of columns in Mevo_Pupils

static void Open_Here(database::Connection& connection, const Installation& installation,
                      database::Kept_Engine* kept = nullptr) {
    if (kept) connection.Keep_In(*kept);
    connection.ConnectionString = installation.Connection_String;
    connection.Open();
}

bool Groups_Table_Exists(const Installation& installation, database::Kept_Engine* kept) {
    database::Connection connection;
    Open_Here(connection, installation, kept);
    const auto schema = connection.OpenSchema();

    Bounded<QString, Most_Names> names;
    int count = 0;
    bool met = false;
    for (; !schema->Eof(); schema->MoveNext()) {
        const QString name = schema->Fields(u"Table_Name"_s).Value().As_Text();
        if (name.startsWith("MSys"_L1)) continue;
        names[++count] = name;
        met |= name == "Mevo_Groups"_L1; // in this spelling only, though the file itself would take any case
    }
    schema->Close();
    connection.Close();
    return met;
}

bool Pupils_Have_Dob_As_Pw(const Installation& installation, database::Kept_Engine* kept) {
    database::Connection connection;
    Open_Here(connection, installation, kept);
    database::Recordset pupils;
    pupils.LockType = database::Lock_Type::Optimistic;
    pupils.Set_ActiveConnection(&connection);
    pupils.Open_Table(u"Mevo_Pupils"_s);

    Bounded<QString, Most_Names> names;
    const int count = pupils.Field_Count();
    for (int i = 1; i <= count; ++i)
        names[i] = pupils.Fields(i - 1).Name();
    bool met = false;
    for (int i = 1; i <= count; ++i)
        met |= names[i] == "Dob_as_pw"_L1;
    pupils.Close();
    connection.Close();
    return met;
}

bool Database_Is_Version_51(const Installation& installation) {
    database::Kept_Engine kept;
    const database::Whole_Act act(kept);
    return Database_Is_Version_51(installation, kept);
}

bool Database_Is_Version_51(const Installation& installation, database::Kept_Engine& kept) {
    const bool groups = Groups_Table_Exists(installation, &kept);
    const bool passwords = Pupils_Have_Dob_As_Pw(installation, &kept);
    return groups && passwords;
}

static void Run_Conversion(const Installation& installation, desktop::Platform& platform) {
    static const QString statements[] = {
        u"create table Mevo_Groups (ID NUMBER, Group_Name TEXT(50), Dob_as_pw  NUMBER, Show_On_List NUMBER, XtraField TEXT(50))"_s,
        u"INSERT INTO [mevo_groups] ([ID], [Group_Name], [Dob_as_pw], [Show_On_List], [XtraField]) values (1, 'Universal', 0, 1, '')"_s,
        u"ALTER TABLE Mevo_Pupils ADD Show_Name NUMBER"_s,
        u"ALTER TABLE Mevo_Pupils ADD Group_class TEXT(50)"_s,
        u"ALTER TABLE Mevo_Pupils ADD [password] TEXT(50)"_s,
        u"ALTER TABLE Mevo_Pupils ADD Dob_as_pw NUMBER"_s,
        u"UPDATE Mevo_Pupils SET Show_name = 1"_s,
        u"UPDATE Mevo_Pupils SET Group_Class = 'Universal'"_s,
        u"UPDATE Mevo_Pupils SET Dob_as_pw = 1"_s,
    };
    database::Connection connection;
    Open_Here(connection, installation);
    database::Command command;
    command.ActiveConnection = &connection;
    platform.boxes.Ask(Box_Style::Information, desktop::Default_Box_Title(),
                       u"Will now convert your database to the new version 5.1"_s);
    for (const QString& statement : statements) {
        command.CommandText = statement;
        command.Execute();
    }
    connection.Close();
}

bool Convert_Database_To_51(const Installation& installation, desktop::Platform& platform) {
    try {
        Run_Conversion(installation, platform);
        return true;
    } catch (const basics::Run_Time_Error& error) {
        platform.boxes.Ask(Box_Style::Plain, desktop::Default_Box_Title(),
                           u"Error with updating to v5.1 database: "_s + error.Description +
                               u" - Error number "_s + basics::Plain_Number(error.Number));
        return false;
    }
}

} // namespace foundation
