#pragma once

#include "platform/database/engine_handle.h"

#include <QString>
#include <QStringList>

namespace test_support {

// A database as any SQLite program reads it, past the program's own layers: one connection for as long as
// this lives. Each call throws what the engine says.
class Database_Beside {
public:
    explicit Database_Beside(const QString& file);

    QList<QStringList> Rows(const QString& sql) const; // a null text stands for NULL
    QStringList Column(const QString& sql) const;      // the first column; "NULL" for none
    QString Value(const QString& sql) const;           // the first cell; "NULL" for none, also without a row
    void Run(const QStringList& statements) const;

private:
    database::Engine_Handle engine;
};

} // namespace test_support
