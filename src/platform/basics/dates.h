#pragma once

#include <QDateTime>
#include <QString>
#include <optional>

namespace basics {

// Reads a date in any form that the suite's modules have left in a file: dd/mm/yyyy, dd/mm/yy (30 to 99
// are 1930 to 1999), also with "-" or "." between, and yyyy-mm-dd, each with or without a time of day.
std::optional<QDateTime> Stored_Date(const QString& text);

// Whether the text is just what Date_Text makes of the date that it holds.
bool Is_Date_Text(QStringView text);

// A date of the years 1 to 9999 as text: dd/mm/yyyy, with the time of day behind it unless it is midnight.
QString Date_Text(const QDateTime& date);

// Its day alone, dd/mm/yyyy.
QString Day_Text(QDate date);

} // namespace basics
