#include "pupils/import/source_dates.h"

#include "platform/basics/age.h"
#include "pupils/import/import_file.h"

#include <QDateTime>
#include <QRegularExpression>
#include <algorithm>

using namespace Qt::StringLiterals;

namespace pupils {

QString Words_Of(Date_Order order) {
    static const QString words[] = {u"not settled"_s, u"day first"_s, u"month first"_s, u"year first"_s};
    return words[int(order)];
}

namespace {

constexpr qsizetype Longest_Date = 60; // characters

std::optional<Source_Date> Made_Date(const QString& year, int month, const QString& day) {
    const QDate date(Full_Year(year), month, day.toInt());
    if (!date.isValid()) return {};
    return Source_Date{date, year.size() <= 2};
}

// Many exports have midnight behind each date.
QRegularExpression Form(const QString& date) {
    const QString time = uR"((?:[ T,]+\d{1,2}[:.]\d{2}(?:[:.]\d{2}(?:\.\d+)?)?(?: ?[AaPp]\.?[Mm]\.?)?)"
                         uR"((?:Z| ?[+\-]\d{2}:?\d{2})?)?)"_s;
    return QRegularExpression(u"\\A"_s + date + time + u"\\z"_s);
}

std::optional<Source_Date> By_Figures(const QRegularExpressionMatch& match, Date_Order order) {
    const QString one = match.captured(1), two = match.captured(3), three = match.captured(4);
    if (one.size() > 2) return three.size() > 2 ? std::nullopt : Made_Date(one, two.toInt(), three);
    switch (order) {
    case Date_Order::Day_First:
        return Made_Date(three, two.toInt(), one);
    case Date_Order::Month_First:
        return Made_Date(three, one.toInt(), two);
    case Date_Order::Year_First:
        return three.size() > 2 ? std::nullopt : Made_Date(one, two.toInt(), three);
    case Date_Order::Unsettled:
        break;
    }
    return {};
}

// Eight figures without anything between.
std::optional<Source_Date> By_Row_Of_Figures(const QString& figures, Date_Order order) {
    const bool year_in_front = figures.startsWith(u"19"_s) || figures.startsWith(u"20"_s);
    if (year_in_front)
        if (const auto date = Made_Date(figures.left(4), figures.mid(4, 2).toInt(), figures.right(2)))
            return date;
    if (order == Date_Order::Day_First)
        return Made_Date(figures.right(4), figures.mid(2, 2).toInt(), figures.left(2));
    if (order == Date_Order::Month_First)
        return Made_Date(figures.right(4), figures.left(2).toInt(), figures.mid(2, 2));
    return {};
}

std::optional<Source_Date> By_Spreadsheets_Count(const QString& figures) {
    constexpr int first = 20'000; // the year 1954
    constexpr int last = 60'000;
    const int days = figures.toInt();
    if (days < first || days > last) return {};
    return Source_Date{QDate(1899, 12, 30).addDays(days), false};
}

} // namespace

std::optional<Source_Date> Read_Source_Date(const QString& text, Date_Order order) {
    static const QRegularExpression figures =
        Form(uR"((\d{1,2}|\d{4})( ?[/.\-] ?| )(\d{1,2})\2(\d{4}|\d{1,2}))"_s);
    static const QRegularExpression day_and_word = Form(
        uR"((?:[A-Za-z]{3,9},? +)?(\d{1,2})(?:st|nd|rd|th)?[/.\- ]*([A-Za-z]{3,9})\.?[/.\- ,]*(\d{4}|\d{2}))"_s);
    static const QRegularExpression word_and_day = Form(
        uR"((?:[A-Za-z]{3,9},? +)?([A-Za-z]{3,9})\.?[/.\- ]*(\d{1,2})(?:st|nd|rd|th)?[/.\- ,]+(\d{4}|\d{2}))"_s);
    static const QRegularExpression row_of_figures(uR"(\A(\d{8}|\d{5})(?:\.0*)?\z)"_s);
    if (text.isEmpty() || text.size() > Longest_Date) return {};
    if (const auto match = figures.match(text); match.hasMatch()) return By_Figures(match, order);
    if (const auto match = row_of_figures.match(text); match.hasMatch()) {
        const QString row = match.captured(1);
        return row.size() == 8 ? By_Row_Of_Figures(row, order) : By_Spreadsheets_Count(row);
    }
    if (const auto match = day_and_word.match(text); match.hasMatch())
        return Made_Date(match.captured(3), Month_Number(match.captured(2)), match.captured(1));
    if (const auto match = word_and_day.match(text); match.hasMatch())
        return Made_Date(match.captured(3), Month_Number(match.captured(1)), match.captured(2));
    return {};
}

bool Is_Likely_Age(const QDate& birthday, const QDate& today) {
    constexpr int youngest = 3;
    constexpr int oldest = 12;
    const int years = basics::Whole_Years_Since(birthday.startOfDay(), today.startOfDay());
    return years >= youngest && years <= oldest;
}

namespace {

struct Readings {
    std::array<std::optional<Source_Date>, Date_Orders> by_order;

