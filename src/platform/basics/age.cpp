#include "platform/basics/age.h"

namespace basics {

namespace {

struct Day {
    explicit Day(QDate date) { date.getDate(&year, &month, &day); }
    int year = 0, month = 0, day = 0;
};

// Whether the day of this month comes later in the year `to`; the 29th of February is the 1st of March there
// where it is missing.
bool Is_Still_To_Come(const Day& from, const Day& to) {
    const bool is_missing = from.month == 2 && from.day == 29 && !QDate::isLeapYear(to.year);
    const int month = is_missing ? 3 : from.month;
    const int day = is_missing ? 1 : from.day;
    return to.month < month || (to.month == month && to.day < day);
}

qint16 Whole_Years(const Day& from, const Day& to) {
    const int years = to.year - from.year;
    return static_cast<qint16>(Is_Still_To_Come(from, to) ? years - 1 : years);
}

qint16 Months_Part(const Day& from, const Day& to) {
    int months = (to.year - from.year) * 12 + to.month - from.month;
    if (from.day > to.day) --months;
    return static_cast<qint16>(months < 0 ? 0 : months % 12);
}

} // namespace

qint16 Whole_Years_Since(const QDateTime& date, const QDateTime& now) {
    return Whole_Years(Day(date.date()), Day(now.date()));
}

qint16 Months_Part_Since(const QDateTime& date, const QDateTime& now) {
    return Months_Part(Day(date.date()), Day(now.date()));
}

qint16 Age_In_Months(QDate date, QDate now) {
    const Day from(date);
    const Day to(now);
    return static_cast<qint16>(Whole_Years(from, to) * 12 + Months_Part(from, to));
}

qint16 Age_In_Months(const QDateTime& date, const QDateTime& now) {
    return Age_In_Months(date.date(), now.date());
}

} // namespace basics
