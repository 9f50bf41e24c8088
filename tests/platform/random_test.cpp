#include "platform/desktop/qt_platform.h"

#include <gtest/gtest.h>
#include <set>

namespace desktop {

TEST(Random_Source, DrawsOtherNumbersWithinOneTickOfTheClock) {
    Qt_Platform platform;
    Random_Source& random = platform.Ports().random;
    constexpr double one_moment = 37'800.25;
    std::set<double> first_drawn;
    for (int pupil = 0; pupil < 100; ++pupil) {
        random.Seed(one_moment);
        first_drawn.insert(random.Next());
    }
    EXPECT_EQ(first_drawn.size(), 100u);
    EXPECT_GE(*first_drawn.begin(), 0);
    EXPECT_LT(*first_drawn.rbegin(), 1);
    EXPECT_GT(*first_drawn.rbegin() - *first_drawn.begin(), 0.8) << "spread over the whole range";
}

} // namespace desktop
