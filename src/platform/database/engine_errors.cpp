#include "platform/database/engine_errors.h"

#include <sqlite3.h>

using namespace Qt::StringLiterals;

namespace database {

static QString Object_Error_Description(int number) {
    switch (number) {
    case errors::No_Current_Record:
        return u"Either BOF or EOF is True, or the current record has been deleted. "
               "Requested operation requires a current record."_s;
    case errors::Not_Updatable:
        return u"Current Recordset does not support updating. This may be a limitation of the provider, "
               "or of the selected locktype."_s;
    case errors::No_Such_Field:
        return u"Item cannot be found in the collection corresponding to the requested name or ordinal."_s;
    case errors::Object_Closed:
        return u"Operation is not allowed when the object is closed."_s;
    case errors::Object_Open:
        return u"Operation is not allowed when the object is open."_s;
    case errors::Connection_Invalid:
        return u"The connection cannot be used to perform this operation. "
               "It is either closed or invalid in this context."_s;
    default:
        return u"Unknown error"_s;
    }
}

void Raise_Object_Error(int number, const QString& object) {
    throw basics::Run_Time_Error(number, u"ADODB."_s + object, Object_Error_Description(number));
}

void Raise_Engine_Error(int number, const QString& description) {
    throw basics::Run_Time_Error(number, u"Database engine"_s, description);
}

static int Number_Of(int result, const QString& message) {
    switch (result & 0xff) {
    case SQLITE_ERROR:
        if (message.startsWith("no such table"_L1)) return errors::Unknown_Table;
        if (message.startsWith("no such column"_L1)) return errors::Unknown_Name;
        return errors::Syntax;
    case SQLITE_AUTH:
    case SQLITE_PERM:
    case SQLITE_READONLY:
        return errors::Refused;
    case SQLITE_CONSTRAINT:
        return result == SQLITE_CONSTRAINT_CHECK ? errors::Value_Too_Long : errors::Constraint;
    case SQLITE_INTERRUPT:
        return errors::Took_Too_Long;
    default:
        return errors::Engine_Failure;
    }
}

static QString Description_Of(int result, const QString& message) {
    switch (result & 0xff) {
    case SQLITE_BUSY:
    case SQLITE_LOCKED:
        return u"Could not use the database; the file is locked by another user."_s;
    case SQLITE_NOTADB:
        return u"Unrecognized database format: the file is not a database."_s;
    case SQLITE_CORRUPT:
        return u"The database file is damaged ("_s + message + u")."_s;
    case SQLITE_FULL:
        return u"There isn't enough space left for the database file."_s;
    case SQLITE_READONLY:
        return u"The database file can't be changed; it is read-only."_s;
    case SQLITE_INTERRUPT:
        return u"The query took too long and was ended."_s;
    case SQLITE_CONSTRAINT:
        if (result == SQLITE_CONSTRAINT_CHECK)
            return u"The field is too small to accept the amount of data you attempted to add."_s;
        return message;
    default:
        return message;
    }
}

void Refuse_Log_Of_Read_Only_File(sqlite3* engine) {
    if (sqlite3_db_readonly(engine, "main") != 1) return;
    Raise_Engine_Error(
        errors::Engine_Failure,
        u"The database file is read-only and was left in write-ahead mode, which must be ended before it can be used. Allow it to be changed, or use a copy that may be."_s);
}

void Raise_Engine_Error(sqlite3* engine, int result) {
    const int extended = engine ? sqlite3_extended_errcode(engine) : result;
    const QString message = QString::fromUtf8(engine ? sqlite3_errmsg(engine) : sqlite3_errstr(result));
    const int shown = (extended & 0xff) == (result & 0xff) ? extended : result;
    Raise_Engine_Error(Number_Of(shown, message), Description_Of(shown, message));
}

} // namespace database
