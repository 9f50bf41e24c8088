#pragma once

#include <QByteArray>
#include <QString>

namespace database {

// What can be told about a database file by its name or its first bytes. `file` is a native, absolute path.
//
// Those that are given the name open and close the file. On POSIX systems that drops the locks which this
// process holds on it, so they are asked only while no connection of the process has it open.

// How many bytes of a file the questions below want.
inline constexpr int Header_Size = 100;

// Whether the path, with the ending of its journal, is longer than the engine takes. The system takes longer
// ones.
bool Is_Path_Too_Long(const QString& file);

// Throws a run-time error that says what the file is instead of a database: missing, a folder, a Jet file ...
void Refuse_What_Is_No_Database(const QString& file);

bool Begins_A_Database(const QByteArray& header);

// Whether the file says of itself that it is written through a log beside it.
bool Has_Write_Ahead_Log(const QByteArray& header);
bool Has_Write_Ahead_Log(const QString& file);

// Whether the file begins as a database does. False for a missing one.
bool Looks_Like_A_Database(const QString& file);

} // namespace database
