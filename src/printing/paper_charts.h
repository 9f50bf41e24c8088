#pragma once

#include "platform/desktop/message_boxes.h"
#include "platform/preview/view_pro.h"
#include "scoring/cohort.h"
#include "scoring/score_store.h"

#include <QString>
#include <array>

namespace printing {

// One pupil's results as a chart draws them, by test t from 1.
struct Profile {
    template<class T>
    using Of_Each_Test = std::array<T, scoring::Normed_Tests + 1>; // slot 0 unused

    Of_Each_Test<int> raw_centile{}; // 0: no score, and no bar
    Of_Each_Test<int> time_centile{};
    Of_Each_Test<double> raw_zscore{};
    Of_Each_Test<double> time_zscore{};
    bool tolvens_terminated = false;
    bool friends_terminated = false;
};

Profile Profile_Of(const scoring::Score_Store& scores);
// p: place in the pupil list, and the row of the tables as well, since the whole list is scored in its order.
Profile Profile_Of(int p, const scoring::Cohort_Tables& cohort);

// A chart's rectangle, in twips.
struct Chart_Place {
    int left;
    int top;
    int width;
    int height;

    int Bottom() const { return top + height; }
    int Right() const { return left + width; }
};

// A chart: where it stands, and all that tells the one of the individual report from the eight small ones of
// a batch sheet. Lengths are twips, font sizes points.
struct Chart_Layout {
    Chart_Place place;
    bool has_titles; // the title of the axis and the names of the bands
    int bar_step;    // from one test to the next
    int bar_width;
    int first_centile_bar; // left edge of the first test's bar
    int first_zscore_bar;
    int time_bar_offset; // from the accuracy bar's left edge to the time bar's
    int centile_scale;   // for one centile
    int zscore_scale;    // for a z-score of one
    int figure_size;     // font of the scale's figures
    int column_left;     // of the row of test names
    int column_size;     // its font
    int mark_size;       // font of "Trm"
    int low_centile;     // "Trm" stands clear of a bar that is lower
};

// The chart of the individual report, and one of a batch sheet with its left top corner there.
Chart_Layout Large_Chart(bool show_time_bars);
Chart_Layout Small_Chart(int left, int top, bool show_time_bars);

struct Chart_Look {
    QString ground;     // "GREY" for bands, else lines on white
    QString Chart_Mode; // "P" for centiles, "Z" for z-scores
    bool show_time_bars;
};

enum class Bar_Colour { Red, Blue };

// A bar of its colour in a black frame, with a label at its right. It hangs from y; a negative height stands
// on y. No height, no bar. An error is shown in a box, and ends the bar.
void DrawBar(preview::ViewPro& sheet, int x, int y, int width, int height, Bar_Colour colour,
             const QString& label, desktop::Message_Boxes& boxes);

// Draws the profile charts of both reports on a sheet, which must outlive it.
class Paper_Charts {
public:
    Paper_Charts(preview::ViewPro& sheet, desktop::Message_Boxes& boxes);

    // A "Trm" mark was drawn since this was last reset, so that the sheet needs the note that explains it.
    bool Has_Terminated_Mark = false;

    void Set_Up(const Chart_Place& place); // the pen's state before the frame; what follows builds on it
    // A whole chart, once it is set up.
    void Draw_Profile(const Chart_Layout& layout, const Profile& profile, const Chart_Look& look);
    void Draw_Grey_Bands(const Chart_Place& place, const QString& Chart_Mode);
    void Draw_White_Lines(const Chart_Place& place, const QString& Chart_Mode);
    void DrawCentileChart(const Chart_Layout& layout, const Profile& profile, bool show_time_bars);
    void DrawZScoreChart(const Chart_Layout& layout, const Profile& profile, bool show_time_bars);
    void Draw_Extra_Legend(int x, int y, bool show_time_bars);
    void Draw_Terminated_Note(int x, int y);

private:
    void Draw_Frame(const Chart_Place& place);
    void Draw_Column_Labels(const Chart_Layout& layout);
    void Use_Colour(const QColor& colour); // for lines and texts
    void Draw_Middle_Line(const Chart_Place& place);
    void Fill_Rectangle(double x, double y, double width, double height, const QColor& colour);
    int Begin_Scale();
    void Draw_Axis_Title(const Chart_Place& place, int line, const QString& title);
    void Draw_Centile_Figures(const Chart_Layout& layout, int line);
    void Draw_Band_Names(const Chart_Place& place, int line);
    void Draw_Terminated_Mark(const Chart_Layout& layout, int x, int centile);

    preview::ViewPro& sheet;
    desktop::Message_Boxes& boxes;
};

} // namespace printing
