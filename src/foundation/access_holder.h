#pragma once

#include "platform/basics/run_time_error.h"
#include "platform/basics/value.h"
#include "platform/database/connection.h"
#include "platform/database/kept_engine.h"
#include "platform/database/recordset.h"
#include "platform/desktop/ports.h"

#include <QString>
#include <memory>

namespace foundation {

// A code module's or page's way to the database: one connection and one recordset, both gone between uses,
// so that nothing is held open between the user's actions. A holder carries one query at a time.
//
// The calling order is ado_Open, as a rule ado_RSCount, reads and writes through Fields, ado_Close.
class Access_Holder {
public:
    explicit Access_Holder(desktop::Platform& platform) : platform(platform) {}

    int ConnectionTimeout = 15; // seconds to wait for a file in use

    // Opens the query and stands on its first row. An error is put to the user with Abort, which ends the
    // program, Retry, which repeats the failing step, and Ignore, which goes on behind it.
    // lock_mode is "ReadOnly", "Optimistic", "Pessimistic" or "BatchOptimistic"; any other word leaves the
    // default lock in force. A list that reads few columns of all rows names them: see Recordset::Columns.
    void ado_Open(const QString& connection_string, const QString& sql, const QString& lock_mode,
                  const QStringList& columns = {});

    // Sets count to the number of rows and goes back to the first; no row gives 0. Silent: on any other
    // error, and beyond 32767 rows, count stays as it stood.
    void ado_RSCount(qint16& count);

    // Closes and releases both; harmless when they are closed already.
    void ado_Close();

    // Closes at once what is kept of the file for the next query: before the file is copied or replaced.
    void Let_Go() { kept.Let_Go(); }

    // Of an act that begins here and asks more than once: see there.
    database::Whole_Act Begin_Act() { return database::Whole_Act(kept); }
    // Before a box, and before the program looks at its events, within an act.
    void End_Shared_Lock() { kept.End_Shared_Lock(); }
    // For a connection of an act's own beside the holder's queries.
    database::Kept_Engine& Kept() { return kept; }

    // The open recordset. Error 91 if Ignore left none.
    database::Recordset& Rows();
    basics::Value Field(const QString& name) { return Rows().Fields(name).Value(); }

protected:
    // Runs one step; an error is put to the user with Abort, Retry and Ignore.
    template<class Step_Of_Work>
    void Step(const Step_Of_Work& step);
    bool Ask_About(const basics::Run_Time_Error& error); // whether to try again

    desktop::Platform& platform;
    database::Kept_Engine kept; // for the next query of the same user action
    std::unique_ptr<database::Connection> connection;
    std::unique_ptr<database::Recordset> recordset;
};

// For the Main menu, which only counts.
class Counting_Access_Holder : public Access_Holder {
public:
    using Access_Holder::Access_Holder;
    // Opens the query, counts its rows and closes it; the rows can't be read.
    void ado_Open_Alternative(const QString& connection_string, const QString& sql, const QString& lock_mode);
    qint16 row_count = 0;
};

} // namespace foundation
