#include "printing/paper_charts.h"

#include "platform/recorded_page.h"
#include "support/printing.h"
#include "support/scripted_platform.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace printing;
using namespace test_support;

namespace {

const QColor Black(0, 0, 0);

QColor Grey_Of(int lightness) {
    return QColor(lightness, lightness, lightness);
}

class Charts_On_Paper : public testing::Test {
protected:
    Charts_On_Paper() { sheet.BeginOutput(); }
    ~Charts_On_Paper() override { boxes.Expect_All_Asked(); }

    void Bar(int x, int y, int width, int height, Bar_Colour colour = Bar_Colour::Red,
             const QString& label = {}) {
        DrawBar(sheet, x, y, width, height, colour, label, boxes);
    }
    const preview::Drawing& Page() { return sheet.Page(1); }
    static QList<QRect> Places(const QList<preview::Rectangle_Operation>& rectangles) {
        QList<QRect> places;
        for (const auto& one : rectangles)
            places.append({one.x, one.y, one.width, one.height});
        return places;
    }
    QList<QRect> Outlines() {
        return Places(Those_Of<preview::Rectangle_Operation>(
            Page(), [](const auto& one) { return one.outline && one.outline->colour == Black; }));
    }
    QList<QRect> Fills(const QColor& colour) { return Places(Rectangles_Filled(Page(), colour)); }
    void Begin_Anew() {
        sheet.EndOutput();
        sheet.BeginOutput();
    }

    Scripted_Boxes boxes;
    preview::ViewPro sheet;
    Paper_Charts charts{sheet, boxes};
};

// All eight tests at one centile.
Profile Level_Profile(int centile, double z = 0) {
    Profile profile;
    profile.raw_centile.fill(centile);
    profile.raw_zscore.fill(z);
    return profile;
}

} // namespace

TEST_F(Charts_On_Paper, TheLowestBarsKeepTheirFrame) {
    Bar(0, 0, 720, 0);
    EXPECT_EQ(sheet.PageCount(), 0) << "nothing is drawn";
    Bar(0, 1000, 720, 50);
    Bar(0, 2000, 360, 25); // the inside is less than nothing, and lies upside down
    EXPECT_EQ(Outlines(), (QList<QRect>{{0, 1000, 720, 50}, {0, 2000, 360, 25}}));
    EXPECT_EQ(Fills(Red), (QList<QRect>{{20, 1020, 680, 10}, {20, 2005, 320, 15}}));
}

TEST_F(Charts_On_Paper, AnErrorInABarIsToldAndEndsTheBarAlone) {
    boxes.Will_Answer(desktop::Answer::Ok);
    Bar(32700, 200, 40, 500, Bar_Colour::Red, u"beyond"_s); // its label would stand past all places
    ASSERT_EQ(boxes.shown.size(), 1);
    EXPECT_EQ(boxes.shown[0].style, desktop::Box_Style::Plain);
    EXPECT_EQ(boxes.shown[0].title, desktop::Default_Box_Title());
    EXPECT_EQ(boxes.shown[0].text, u"Error in DrawBar"_s);
    Bar(100, 200, 720, 500, Bar_Colour::Red, u"label"_s);
    EXPECT_EQ(Fills(Red).last(), QRect(120, 220, 680, 460));
    EXPECT_EQ(Only_Line(Page(), u"label"_s).x, 100 + 720 + 45);
}

TEST_F(Charts_On_Paper, BandsDarkenTowardsTheEndsOfTheScale) {
    // From the top, as shares of the height; the lowest band of z-scores stays white.
    const double heights[] = {0.02, 0.06, 0.15, 0.28, 0.34, 0.36, 0.64, 0.66, 0.78, 0.88, 0.90, 0.98};
    const std::pair<QString, QList<int>> cases[] = {
        {u"P"_s, {0, 128, 128, 192, 192, 255, 255, 192, 192, 128, 128, 0}},
        {u"Z"_s, {0, 0, 128, 128, 192, 192, 192, 192, 128, 128, 255, 255}}};
    for (const Chart_Place& place : {Large_Chart(false).place, Small_Chart(500, 1000, false).place})
        for (const auto& [mode, lightness] : cases) {
            Begin_Anew();
            charts.Draw_Grey_Bands(place, mode);
            for (qsizetype i = 0; i < lightness.size(); ++i) {
                SCOPED_TRACE(mode.toStdString() + " at " + std::to_string(heights[i]));
                const int y = place.top + int(heights[i] * place.height);
                EXPECT_EQ(Colour_At(Page(), place.left + 10, y), Grey_Of(lightness[i]));
                EXPECT_EQ(Colour_At(Page(), place.Right() - 10, y), Grey_Of(lightness[i]));
                EXPECT_EQ(Colour_At(Page(), place.Right() + 10, y), Grey_Of(255));
            }
        }
}

TEST_F(Charts_On_Paper, AWhiteChartHasARuleAtEachEdgeAndInTheMiddle) {
    const std::pair<QString, QList<int>> cases[] = {
        {u"P"_s, {6820, 4570, 5320, 6070, 7570, 8320, 9070}},
        {u"Z"_s, {6820, 4360, 4850, 5835, 7805, 8790, 9280}},
    };
    for (const auto& [mode, heights] : cases) {
        Begin_Anew();
        charts.Draw_White_Lines(Large_Chart(false).place, mode);
        QList<int> drawn;
        for (const auto& line : Lines_Drawn(Page(), Grey_Of(192))) {
            EXPECT_EQ(QLine(line.x1, line.y1, line.x2, line.y2), QLine(1200, line.y1, 9200, line.y1));
            drawn.append(line.y1);
        }
        EXPECT_EQ(drawn, heights) << mode.toStdString();
    }
}

