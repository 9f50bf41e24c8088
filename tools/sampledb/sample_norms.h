#pragma once

#include "sampledb/memory_database.h"

namespace sample_data {

// The sixteen norm tables and the population means.
void Fill_Norms(Memory_Database& database, quint32 seed);

} // namespace sample_data
