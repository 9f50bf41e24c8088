#pragma once

#include "platform/database/engine_handle.h"

#include <QString>
#include <QVariantList>
#include <map>

namespace sample_data {

// Gives a statement's place holder, counted from 1, a value; an invalid one is NULL.
void Bind(database::Engine_Statement& statement, int place, const QVariant& value);

// A database built in memory and written to disk in one piece: no journal ever stands beside the
// file, and a failure leaves an older file of the same name as it was.
class Memory_Database {
public:
    Memory_Database();

    void Execute(const QString& statement);
    // One value a column, in the table's order; an invalid value stores NULL.
    void Insert(const QString& table, const QVariantList& values);
    void Save_As(const QString& file);

private:
    database::Engine_Statement& Insert_Statement(const QString& table, qsizetype values);

    database::Engine_Handle engine;
    std::map<QString, database::Engine_Statement> insert_statements; // by table
};

} // namespace sample_data
