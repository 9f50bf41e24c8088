#pragma once

#include <QString>
#include <QStringList>

namespace basics {

// One record of comma-separated values with its line end; a field with a comma, a quote or a line end in it
// is quoted.
QString Csv_Line(const QStringList& fields);

// ---- for spreadsheets

// The first character of a file: it tells a spreadsheet that the rest is UTF-8.
inline constexpr QChar Csv_Mark(0xFEFF);

// Where numbers have a decimal comma, a semicolon stands between the fields.
enum class Decimal_Mark { Point, Comma };

// A record whose first fields, so many, are texts whatever they read. A later one that reads as a number
// stays one, with the decimal mark; any other is a text too. No text is taken for a formula: before one that
// would be stands an apostrophe.
QString Spreadsheet_Line(const QStringList& fields, qsizetype texts, Decimal_Mark mark);

} // namespace basics
