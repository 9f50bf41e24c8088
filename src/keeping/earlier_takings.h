#pragma once

#include "keeping/side_file.h"
#include "platform/database/connection.h"
#include "platform/database/recordset.h"

#include <QDateTime>
#include <QList>

namespace keeping {

// One test as a pupil took it once, kept when a retest was allowed. The answers lie in the companion, in a
// table of the data table's own name and columns.
struct Taking {
    qint64 id = 0;
    QString code;
    int test = 0; // in the order of scoring, from 1
    int status = 0;
    int age = 0;  // completed months
    QString date; // dd/mm/yyyy
    QDateTime kept_at;
};

// The companion: "Mevo05Kept.sqlite" beside a working database, and an archive's own name with ".kept.sqlite"
// in place of ".mdb". A native path.
QString Companion_Of(const QString& database);
Side_Look Look_At_Companion(const QString& database);

// Keeps what the database holds of the pupil's tests, in the companion, which is made where there is none. A
// taking that is kept already, answer by answer, isn't kept twice.
void Keep_Takings(const QString& database, const QString& code, const QList<int>& tests,
                  const QDateTime& when);

// The pupil's, or with an empty code all; by pupil and test, the oldest first. None where there is no
// companion.
QList<Taking> Takings_Of(const QString& database, const QString& code);

// The answers of one taking, read whole.
class Kept_Row {
public:
    Kept_Row(const QString& database, const Taking& taking);
    database::Recordset& Row() { return row; }

private:
    database::Connection connection;
    database::Recordset row;
};

// Takes these pupils' rows out of a companion, which is named itself, overwrites them and compacts the file.
// The number of takings removed; 0 where there is no such file.
int Remove_Takings(const QString& companion, const QStringList& codes);

// Puts a copy of one database's companion beside another, or takes away what stands there where the first has
// none.
void Copy_Companion(const QString& from_database, const QString& to_database);
// The same, and what was beside the first isn't there any more.
void Set_Companion_Aside(const QString& from_database, const QString& to_database);

} // namespace keeping
