#pragma once

#include "printing/report_page.h"
#include "reports/state/report_state.h"

#include <QListWidget>

namespace printing {

// Draws an explanation of a score on as many sheets as it takes, always inside the paper's margins.
// norms: their digest.
void Draw_Why(const scoring::Why_Words& words, const foundation::Installation& installation,
              const desktop::Clock& clock, const QString& norms, preview::ViewPro& sheet);

// The print preview of an explanation. It lies over the Reports page.
class Why_Report final : public Report_Page {
    Q_OBJECT
public:
    // Both live longer than the page.
    Why_Report(desktop::Platform& platform, shell::Navigator& navigator,
               const foundation::Installation& installation, const reports::Report_State& state);

    void Load() override;

private:
    void Lay_Out();
    void Tell_Helps();
    void Draw_Anew() override;
    QString Document_Name() const override;

    const reports::Report_State& state;
    QListWidget* pages;
    QLabel* help_text;
};

} // namespace printing
