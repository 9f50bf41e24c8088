#include "platform/basics/dates.h"

#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace basics {

constexpr int Two_Digit_Year_Pivot = 30;

static int Full_Year(int number, qsizetype digits) {
    if (digits > 2) return number;
    return number < Two_Digit_Year_Pivot ? 2000 + number : 1900 + number;
}

static int Full_Year(const QString& year) {
    return Full_Year(year.toInt(), year.size());
}

// Null where the text isn't of that form, whose letters stand for the digits of day, month and year.
static QDate Date_Of_Form(QStringView text, QStringView form) {
    if (text.size() != form.size()) return {};
    int day = 0, month = 0, year = 0;
    for (qsizetype i = 0; i < form.size(); ++i) {
        int* const number = form[i] == u'd'   ? &day
                            : form[i] == u'm' ? &month
                            : form[i] == u'y' ? &year
                                              : nullptr;
        const bool is_digit = text[i] >= u'0' && text[i] <= u'9';
        if (number ? !is_digit : text[i] != form[i]) return {};
        if (number) *number = *number * 10 + (text[i].unicode() - u'0');
    }
    return {Full_Year(year, form.count(u'y')), month, day};
}

constexpr QStringView Usual_Form = u"dd/mm/yyyy";

bool Is_Date_Text(QStringView text) {
    return Date_Of_Form(text, Usual_Form).isValid();
}

// Nearly all dates stand so, and a page that lists a school reads ten of them a pupil.
static QDate Usual_Date(QStringView text) {
    for (const QStringView form : {Usual_Form, QStringView(u"dd/mm/yy"), QStringView(u"yyyy-mm-dd")})
        if (const QDate date = Date_Of_Form(text, form); date.isValid()) return date;
    return {};
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
    QString text(10, Qt::Uninitialized);
    QChar* const characters = text.data();
    const auto put = [characters](int number, int first, int last) {
        for (int at = last; at >= first; number /= 10, --at)
            characters[at] = QChar(u'0' + number % 10);
    };
    int year = 0, month = 0, day = 0;
    date.getDate(&year, &month, &day);
    put(day, 0, 1);
    put(month, 3, 4);
    put(year, 6, 9);
    characters[2] = characters[5] = u'/';
    return text;
}

QString Date_Text(const QDateTime& date) {
    QString day = Day_Text(date.date());
    return date.time() == QTime(0, 0) ? day : day + date.toString(u" HH:mm:ss"_s);
}

} // namespace basics
