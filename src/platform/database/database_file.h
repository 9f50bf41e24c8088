#pragma once

#include <QString>

namespace database {

// What can be told about a database file before the engine opens it. `file` is a native, absolute path.
//
// Both open and close the file. On POSIX systems that drops the locks which this process holds on it, so they
// are asked only while no connection of the process has it open.

// Whether the path, with the ending of its journal, is longer than the engine takes. The system takes longer
// ones.
bool Is_Path_Too_Long(const QString& file);

// Throws a run-time error that says what the file is instead of a database: missing, a folder, a Jet file ...
void Refuse_What_Is_No_Database(const QString& file);

// Whether the file says of itself that it is written through a log beside it.
bool Has_Write_Ahead_Log(const QString& file);

// Whether the file begins as a database does. False for a missing one.
bool Looks_Like_A_Database(const QString& file);

} // namespace database
