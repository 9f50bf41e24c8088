#pragma once

#include "printing/individual_sheet.h"
#include "printing/report_page.h"

#include <QCheckBox>

namespace printing {

// The Reports Print Preview page: the report of the pupil on the Reports page, which lies beneath it.
class Form94 final : public Report_Page {
    Q_OBJECT
public:
    // What it shows lives longer than the page.
    Form94(desktop::Platform& platform, shell::Navigator& navigator, Individual_Sources sources);

    void Load() override;
    void Report_Setup();
    void Build_Report(); // also on each click of a check box

private:
    void Lay_Out();
    void Lay_Out_Preferences();
    void Show_Comment_Notice();
    void Tell_Helps();
    void Draw_Anew() override { Build_Report(); }
    QString Document_Name() const override;

    const scoring::Score_Store& scores;
    const reports::Report_State& state;
    Individual_Sheet report;
    QCheckBox *Check1, *Check2, *Check3, *Check4;
    QLabel *Label1, *Label2, *Label3, *Label8, *Label9, *BatchNotice, *CommentNotice;
};

} // namespace printing
