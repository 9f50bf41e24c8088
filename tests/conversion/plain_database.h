#pragma once

#include <QString>
#include <QStringList>

namespace test_support {

// Rows of a database as any SQLite program reads them: a text a cell, "NULL" for none, and the empty text in
// quotes so that it differs from no text at all.
QList<QStringList> Plain_Rows(const QString& file, const QString& query);

// All tables of the one that aren't in the other in just the same way, a line each. Names are compared with
// their case, and rows in their order; a date counts as equal to each text that means its day, and in columns
// of dates an empty text as NULL.
QStringList Tables_That_Differ(const QString& expected, const QString& file);

} // namespace test_support
