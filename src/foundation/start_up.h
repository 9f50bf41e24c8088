#pragma once

#include "foundation/access_holder.h"
#include "foundation/installation.h"
#include "platform/desktop/ports.h"

namespace foundation {

// The names of a school's two databases, which lie in one folder.
inline constexpr QLatin1StringView Working_File("Mevo05Data.mdb");
inline constexpr QLatin1StringView Template_File("Mevo05EmptyDatabase.mdb");

// Where they lie unless a share is named, below the folder for all users' application data; ends in a
// backslash.
QString Standard_Folder(const QString& all_users_folder);

// The background form: it finds the database, brings it to the present version, reads whose it is, and
// then stays behind the pages until the program ends. It is never drawn.
class Form8 {
public:
    Form8(desktop::Platform& platform, Installation& installation);

    void Load();
    // Sets all paths and the connection string. Looks into no database.
    void Find_Database(const QString& program_folder);
    // All of start-up up to the first page. A database that can't be opened is an unhandled run-time error.
    void Timer1_Timer(const QString& program_folder);

    // Finds the folder for all users' application data and sets the paths from it, or ends the program.
    void Find_CommonAppData();

private:
    desktop::Platform& platform;
    Installation& installation;
};

// The value of a key of an initialisation file; the file's own name if the key isn't there, so that a missing
// file never looks like a key that was left empty on purpose.
QString Get_Ini_String(desktop::Platform& platform, const QString& file, const QString& section,
                       const QString& key);

// Sets the three paths from product.ini. "SET": they stand; "BLANK": no share is named, or the one named
// holds no template (the user was warned); "ERROR": it failed, the user was told.
QString Read_Product_Ini(desktop::Platform& platform, Installation& installation);

// Reads the row of this product; the last one wins. False if there is none.
bool Read_Customer_Details(desktop::Platform& platform, Installation& installation);
bool Read_Customer_Details(Access_Holder& holder, Installation& installation);

} // namespace foundation
