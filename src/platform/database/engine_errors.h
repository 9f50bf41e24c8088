#pragma once

#include "platform/basics/run_time_error.h"

struct sqlite3;

namespace database {

namespace errors = basics::errors;

// An error that the connection or recordset object itself raises, with ADO's description.
[[noreturn]] void Raise_Object_Error(int number, const QString& object);

// The engine's last error on this handle, as the data layer reports it.
[[noreturn]] void Raise_Engine_Error(sqlite3* engine, int result);

// Refuses an open file that is written through a log beside it and may not be changed: its log can't be
// ended, which the engine would report as a failure of the device.
void Refuse_Log_Of_Read_Only_File(sqlite3* engine);

// An error of the engine with a text of our own.
[[noreturn]] void Raise_Engine_Error(int number, const QString& description);

} // namespace database
