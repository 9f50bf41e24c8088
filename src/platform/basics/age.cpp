#include "platform/basics/age.h"

namespace basics {

// The date's day and month in another year; the 29th of February becomes the 1st of March where it is
// missing.
static QDate Anniversary(const QDate& date, int year) {
    return QDate(year, date.month(), 1).addDays(date.day() - 1);
}

qint16 Whole_Years_Since(const QDateTime& date, const QDateTime& now) {
    const int years = now.date().year() - date.date().year();
    const bool still_to_come = now.date() < Anniversary(date.date(), now.date().year());
    return static_cast<qint16>(still_to_come ? years - 1 : years);
}

qint16 Months_Part_Since(const QDateTime& date, const QDateTime& now) {
    const QDate from = date.date();
    const QDate to = now.date();
    int months = (to.year() - from.year()) * 12 + to.month() - from.month();
    if (from.day() > to.day()) --months;
    return static_cast<qint16>(months < 0 ? 0 : months % 12);
}

qint16 Age_In_Months(const QDateTime& date, const QDateTime& now) {
    return static_cast<qint16>(Whole_Years_Since(date, now) * 12 + Months_Part_Since(date, now));
}

} // namespace basics
