#pragma once

#include <QDateTime>

namespace basics {

// Completed years up to now; negative for a date that is still to come.
qint16 Whole_Years_Since(const QDateTime& date, const QDateTime& now);

// Completed months beyond the completed years, 0 to 11. A pupil born on the 31st passes a month only on a
// 31st; a date in the future gives 0.
qint16 Months_Part_Since(const QDateTime& date, const QDateTime& now);

// In completed months; negative for a date that is still to come.
qint16 Age_In_Months(const QDateTime& date, const QDateTime& now);
qint16 Age_In_Months(QDate date, QDate now);

} // namespace basics
