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

// Nearly all dates stand as dd/mm/yyyy, and a page that lists a school reads ten of them a pupil.
static QDate Usual_Date(const QString& text) {
    constexpr QStringView form = u"00/00/0000";
    if (text.size() != form.size()) return {};
    for (qsizetype i = 0; i < form.size(); ++i) {
        const bool is_digit = text[i] >= u'0' && text[i] <= u'9';
        if (form[i] == u'0' ? !is_digit : text[i] != form[i]) return {};
    }
    const auto number = [&text](qsizetype at, qsizetype digits) {
        int sum = 0;
        for (qsizetype i = at; i < at + digits; ++i)
            sum = sum * 10 + (text[i].unicode() - u'0');
        return sum;
    };
    return {number(6, 4), number(3, 2), number(0, 2)};
}

std::optional<QDateTime> Stored_Date(const QString& text) {
    if (const QDate usual = Usual_Date(text); usual.isValid()) return QDateTime(usual, QTime(0, 0), Qt::UTC);
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

// Written by hand for the same reason as it is read by hand.
QString Day_Text(QDate date) {
    QString text = u"00/00/0000"_s;
    QChar* characters = text.data();
    const auto put = [characters](int number, int last) {
        for (int at = last; number > 0; number /= 10, --at)
            characters[at] = QChar(u'0' + number % 10);
    };
    put(date.day(), 1);
    put(date.month(), 4);
    put(date.year(), 9);
    return text;
}

QString Date_Text(const QDateTime& date) {
    const QString day = Day_Text(date.date());
    return date.time() == QTime(0, 0) ? day : day + date.toString(u" HH:mm:ss"_s);
}

} // namespace basics
