#pragma once

#include "support/sample_file.h"

#include <QString>
#include <QStringList>

namespace pupils {

// What lies in the tables, read by plain SQLite.

const QStringList& Data_Tables(); // the nine, one for each test

// A pupil's row: surname, forename, sex, date, group, password in quotes, listed, date as password, statuses,
// ages.
QString Stored_Pupil(const test_support::Sample_File& sample, const QString& code);

// The columns of a pupil's row that hold something; none if there is no row.
QStringList Filled_Columns(const test_support::Sample_File& sample, const QString& table,
                           const QString& code);

} // namespace pupils
