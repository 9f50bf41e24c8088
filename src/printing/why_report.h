#pragma once

#include "printing/sheets_page.h"
#include "reports/state/report_state.h"

namespace printing {

// Draws an explanation of a score on as many sheets as it takes, always inside the paper's margins.
// norms: their digest.
// A record can have tables of any kind, and each of its sheets tells whose it is.
enum class Words_Kind { Explanation, Record };
void Draw_Why(const scoring::Why_Words& words, const foundation::Installation& installation,
              const desktop::Clock& clock, const QString& norms, preview::ViewPro& sheet,
              Words_Kind kind = Words_Kind::Explanation);

// The print preview of an explanation. It lies over the Reports page.
class Why_Report final : public Sheets_Page {
    Q_OBJECT
public:
    // Both live longer than the page.
    Why_Report(desktop::Platform& platform, shell::Navigator& navigator,
               const foundation::Installation& installation, const reports::Report_State& state);

private:
    void Draw_Sheets() override;
    QString Document_Name() const override;

    const reports::Report_State& state;
};

} // namespace printing
