#include "printing/paper_charts.h"

#include "platform/basics/number_text.h"
#include "platform/basics/run_time_error.h"

#include <limits>

using namespace Qt::StringLiterals;

namespace printing {

namespace {

using preview::ViewPro;

const QColor Red(255, 0, 0);
const QColor Blue(0, 0, 255);
const QColor Light_Grey(192, 192, 192);
const QColor Column_Ground(148, 240, 240);

// Places are worked out in floating point, and come to whole twips only where something is drawn.
int Twips(double place) {
    return static_cast<int>(basics::Round_To_Even(place));
}

// Top and height are fractions of the chart's height, from its top; grey goes from 0, black, to 255.
struct Shade {
    int grey;
    double top;
    double height;
};

// The bands that aren't white, in the order of painting.
constexpr Shade Centile_Shades[] = {
    {0, 0, 1 / 20.0},         {0, 19 / 20.0, 1 / 20.0}, {128, 1 / 20.0, 3 / 20.0},
    {128, 4 / 5.0, 3 / 20.0}, {192, 1 / 5.0, 3 / 20.0}, {192, 13 / 20.0, 3 / 20.0},
};

// The second black one lies just under the first and not at the foot: the next shade hides it, and the band
// below -2.0 stays white.
constexpr Shade ZScore_Shades[] = {
    {0, 0, 0.106},       {0, 1 - 0.894, 0.106}, {128, 0.106, 0.197},
    {128, 0.697, 0.197}, {192, 0.303, 0.197},   {192, 0.5, 0.197},
};

constexpr double Centile_Lines[] = {1 / 20.0, 1 / 5.0, 7 / 20.0, 13 / 20.0, 4 / 5.0, 19 / 20.0};
constexpr double ZScore_Lines[] = {0.008, 0.106, 0.303, 0.697, 0.894, 0.992};

struct Named_Height {
    QStringView name;
    double middle;
};

constexpr Named_Height Bands[] = {
    {u"Excellent", 1 / 40.0}, {u"V.Good", 1 / 8.0},  {u"Good", 11 / 40.0}, {u"Average", 1 / 2.0},
    {u"Low", 29 / 40.0},      {u"Concern", 7 / 8.0}, {u"Risk", 39 / 40.0},
};

constexpr Named_Height ZScore_Figures[] = {
    {u"2.5", 0.008},  {u"2.0", 0.106},  {u"1.0", 0.303},  {u"0", 0.5},
    {u"-1.0", 0.697}, {u"-2.0", 0.894}, {u"-2.5", 0.992},
};

bool Is_Centile_Scale(const QString& Chart_Mode) {
    return Chart_Mode == "P"_L1;
}

// Rounded by its decimal text, so that noise behind the decimals can't tip a half.
int ZScore_Height(double z, int scale) {
    constexpr int single_precision_digits = 7;
    return Twips(QString::number(z * scale, 'g', single_precision_digits).toDouble());
}

} // namespace

// All but the centiles may still be an earlier pupil's while the centile is 0.
Profile Profile_Of(const scoring::Score_Store& scores) {
    Profile profile;
    for (int t = 1; t <= scoring::Normed_Tests; ++t) {
        const auto slot = static_cast<std::size_t>(t);
        profile.raw_centile[slot] = scores.Raw_Centile[t];
        profile.time_centile[slot] = scores.Time_Centile[t].As_Integer();
        if (profile.raw_centile[slot] != 0) profile.raw_zscore[slot] = scores.Raw_ZScore[t].As_Double();
        if (profile.time_centile[slot] != 0) profile.time_zscore[slot] = scores.Time_ZScore[t].As_Double();
    }
    profile.tolvens_terminated = scores.Tolvens_Terminated;
    profile.friends_terminated = scores.Friends_Terminated;
    return profile;
}

Profile Profile_Of(int p, const scoring::Cohort_Tables& cohort) {
    Profile profile;
    for (int t = 1; t <= scoring::Normed_Tests; ++t) {
        const auto slot = static_cast<std::size_t>(t);
        profile.raw_centile[slot] = cohort.Cohort_Raw_Centile[p][t];
        profile.time_centile[slot] = cohort.Cohort_Time_Centile[p][t];
        profile.raw_zscore[slot] = double(cohort.Cohort_Raw_ZScore[p][t]);
        profile.time_zscore[slot] = double(cohort.Cohort_Time_ZScore[p][t]);
    }
    profile.tolvens_terminated = cohort.Cohort_Tolvens_Terminated[p];
    profile.friends_terminated = cohort.Cohort_Friends_Terminated[p];
    return profile;
}

Chart_Layout Large_Chart(bool show_time_bars) {
    constexpr Chart_Place place{1200, 4320, 8000, 5000};
    constexpr int first_bar = place.left + 480;
    return {
        .place = place,
        .has_titles = true,
        .bar_step = 900,
        .bar_width = show_time_bars ? 360 : 720,
        .first_centile_bar = first_bar,
        .first_zscore_bar = first_bar,
        .time_bar_offset = 400,
        .centile_scale = 50,
        .zscore_scale = 984,
        .figure_size = 8,
        .column_left = place.left + 400,
        .column_size = 6,
        .mark_size = 8,
        .low_centile = 5,
    };
}

// On the centile scale the bars stand as if no time bars were there, on the z-score scale as if both were
// twice as wide: with the time bars off they are 135 twips apart. And the z-score scale is a tenth longer
// than its figures tell.
Chart_Layout Small_Chart(int left, int top, bool show_time_bars) {
    const Chart_Place place{left, top, 4000, 2500};
    constexpr int bar_step = 450;
    const int bar_width = show_time_bars ? 180 : 360;
    const int column_left = left + (place.width - scoring::Normed_Tests * bar_step) / 2;
    return {
        .place = place,
        .has_titles = false,
        .bar_step = bar_step,
        .bar_width = bar_width,
        .first_centile_bar = column_left + (bar_step - 360) / 2,
        .first_zscore_bar = Twips(column_left + (bar_step - 2 * bar_width) / 2.0),
        .time_bar_offset = bar_width,
        .centile_scale = 25,
        .zscore_scale = 540,
        .figure_size = 6,
        .column_left = column_left,
        .column_size = 4,
        .mark_size = 5,
        .low_centile = 3,
    };
}

namespace {

// Places on a page are whole numbers of 16 bits; one beyond them is an error, not a bar somewhere else.
int Place(int twips) {
    if (twips < std::numeric_limits<qint16>::min() || twips > std::numeric_limits<qint16>::max())
        basics::Raise(basics::errors::Overflow);
    return twips;
}

void Draw_Framed_Bar(ViewPro& sheet, int x, int y, int width, int height, const QColor& colour,
                     const QString& label) {
    constexpr int inset = 20;
    sheet.ObjectBKColor = colour;
    sheet.ForeColor = sheet.FillColor = Qt::black;
    sheet.FillStyle = 0;
    sheet.DrawRectangle2(Place(x), Place(y), Place(width), Place(height));
    sheet.FillStyle = 1;
    sheet.ForeColor = sheet.FillColor = colour;
    const int inwards = height > 0 ? inset : -inset;
    sheet.DrawRectangle2(x + inset, y + inwards, width - 2 * inset, height - 2 * inwards);
    sheet.ForeColor = sheet.FillColor = Qt::black;
    sheet.ObjectAlign = 0;
    if (!label.isEmpty()) sheet.DrawText(Place(x + width + 45), y, label);
}

} // namespace

void DrawBar(ViewPro& sheet, int x, int y, int width, int height, Bar_Colour colour, const QString& label,
             desktop::Message_Boxes& boxes) {
    if (height == 0) return;
    try {
        const int align = sheet.ObjectAlign;
        const int fill_style = sheet.FillStyle;
        const QColor background = sheet.ObjectBKColor;
        const QColor foreground = sheet.ForeColor;
        Draw_Framed_Bar(sheet, x, y, width, height, colour == Bar_Colour::Red ? Red : Blue, label);
        sheet.ObjectAlign = align;
        sheet.FillStyle = fill_style;
        sheet.ObjectBKColor = background;
        sheet.ForeColor = foreground;
    } catch (const basics::Run_Time_Error&) {
        boxes.Ask(desktop::Box_Style::Plain, desktop::Default_Box_Title(), u"Error in DrawBar"_s);
    }
}

Paper_Charts::Paper_Charts(ViewPro& sheet, desktop::Message_Boxes& boxes) : sheet(sheet), boxes(boxes) {
}

void Paper_Charts::Use_Colour(const QColor& colour) {
    sheet.ForeColor = sheet.FillColor = colour;
}

void Paper_Charts::Set_Up(const Chart_Place& place) {
    sheet.FontBold = true;
    sheet.FontSize = 24;
    sheet.TextAlign = 1;
    sheet.LineWidth = 15;
    sheet.TextAngle = 0;
    sheet.ObjectAlign = 0;
    sheet.FillStyle = 0;
    sheet.CurrentX = place.left;
    sheet.CurrentY = place.top;
}

void Paper_Charts::Draw_Frame(const Chart_Place& place) {
    sheet.DrawBoxTo(place.Right(), place.Bottom());
}

void Paper_Charts::Draw_Middle_Line(const Chart_Place& place) {
    const int middle = Twips(place.top + place.height / 2.0);
    sheet.DrawLine(place.left, middle, place.Right(), middle);
}

void Paper_Charts::Fill_Rectangle(double x, double y, double width, double height, const QColor& colour) {
    sheet.FillStyle = 1;
    sheet.ObjectBKColor = colour;
    Use_Colour(colour);
    sheet.DrawRectangle2(Twips(x), Twips(y), Twips(width), Twips(height));
}

void Paper_Charts::Draw_Grey_Bands(const Chart_Place& place, const QString& Chart_Mode) {
    Draw_Middle_Line(place);
    for (const Shade& shade : Is_Centile_Scale(Chart_Mode) ? Centile_Shades : ZScore_Shades)
        Fill_Rectangle(place.left, place.top + shade.top * place.height, place.width,
                       shade.height * place.height, QColor(shade.grey, shade.grey, shade.grey));
}

void Paper_Charts::Draw_White_Lines(const Chart_Place& place, const QString& Chart_Mode) {
    sheet.ForeColor = Light_Grey;
    sheet.FillStyle = 1;
    Draw_Middle_Line(place);
    for (const double line : Is_Centile_Scale(Chart_Mode) ? Centile_Lines : ZScore_Lines) {
        const int y = Twips(place.top + line * place.height);
        sheet.DrawLine(place.left, y, place.Right(), y);
    }
}

void Paper_Charts::Draw_Column_Labels(const Chart_Layout& layout) {
    QStringList widths;
    for (int t = 1; t <= scoring::Normed_Tests; ++t)
        widths.append(QString::number(layout.bar_step));
    sheet.FontSize = layout.column_size;
    sheet.ForeColor = Qt::black;
    sheet.CurrentX = layout.column_left;
    sheet.CurrentY = layout.place.Bottom();
    sheet.TextAlign = 1;
    sheet.ObjectBKColor = Column_Ground;
    sheet.TableBorders = 1;
    sheet.TableFormat = widths.join(u'|');
    sheet.TableTextHooked(u"Tolvens|Friends|Karrel|Letters|L. Names|Drell|Mirvel|Yoon;"_s);
    sheet.FontSize = 8;
}

// Gives the height of a line, by which the scale's texts are placed however small they are.
int Paper_Charts::Begin_Scale() {
    sheet.TextAlign = 0;
    Use_Colour(Qt::black);
    sheet.FontBold = false;
    sheet.FontSize = 10;
    return sheet.TextHeight();
}

// Reads upwards. The middle is that of the individual report's chart, the only one with titles.
void Paper_Charts::Draw_Axis_Title(const Chart_Place& place, int line, const QString& title) {
    constexpr int upright = 900;
    constexpr int middle = 2160;
    sheet.TextAngle = upright;
    sheet.MeasureText(title);
    sheet.DrawText(Twips(place.left - 3.5 * line), Twips(place.top + middle + sheet.TextWidth / 2.0), title);
    sheet.TextAngle = 0;
}

void Paper_Charts::Draw_Centile_Figures(const Chart_Layout& layout, int line) {
    constexpr int tick = 90;
    constexpr int lowest = 5;
    constexpr int step = 15;
    const Chart_Place& place = layout.place;
    sheet.FontSize = layout.figure_size;
    for (int i = 0; i <= 6; ++i) {
        const int centile = lowest + step * i;
        const int y = place.Bottom() - centile * layout.centile_scale;
        sheet.DrawLine(place.left - tick, y, place.left, y);
        sheet.DrawText(Twips(place.left - 1.5 * line), Twips(y - line / 2.0), QString::number(centile));
    }
}

void Paper_Charts::Draw_Band_Names(const Chart_Place& place, int line) {
    constexpr int gap = 90;
    for (const Named_Height& band : Bands)
        sheet.DrawText(place.Right() + gap, Twips(place.top + band.middle * place.height - line / 2.0),
                       band.name.toString());
}

void Paper_Charts::Draw_Terminated_Mark(const Chart_Layout& layout, int x, int centile) {
    const int above = centile < layout.low_centile ? 208 : 144;
    Has_Terminated_Mark = true;
    sheet.FontSize = layout.mark_size;
    sheet.DrawText(x, layout.place.Bottom() - centile * layout.centile_scale - above, u"Trm"_s);
}

void Paper_Charts::DrawCentileChart(const Chart_Layout& layout, const Profile& profile, bool show_time_bars) {
    const int line = Begin_Scale();
    if (layout.has_titles) Draw_Axis_Title(layout.place, line, u"Centiles"_s);
    Draw_Centile_Figures(layout, line);
    if (layout.has_titles) Draw_Band_Names(layout.place, line);
    const auto bar = [&](int x, int centile, Bar_Colour colour) {
        const int height = centile * layout.centile_scale;
        DrawBar(sheet, x, layout.place.Bottom() - height, layout.bar_width, height, colour, {}, boxes);
    };
    for (int t = 1; t <= scoring::Normed_Tests; ++t) {
        const auto slot = static_cast<std::size_t>(t);
        const int centile = profile.raw_centile[slot];
        const int x = layout.first_centile_bar + (t - 1) * layout.bar_step;
        bar(x, centile, Bar_Colour::Red);
        const bool terminated = (t == scoring::test_index::Tolvens && profile.tolvens_terminated) ||
                                (t == scoring::test_index::Bliks_Friends && profile.friends_terminated);
        if (terminated && centile > 0) Draw_Terminated_Mark(layout, x, centile);
        if (show_time_bars) bar(x + layout.time_bar_offset, profile.time_centile[slot], Bar_Colour::Blue);
    }
}

// No "Trm" mark is drawn on this scale.
void Paper_Charts::DrawZScoreChart(const Chart_Layout& layout, const Profile& profile, bool show_time_bars) {
    const Chart_Place& place = layout.place;
    const int line = Begin_Scale();
    if (layout.has_titles) Draw_Axis_Title(place, line, u"Standard Deviation Units (Z Scores)"_s);
    sheet.FontSize = layout.figure_size;
    for (const Named_Height& figure : ZScore_Figures)
        sheet.DrawText(Twips(place.left - 1.5 * line),
                       Twips(place.top + figure.middle * place.height - line / 2.0), figure.name.toString());
    const int middle = Twips(place.top + place.height / 2.0);
    const auto bar = [&](int x, double z, Bar_Colour colour) {
        DrawBar(sheet, x, middle, layout.bar_width, -ZScore_Height(z, layout.zscore_scale), colour, {},
                boxes);
    };
    for (int t = 1; t <= scoring::Normed_Tests; ++t) {
        const auto slot = static_cast<std::size_t>(t);
        const int x = layout.first_zscore_bar + (t - 1) * layout.bar_step;
        bar(x, profile.raw_zscore[slot], Bar_Colour::Red);
        if (show_time_bars) bar(x + layout.time_bar_offset, profile.time_zscore[slot], Bar_Colour::Blue);
    }
}

void Paper_Charts::Draw_Profile(const Chart_Layout& layout, const Profile& profile, const Chart_Look& look) {
    Draw_Frame(layout.place);
    if (look.ground == "GREY"_L1)
        Draw_Grey_Bands(layout.place, look.Chart_Mode);
    else
        Draw_White_Lines(layout.place, look.Chart_Mode);
    Draw_Column_Labels(layout);
    if (look.Chart_Mode == "P"_L1)
        DrawCentileChart(layout, profile, look.show_time_bars);
    else
        DrawZScoreChart(layout, profile, look.show_time_bars);
}

void Paper_Charts::Draw_Extra_Legend(int x, int y, bool show_time_bars) {
    constexpr int side = 240;
    constexpr int text_offset = 320;
    constexpr int time_offset = 480;
    Fill_Rectangle(x, y, side, side, Red);
    if (show_time_bars) Fill_Rectangle(x, y + time_offset, side, side, Blue);
    sheet.ForeColor = Qt::black;
    sheet.FontSize = 8;
    sheet.FontBold = true;
    sheet.DrawText(x + text_offset, y, u"Accuracy"_s);
    if (show_time_bars) sheet.DrawText(x + text_offset, y + time_offset, u"Time"_s);
    sheet.ForeColor = Red;
    sheet.FontSize = 6;
    sheet.DrawText(x + 2880, y, u"Profiles should be interpreted in accordance with the manual."_s);
    sheet.ForeColor = Qt::black;
}

void Paper_Charts::Draw_Terminated_Note(int x, int y) {
    sheet.ForeColor = Blue;
    sheet.FontSize = 6;
    sheet.FontBold = false;
    sheet.DrawText(x, y, u"Trm - Tests which were terminated early (Tolvens or Blik's Friends)"_s);
    sheet.ForeColor = Qt::black;
}

} // namespace printing
