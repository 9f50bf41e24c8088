#pragma once

#include <QHash>
#include <QString>
#include <QVariantList>

struct sqlite3;
struct sqlite3_stmt;

namespace sample_data {

// Gives a statement's place holder, counted from 1, a value; an invalid one is NULL. The engine's result.
int Bind(sqlite3_stmt* statement, int place, const QVariant& value);

// A database built in memory and written to disk in one piece: no journal ever stands beside the
// file, and a failure leaves an older file of the same name as it was.
class Memory_Database {
public:
    Memory_Database();
    ~Memory_Database();
    Memory_Database(const Memory_Database&) = delete;
    Memory_Database& operator=(const Memory_Database&) = delete;

    void Execute(const QString& statement);
    // One value a column, in the table's order; an invalid value stores NULL.
    void Insert(const QString& table, const QVariantList& values);
    void Save_As(const QString& file);

private:
    sqlite3_stmt* Insert_Statement(const QString& table, qsizetype values);
    void Check(int result) const;

    sqlite3* database = nullptr;
    QHash<QString, sqlite3_stmt*> insert_statements;
};

} // namespace sample_data
