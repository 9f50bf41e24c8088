#pragma once

#include "platform/grid/spread.h"
#include "printing/pdf_file.h"
#include "reports/reports_page.h"
#include "scoring/earlier/earlier_results.h"
#include "shell/conventions/page.h"

namespace reports {

// What the pupil of the Reports page scored in each test, now and before a retest: on screen and on paper. It
// lies over the Reports page.
class Earlier_Page final : public shell::Page {
    Q_OBJECT
public:
    Earlier_Page(desktop::Platform& platform, shell::Navigator& navigator, Report_Data data);

    void Load() override;

    void HotLabel1_Click(); // back to the Reports page
    void HotLabel2_Click(); // prints
    void SaveAsPdf_Click();

private:
    void Put_Out_List(printing::Outlet outlet);
    void Lay_Out();
    void Tell_Helps();
    void Write_Headings();
    void Write(int row, const scoring::Scored_Taking& taking);
    void Show(const QList<scoring::Scored_Taking>& takings);

    foundation::Installation& installation;
    scoring::Pupil_Lists& pupils;
    Report_State& state;
    scoring::Earlier_Results results;

    grid::fpSpread* Spread1;
    QLabel* Notice; // what keeps the earlier results from being shown
    shell::HotLabel *HotLabel1, *HotLabel2, *SaveAsPdf;
};

} // namespace reports
