#pragma once

#include "sampledb/memory_database.h"

#include <QDate>
#include <QStringList>

namespace sample_data {

int Completed_Months(QDate from, QDate to);

// The pupils and their rows in the nine data tables. The first dozen show, one each, the states that
// a database can hold a pupil in; the rest are drawn at random.
void Fill_Pupils(Memory_Database& database, int count, const QStringList& groups, quint32 seed);

} // namespace sample_data
