#pragma once

#include "platform/database/engine.h"

#include <QString>
#include <memory>

namespace database {

class Kept_Engine;
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

    // Takes its engine from there when it opens, and leaves it there when it closes.
    void Keep_In(Kept_Engine& kept) { keeper = &kept; }

    void Open();
    void Close();
    bool Is_Open() const { return engine != nullptr; }

    // Runs a statement that returns no rows; gives the number of rows it affected.
    int Execute(const QString& sql);

    // Throws the error that a change of the file would meet; changes nothing.
    void Rehearse_A_Change() { Opened().Rehearse_A_Change(); }

    // The tables of the file: rows with one field, Table_Name.
    std::unique_ptr<Recordset> OpenSchema();

private:
    friend class Recordset;
    Engine& Opened() const;

    std::unique_ptr<Engine> engine;
    Kept_Engine* keeper = nullptr;
};

// A statement that returns no rows, set and run by its text alone.
class Command {
public:
    Connection* ActiveConnection = nullptr;
    QString CommandText;
    int Execute();
};

} // namespace database
