#pragma once

#include "foundation/access_holder.h"
#include "reports/profile_chart.h"
#include "reports/state/report_state.h"
#include "reports/table_panel.h"
#include "reports/why_panel.h"
#include "scoring/score_all_tests.h"
#include "scoring/scoring.h"
#include "shell/conventions/click_combo.h"
#include "shell/conventions/page.h"

#include <QCheckBox>
#include <QElapsedTimer>
#include <QPointer>
#include <array>

namespace reports {

// What the Reports page works on; each lives longer than the page.
struct Report_Data {
    foundation::Installation& installation;
    scoring::Scoring_Data& scores;
    scoring::Scoring& scoring;
    Report_State& state;
};

// The Reports page: a teacher chooses a pupil who has results and sees their profile as bars on one of
// two scales. Nothing is stored but the comment: scores are worked out each time.
class Form30 final : public shell::Page {
    Q_OBJECT
public:
    Form30(desktop::Platform& platform, shell::Navigator& navigator, Report_Data data);

    void Load() override;
    void Timer2_Timer(); // the pupil list, once the page has been painted
    void Load_Students();

    // p: place in the pupil list, from 1
    void Regen_Bars_For_Another_Child(int p);
    void This_Students_Age(int p);
    void Compute_Raw_Scores_Times(int p, bool show_progress);

    void Show_Scale();
    void Toggle_Show_TimeBars(int p);
    void Show_Time_Flag();
    void Hide_All_Objects();
    void Hide_Any_Tables();

    void Show_Raw_Marker(int i); // 0 to 8
    void Hide_8_Buttons();       // all nine, in spite of the name
    void Show_8_Buttons();

    void Combo1_Click();
    void ShowCentiles_Click();
    void ShowZScores_Click();
    void ShowGreys_Click();
    void ShowWhite_Click();
    void HotLabel1_Click();        // the menu
    void HotLabel2_Click();        // time bars on or off
    void HotLabel3_Click();        // the comment
    void HotLabel4_Click();        // the individual report
    void HotLabel5_Click();        // back to the chart
    void HotLabel6_Click();        // the batch report
    void HotLabel7_Click();        // the summary
    void Label7_Click();           // back to the chart, while it says so
    void PrintIcon_Click();        // the table on screen
    void SaveAsPdf_Click();        // the same
    void Test_Button_Click(int t); // BtnEnh11 to BtnEnh19: one test's answers, item by item

    void Open_Why(int t); // how the score of test t, 1 to 9, came about, before the chart
    void Close_Why();     // does nothing while it isn't open

protected:
    void showEvent(QShowEvent* event) override;

private:
    void Lay_Out_Beside_Chart();
    void Lay_Out_Why();
    void Show_Beside_Chart(bool shown);
    void Show_Who(int p);
    void Find_Notices(int p);
    void Show_Notices();
    QStringList Notices_In_Force() const;
    void Print_Why();
    void Lay_Out();
    void Lay_Out_Chart();
    void Lay_Out_Tables(QLabel* heading);
    void Lay_Out_Key(const QPoint& corner);
    void Lay_Out_Left_Panel();
    void Lay_Out_Commands();
    void Lay_Out_Earlier();
    void Tell_Helps();
    void EarlierResults_Click();
    void SaveScores_Click();
    void Draw_Scale(const QString& mode);
    void Change_Background(const QString& ground);
    void Copy_Scale_Picture();
    void Show_Chart(bool shown);
    void Hide_All_Markers();
    void Open_Detail_Table(int t);
    void Offer_Printing(bool offered); // PrintIcon, its caption and SaveAsPdf
    bool Is_Done(int t) const;
    void Show_Summary_Cells();
    void Describe_Chart();
    bool Has_Pupil() const;
    void Show_In_Label7(const QString& text);
    void Show_Progress_Width(int width);
    scoring::Progress_Strip Progress();

    static constexpr int Whole_Progress = 8 * 120; // pixels: eight tests

    foundation::Installation& installation;
    scoring::Pupil_Lists& pupils;
    scoring::Norm_Tables& norms;
    scoring::Scoring& scoring;
    Report_State& state;
    foundation::Access_Holder& holder; // that of scoring: the file is opened once for a choice

    bool lists_loaded = false; // until then they are those of an earlier visit

    scoring::Work_Lists work_before; // as the pupil on screen was scored with
    QList<scoring::Notice> notices;  // of that pupil
    QPointer<QWidget> asked_why_from;

    shell::HotLabel *EarlierResults, *SaveScores;
    Profile_Chart* Picture2;
    Why_Panel* Why;
    QCheckBox* ShowValues;
    shell::HotLabel* WhyEntry;
    QLabel* Who;
    Notice_Line* Notices;
    Table_Panel* tables;
    shell::Click_Combo* Combo1;
    std::array<QLabel*, 9> Label9;
    std::array<QLabel*, 5> Label10;
    std::array<QFrame*, 9> Shape10;
    std::array<shell::HotLabel*, 9> BtnEnh; // BtnEnh11 to BtnEnh19, in test order
    QLabel *Image1, *Image2, *Image3, *Image4, *Image6, *Image7;
    QLabel* Label8;
    QLabel *Label16, *Label17; // the verdict on Pindo, and the age at that test
    shell::HotLabel* Label7;   // the help line, and the way back from a table
    QWidget *Key, *Time_Key;   // what the bars' colours mean; its second half is shown with the time bars
    QFrame *Shape11, *Track;   // seen only while the strip grows
    QElapsedTimer strip_painted;
    shell::HotLabel *HotLabel1, *HotLabel2, *HotLabel3, *HotLabel4, *HotLabel5, *HotLabel6, *HotLabel7;
    shell::HotLabel *ShowCentiles, *ShowZScores, *ShowGreys, *ShowWhite, *PrintIcon, *SaveAsPdf;
};

} // namespace reports
