#pragma once

#include "platform/basics/value.h"

#include <QString>
#include <QStringList>
#include <memory>
#include <vector>

struct sqlite3;

namespace database {

class Recordset;

// A way into one database file, open only as long as its owner needs it.
//
// The file is opened as it is, never made; with a rollback journal and full synchronisation, since it lies
// on shares and is copied whole; and hardened, since other hands write it: no SQL that lies in the file
// (triggers, views) runs, nothing attaches, no query runs without end. A file in use is waited for up to
// ConnectionTimeout seconds.
class Connection {
public:
    Connection();
    ~Connection();
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;

    QString ConnectionString; // "Provider=...;Data Source=" and the file's name
    int ConnectionTimeout = 15;

    void Open();
    void Close();
    bool Is_Open() const { return engine != nullptr; }

    // Runs a statement that returns no rows; gives the number of rows it affected.
    int Execute(const QString& sql);

    // The tables of the file: rows with one field, Table_Name.
    std::unique_ptr<Recordset> OpenSchema();

private:
    friend class Recordset;

    struct Rows {
        QStringList names;
        std::vector<std::vector<basics::Value>> rows;
        bool returns_rows = false;
        int affected = 0;
    };
    // Runs one statement of the engine's own dialect with values for its place holders.
    Rows Run(const QString& engine_sql, const std::vector<basics::Value>& values = {});

    sqlite3* engine = nullptr;
    struct Watch; // ends a query that runs too long
    std::unique_ptr<Watch> watch;
};

// A statement that is set and run by its text alone.
class Command {
public:
    Connection* ActiveConnection = nullptr;
    QString CommandText;
    int Execute();
};

} // namespace database
