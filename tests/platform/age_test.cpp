#include "platform/basics/age.h"

#include <gtest/gtest.h>

using namespace basics;

static QDateTime At(const char* day, const char* time = "00:00") {
    return QDateTime(QDate::fromString(QLatin1StringView(day), QStringLiteral("yyyy-MM-dd")),
                     QTime::fromString(QLatin1StringView(time), QStringLiteral("HH:mm")));
}

TEST(Age, CountsCompletedYearsAndMonths) {
    const std::tuple<const char*, const char*, int, int> cases[] = {
        {"2020-06-15", "2026-06-15", 6, 0},  {"2020-06-15", "2026-06-14", 5, 11},
        {"2020-06-16", "2026-06-15", 5, 11}, {"2020-05-31", "2026-06-30", 6, 0},
        {"2020-05-31", "2026-07-01", 6, 1},  {"2020-01-31", "2026-02-28", 6, 0},
        {"2020-02-29", "2025-02-28", 4, 11}, {"2020-02-29", "2025-03-01", 5, 0},
        {"2020-12-01", "2026-01-01", 5, 1},  {"2027-01-01", "2026-06-15", -1, 0},
        {"2026-12-01", "2026-06-15", -1, 0},
    };
    for (const auto& [born, now, years, months] : cases) {
        SCOPED_TRACE(std::string(born) + " to " + now);
        EXPECT_EQ(Whole_Years_Since(At(born), At(now, "08:30")), years);
        EXPECT_EQ(Months_Part_Since(At(born), At(now, "08:30")), months);
        EXPECT_EQ(Age_In_Months(At(born), At(now, "08:30")), years * 12 + months);
    }
}
