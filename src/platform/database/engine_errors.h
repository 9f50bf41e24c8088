#pragma once

#include "platform/basics/run_time_error.h"

struct sqlite3;

namespace database {

// The numbers that callers of the data layer meet. Those of the objects are ADO's; the others are the
// results (HRESULTs) that its Jet provider gives for the same mishap.
namespace errors {
inline constexpr int No_Current_Record = 3021;
inline constexpr int Not_Updatable = 3251;
inline constexpr int No_Such_Field = 3265;
inline constexpr int Object_Closed = 3704;
inline constexpr int Object_Open = 3705;
inline constexpr int Connection_Invalid = 3709;
inline constexpr int Engine_Failure = -2147467259; // can't be opened, not a database, in use, damaged
inline constexpr int Syntax = -2147217900;         // a statement that isn't one
inline constexpr int Unknown_Name = -2147217904;   // a column that no table has: a parameter without value
inline constexpr int Unknown_Table = -2147217865;
inline constexpr int Refused = -2147217911; // read-only file, or an act that a statement may not do
inline constexpr int Constraint = -2147217873;
inline constexpr int Value_Too_Long = -2147217887;
inline constexpr int Row_Has_Gone = -2147217864;
inline constexpr int Took_Too_Long = -2147217871;
} // namespace errors

// An error that the connection or recordset object itself raises, with ADO's description.
[[noreturn]] void Raise_Object_Error(int number, const QString& object);

// The engine's last error on this handle, as the data layer reports it.
[[noreturn]] void Raise_Engine_Error(sqlite3* engine, int result);

// Refuses an open file that is written through a log beside it and may not be changed: the log can't be
// ended, of which the engine would only say that the device failed.
void Refuse_Log_Of_Read_Only_File(sqlite3* engine);

// An error of the engine with a text of our own.
[[noreturn]] void Raise_Engine_Error(int number, const QString& description);

} // namespace database
