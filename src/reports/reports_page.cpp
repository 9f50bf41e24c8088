#include "reports/reports_page.h"

#include "platform/basics/number_text.h"
#include "platform/desktop/wait_pointer.h"
#include "printing/print_outcome.h"
#include "printing/print_table.h"
#include "reports/state/pupil_comment.h"
#include "scoring/pindo.h"
#include "scoring/score_conversion.h"
#include "scoring/summary_table.h"
#include "scoring/tables/raw_tables.h"
#include "shell/conventions/comment_dialog.h"

using namespace Qt::StringLiterals;

namespace reports {

constexpr int Whole_Column = 64;
constexpr int Half_Column = 32;
constexpr int Resting_Top = 356;
const QString Way_Back = u"Show the bar chart"_s;

// ---- opening

void Form30::Load() {
    Show_Progress_Width(1);
    state.Show_Time_Bars = false;
    Set_Bar_Widths(false, Whole_Column);
    state.Chart_Background = u"GREY"_s;
    state.Chart_Mode = u"P"_s;
    Clear_Bar_Arrays();
    Show_Time_Flag();
    state.Test_Table_Title = {
        u"Test data for Tolvens"_s,
        u"Test data for Blik's Friends"_s,
        u"Test data for Karrel"_s,
        u"Test data for Blik's Letters"_s,
        u"Test data for Blik's Letters Names"_s,
        u"Test data for Drell"_s,
        u"Test data for Mirvel"_s,
        u"Test data for Yoon"_s,
        u"Test data for Pindo"_s,
    };
    if (installation.Viewing_Mode) HotLabel3->setEnabled(false);
    scoring::Load_All_Norms(holder, installation, norms);
    Once_Painted(u"Timer2"_s, [this] { Timer2_Timer(); });
}

void Form30::Timer2_Timer() {
    state.Chart_Background = u"GREY"_s;
    Load_Students();
}

void Form30::Load_Students() {
    scoring::Load_Pupil_Lists(holder, installation, platform.clock, pupils);
    Combo1->Clear();
    for (int p = 1; p <= pupils.Pupils_Listed; ++p)
        Combo1->AddItem(scoring::Pupil_List_Entry(pupils, p));
    if (pupils.Pupils_Listed > 0)
        Combo1->Set_ListIndex(0);
    else
        Show_In_Label7(u"No reports are available as yet"_s);
}

// ---- choosing a pupil

void Form30::Combo1_Click() {
    state.Current_Pupil = static_cast<qint16>(Combo1->ListIndex() + 1);
    Show_Progress_Width(1);
    state.Current_Student_Code = pupils.Student_Code[state.Current_Pupil];
    This_Students_Age(state.Current_Pupil);
    const desktop::Wait_Pointer busy(platform.pointer);
    Show_Chart(true);
    Regen_Bars_For_Another_Child(state.Current_Pupil);
}

void Form30::This_Students_Age(int p) {
    state.Pupil_Name = pupils.Pupil_Name_List[p];
    state.Pupil_DOB = pupils.Pupil_DOB_List[p];
    const int months = scoring::Age_When_First_Tested(pupils, p);
    state.Pupil_Age_Text =
        basics::Signed_Number(months / 12) + u"y "_s + basics::Signed_Number(months % 12) + u'm';
}

// The order is required: each step relies on the one before.
void Form30::Regen_Bars_For_Another_Child(int p) {
    Hide_Any_Tables();
    Reset_Bars();
    Label3->setText(u""_s);
    Show_8_Buttons();
    {
        const desktop::Wait_Pointer busy(platform.pointer);
        const auto wanted =
            state.Show_Time_Bars ? scoring::Passes_Wanted::Raw_And_Time : scoring::Passes_Wanted::Raw;
        scoring::Score_Chosen_Pupil(p, wanted, Progress(), scoring, state.summary);
        state.Time_Scores_Ready = state.Show_Time_Bars;
    }
    if (state.Chart_Mode == "P"_L1)
        ShowCentiles_Click();
    else
        ShowZScores_Click();
    Hide_Untaken_Bars(p);
    TerminatedTests();
    Label16->setText(u""_s);
    Label17->setText(u""_s);
    scoring::Fill_SummaryTable_With_Scores(p, pupils, scoring.scores, state.summary);
    scoring::Fill_SummaryTable_With_Ages(p, pupils, state.summary);
    Show_Summary_Cells();
    Load_Comment(p, pupils, installation, holder, state.comment);
    Describe_Chart();
    Show_Progress_Width(1);
}

void Form30::Compute_Raw_Scores_Times(int p, bool show_progress) {
    scoring::Compute_Raw_Scores_Times(p, show_progress ? Progress() : scoring::Progress_Strip(), scoring);
    Show_Progress_Width(1);
}

scoring::Progress_Strip Form30::Progress() {
    return [this](int width) { Show_Progress_Width(width); };
}

void Form30::TerminatedTests() {
    const auto stand = [this](Terminated_Mark* mark, const QFrame* bar, bool terminated) {
        constexpr int above = 18;
        mark->move(bar->x() + (bar->width() - mark->width()) / 2, bar->y() - above);
        mark->setVisible(terminated);
        mark->raise();
        mark->update();
    };
    stand(Picture2->Image12, Picture2->Shape(1), scoring.scores.Tolvens_Terminated);
    stand(Picture2->Image13, Picture2->Shape(2), scoring.scores.Friends_Terminated);
}

void Form30::Show_Progress_Width(int width) {
    constexpr int at_rest = 1;
    constexpr int one_frame_ms = 16; // painting more often than the screen shows it would only cost time
    Shape11->resize(width, Shape11->height());
    if (width > at_rest && strip_painted.isValid() && !strip_painted.hasExpired(one_frame_ms)) return;
    if (width > at_rest) Shape11->repaint(); // the page is busy: nobody else paints it
    strip_painted.start();
}

// ---- bars

Eight_Centiles Form30::Raw_Centiles() const {
    Eight_Centiles centiles;
    for (int t = 1; t <= 8; ++t)
        centiles[static_cast<std::size_t>(t - 1)] = scoring.scores.Raw_Centile[t];
    return centiles;
}

Eight_Centiles Form30::Time_Centiles() const {
    Eight_Centiles centiles;
    for (int t = 1; t <= 8; ++t)
        centiles[static_cast<std::size_t>(t - 1)] = scoring.scores.Time_Centile[t].As_Integer();
    return centiles;
}

static void Stand_On_Centiles(QFrame* bar, int centile) {
    Profile_Chart::Place(bar, Centile_Bar(centile));
    if (centile > 0) bar->show(); // 0 leaves a bar as it was, at no height
}

void Form30::Show_Centile_Bars(const Eight_Centiles& centiles) {
    state.Chart_Mode = u"P"_s;
    for (int t = 1; t <= 8; ++t)
        Stand_On_Centiles(Picture2->Shape(t), centiles[static_cast<std::size_t>(t - 1)]);
}

void Form30::Show_Time_Centile_Bars(const Eight_Centiles& centiles) {
    for (int t = 1; t <= 8; ++t)
        Stand_On_Centiles(Picture2->Time_Shape(t), centiles[static_cast<std::size_t>(t - 1)]);
}

void Form30::Convert_Z_Score_To_Bar_Height(double z, qint16& height) {
    if (const auto found = Bar_Height_For(z)) {
        height = static_cast<qint16>(*found);
        return;
    }
    platform.boxes.Ask(desktop::Box_Style::Information, u"Error"_s,
                       u"There has been an error calculating the bar height"_s);
}

void Form30::Show_ZScore_Bars(const Eight_Centiles& centiles) {
    for (int t = 1; t <= 8; ++t) {
        const qint16 centile = centiles[static_cast<std::size_t>(t - 1)];
        qint16 height = 0;
        Convert_Z_Score_To_Bar_Height(scoring::Centile_To_ZScore(centile), height);
        if (centile > 0) Picture2->Shape(t)->show();
        Profile_Chart::Place(Picture2->Shape(t), ZScore_Bar(centile, height));
    }
}

// Whether a time bar is seen is Set_Bar_Widths' alone on this scale.
void Form30::Show_Time_ZScore_Bars(const Eight_Centiles& centiles) {
    for (int t = 1; t <= 8; ++t) {
        const qint16 centile = centiles[static_cast<std::size_t>(t - 1)];
        qint16 height = 0;
        Convert_Z_Score_To_Bar_Height(scoring::Centile_To_ZScore(centile), height);
        Profile_Chart::Place(Picture2->Time_Shape(t), ZScore_Bar(centile, height));
    }
}

void Form30::Set_Bar_Widths(bool show_time, int width) {
    for (int t = 1; t <= 8; ++t) {
        Picture2->Time_Shape(t)->setVisible(show_time);
        Picture2->Shape(t)->resize(width, Picture2->Shape(t)->height());
    }
    Time_Key->setVisible(show_time);
}

void Form30::Reset_Bars() {
    for (int t = 1; t <= 8; ++t) {
        Profile_Chart::Place(Picture2->Shape(t), {Resting_Top, 0});
        Picture2->Shape(t)->raise();
        Profile_Chart::Place(Picture2->Time_Shape(t), {Resting_Top, 0});
    }
}

void Form30::Clear_Bar_Arrays() {
    for (int t = 1; t <= 8; ++t) {
        scoring.scores.Raw_Centile[t] = 0;
        Picture2->Shape(t)->resize(Picture2->Shape(t)->width(), 0);
    }
}

void Form30::Hide_Test_Bars(int t) {
    Picture2->Shape(t)->hide();
    Picture2->Shape(t)->raise();
    Picture2->Time_Shape(t)->hide();
}

void Form30::Hide_Untaken_Bars(int p) {
    for (int t = 1; t <= 8; ++t)
        if (pupils.Test_Status[t][p] == 0) Hide_Test_Bars(t);
}

void Form30::Toggle_Show_TimeBars(int p) {
    state.Show_Time_Bars = !state.Show_Time_Bars;
    if (!state.Show_Time_Bars) {
        Set_Bar_Widths(false, Whole_Column);
        return;
    }
    if (!state.Time_Scores_Ready) {
        Compute_Raw_Scores_Times(p, true);
        scoring::Fill_SummaryTable_With_Scores(p, pupils, scoring.scores, state.summary);
        Show_Summary_Cells();
        state.Time_Scores_Ready = true;
    }
    if (state.Chart_Mode == "Z"_L1) Show_Time_ZScore_Bars(Time_Centiles());
    if (state.Chart_Mode == "P"_L1) Show_Time_Centile_Bars(Time_Centiles());
    Set_Bar_Widths(true, Half_Column);
}

void Form30::Show_Time_Flag() {
    Image4->setPixmap((state.Show_Time_Bars ? Image1 : Image3)->pixmap());
    Image4->setAccessibleName(state.Show_Time_Bars ? u"Time bars on"_s : u"Time bars off"_s);
}

// ---- scale and ground

QString Form30::Chart_File() const {
    const QString scale = state.Chart_Mode == "Z"_L1 ? u"z"_s : u"p"_s;
    if (state.Chart_Background == "GREY"_L1)
        return installation.App_Path + u"\\system\\"_s + scale + u"_grey.bmp"_s;
    if (state.Chart_Background == "WHITE"_L1)
        return installation.App_Path + u"\\system\\"_s + scale + u"_white.bmp"_s;
    return {};
}

void Form30::Copy_Scale_Picture() {
    Image2->setPixmap((state.Chart_Mode == "Z"_L1 ? Image7 : Image6)->pixmap());
}

void Form30::Show_Scale() {
    const bool z = state.Chart_Mode == "Z"_L1;
    for (QLabel* mark : Label10)
        mark->setVisible(z);
    for (QLabel* mark : Label9)
        mark->setVisible(!z);
    Copy_Scale_Picture();
    (z ? ShowZScores : ShowCentiles)->setChecked(true);
}

void Form30::Draw_Scale(const QString& mode) {
    Hide_Any_Tables();
    state.Chart_Mode = mode;
    Show_Scale();
    if (const QString file = Chart_File(); !file.isEmpty()) Picture2->Load_Picture(file);
    (state.Chart_Background == "WHITE"_L1 ? ShowWhite : ShowGreys)->setChecked(true);
    Show_Chart(true);
}

void Form30::ShowCentiles_Click() {
    Draw_Scale(u"P"_s);
    Show_Centile_Bars(Raw_Centiles());
    if (state.Show_Time_Bars) Show_Time_Centile_Bars(Time_Centiles());
    TerminatedTests(); // the marks stand on the bars, wherever these went
}

void Form30::ShowZScores_Click() {
    Draw_Scale(u"Z"_s);
    Show_ZScore_Bars(Raw_Centiles());
    if (state.Show_Time_Bars) Show_Time_ZScore_Bars(Time_Centiles());
    TerminatedTests();
}

void Form30::Change_Background(const QString& ground) {
    state.Chart_Background = ground;
    Picture2->Load_Picture(Chart_File());
    Copy_Scale_Picture();
    (ground == "WHITE"_L1 ? ShowWhite : ShowGreys)->setChecked(true);
}

void Form30::ShowGreys_Click() {
    Change_Background(u"GREY"_s);
}

void Form30::ShowWhite_Click() {
    Change_Background(u"WHITE"_s);
}

// ---- chart and tables

// The line is on the way of the keys only while it leads somewhere.
void Form30::Show_In_Label7(const QString& text) {
    Label7->Set_Caption(text);
    const bool leads_back = text == Way_Back;
    Label7->setFocusPolicy(leads_back ? Qt::StrongFocus : Qt::NoFocus);
    Label7->setAccessibleName(leads_back ? text : u"Help"_s);
    Label7->setAccessibleDescription(leads_back ? u"Back from the table to the chart."_s : text);
}

void Form30::Hide_Any_Tables() {
    for (grid::fpSpread* table : {fpSpread1, fpSpread2, fpSpread2plus})
        table->hide();
}

void Form30::Hide_All_Objects() {
    Hide_Any_Tables();
    Show_Chart(false);
}

void Form30::Show_Chart(bool shown) {
    Picture2->setVisible(shown);
    Key->setVisible(shown);
}

void Form30::Hide_All_Markers() {
    for (QFrame* marker : Shape10)
        marker->hide();
}

void Form30::Show_Raw_Marker(int i) {
    Hide_All_Markers();
    for (QLabel* mark : Label9)
        mark->hide();
    Shape10[static_cast<std::size_t>(i)]->show();
    Shape10[static_cast<std::size_t>(i)]->raise();
    Label3->setText(state.Test_Table_Title[static_cast<std::size_t>(i)]);
}

void Form30::Offer_Printing(bool offered) {
    PrintIcon->setVisible(offered);
    Label8->setVisible(offered);
}

void Form30::Hide_8_Buttons() {
    for (shell::HotLabel* button : BtnEnh)
        button->hide();
}

void Form30::Show_8_Buttons() {
    for (shell::HotLabel* button : BtnEnh)
        button->show();
}

void Form30::Show_Summary_Cells() {
    for (int row = 1; row <= 10; ++row)
        for (int column = 1; column <= 10; ++column)
            fpSpread1->Set_Text(column, row, state.summary(row, column));
}

QString Form30::Words_For(int t) const {
    const bool z = state.Chart_Mode == "Z"_L1;
    const int p = state.Current_Pupil;
    const auto cell = [this, t](int number) {
        return state.summary(scoring::Summary_Row(t), number).simplified();
    };
    QString words = scoring::Test_At(t).Test_Name + u": "_s;
    if (pupils.Test_Status[t][p] == 0) return words + u"not taken"_s;
    namespace column = scoring::summary_column;
    const QString score = cell(z ? column::ZScore : column::Centile);
    words += score.isEmpty() ? u"no score for this age"_s : (z ? u"z-score "_s : u"centile "_s) + score;
    if (const QString age = cell(column::Test_Age); !age.isEmpty()) words += u", age at test "_s + age;
    if (const QString time = cell(z ? column::Time_ZScore : column::Time_Centile);
        state.Show_Time_Bars && !time.isEmpty())
        words += (z ? u", time z-score "_s : u", time centile "_s) + time;
    return words + (Is_Terminated(t) ? u", terminated"_s : QString());
}

bool Form30::Is_Terminated(int t) const {
    return (t == scoring::test_index::Tolvens && scoring.scores.Tolvens_Terminated) ||
           (t == scoring::test_index::Bliks_Friends && scoring.scores.Friends_Terminated);
}

// What the bars show, in words, for a reader who doesn't see them.
void Form30::Describe_Chart() {
    for (int t = 1; t <= 8; ++t) {
        Picture2->Row(t)->Tell(Words_For(t));
        const Terminated_Mark* mark =
            t == scoring::test_index::Tolvens ? Picture2->Image12 : Picture2->Image13;
        Picture2->Row(t)->setAccessibleDescription(Is_Terminated(t) ? mark->accessibleDescription()
                                                                    : QString());
    }
}

// ---- entries

void Form30::HotLabel1_Click() {
    navigator.Go_To(shell::Page_Id::Main_Menu);
}

void Form30::HotLabel2_Click() {
    Toggle_Show_TimeBars(state.Current_Pupil);
    Show_Time_Flag();
    TerminatedTests();
    Describe_Chart();
}

void Form30::HotLabel3_Click() {
    state.comment.Comment_Changed = false;
    shell::Form11 dialog(platform, state.comment.Pupil_Comment, state.comment.Comment_Changed);
    platform.dialogs.Show(dialog);
    if (state.comment.Comment_Changed)
        Save_Comment(state.Current_Pupil, pupils, installation, holder, state.comment);
}

void Form30::HotLabel4_Click() {
    if (!Picture2->isHidden()) navigator.Open_On_Top(shell::Page_Id::Individual_Report);
}

void Form30::HotLabel6_Click() {
    if (!Picture2->isHidden()) navigator.Open_On_Top(shell::Page_Id::Batch_Report);
}

void Form30::HotLabel5_Click() {
    if (!state.Chart_Replaced) return;
    Hide_All_Markers();
    Label3->setText(u""_s);
    Show_Scale();
    Hide_All_Objects();
    Show_8_Buttons();
    Show_Chart(true);
    Offer_Printing(false);
}

void Form30::Label7_Click() {
    if (!state.Chart_Replaced || Label7->Caption() != Way_Back) return;
    Hide_All_Objects();
    Show_8_Buttons();
    Show_Chart(true);
    Show_In_Label7(u""_s);
}

void Form30::PrintIcon_Click() {
    if (!Picture2->isHidden()) return; // only tables are printed from here
    if (!platform.printers.Choose()) return;
    using printing::Table_To_Print;
    const std::pair<Table_To_Print, grid::fpSpread*> tables[] = {{Table_To_Print::Wide_Detail, fpSpread2plus},
                                                                 {Table_To_Print::Summary, fpSpread1},
                                                                 {Table_To_Print::Detail, fpSpread2}};
    for (const auto& [kind, table] : tables) {
        if (table->isHidden()) continue;
        printing::Telling_Printer_Errors(platform, [&] {
            printing::Print_Table({kind, *table, Label3->text()}, state, installation, platform);
        });
        return;
    }
}

static bool Needs_Eight_Columns(int t) {
    return t == scoring::test_index::Mirvel || t == scoring::test_index::Yoon;
}

void Form30::FillCell2(const basics::Value& column, const basics::Value& row, const basics::Value& text) {
    fpSpread2->Set_Text(column.As_Integer(), row.As_Integer(), text.Text_Or_Empty());
}

void Form30::Show_Which_Raw_Data(int t, int p) {
    using namespace scoring;
    struct Filler {
        void (*show)(int p, grid::fpSpread& grid, Scoring& scoring);
        grid::fpSpread* table;
    };
    const Filler fillers[] = {
        {Show_Raw_Table_Tolvens, fpSpread2},    {Show_Raw_Table_Friends, fpSpread2},
        {Show_Raw_Table_Karrel, fpSpread2},     {Show_Raw_Table_Letters, fpSpread2},
        {Show_Raw_Table_BLN, fpSpread2},        {Show_Raw_Table_Drell, fpSpread2},
        {Show_Raw_Table_Mirvel, fpSpread2plus}, {Show_Raw_Table_Yoon, fpSpread2plus},
        {Show_Raw_Table_Pindo, fpSpread2},
    };
    if (t < 1 || t > All_Tests) return;
    const Filler& filler = fillers[t - 1];
    filler.show(p, *filler.table, scoring);
    filler.table->raise();
}

void Form30::Open_Detail_Table(int t) {
    Hide_Any_Tables(); // one table at a time
    Show_Which_Raw_Data(t, state.Current_Pupil);
    if (t == scoring::test_index::Pindo) {
        Label16->setText(scoring::Verdict_On_Pindo(state.Current_Pupil, pupils, scoring.scores).Page_Text);
        Label17->setText(scoring::Show_Age_At_Test(pupils.Test_Age[t][state.Current_Pupil]));
    }
    Show_Chart(false);
    Offer_Printing(true);
    // One entry's text differs; so with that table the line doesn't lead back.
    Show_In_Label7(t == scoring::test_index::Yoon ? u"Detailed data for the Ostrel test"_s : Way_Back);
}

bool Form30::Is_Done(int t) const {
    if (t == scoring::test_index::Pindo) return pupils.Test_Status[t][state.Current_Pupil] != 0;
    return !Picture2->Shape(t)->isHidden();
}

void Form30::Test_Button_Click(int t) {
    const bool pindo = t == scoring::test_index::Pindo;
    scoring::Clear_Grid(Needs_Eight_Columns(t) ? *fpSpread2plus : *fpSpread2);
    state.Chart_Replaced = true;
    Show_Raw_Marker(t - 1);
    if (Is_Done(t)) {
        Open_Detail_Table(t);
        return;
    }
    platform.boxes.Ask(desktop::Box_Style::Information, u"Test information"_s,
                       pindo ? u"Student has not completed Pindo"_s
                             : u"Student has not completed this test"_s);
    if (t <= scoring::test_index::Drell) Offer_Printing(false);
}

void Form30::HotLabel7_Click() {
    state.Chart_Replaced = true;
    Hide_8_Buttons();
    Hide_All_Objects();
    for (QLabel* mark : Label9)
        mark->hide();
    for (QLabel* mark : Label10)
        mark->hide();
    Hide_All_Markers();
    Image2->clear();
    Label3->setText(u"Test Summary for "_s + state.Pupil_Name);
    fpSpread1->show();
    Offer_Printing(true);
    Show_In_Label7(Way_Back);
}

} // namespace reports
