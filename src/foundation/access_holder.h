#pragma once

#include "platform/basics/value.h"
#include "platform/database/connection.h"
#include "platform/database/recordset.h"
#include "platform/desktop/ports.h"

#include <QString>
#include <functional>
#include <initializer_list>
#include <memory>
#include <vector>

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
    // default lock in force.
    void ado_Open(const QString& connection_string, const QString& sql, const QString& lock_mode);

    // Sets count to the number of rows and goes back to the first; no row gives 0. Silent: on any other
    // error, and beyond 32767 rows, count stays as it stood.
    void ado_RSCount(qint16& count);

    // Closes and releases both; harmless when they are closed already.
    void ado_Close();

    // While this connection is open, queries with the same connection string read through it instead of
    // opening one each: for the length of one user action, by the page that opened it. Null ends it.
    void Share(database::Connection* opened) { shared = opened; }

    // The open recordset. Error 91 if Ignore left none.
    database::Recordset& Rows();
    basics::Value Field(const QString& name) { return Rows().Fields(name).Value(); }

protected:
    desktop::Platform& platform;
    void Step(const std::function<void()>& step); // with Abort, Retry and Ignore
    database::Connection* Active() const { return in_use_shared ? shared : connection.get(); }
    std::unique_ptr<database::Connection> connection; // the holder's own
    database::Connection* shared = nullptr;
    bool in_use_shared = false;
    std::unique_ptr<database::Recordset> recordset;
};

// Lets holders share one open connection until the end of a block.
class Shared_Connection {
public:
    Shared_Connection(database::Connection& connection, std::initializer_list<Access_Holder*> holders)
        : holders(holders) {
        for (Access_Holder* holder : holders)
            holder->Share(&connection);
    }
    ~Shared_Connection() {
        for (Access_Holder* holder : holders)
            holder->Share(nullptr);
    }
    Shared_Connection(const Shared_Connection&) = delete;
    Shared_Connection& operator=(const Shared_Connection&) = delete;

private:
    std::vector<Access_Holder*> holders;
};

// The Main menu's holder has a count-only form beside the three.
class Counting_Access_Holder : public Access_Holder {
public:
    using Access_Holder::Access_Holder;
    // Opens the query, counts its rows and closes it; the rows can't be read.
    void ado_Open_Alternative(const QString& connection_string, const QString& sql, const QString& lock_mode);
    qint16 row_count = 0;
};

} // namespace foundation
