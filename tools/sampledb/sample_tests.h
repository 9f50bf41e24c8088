#pragma once

#include <QList>
#include <QString>

#include <array>

namespace sample_data {

constexpr int Older_Items_From = 84; // months; from here on a pupil meets the full set of items
constexpr int Norm_Ages = 5;         // years 4 to 8

struct Item_Window {
    int first;
    int last;
};

// The made-up population of one test. Norms, means and answers are all drawn from these figures, so
// that the answers of an average pupil come out near the middle of the norms.
struct Test_Profile {
    QString module;          // as the rows of Mevo_Means call the test
    QList<int> list_lengths; // elements of each item's list; empty where an item has one answer
    Item_Window younger;     // items played below 84 months
    Item_Window older;
    std::array<double, Norm_Ages> share_right; // chance of the average pupil to get an item right
    std::array<double, Norm_Ages> item_time;   // ms of the average pupil
    int unscored_rows;                         // lowest raw scores without a centile at age 4
};

// Tests 1 to 8 in test order; the ninth has no population.
const QList<Test_Profile>& Normed_Tests();

int Norm_Age_Index(int months);
Item_Window Items_Played(const Test_Profile& test, int months);
int Greatest_Raw_Score(const Test_Profile& test, Item_Window items);
int Greatest_Raw_Score(const Test_Profile& test);
double Mean_Raw_Score(const Test_Profile& test, int age_index);
double Raw_Score_Deviation(const Test_Profile& test, int age_index);

} // namespace sample_data
