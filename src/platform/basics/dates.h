#pragma once

#include <QDateTime>
#include <QString>
#include <optional>

namespace basics {

// Reads a date in any form that the suite's modules have left in a file: dd/mm/yyyy, dd/mm/yy (30 to 99
// are 1930 to 1999), also with "-" or "." between, and yyyy-mm-dd, each with or without a time of day.
std::optional<QDateTime> Stored_Date(const QString& text);

// A stored date's text as Date_Text gives it; what is no date comes back as it is.
QString Stored_Date_Text(const QString& text);

// Whether the text is a day as Day_Text gives it, and which; an invalid date for any other text.
bool Is_Date_Text(QStringView text);
QDate Written_Day(QStringView text);

// A date of the years 1 to 9999 as text: dd/mm/yyyy, with the time of day behind it unless it is midnight.
QString Date_Text(const QDateTime& date);

// Its day alone, dd/mm/yyyy.
QString Day_Text(QDate date);

} // namespace basics
