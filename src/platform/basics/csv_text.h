#pragma once

#include <QString>
#include <QStringList>

namespace basics {

// One record of comma-separated values with its line end; a field with a comma, a quote or a line end in it
// is quoted.
QString Csv_Line(const QStringList& fields);

} // namespace basics
