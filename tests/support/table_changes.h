#pragma once

#include "support/sample_file.h"

#include <QMap>
#include <QStringList>

namespace test_support {

// All that lies in a database, read by plain SQLite: rows by "table key", each by its columns' names, the
// values quoted as SQL has them. The key is the pupil's code, else the row's number.
using Table_Rows = QMap<QString, QMap<QString, QString>>;

Table_Rows Read_Tables(const Sample_File& sample);

// What differs, a line each: "Mevo_Groups 2 Dob_as_pw: 0 -> 1", "Mevo_Pupils ABC: gone", and for a new row
// the columns that hold something: "Mevo_Groups 6: new, Dob_as_pw 0, Group_Name 'Oak'".
QStringList Changes(const Table_Rows& before, const Table_Rows& after);

} // namespace test_support
