#include "sampledb/sample_tests.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace sample_data {

namespace {

// A list that isn't wholly right still has about this share of its elements in their places.
constexpr double Share_In_Place_After_Slip = 0.42;

// Deviation of the raw scores as a share of the greatest one. Lists are partly right more often than
// not, which draws the scores together.
constexpr double Deviation_Of_Lists = 0.15;
constexpr double Deviation_Of_Answers = 0.18;

QList<Test_Profile> Build_Normed_Tests() {
    return {
        {u"Tolvens"_s,
         {2, 2, 2, 3, 3, 3, 4, 4, 4, 5, 5, 6, 6},
         {1, 10},
         {1, 13},
         {0.22, 0.33, 0.45, 0.48, 0.58},
         {4600, 4200, 3800, 3500, 3200},
         0},
        {u"Bliks friends"_s,
         {2, 2, 2, 3, 3, 3, 4, 4, 4, 5, 5, 5, 5, 6, 6},
         {1, 15},
         {1, 15},
         {0.18, 0.28, 0.38, 0.48, 0.57},
         {5200, 4700, 4300, 3900, 3600},
         0},
        {u"Karrel"_s,
         {},
         {1, 25},
         {1, 25},
         {0.36, 0.45, 0.54, 0.63, 0.71},
         {3900, 3500, 3200, 2900, 2600},
         3},
        {u"Bliks letters"_s,
         {2, 2, 2, 3, 3, 3, 3, 4, 4, 4, 5, 5},
         {1, 10},
         {1, 12},
         {0.20, 0.31, 0.43, 0.46, 0.56},
         {5000, 4500, 4100, 3700, 3400},
         4},
        {u"Bliks letter names"_s,
         {},
         {1, 8},
         {1, 12},
         {0.42, 0.53, 0.64, 0.66, 0.74},
         {3600, 3300, 3000, 2700, 2500},
         0},
        {u"Drell"_s,
         {2, 2, 3, 3, 3, 4, 4, 5, 5},
         {1, 7},
         {1, 9},
         {0.24, 0.36, 0.48, 0.50, 0.60},
         {6200, 5700, 5200, 4800, 4400},
         0},
        {u"Mirvel"_s, {}, {1, 8}, {5, 16}, {0.48, 0.58, 0.68, 0.66, 0.75}, {4200, 3800, 3400, 3100, 2900}, 0},
        {u"Yoon"_s, {}, {1, 15}, {1, 25}, {0.58, 0.66, 0.74, 0.72, 0.79}, {3300, 3000, 2700, 2500, 2300}, 0},
    };
}

} // namespace

const QList<Test_Profile>& Normed_Tests() {
    static const QList<Test_Profile> tests = Build_Normed_Tests();
    return tests;
}

int Norm_Age_Index(int months) {
    return std::clamp(months / 12 - 4, 0, Norm_Ages - 1);
}

Item_Window Items_Played(const Test_Profile& test, int months) {
    return months < Older_Items_From ? test.younger : test.older;
}

int Greatest_Raw_Score(const Test_Profile& test, Item_Window items) {
    if (test.list_lengths.isEmpty()) return items.last - items.first + 1;
    int elements = 0;
    for (int item = items.first; item <= items.last; ++item)
        elements += test.list_lengths[item - 1];
    return elements;
}

int Greatest_Raw_Score(const Test_Profile& test) {
    return std::max(Greatest_Raw_Score(test, test.younger), Greatest_Raw_Score(test, test.older));
}

double Mean_Raw_Score(const Test_Profile& test, int age_index) {
    const double right = test.share_right[age_index];
    const double slips = test.list_lengths.isEmpty() ? 0.0 : Share_In_Place_After_Slip;
    const int most = Greatest_Raw_Score(test, Items_Played(test, (age_index + 4) * 12));
    return (right + (1.0 - right) * slips) * most;
}

double Raw_Score_Deviation(const Test_Profile& test, int age_index) {
    const double share = test.list_lengths.isEmpty() ? Deviation_Of_Answers : Deviation_Of_Lists;
    return share * Greatest_Raw_Score(test, Items_Played(test, (age_index + 4) * 12));
}

} // namespace sample_data
