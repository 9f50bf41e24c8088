#include "platform/basics/dates.h"

#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace basics {

constexpr int Two_Digit_Year_Pivot = 30;

static int Full_Year(const QString& year) {
    const int number = year.toInt();
    if (year.size() > 2) return number;
    return number < Two_Digit_Year_Pivot ? 2000 + number : 1900 + number;
}

std::optional<QDateTime> Stored_Date(const QString& text) {
    static const QRegularExpression day_first(
        uR"(^\s*(\d{1,2})[/.\-](\d{1,2})[/.\-](\d{4}|\d{2})(?:[ T](\d{1,2}:\d{2}(?::\d{2})?).*)?\s*$)"_s);
    static const QRegularExpression year_first(
        uR"(^\s*(\d{4})-(\d{1,2})-(\d{1,2})(?:[ T](\d{1,2}:\d{2}(?::\d{2})?).*)?\s*$)"_s);

    QDate date;
    QString time;
    if (const auto match = day_first.match(text); match.hasMatch()) {
        date = QDate(Full_Year(match.captured(3)), match.captured(2).toInt(), match.captured(1).toInt());
        time = match.captured(4);
    } else if (const auto iso = year_first.match(text); iso.hasMatch()) {
        date = QDate(iso.captured(1).toInt(), iso.captured(2).toInt(), iso.captured(3).toInt());
        time = iso.captured(4);
    }
    if (!date.isValid()) return std::nullopt;
    const QTime of_day = time.isEmpty()
                             ? QTime(0, 0)
                             : QTime::fromString(time, time.count(u':') == 2 ? u"H:mm:ss"_s : u"H:mm"_s);
    return QDateTime(date, of_day.isValid() ? of_day : QTime(0, 0), Qt::UTC);
}

QString Date_Text(const QDateTime& date) {
    const QString day = date.toString(u"dd/MM/yyyy"_s);
    return date.time() == QTime(0, 0) ? day : day + date.toString(u" HH:mm:ss"_s);
}

} // namespace basics
