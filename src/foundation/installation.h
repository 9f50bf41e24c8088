#pragma once

#include "platform/basics/value.h"

#include <QString>

namespace foundation {

// What start-up finds out and every page reads: where things lie, and whose database it is. One lives for
// the whole process.
struct Installation {
    QString App_Path;              // the program's folder, without a backslash at its end
    QString Database_Path;         // the working database, also while an archive is in view
    QString Empty_Database_Path;   // norms and no pupils; what a clean start begins with
    QString Archive_Folder;        // offered by the archive dialogs
    QString Common_AppData_Path;   // set only when it was asked for
    QString Current_Database_Path; // the database in use: the working one, or an archive in view
    QString Connection_String;     // names the database in use; every query passes it
    bool Viewing_Mode = false;     // an archive is in view, to be read only
    bool Share_Is_Away = false;    // the settings name a share, and the databases aren't those of it

    basics::Value Admin_Password; // empty until read
    QString Product_Version;
    QString CustomerName;
    QString Institution; // heads every printout
};

// `database_path` is a full path; it may hold a semicolon.
QString Connection_String_For(const QString& database_path);
// The path of the database that a connection string names.
QString Database_Named_In(const QString& connection_string);

} // namespace foundation
