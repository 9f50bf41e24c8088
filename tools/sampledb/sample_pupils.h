#pragma once

#include "sampledb/memory_database.h"
#include "sampledb/sample_data.h"

#include <QDate>
#include <QStringList>

namespace sample_data {

int Completed_Months(QDate from, QDate to);

// The pupils and their rows in the nine data tables. The first dozen show, one each, the states that
// a database can hold a pupil in; the rest are drawn at random.
void Fill_Pupils(Memory_Database& database, const QStringList& groups, const Options& options);

} // namespace sample_data
