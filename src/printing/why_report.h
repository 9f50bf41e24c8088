#pragma once

#include "printing/report_page.h"
#include "reports/state/report_state.h"

#include <QListWidget>
#include <functional>

namespace printing {

// Draws an explanation of a score on as many sheets as it takes, always inside the paper's margins.
// norms: their digest.
// A record can have tables of any kind, and each of its sheets tells whose it is.
enum class Words_Kind { Explanation, Record };
void Draw_Why(const scoring::Why_Words& words, const foundation::Installation& installation,
              const desktop::Clock& clock, const QString& norms, preview::ViewPro& sheet,
              Words_Kind kind = Words_Kind::Explanation);

// The print preview of words and tables on as many sheets as they take.
class Words_Report : public Report_Page {
    Q_OBJECT
public:
    void Load() override;

protected:
    Words_Report(desktop::Platform& platform, shell::Navigator& navigator,
                 const foundation::Installation& installation);

    void Lay_Out(const QString& name, const QString& title, const QString& way_back);
    void Tell_Helps(const QString& printing, const std::function<void(shell::Help_Line&)>& others = {});
    virtual void Draw() = 0; // on ViewPro1
    void Draw_Anew() override;

    static constexpr int Right = 832; // the column beside the preview
    static constexpr int Right_Width = 232;
    QLabel* help_text;

private:
    QListWidget* pages;
};

// That of an explanation. It lies over the Reports page.
class Why_Report final : public Words_Report {
    Q_OBJECT
public:
    // Both live longer than the page.
    Why_Report(desktop::Platform& platform, shell::Navigator& navigator,
               const foundation::Installation& installation, const reports::Report_State& state);

private:
    void Draw() override;
    QString Document_Name() const override;

    const reports::Report_State& state;
};

} // namespace printing
