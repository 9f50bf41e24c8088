#include "reports/reports_page.h"

#include "platform/basics/number_text.h"
#include "platform/desktop/wait_pointer.h"
#include "printing/individual_sheet.h"
#include "printing/scores_file.h"
#include "reports/state/pupil_comment.h"
#include "scoring/norm_check.h"
#include "scoring/passing_over_errors.h"
#include "scoring/pindo.h"
#include "scoring/summary_table.h"
#include "scoring/tables/raw_tables.h"
#include "shell/conventions/comment_dialog.h"

#include <QApplication>
#include <numeric>

using namespace Qt::StringLiterals;

namespace reports {

constexpr int Whole_Column = Profile_Chart::Column_Width;
constexpr int Half_Column = Whole_Column / 2;
const QString Way_Back = u"Show the bar chart"_s;

void Form30::Load() {
    Show_Progress_Width(1);
    state.Show_Time_Bars = false;
    Picture2->Set_Bar_Widths(false, Whole_Column);
    state.Chart_Background = u"GREY"_s;
    state.Chart_Mode = u"P"_s;
    Picture2->Clear_Bar_Arrays();
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
    state.Norms_Digest = scoring::Norms_Digest(norms);
    Once_Painted(u"Timer2"_s, [this] { Timer2_Timer(); });
}

void Form30::Timer2_Timer() {
    state.Chart_Background = u"GREY"_s;
    Load_Students();
}

void Form30::Load_Students() {
    scoring::Load_Pupil_Lists(holder, installation, platform.clock, pupils);
    lists_loaded = true;
    QStringList entries;
    entries.reserve(pupils.Pupils_Listed);
    for (int p = 1; p <= pupils.Pupils_Listed; ++p)
        entries.append(scoring::Pupil_List_Entry(pupils, p));
    Combo1->Clear();
    Combo1->Add_Items(entries);
    if (pupils.Pupils_Listed > 0)
        Combo1->Set_ListIndex(0);
    else
        Show_In_Label7(u"No reports are available as yet"_s);
}

bool Form30::Has_Pupil() const {
    return Combo1->ListIndex() >= 0;
}

void Form30::Combo1_Click() {
    state.Current_Pupil = static_cast<qint16>(Combo1->ListIndex() + 1);
    Show_Progress_Width(1);
    state.Current_Student_Code = pupils.Student_Code[state.Current_Pupil];
    This_Students_Age(state.Current_Pupil);
    const desktop::Wait_Pointer busy(platform.pointer);
    Show_Chart(true);
    Regen_Bars_For_Another_Child(state.Current_Pupil);
}

static QString Age_As_Printed(int months) {
    return basics::Signed_Number(months / 12) + u"y "_s + basics::Signed_Number(months % 12) + u'm';
}

void Form30::This_Students_Age(int p) {
    state.Pupil_Name = pupils.Pupil_Name_List[p];
    state.Pupil_DOB = pupils.Pupil_DOB_List[p];
    state.Pupil_Age_Text = Age_As_Printed(scoring::Age_When_First_Tested(pupils, p));
}

// Two pupils may bear one name.
void Form30::Show_Who(int p) {
    const auto line = [this](const QString& text) {
        return Who->fontMetrics().elidedText(text, Qt::ElideRight, Who->width());
    };
    const QString& school_class = pupils.Pupil_Class_List[p];
    const QString born = u"Born "_s + pupils.Pupil_DOB_List[p] +
                         (school_class.isEmpty() ? QString() : u" \u00B7 "_s + school_class);
    const QString ages = u"Now "_s + Age_As_Printed(pupils.Pupil_Age_Now[p]).trimmed() +
                         u" \u00B7 At test "_s + state.Pupil_Age_Text.trimmed();
    Who->setText(line(born) + u'\n' + line(ages));
    Who->setToolTip(born);
    Combo1->setAccessibleDescription(u"The pupil whose results the page shows. "_s + born + u". "_s + ages);
}

// While the items are still those of the pupil.
void Form30::Find_Notices(int p) {
    notices.clear();
    scoring::Passing_Over_Errors(
        [&] { notices = scoring::Notices_On(p, platform.clock.Now().date(), scoring); });
    if (scoring::Are_Practice_Norms(state.Norms_Digest))
        notices.append({0, u"Made-up norms, for practice"_s});
}

QStringList Form30::Notices_In_Force() const {
    QStringList texts;
    if (scoring.scores.Left_By_A_Batch)
        texts.append(u"After a batch report: tables of answers, Single's z bars and Trm, and times read now "
                     "are the last pupil's until you choose a pupil again"_s);
    texts += scoring::Gathered(notices);
    if (!state.Time_Scores_Ready) texts.append(scoring::Times_Not_Read());
    return texts;
}

void Form30::Show_Notices() {
    Notices->Tell(Has_Pupil() ? Notices_In_Force() : QStringList(), scoring.scores.Left_By_A_Batch);
}

void Form30::showEvent(QShowEvent* event) {
    Page::showEvent(event);
    Show_Notices(); // a batch report may have lain over the page
}

// The order must hold: each step relies on the one before.
void Form30::Regen_Bars_For_Another_Child(int p) {
    const auto act = holder.Begin_Act();
    Hide_Any_Tables();
    Picture2->Reset_Bars();
    tables->Set_Heading(u""_s);
    Show_8_Buttons();
    {
        const desktop::Wait_Pointer busy(platform.pointer);
        const auto wanted =
            state.Show_Time_Bars ? scoring::Passes_Wanted::Raw_And_Time : scoring::Passes_Wanted::Raw;
        work_before = scoring.work;
        scoring::Score_Chosen_Pupil(p, wanted, Progress(), scoring, state.summary);
        state.Time_Scores_Ready = state.Show_Time_Bars;
        Find_Notices(p);
    }
    if (state.Chart_Mode == "P"_L1)
        ShowCentiles_Click();
    else
        ShowZScores_Click();
    Picture2->Hide_Untaken_Bars(p);
    Picture2->TerminatedTests();
    Label16->setText(u""_s);
    Label17->setText(u""_s);
    scoring::Fill_SummaryTable_With_Scores(p, pupils, scoring.scores, state.summary);
    scoring::Fill_SummaryTable_With_Ages(p, pupils, state.summary);
    Show_Summary_Cells();
    Load_Comment(p, pupils, installation, holder, state.comment);
    Describe_Chart();
    Show_Who(p);
    Show_Notices();
    Show_Progress_Width(1);
}

void Form30::Compute_Raw_Scores_Times(int p, bool show_progress) {
    scoring::Compute_Raw_Scores_Times(p, show_progress ? Progress() : scoring::Progress_Strip(), scoring);
    Show_Progress_Width(1);
}

scoring::Progress_Strip Form30::Progress() {
    return [this](int width) { Show_Progress_Width(width); };
}

void Form30::Show_Progress_Width(int width) {
    constexpr int at_rest = 1;
    constexpr int one_frame_ms = 16; // painting more often than the screen shows it would only cost time
    Shape11->resize(width, Shape11->height());
    Track->setVisible(width > at_rest);
    if (width > at_rest && strip_painted.isValid() && !strip_painted.hasExpired(one_frame_ms)) return;
    if (width > at_rest) Track->repaint(); // the page is busy: nobody else paints it
    strip_painted.start();
}

void Form30::Toggle_Show_TimeBars(int p) {
    state.Show_Time_Bars = !state.Show_Time_Bars;
    if (!state.Show_Time_Bars) {
        Picture2->Set_Bar_Widths(false, Whole_Column);
        return;
    }
    if (!state.Time_Scores_Ready) {
        Compute_Raw_Scores_Times(p, true);
        scoring::Fill_SummaryTable_With_Scores(p, pupils, scoring.scores, state.summary);
        Show_Summary_Cells();
        state.Time_Scores_Ready = true;
    }
    Picture2->Show_Time_Bars();
    Picture2->Set_Bar_Widths(true, Half_Column);
}

void Form30::Show_Time_Flag() {
    Image4->setPixmap((state.Show_Time_Bars ? Image1 : Image3)->pixmap());
    Image4->setAccessibleName(state.Show_Time_Bars ? u"Time bars on"_s : u"Time bars off"_s);
    Time_Key->setVisible(state.Show_Time_Bars);
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
    Picture2->Load_Ground(installation.App_Path);
    (state.Chart_Background == "WHITE"_L1 ? ShowWhite : ShowGreys)->setChecked(true);
    Show_Chart(true);
}

void Form30::ShowCentiles_Click() {
    Draw_Scale(u"P"_s);
    Picture2->Show_Bars();
}

void Form30::ShowZScores_Click() {
    Draw_Scale(u"Z"_s);
    Picture2->Show_Bars();
}

void Form30::Change_Background(const QString& ground) {
    state.Chart_Background = ground;
    Picture2->Load_Ground(installation.App_Path);
    Copy_Scale_Picture();
    (ground == "WHITE"_L1 ? ShowWhite : ShowGreys)->setChecked(true);
}

void Form30::ShowGreys_Click() {
    Change_Background(u"GREY"_s);
}

void Form30::ShowWhite_Click() {
    Change_Background(u"WHITE"_s);
}

// The Tab key stops at the line only while the line leads somewhere.
void Form30::Show_In_Label7(const QString& text) {
    Label7->Set_Caption(text);
    const bool leads_back = text == Way_Back;
    Label7->setFocusPolicy(leads_back ? Qt::StrongFocus : Qt::NoFocus);
    Label7->setAccessibleName(leads_back ? text : u"Help"_s);
    Label7->setAccessibleDescription(leads_back ? u"Back from the table to the chart."_s : text);
}

void Form30::Hide_Any_Tables() {
    Close_Why();
    tables->Hide();
}

void Form30::Hide_All_Objects() {
    Hide_Any_Tables();
    Show_Chart(false);
}

void Form30::Show_Chart(bool shown) {
    Picture2->setVisible(shown);
    Show_Beside_Chart(shown);
}

void Form30::Show_Beside_Chart(bool shown) {
    for (QWidget* beside : std::initializer_list<QWidget*>{Key, ShowValues, SaveScores, WhyEntry})
        beside->setVisible(shown);
}

void Form30::Open_Why(int t) {
    if (!Has_Pupil() || Picture2->isHidden()) return;
    const desktop::Wait_Pointer busy(platform.pointer);
    const int p = state.Current_Pupil;
    const scoring::Explanation told = scoring::Explain(t, p, work_before, scoring, platform);
    scoring::Why_Words words = scoring::Put_In_Words(told, notices);
    if (t <= scoring::Normed_Tests && told.used.norm.centile != scoring.scores.Raw_Centile[t])
        words.sections.first().lines.prepend(
            u"The answers have changed since this pupil was chosen. Choose the pupil again."_s);
    if (Why->isHidden()) asked_why_from = QApplication::focusWidget();
    Why->Tell(t, words);
    Show_Beside_Chart(false);
    Picture2->Let_Keys_In(false);
}

void Form30::Close_Why() {
    if (Why->isHidden()) return;
    const bool had_focus = Why->isAncestorOf(QApplication::focusWidget());
    Picture2->Let_Keys_In(true);
    Show_Beside_Chart(true);
    if (had_focus && asked_why_from) asked_why_from->setFocus();
    Why->hide();
}

void Form30::Print_Why() {
    state.why = Why->Words();
    navigator.Open_On_Top(shell::Page_Id::Why_Report);
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
    tables->Set_Heading(state.Test_Table_Title[static_cast<std::size_t>(i)]);
}

void Form30::Offer_Printing(bool offered) {
    PrintIcon->setVisible(offered);
    SaveAsPdf->setVisible(offered);
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
    tables->Fill_Summary(state.summary);
}

void Form30::Describe_Chart() {
    if (Has_Pupil()) Picture2->Describe();
}

void Form30::HotLabel1_Click() {
    navigator.Go_To(shell::Page_Id::Main_Menu);
}

void Form30::HotLabel2_Click() {
    if (!Has_Pupil()) return;
    Toggle_Show_TimeBars(state.Current_Pupil);
    Show_Time_Flag();
    Picture2->Stand_Marks_On_Bars();
    Describe_Chart();
    Show_Notices();
}

void Form30::HotLabel3_Click() {
    if (!Has_Pupil()) return;
    state.comment.Comment_Changed = false;
    shell::Form11 dialog(platform, state.comment.Pupil_Comment, state.comment.Comment_Changed,
                         printing::Lines_Of_Comment);
    platform.dialogs.Show(dialog);
    if (state.comment.Comment_Changed)
        Save_Comment(state.Current_Pupil, pupils, installation, holder, state.comment);
}

void Form30::HotLabel4_Click() {
    Close_Why();
    if (Has_Pupil() && !Picture2->isHidden()) navigator.Open_On_Top(shell::Page_Id::Individual_Report);
}

void Form30::EarlierResults_Click() {
    if (Has_Pupil()) navigator.Open_On_Top(shell::Page_Id::Earlier_Results);
}

void Form30::SaveScores_Click() {
    const int listed = pupils.Pupils_Listed;
    if (!lists_loaded || listed == 0) return;
    QList<qint16> places(listed);
    std::iota(places.begin(), places.end(), qint16(1));
    printing::Save_Scores(
        {places, {}, u"Mevo scores"_s}, scoring,
        [this, listed](int done) { Show_Progress_Width(Whole_Progress * done / listed); }, platform);
    Show_Progress_Width(1);
}

void Form30::HotLabel6_Click() {
    Close_Why();
    if (lists_loaded && !Picture2->isHidden()) navigator.Open_On_Top(shell::Page_Id::Batch_Report);
}

void Form30::HotLabel5_Click() {
    Close_Why();
    if (!state.Chart_Replaced) return;
    Hide_All_Markers();
    tables->Set_Heading(u""_s);
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
    tables->Print(state, installation, platform, printing::Outlet::Printer);
}

void Form30::SaveAsPdf_Click() {
    if (Picture2->isHidden()) tables->Print(state, installation, platform, printing::Outlet::Pdf_File);
}

void Form30::Open_Detail_Table(int t) {
    Hide_Any_Tables(); // a filler shows its own grid and leaves the others as they are
    tables->Show_Which_Raw_Data(t, state.Current_Pupil);
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
    if (!Has_Pupil()) return false;
    if (t == scoring::test_index::Pindo) return pupils.Test_Status[t][state.Current_Pupil] != 0;
    return Picture2->Has_Bar(t);
}

void Form30::Test_Button_Click(int t) {
    if (!lists_loaded) return;
    const bool pindo = t == scoring::test_index::Pindo;
    Close_Why();
    tables->Clear_For(t);
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
    if (!Has_Pupil()) return;
    state.Chart_Replaced = true;
    Hide_8_Buttons();
    Hide_All_Objects();
    for (QLabel* mark : Label9)
        mark->hide();
    for (QLabel* mark : Label10)
        mark->hide();
    Hide_All_Markers();
    Image2->clear();
    tables->Set_Heading(u"Test Summary for "_s + state.Pupil_Name);
    tables->Show_Summary();
    Offer_Printing(true);
    Show_In_Label7(Way_Back);
}

} // namespace reports
