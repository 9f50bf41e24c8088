#pragma once

#include "printing/batch_sheets.h"
#include "printing/report_page.h"
#include "shell/conventions/click_combo.h"

#include <QElapsedTimer>
#include <QGroupBox>
#include <QLineEdit>
#include <QListWidget>
#include <QRadioButton>

namespace printing {

// The Multiple Reports Print Preview page: all listed pupils are scored as it opens; those chosen from a
// list are printed as miniature profiles, eight to a sheet. It lies over the Reports page.
class Form92 final : public Report_Page {
    Q_OBJECT
public:
    // All of these live longer than the page.
    Form92(desktop::Platform& platform, shell::Navigator& navigator,
           const foundation::Installation& installation, const reports::Report_State& state,
           scoring::Scoring& scoring);

    void Load() override;
    void Compute_All_Scores();
    void Load_Group_Filter(const QString& connection_string);
    void Load_Pupil_List(const QString& connection_string);
    void Build_Batch(int count); // of pupils

    void cboGroupFilter_Click();
    void lstPupils_Click();
    void List3_Click();     // shows a page
    void HotLabel7_Click(); // select all
    void HotLabel8_Click(); // clear all
    void HotLabel9_Click(); // create the report
    void Option_Click();    // Option1, Option2, Option5 and Option6
    void FullReports_Click();
    void SaveScores_Click(); // of the selected pupils, for a spreadsheet
    void FindName_Changed(); // shows the first pupil who is meant
    void Find_Next();

private:
    void Lay_Out();
    void Lay_Out_List();
    void Lay_Out_Selection();
    void Lay_Out_Middle();
    void Lay_Out_Options();
    void Lay_Out_Search();
    void Lay_Out_Zoom();
    QGroupBox* Make_Frame(const QString& name, const QString& caption, const QRect& place);
    QRadioButton* Make_Option(const QString& name, const QString& caption, const QRect& place,
                              QWidget* parent);
    void Tell_Helps();
    void Show_Progress(const QString& text);
    void Fill_Page_List(int pages);
    void Follow_Shown_Page();
    QStringList Selected_Entries() const;
    void Offer_Files(); // of selected pupils
    QList<int> Ranks_Meant() const;
    void Show_Meant_From(int rank);
    void Forget_Found();
    void Draw_Anew() override { Option_Click(); }
    QString Document_Name() const override;
    void Note_Printed(Outlet outlet) const override;

    const reports::Report_State& state;
    scoring::Scoring& scoring;
    QElapsedTimer painted; // while the scores are worked out
    scoring::Cohort_Tables cohort;
    Batch_Sheets report;
    qint16 Batch_Count = 0;
    bool Report_Built = false;
    int found_rank = 0; // in the batch, of the pupil who is framed

    shell::Click_Combo* cboGroupFilter;
    QListWidget *lstPupils, *List3;
    QRadioButton *Option1, *Option2, *Option5, *Option6;
    shell::HotLabel *HotLabel7, *HotLabel8, *HotLabel9, *FullReports, *SaveScores;
    QLineEdit* FindName;
    QLabel* Found;
    QGroupBox *Frame2, *Frame5, *Frame8;
    QLabel *Label2, *Label5, *Label10;
};

} // namespace printing
