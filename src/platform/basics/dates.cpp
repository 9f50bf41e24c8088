#include "platform/basics/dates.h"

#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace basics {

constexpr int Two_Digit_Year_Pivot = 30;

static int Full_Year(int two_digits) {
    return two_digits < Two_Digit_Year_Pivot ? 2000 + two_digits : 1900 + two_digits;
}

static int Full_Year(const QString& year) {
    return year.size() > 2 ? year.toInt() : Full_Year(year.toInt());
}

// Its letters stand for the digits of day, month and year.
struct Date_Form {
    QStringView letters;
    bool short_year;
};

constexpr Date_Form As_Written = {u"dd/mm/yyyy", false}; // as this program writes dates
constexpr Date_Form Usual_Forms[] = {As_Written, {u"dd/mm/yy", true}, {u"yyyy-mm-dd", false}};

struct Date_Numbers {
    int year = 0, month = 0, day = 0; // all 0 where there is no date
};

// None where the text isn't of that form, or names a day that isn't in the calendar.
static Date_Numbers Numbers_Of_Form(QStringView text, const Date_Form& form) {
    if (text.size() != form.letters.size()) return {};
    int day = 0, month = 0, year = 0;
    for (qsizetype i = 0; i < text.size(); ++i) {
        const char16_t letter = form.letters[i].unicode();
        int* const number = letter == u'd'   ? &day
                            : letter == u'm' ? &month
                            : letter == u'y' ? &year
                                             : nullptr;
        const unsigned digit = text[i].unicode() - u'0';
        if (number ? digit > 9 : text[i] != letter) return {};
        if (number) *number = *number * 10 + static_cast<int>(digit);
    }
    if (form.short_year) year = Full_Year(year);
    return QDate::isValid(year, month, day) ? Date_Numbers{year, month, day} : Date_Numbers{};
}

// Nearly all dates stand so, and a page that lists a school reads ten of them a pupil.
static QDate Usual_Date(QStringView text) {
    for (const Date_Form& form : Usual_Forms)
        if (const auto [year, month, day] = Numbers_Of_Form(text, form); day > 0) return {year, month, day};
    return {};
}

QDate Written_Day(QStringView text) {
    const auto [year, month, day] = Numbers_Of_Form(text, As_Written);
    return day > 0 ? QDate(year, month, day) : QDate();
}

bool Is_Date_Text(QStringView text) {
    return Written_Day(text).isValid();
}

QString Stored_Date_Text(const QString& text) {
    if (Is_Date_Text(text)) return text;
    if (const QDate usual = Usual_Date(text); usual.isValid()) return Day_Text(usual);
    const auto date = Stored_Date(text);
    return date ? Date_Text(*date) : text;
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
