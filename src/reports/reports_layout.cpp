#include "reports/chart_pictures.h"
#include "reports/reports_page.h"
#include "scoring/test_catalogue.h"

#include <QButtonGroup>
#include <QGroupBox>
#include <QShortcut>

using namespace Qt::StringLiterals;

namespace reports {

using shell::HotLabel;
using shell::Text_Role;

constexpr QSize Frame_Size{1080, 560};
constexpr int Left = 16;
constexpr int Left_Width = 268;
constexpr int Tables_Left = 296; // and that of the scale beside the chart
constexpr QPoint Chart_Corner{366, 40};
constexpr int Beside_Chart = 988;
constexpr int Beside_Chart_Width = 76;
constexpr int Tests_Top = 449;
constexpr int Tests_Height = 40;
constexpr int Notices_Top = 495;
constexpr int Help_Top = 516;
constexpr int Last_Row = 504;
constexpr int Menu_Left = 924;
constexpr int Twips_To_Pixels = 15;
const QString Values_Setting = u"Reports/Show_Values"_s;

Form30::Form30(desktop::Platform& platform, shell::Navigator& navigator, Report_Data data)
    : Page(platform, navigator, Frame_Size),
      installation(data.installation),
      pupils(data.scores.pupils),
      norms(data.scores.norms),
      scoring(data.scoring),
      state(data.state),
      holder(data.scoring.holder) {
    setObjectName(u"Form30"_s);
    Lay_Out();
    Tell_Helps();
}

// A piece that the style sheet colours by its kind.
static QFrame* Make_Patch(const QString& name, const char* kind, const QVariant& value, const QRect& place,
                          QWidget* parent) {
    auto* patch = new QFrame(parent);
    patch->setObjectName(name);
    patch->setProperty(kind, value);
    patch->setGeometry(place);
    return patch;
}

void Form30::Lay_Out() {
    Lay_Out_Left_Panel();
    Lay_Out_Chart();
    Lay_Out_Beside_Chart();
    Lay_Out_Commands();
    Lay_Out_Earlier();
    Label7 = Make_HotLabel(
        u"Label7"_s, u""_s, {Left, Help_Top, Menu_Left - 12 - Left, 28}, [this] { Label7_Click(); },
        HotLabel::Look::Strip);
    Show_In_Label7(u""_s);
    constexpr int verdict_width = 210;
    Label16 = Make_Label(u"Label16"_s, u""_s, Text_Role::Quiet, {Left, 456, verdict_width, 36});
    Label16->setWordWrap(true);
    Label17 = Make_Label(u"Label17"_s, u""_s, Text_Role::Quiet,
                         {Left + verdict_width, 456, Left_Width - verdict_width, 36});
    Label17->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    const QRect track(Left, Notices_Top - 4, Whole_Progress, 3);
    Track = Make_Patch(u"Shape11_track"_s, "progress", u"track"_s, track, Frame1);
    Notices = new Notice_Line(u"Notices"_s, Frame1);
    Notices->setGeometry(Left, Notices_Top, Menu_Left - 12 - Left, 21);
    Shape11 = Make_Patch(u"Shape11"_s, "progress", u"fill"_s, {0, 0, 1, track.height()}, Track);
    Lay_Out_Why();
}

static QGroupBox* Make_Group(const QString& caption, const QRect& place, QWidget* parent) {
    auto* group = new QGroupBox(caption, parent);
    group->setGeometry(place);
    return group;
}

static QLabel* Make_Picture(const QString& name, const QPixmap& picture, QWidget* parent) {
    auto* label = new QLabel(parent);
    label->setObjectName(name);
    label->setPixmap(picture);
    label->hide();
    return label;
}

// Of the two entries one is always chosen.
static void Pair(HotLabel* one, HotLabel* other, QObject* owner) {
    auto* pair = new QButtonGroup(owner);
    for (HotLabel* label : {one, other}) {
        label->setCheckable(true);
        pair->addButton(label);
    }
}

void Form30::Lay_Out_Left_Panel() {
    constexpr int half = 116;
    const QRect first(12, 39, half, 29);
    const QRect second(12 + half + 12, 39, half, 29);
    const auto subtitle = [this](const QString& name, const QString& text, QWidget* group) {
        Make_Label(name, text, Text_Role::Quiet, {12, 21, 240, 17}, group);
    };
    Make_Label(u"Label1"_s, u"Reports"_s, Text_Role::Title, {Left, 16, 180, 34});
    Make_Label(u"Label2"_s, u"Pupils"_s, Text_Role::Heading, {Left, 50, Left_Width, 19});
    Combo1 = new shell::Click_Combo(u"Combo1"_s, Frame1);
    Combo1->setGeometry(Left, 70, Left_Width, 32);
    Combo1->setAccessibleName(u"Pupils"_s);
    Combo1->setAccessibleDescription(u"The pupil whose results the page shows."_s);
    Combo1->setMaxVisibleItems(24);
    shell::On(Combo1, &shell::Click_Combo::Click, this, platform, [this] { Combo1_Click(); });

    Who = Make_Label(u"Who"_s, u""_s, Text_Role::Quiet, {Left, 104, Left_Width, 34});

    QGroupBox* scales = Make_Group(u"Scoring type"_s, {Left, 142, Left_Width, 74}, Frame1);
    subtitle(u"Label4"_s, u"Scales"_s, scales);
    // A choice of pupil runs these handlers too, and describes the chart itself once it has all scores.
    const auto choose_scale = [this](void (Form30::*chosen)()) {
        (this->*chosen)();
        Describe_Chart();
    };
    ShowCentiles = Make_HotLabel(
        u"ShowCentiles"_s, u"Centiles"_s, first,
        [choose_scale] { choose_scale(&Form30::ShowCentiles_Click); }, HotLabel::Look::Command, scales);
    ShowZScores = Make_HotLabel(
        u"ShowZScores"_s, u"Z-Scores"_s, second, [choose_scale] { choose_scale(&Form30::ShowZScores_Click); },
        HotLabel::Look::Command, scales);
    Pair(ShowCentiles, ShowZScores, this);

    QGroupBox* shading = Make_Group(u"Graph shading"_s, {Left, 217, Left_Width, 74}, Frame1);
    subtitle(u"Label5"_s, u"Chart colours"_s, shading);
    ShowGreys = Make_HotLabel(
        u"ShowGreys"_s, u"Grey bands"_s, first, [this] { ShowGreys_Click(); }, HotLabel::Look::Command,
        shading);
    ShowWhite = Make_HotLabel(
        u"ShowWhite"_s, u"White"_s, second, [this] { ShowWhite_Click(); }, HotLabel::Look::Command, shading);
    Pair(ShowGreys, ShowWhite, this);

    QGroupBox* times = Make_Group(u"Show time bars"_s, {Left, 292, 118, 70}, Frame1);
    HotLabel2 = Make_HotLabel(
        u"HotLabel2"_s, u"Time"_s, {8, 28, 46, 34}, [this] { HotLabel2_Click(); }, HotLabel::Look::Command,
        times);
    constexpr QSize switch_size{48, 26};
    const qreal ratio = devicePixelRatioF();
    Image1 = Make_Picture(u"Image1"_s, Switch_Picture(true, switch_size, ratio), this);
    Image3 = Make_Picture(u"Image3"_s, Switch_Picture(false, switch_size, ratio), this);
    Image4 = Make_Picture(u"Image4"_s, {}, times);
    Image4->setGeometry(QRect(QPoint(61, 32), switch_size));
    Image4->show();

    QGroupBox* previews = Make_Group(u"Report previews"_s, {Left + 126, 292, 142, 70}, Frame1);
    HotLabel4 = Make_HotLabel(
        u"HotLabel4"_s, u"Single"_s, {8, 28, 58, 34}, [this] { HotLabel4_Click(); }, HotLabel::Look::Command,
        previews);
    HotLabel4->Set_Weight(HotLabel::Weight::Primary);
    HotLabel6 = Make_HotLabel(
        u"HotLabel6"_s, u"Batches"_s, {72, 28, 64, 34}, [this] { HotLabel6_Click(); },
        HotLabel::Look::Command, previews);
}

void Form30::Lay_Out_Chart() {
    const int chart = Chart_Corner.x();
    Make_Label(u"Label6"_s, u"Cognitive Profile"_s, Text_Role::Caption, {Tables_Left, 16, 140, 16});
    QLabel* heading = Make_Label(u"Label3"_s, u""_s, Text_Role::Quiet,
                                 {Tables_Left + 140, 16, Table_Panel::Size.width() - 140, 16});
    heading->setAlignment(Qt::AlignRight | Qt::AlignVCenter);

    // The scale's marks have fixed places on the form, in twips from its top.
    const auto marks = [this](auto& labels, const QString& name,
                              std::initializer_list<std::pair<QString, int>> places) {
        std::size_t i = 0;
        for (const auto& [caption, twips] : places) {
            labels[i] = Make_Label(u"%1(%2)"_s.arg(name).arg(i), caption, Text_Role::Body,
                                   {Chart_Corner.x() - 42, twips / Twips_To_Pixels, 36, 16});
            labels[i++]->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
        }
    };
    marks(Label9, u"Label9"_s,
          {{u"100"_s, 480},
           {u"95"_s, 840},
           {u"80"_s, 1680},
           {u"65"_s, 2640},
           {u"50"_s, 3480},
           {u"35"_s, 4440},
           {u"20"_s, 5280},
           {u"5"_s, 6120},
           {u"0"_s, 6480}});
    marks(Label10, u"Label10"_s,
          {{u"+2"_s, 900}, {u"+1"_s, 2220}, {u"0"_s, 3480}, {u"-1"_s, 4800}, {u"-2"_s, 6120}});

    constexpr QSize side{24, Chart_Height};
    const qreal ratio = devicePixelRatioF();
    Image6 = Make_Picture(u"Image6"_s, Scale_Picture(u"Centile"_s, side, ratio), this);
    Image7 = Make_Picture(u"Image7"_s, Scale_Picture(u"Z-score"_s, side, ratio), this);
    Image2 = Make_Picture(u"Image2"_s, {}, Frame1);
    Image2->setGeometry(QRect(QPoint(chart - 70, Chart_Corner.y()), side));
    Image2->show();

    Picture2 =
        new Profile_Chart(u"Picture2"_s, {state, pupils, scoring.scores, norms, platform.boxes}, Frame1);
    Picture2->setAccessibleDescription(
        u"The pupil's scores by test; the arrow keys go from one to the next."_s);
    Picture2->move(Chart_Corner);

    for (std::size_t i = 0; i < BtnEnh.size(); ++i) {
        const int t = static_cast<int>(i) + 1;
        // Pindo has no bars to stand under.
        const QRect place = t == scoring::test_index::Pindo
                                ? QRect(Beside_Chart, Tests_Top, Beside_Chart_Width, Tests_Height)
                                : QRect(chart + Profile_Chart::Column_Left(t) - 4, Tests_Top,
                                        Profile_Chart::Column_Width + 8, Tests_Height);
        BtnEnh[i] = Make_HotLabel(u"BtnEnh1%1"_s.arg(t), scoring::Test_At(t).Test_Name, place,
                                  [this, t] { Test_Button_Click(t); });
        Shape10[i] = Make_Patch(u"Shape10(%1)"_s.arg(i), "marker", true,
                                {place.x() + 8, place.bottom() + 1, place.width() - 16, 4}, Frame1);
        Shape10[i]->hide();
    }
    Lay_Out_Key({Beside_Chart, Chart_Corner.y()});

    Lay_Out_Tables(heading);
}

void Form30::Lay_Out_Tables(QLabel* heading) {
    tables = new Table_Panel(heading, scoring, {Tables_Left, Chart_Corner.y()}, Frame1);
    shell::On(tables, &Table_Panel::Closed, this, platform, [this] { Show_Chart(true); });
}

void Form30::Lay_Out_Key(const QPoint& corner) {
    Key = new QWidget(Frame1);
    constexpr int row = 22;
    Key->setGeometry({corner, QSize(Beside_Chart_Width, 2 * row)});
    const auto entry = [this](Measure measure, const QString& caption, int top) {
        auto* part = new QWidget(Key);
        part->setGeometry(0, top, Beside_Chart_Width, row);
        Make_Bar(u"Key_patch"_s, measure, part)->setGeometry(0, 4, 14, 14);
        Make_Label(u"Key_label"_s, caption, Text_Role::Quiet, {18, 0, Beside_Chart_Width - 18, row}, part);
        return part;
    };
    entry(Measure::Accuracy, u"Accuracy"_s, 0);
    Time_Key = entry(Measure::Time, u"Time"_s, row);
}

void Form30::Lay_Out_Beside_Chart() {
    ShowValues = new QCheckBox(u"Values"_s, Frame1);
    ShowValues->setObjectName(u"ShowValues"_s);
    ShowValues->setGeometry(Beside_Chart, Chart_Corner.y() + 48, Beside_Chart_Width, 28);
    ShowValues->setChecked(platform.settings.Is_On(Values_Setting, u"1"_s));
    Picture2->Show_Values(ShowValues->isChecked());
    shell::On(ShowValues, &QCheckBox::clicked, this, platform, [this] {
        platform.settings.Turn(Values_Setting, ShowValues->isChecked());
        Picture2->Show_Values(ShowValues->isChecked());
    });
    SaveScores = Make_HotLabel(u"SaveScores"_s, u"Save scores as CSV..."_s,
                               {Beside_Chart, Chart_Corner.y() + Chart_Height - 112, Beside_Chart_Width, 68},
                               [this] { SaveScores_Click(); });
    WhyEntry = Make_HotLabel(u"WhyEntry"_s, u"Why"_s,
                             {Beside_Chart, Chart_Corner.y() + Chart_Height - 36, Beside_Chart_Width, 36},
                             [this] { Open_Why(Picture2->Current_Test()); });
    connect(Picture2, &Profile_Chart::Asked_Why, this, [this](int t) {
        if (shell::Takes_Event(this->platform, Picture2, this))
            shell::Guarded(
                this->platform, [this, t] { Open_Why(t); }, window());
    });
}

void Form30::Lay_Out_Why() {
    constexpr int around = 4;
    constexpr int above = 8; // the scale's first and last mark are covered too
    const QRect place(QPoint(Tables_Left, Chart_Corner.y()), Table_Panel::Size);
    Why = new Why_Panel(place.adjusted(0, -above, around, above), platform, Frame1);
    connect(Why, &Why_Panel::Chosen, this, [this](int t) { Open_Why(t); });
    connect(Why, &Why_Panel::Print, this, [this] { Print_Why(); });
    connect(Why, &Why_Panel::Close, this, [this] { Close_Why(); });
    // Wherever the keys are on the page; not while the panel is hidden.
    auto* escape = new QShortcut(QKeySequence(Qt::Key_Escape), Why);
    shell::On(escape, &QShortcut::activated, this, platform, [this] { Close_Why(); });
}

void Form30::Lay_Out_Commands() {
    constexpr int half = 128;
    constexpr int second = Left + Left_Width - half;
    const auto entry = [this](const char16_t* name, const QString& caption, const QRect& place,
                              std::function<void()> click) {
        return Make_HotLabel(QString::fromUtf16(name), caption, place, std::move(click));
    };
    HotLabel7 = entry(u"HotLabel7", u"Summary"_s, {Left, 365, half, 28}, [this] { HotLabel7_Click(); });
    HotLabel5 = entry(u"HotLabel5", u"Chart"_s, {second, 365, half, 28}, [this] { HotLabel5_Click(); });
    HotLabel3 = entry(u"HotLabel3", u"Comment"_s, {Left, 396, half, 28}, [this] { HotLabel3_Click(); });
    Label8 = Make_Label(u"Label8"_s, u"Print"_s, Text_Role::Quiet, {second, 396, 36, 28});
    PrintIcon =
        entry(u"PrintIcon", u"Print out"_s, {second + 38, 396, half - 38, 28}, [this] { PrintIcon_Click(); });
    HotLabel1 = entry(u"HotLabel1", u"Menu"_s, {Menu_Left, Last_Row, 140, 40}, [this] { HotLabel1_Click(); });
    SaveAsPdf =
        entry(u"SaveAsPdf", u"Save as PDF..."_s, {second, 427, half, 28}, [this] { SaveAsPdf_Click(); });
    setTabOrder(PrintIcon, SaveAsPdf);
    Offer_Printing(false);
}

// Beside the title, as it is about the pupil and not about the chart.
void Form30::Lay_Out_Earlier() {
    EarlierResults = Make_HotLabel(u"EarlierResults"_s, u"Earlier results"_s, {Left + 134, 18, 134, 32},
                                   [this] { EarlierResults_Click(); });
}

void Form30::Tell_Helps() {
    auto* help = new shell::Help_Line(this, [this](const QString& text) { Show_In_Label7(text); });
    help->Tell(HotLabel1, u"Return to the Mevo main menu"_s);
    help->Tell(HotLabel2, u"Show or hide the bars showing time scores (higher scores are faster)"_s);
    help->Tell(HotLabel3,
               u"Add a comment (up to about 200 words) which will be added to the Report printout"_s);
    help->Tell(HotLabel4, u"Show the Print Preview page for this student's full report page"_s);
    help->Tell(HotLabel5, u"Show the bar chart"_s);
    help->Tell(
        HotLabel6,
        u"Show the Print Preview page for batch reports which can show graphical profiles for 8 pupils per page"_s);
    help->Tell(HotLabel7, u"Summary of the pupil's performance in the tests"_s);
    help->Tell(EarlierResults, u"Show what the pupil scored before a test was taken again"_s);
    help->Tell(SaveScores, u"Save the scores of all pupils on the list, for a spreadsheet"_s);
    help->Tell(PrintIcon,
               u"Print out the scores summary table or any of the raw data tables currently on screen."_s);
    help->Tell(SaveAsPdf, u"Save the table on screen in a PDF file, where you choose."_s);
    help->Tell(WhyEntry, u"Show how a score came about; a double click on its column does the same"_s);
    help->Tell(ShowValues, u"Show or hide the values at the bars, and why a column has no bar"_s);
    Why->Tell_Helps(*help);
    for (HotLabel* scale : {ShowCentiles, ShowZScores})
        help->Tell(scale, u"Show either the Centile or Z-Scores chart"_s);
    for (HotLabel* ground : {ShowGreys, ShowWhite})
        help->Tell(ground, u"Change the chart background to either plain white or monochrome bands"_s);
    const QString ended_early =
        u"'T' signifies that '%1' was terminated by permissible human intervention before its normal ending."_s;
    help->Tell(Picture2->Image12, ended_early.arg(u"Tolvens"_s));
    help->Tell(Picture2->Image13, ended_early.arg(u"Bliks Friends"_s));
    const QString detailed = u"Detailed data for the %1 test"_s;
    const QString names[] = {
        u"Tolvens"_s, u"Blik's Friends"_s, u"Karrel"_s, u"Blik's Letters"_s, u"Blik's Letter Names"_s,
        u"Drell"_s,   u"Mirvel"_s,         u"Yoon"_s};
    for (std::size_t i = 0; i < std::size(names); ++i)
        help->Tell(BtnEnh[i], detailed.arg(names[i]));
    help->Tell(BtnEnh[8], u"Detailed data for Pindo (colour discrimination) test"_s);
    help->Stands_For(Picture2->Image12, {Picture2->Row(scoring::test_index::Tolvens)});
    help->Stands_For(Picture2->Image13, {Picture2->Row(scoring::test_index::Bliks_Friends)});
    help->Follow_Focus(*this);
}

} // namespace reports
