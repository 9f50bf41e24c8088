#pragma once

#include <QDate>
#include <QList>
#include <QString>
#include <QStringList>
#include <array>
#include <optional>

namespace pupils {

// How figures for day, month and year follow one another. It is found for a whole column, never for a row: a
// date that two orders read differently would go in wrong without a word.
enum class Date_Order { Unsettled, Day_First, Month_First, Year_First };
inline constexpr int Date_Orders = 4;
QString Words_Of(Date_Order order);

struct Source_Date {
    QDate date;
    bool two_digit_year = false;
};

// Dates with the month in letters, a year of four figures in front, or as a spreadsheet counts days are read
// alike in each order, and so they are in none.
std::optional<Source_Date> Read_Source_Date(const QString& text, Date_Order order);

// What the orders make of a column.
struct Date_Fit {
    int dates = 0;                       // texts that at least one order reads
    std::array<int, Date_Orders> read{}; // how many of them, by order
    QList<Date_Order> fitting;           // those that read them all
    QList<int> telling_apart;   // places of texts that the fitting orders read differently, the best five
    Date_Order Settled() const; // Unsettled if two fit and differ, or none fits
};
Date_Fit Fit_Dates(const QStringList& texts, const QDate& today);

// The age that a child of the suite's schools may have.
bool Is_Likely_Age(const QDate& birthday, const QDate& today);

} // namespace pupils
