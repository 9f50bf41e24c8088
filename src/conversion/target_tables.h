#pragma once

#include "conversion/jet_source.h"

#include <QDateTime>
#include <QString>
#include <QStringList>
#include <optional>

namespace conversion {

// How a table of a Jet file is to stand in the converted database. Names keep the spelling of the file, since
// the program tells an older file by it; types are the program's own wherever it knows the column.
struct Target_Table {
    QString name;
    QStringList columns;
    QStringList declarations; // a declared type a column
    QStringList key;          // kept as the primary key; empty for none
    QString order_by;         // a column that the rows are to rise by; empty to leave them as they come
};
Target_Table Target_Of(const Source_Table& source);
// The same without its key, for rows that aren't unique by it.
Target_Table Without_Key(const Source_Table& source);
QString Create_Statement(const Target_Table& table);

// A date of the file; none where no calendar has that day.
std::optional<QDateTime> Date_Of(double days);

} // namespace conversion
