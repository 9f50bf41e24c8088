#include "sampledb/sample_norms.h"

#include "foundation/schema.h"
#include "sampledb/random.h"
#include "sampledb/sample_tests.h"

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace sample_data {

namespace {

constexpr double Time_Spread = 0.28;      // deviation of the logarithm of a pupil's mean item time
constexpr double Item_Time_Share = 0.42;  // deviation of one item's time as a share of the mean
constexpr double Lowest_Time_Place = 0.4; // the row of centile 0 lies between "never" and centile 1

// What the seed moves: no two sets of norms are quite alike, yet within one the ages keep their order.
struct Shift {
    double raw;
    double time;
};

Shift Draw_Shift(Random& random) {
    const double raw = 0.97 + 0.06 * random.Real();
    const double time = 1.01 + 0.08 * random.Real(); // times are skewed: their mean lies above the middle
    return {raw, time};
}

double Normal_Share_Below(double z) {
    return 0.5 * std::erfc(-z / std::sqrt(2.0));
}

double Normal_Quantile(double share) {
    double low = -6.0;
    double high = 6.0;
    while (high - low > 1e-9) {
        const double middle = (low + high) / 2;
        (Normal_Share_Below(middle) < share ? low : high) = middle;
    }
    return low;
}

double Rounded(double value) {
    return std::round(value * 100.0) / 100.0;
}

int Raw_Centile(const Test_Profile& test, int age_index, int raw, const Shift& shift) {
    const double mean = shift.raw * Mean_Raw_Score(test, age_index);
    const double z = (raw - mean) / Raw_Score_Deviation(test, age_index);
    return std::clamp(int(std::lround(100.0 * Normal_Share_Below(z))), 1, 99);
}

void Fill_Raw_Norms(Memory_Database& database, const QString& table, const Test_Profile& test,
                    const Shift& shift) {
    for (int raw = 0; raw <= Greatest_Raw_Score(test); ++raw) {
        QVariantList row = {raw};
        for (int age_index = 0; age_index < Norm_Ages; ++age_index) {
            const bool unscored = age_index == 0 && raw < test.unscored_rows;
            row.append(unscored ? QVariant() : QVariant(Raw_Centile(test, age_index, raw, shift)));
        }
        database.Insert(table, row);
    }
}

void Fill_Time_Norms(Memory_Database& database, const QString& table, const Test_Profile& test,
                     const Shift& shift) {
    for (int centile = 99; centile >= 0; --centile) {
        const double place = std::max(double(centile), Lowest_Time_Place);
        const double factor = shift.time * std::exp(-Time_Spread * Normal_Quantile(place / 100.0));
        QVariantList row = {centile};
        for (const double item_time : test.item_time)
            row.append(int(std::lround(item_time * factor)));
        database.Insert(table, row);
    }
}

void Fill_Means(Memory_Database& database, const Test_Profile& test, const Shift& shift) {
    const bool has_lists = !test.list_lengths.isEmpty();
    for (int age_index = 0; age_index < Norm_Ages; ++age_index) {
        const QChar band = QChar(u'A' + age_index);
        const double time = shift.time * test.item_time[age_index];
        const double correct = shift.raw * Mean_Raw_Score(test, age_index);
        const double misplaced = has_lists ? (1.0 - test.share_right[age_index]) * correct / 4.0 : 0.0;
        database.Insert(u"Mevo_Means"_s,
                        {test.module + u" band "_s + band, Rounded(time), Rounded(Item_Time_Share * time),
                         Rounded(correct), Rounded(Raw_Score_Deviation(test, age_index)), Rounded(misplaced),
                         Rounded(misplaced / 2.0)});
    }
}

} // namespace

void Fill_Norms(Memory_Database& database, quint32 seed) {
    Random random(seed);
    const QList<foundation::Test_Tables>& tables = foundation::Tests_In_Order();
    const QList<Test_Profile>& tests = Normed_Tests();
    for (qsizetype t = 0; t < tests.size(); ++t) {
        const Shift shift = Draw_Shift(random);
        Fill_Raw_Norms(database, tables[t].norms, tests[t], shift);
        Fill_Time_Norms(database, tables[t].time_norms, tests[t], shift);
        Fill_Means(database, tests[t], shift);
    }
}

} // namespace sample_data
