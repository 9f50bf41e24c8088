#include "app/program.h"

#include "reports/reports_page.h"
#include "shell/conventions/later_page.h"
#include "shell/main_menu.h"

#include <QTimer>

using namespace Qt::StringLiterals;

namespace app {

using shell::Later_Page;
using shell::Page_Id;

constexpr int Start_Up_Delay_Ms = 1000; // the background form's timer

Program::Program(desktop::Platform& platform)
    : platform(platform),
      scoring_holder(platform),
      scoring(scoring::Pass_Over(scores, installation, scoring_holder)),
      form8(platform, installation),
      host(platform,
           [this](Page_Id page, shell::Navigator& navigator) { return Make_Page(page, navigator); }) {
}

void Program::Start(const QString& program_folder) {
    form8.Load();
    QTimer::singleShot(platform.clock.Timer_Interval(Start_Up_Delay_Ms), &host, [this, program_folder] {
        shell::Guarded(platform, [&] {
            form8.Timer1_Timer(program_folder);
            host.Go_To(Page_Id::Main_Menu);
        });
    });
}

static QString Title_Of(Page_Id page) {
    switch (page) {
    case Page_Id::Individual_Report:
        return u"Individual report"_s;
    case Page_Id::Batch_Report:
        return u"Batch reports"_s;
    case Page_Id::Register:
        return u"Register individuals"_s;
    case Page_Id::Fine_Tuning:
        return u"Fine tuning"_s;
    case Page_Id::Security:
        return u"Security"_s;
    case Page_Id::Delete:
        return u"Delete individuals"_s;
    case Page_Id::Import:
        return u"Import from file"_s;
    case Page_Id::Testing_Progress:
        return u"Testing progress"_s;
    case Page_Id::Settings:
        return u"Settings"_s;
    case Page_Id::Archiving:
        return u"Archiving"_s;
    case Page_Id::Main_Menu:
    case Page_Id::Reports:
        break;
    }
    return {};
}

static bool Stands_On_A_Page(Page_Id page) {
    static const Page_Id on_top[] = {Page_Id::Individual_Report, Page_Id::Batch_Report,
                                     Page_Id::Testing_Progress, Page_Id::Settings};
    return std::find(std::begin(on_top), std::end(on_top), page) != std::end(on_top);
}

std::unique_ptr<shell::Page> Program::Make_Page(Page_Id page, shell::Navigator& navigator) {
    switch (page) {
    case Page_Id::Main_Menu:
        return std::make_unique<shell::Form77>(platform, navigator, installation, counts);
    case Page_Id::Reports:
        return std::make_unique<reports::Form30>(
            platform, navigator, reports::Report_Data{installation, scores, scoring, report_state});
    default: {
        const auto way_back = Stands_On_A_Page(page) ? Later_Page::Way_Back::To_The_Page_Beneath
                                                     : Later_Page::Way_Back::To_The_Menu;
        return std::make_unique<Later_Page>(platform, navigator, Title_Of(page), way_back);
    }
    }
}

} // namespace app
