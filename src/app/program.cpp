#include "app/program.h"

#include "printing/batch_report.h"
#include "printing/individual_report.h"
#include "printing/why_report.h"
#include "pupils/changes_page.h"
#include "pupils/delete_page.h"
#include "pupils/fine_tuning_page.h"
#include "pupils/import_page.h"
#include "pupils/login_cards.h"
#include "pupils/prepare_page.h"
#include "pupils/register_page.h"
#include "pupils/security_page.h"
#include "pupils/whole_data_page.h"
#include "reports/earlier_page.h"
#include "reports/reports_page.h"
#include "shell/archiving.h"
#include "shell/copy_before.h"
#include "shell/go_back.h"
#include "shell/main_menu.h"
#include "shell/norms_page.h"
#include "shell/remove_pupil.h"
#include "shell/settings.h"
#include "shell/testing_progress.h"

#include <QTimer>

using namespace Qt::StringLiterals;

namespace app {

using shell::Page_Id;

constexpr int Start_Up_Delay_Ms = 1000; // the background form's timer

Program::Program(desktop::Platform& platform)
    : platform(platform),
      scoring_holder(platform),
      scoring(scoring::Pass_Over(scores, installation, scoring_holder)),
      form8(platform, installation),
      host(
          platform, [this](Page_Id page, shell::Navigator& navigator) { return Make_Page(page, navigator); },
          [this] { return installation.Institution; },
          [this](Page_Id page) { shell::Copy_Before(page, installation, this->platform); }) {
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

std::unique_ptr<shell::Page> Program::Make_Page(Page_Id page, shell::Navigator& navigator) {
    const pupils::Record_Data records{installation, scores.pupils, pupil_records};
    switch (page) {
    case Page_Id::Main_Menu:
        return std::make_unique<shell::Form77>(platform, navigator, installation, counts);
    case Page_Id::Reports:
        return std::make_unique<reports::Form30>(
            platform, navigator, reports::Report_Data{installation, scores, scoring, report_state});
    case Page_Id::Individual_Report:
        return std::make_unique<printing::Form94>(
            platform, navigator, printing::Individual_Sources{installation, report_state, scores.scores});
    case Page_Id::Batch_Report:
        return std::make_unique<printing::Form92>(platform, navigator, installation, report_state, scoring);
    case Page_Id::Why_Report:
        return std::make_unique<printing::Why_Report>(platform, navigator, installation, report_state);
    case Page_Id::Norms:
        return std::make_unique<shell::Norms_Page>(platform, navigator, installation);
    case Page_Id::Register:
        return std::make_unique<pupils::Form10>(platform, navigator, installation, counts);
    case Page_Id::Fine_Tuning:
        return std::make_unique<pupils::Form15>(platform, navigator, records);
    case Page_Id::Security:
        return std::make_unique<pupils::Form2>(platform, navigator, records);
    case Page_Id::Login_Cards:
        return std::make_unique<pupils::Login_Cards>(platform, navigator, records);
    case Page_Id::Delete:
        return std::make_unique<pupils::Form9>(platform, navigator, records, counts);
    case Page_Id::Import:
        return std::make_unique<pupils::Form42>(platform, navigator, installation, list_to_import);
    case Page_Id::Prepare:
        return std::make_unique<pupils::Form43>(platform, navigator, installation, list_to_import);
    case Page_Id::Testing_Progress:
        return std::make_unique<shell::Form14>(platform, navigator, installation, ticks);
    case Page_Id::Tick_List:
        return std::make_unique<shell::Tick_List>(platform, navigator, installation, ticks);
    case Page_Id::Settings:
        return std::make_unique<shell::Form20>(platform, navigator, installation);
    case Page_Id::Archiving:
        return std::make_unique<shell::Form60>(platform, navigator, installation, counts, copies,
                                               older_files);
    case Page_Id::Go_Back:
        return std::make_unique<shell::Form61>(platform, navigator, installation, counts, copies);
    case Page_Id::Remove_Pupil:
        return std::make_unique<shell::Form62>(platform, navigator, installation);
    case Page_Id::Earlier_Results:
        return std::make_unique<reports::Earlier_Page>(
            platform, navigator, reports::Report_Data{installation, scores, scoring, report_state});
    case Page_Id::Pupil_Data:
        return std::make_unique<pupils::Whole_Data_Page>(platform, navigator, records);
    case Page_Id::Changes:
        return std::make_unique<pupils::Changes_Page>(platform, navigator, records);
    }
    return nullptr;
}

} // namespace app