    explicit Readings(const QString& text) {
        for (const Date_Order order :
             {Date_Order::Day_First, Date_Order::Month_First, Date_Order::Year_First})
            by_order[std::size_t(order)] = Read_Source_Date(text, order);
    }
    bool Reads(Date_Order order) const { return by_order[std::size_t(order)].has_value(); }
    bool Is_Date() const {
        return Reads(Date_Order::Day_First) || Reads(Date_Order::Month_First) ||
               Reads(Date_Order::Year_First);
    }
    const QDate& Date(Date_Order order) const { return by_order[std::size_t(order)]->date; }
};

void Find_Fitting(Date_Fit& fit) {
    for (const Date_Order order : {Date_Order::Day_First, Date_Order::Month_First})
        if (fit.dates > 0 && fit.read[std::size_t(order)] == fit.dates) fit.fitting.append(order);
    // Almost any date of two-figure years could be read from its year on, so that this counts only where
    // nothing else fits.
    if (fit.fitting.isEmpty() && fit.dates > 0 && fit.read[std::size_t(Date_Order::Year_First)] == fit.dates)
        fit.fitting.append(Date_Order::Year_First);
}

} // namespace

Date_Order Date_Fit::Settled() const {
    if (fitting.isEmpty()) return dates == 0 ? Date_Order::Day_First : Date_Order::Unsettled;
    return fitting.size() == 1 || telling_apart.isEmpty() ? fitting.first() : Date_Order::Unsettled;
}

Date_Fit Fit_Dates(const QStringList& texts, const QDate& today) {
    constexpr qsizetype most_shown = 5;
    Date_Fit fit;
    QList<int> likely, unlikely;
    for (int place = 0; place < texts.size(); ++place) {
        const Readings readings(texts[place]);
        if (!readings.Is_Date()) continue;
        ++fit.dates;
        for (std::size_t order = 0; order < Date_Orders; ++order)
            fit.read[order] += readings.by_order[order].has_value() ? 1 : 0;
        if (!readings.Reads(Date_Order::Day_First) || !readings.Reads(Date_Order::Month_First)) continue;
        const QDate &day = readings.Date(Date_Order::Day_First),
                    &month = readings.Date(Date_Order::Month_First);
        if (day == month) continue;
        // A row that only one of the two gives a pupil's age is the one to look at.
        (Is_Likely_Age(day, today) != Is_Likely_Age(month, today) ? unlikely : likely).append(place);
    }
    Find_Fitting(fit);
    if (fit.fitting.size() > 1)
        fit.telling_apart = (unlikely + likely).first(std::min(most_shown, (unlikely + likely).size()));
    return fit;
}

} // namespace pupils
