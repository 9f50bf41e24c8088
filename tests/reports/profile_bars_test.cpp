#include "reports/profile_bars.h"

#include "scoring/score_conversion.h"

#include <gtest/gtest.h>

using namespace reports;

TEST(ProfileBars, StandOnBothScales) {
    struct Case {
        int centile, top, height, z_top, z_height;
    };
    const Case cases[] = {{1, 396, 4, 200, 200},  {49, 204, 196, 200, 3}, {50, 200, 200, 200, 0},
                          {51, 196, 204, 197, 3}, {99, 4, 396, 0, 200},   {0, 400, 0, 200, 0}};
    for (const Case& tried : cases) {
        SCOPED_TRACE(tried.centile);
        EXPECT_EQ(Centile_Bar(tried.centile).Top, tried.top);
        EXPECT_EQ(Centile_Bar(tried.centile).Height, tried.height);
        const auto height = Bar_Height_For(scoring::Centile_To_ZScore(tried.centile));
        ASSERT_TRUE(height.has_value());
        EXPECT_EQ(ZScore_Bar(tried.centile, *height).Top, tried.z_top);
        EXPECT_EQ(ZScore_Bar(tried.centile, *height).Height, tried.z_height);
    }
}

// The two tables meet by equal constants: one digit wrong in either and a bar has no height.
TEST(ProfileBars, EveryCentileHasAHeightThatFallsTowardsTheMiddle) {
    for (int centile = 1; centile <= 99; ++centile) {
        SCOPED_TRACE(centile);
        const auto height = Bar_Height_For(scoring::Centile_To_ZScore(centile));
        ASSERT_TRUE(height.has_value());
        EXPECT_EQ(height, Bar_Height_For(scoring::Centile_To_ZScore(100 - centile)));
        if (centile > 50) {
            EXPECT_GT(*height, *Bar_Height_For(scoring::Centile_To_ZScore(centile - 1)));
        }
    }
    EXPECT_FALSE(Bar_Height_For(0.9949).has_value());
}