TEST_F(Charts_On_Paper, BarsStandInTheirColumns) {
    const std::tuple<Chart_Layout, QString, QRect, int> cases[] = {
        {Large_Chart(false), u"P"_s, {1680, 6820, 720, 2500}, 900},
        {Large_Chart(true), u"P"_s, {1680, 6820, 360, 2500}, 900},
        {Large_Chart(false), u"Z"_s, {1680, 5836, 720, 984}, 900},
        {Small_Chart(500, 1000, false), u"P"_s, {745, 2250, 360, 1250}, 450},
        {Small_Chart(500, 1000, true), u"P"_s, {745, 2250, 180, 1250}, 450},
        // With the time bars off these stand 135 twips left of the centiles' bars.
        {Small_Chart(500, 1000, false), u"Z"_s, {565, 1710, 360, 540}, 450},
        {Small_Chart(500, 1000, true), u"Z"_s, {745, 1710, 180, 540}, 450},
    };
    for (const auto& [layout, mode, first, step] : cases) {
        SCOPED_TRACE(mode.toStdString() + " " + std::to_string(first.x()));
        Begin_Anew();
        if (mode == u"P"_s)
            charts.DrawCentileChart(layout, Level_Profile(50), false);
        else
            charts.DrawZScoreChart(layout, Level_Profile(84, 1), false);
        const QList<QRect> bars = Outlines();
        ASSERT_EQ(bars.size(), 8);
        EXPECT_EQ(bars.first(), first);
        EXPECT_EQ(bars.last(), first.translated(7 * step, 0));
    }
}

TEST_F(Charts_On_Paper, ATestWithoutAScoreHasNoBar) {
    scoring::Score_Store scores;
    for (int t = 1; t <= 8; ++t) {
        scores.Raw_ZScore[t] = 1.5; // an earlier pupil's
        scores.Time_ZScore[t] = -1.5;
    }
    scores.Raw_Centile[2] = 50; // a score whose z is 0
    scores.Raw_ZScore[2] = 0.0;
    scores.Raw_Centile[3] = 84;
    scores.Raw_ZScore[3] = 0.995;
    charts.DrawZScoreChart(Large_Chart(true), Profile_Of(scores), true);
    EXPECT_EQ(Outlines(), (QList<QRect>{{1680 + 2 * 900, 6820 - 979, 360, 979}}));
}

TEST_F(Charts_On_Paper, ZScoreHeightsAreRoundedAsTheirTexts) {
    const std::pair<float, int> cases[] = {
        {0.025F, 14}, // 13.5 goes up to the even one
        {0.075F, 40}, // 40.5 goes down, although the stored number lies a little above
        {2.324F, 1255},
        {-0.025F, 14},
    };
    for (const auto& [z, height] : cases) {
        Begin_Anew();
        charts.DrawZScoreChart(Small_Chart(500, 1000, false), Level_Profile(50, double(z)), false);
        EXPECT_EQ(Outlines().first().height(), height) << z;
        EXPECT_EQ(Outlines().first().top(), z < 0 ? 2250 : 2250 - height) << z;
    }
}

TEST_F(Charts_On_Paper, TerminatedTestsAreMarkedAboveTheirBars) {
    const Chart_Layout small = Small_Chart(500, 1000, false);
    const std::tuple<Chart_Layout, int, int> cases[] = {
        {Large_Chart(false), 50, 9320 - 2500 - 144},
        {Large_Chart(false), 5, 9320 - 250 - 144},
        {Large_Chart(false), 4, 9320 - 200 - 208},
        {Large_Chart(false), 3, 9320 - 150 - 208},
        {small, 3, 3500 - 75 - 144},
        {small, 2, 3500 - 50 - 208},
    };
    for (const auto& [layout, centile, y] : cases) {
        SCOPED_TRACE(y);
        Begin_Anew();
        Profile profile = Level_Profile(centile);
        profile.tolvens_terminated = profile.friends_terminated = true;
        charts.DrawCentileChart(layout, profile, false);
        const auto marks = Lines_Of(Page(), u"Trm"_s);
        ASSERT_EQ(marks.size(), 2);
        EXPECT_EQ(QPoint(marks[0].x, marks[0].y), QPoint(layout.first_centile_bar, y));
        EXPECT_EQ(QPoint(marks[1].x, marks[1].y), QPoint(layout.first_centile_bar + layout.bar_step, y));
        EXPECT_EQ(marks[0].style.font_size, layout.place.height == 5000 ? 8 : 5);
    }
}

TEST_F(Charts_On_Paper, AMarkNeedsItsFlagAndAScoreOnTheCentileScale) {
    for (int state = 0; state < 8; ++state) {
        SCOPED_TRACE(state);
        Profile profile = Level_Profile(state & 4 ? 40 : 0, 1);
        profile.tolvens_terminated = state & 1;
        profile.friends_terminated = state & 2;
        const int marks = state & 4 ? int(profile.tolvens_terminated) + int(profile.friends_terminated) : 0;
        Begin_Anew();
        charts.Has_Terminated_Mark = false;
        charts.DrawZScoreChart(Large_Chart(false), profile, false);
        EXPECT_EQ(Lines_Of(Page(), u"Trm"_s).size(), 0);
        EXPECT_FALSE(charts.Has_Terminated_Mark);
        charts.DrawCentileChart(Large_Chart(false), profile, false);
        EXPECT_EQ(Lines_Of(Page(), u"Trm"_s).size(), marks);
        EXPECT_EQ(charts.Has_Terminated_Mark, marks > 0);
    }
}
