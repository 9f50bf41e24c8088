#pragma once

#include "conversion/older_files.h"
#include "foundation/access_holder.h"
#include "foundation/installation.h"
#include "foundation/start_up.h"
#include "platform/database/files/safe_copy.h"
#include "platform/desktop/ports.h"
#include "pupils/list_to_import.h"
#include "pupils/pupil_records.h"
#include "reports/state/report_state.h"
#include "scoring/scoring.h"
#include "shell/conventions/menu_counts.h"
#include "shell/conventions/page_host.h"
#include "shell/tick_list.h"

#include <memory>

namespace app {

// Everything that lives as long as the process, and the way from a page's name to its class.
class Program {
public:
    explicit Program(desktop::Platform& platform);

    // Runs start-up and opens the Main menu, a second after the call. The assets lie in the program's folder.
    void Start(const QString& program_folder);

    shell::Page_Host& Window() { return host; }
    foundation::Installation& Installed() { return installation; }

private:
    std::unique_ptr<shell::Page> Make_Page(shell::Page_Id page, shell::Navigator& navigator);

    desktop::Platform& platform;
    foundation::Installation installation;
    shell::Menu_Counts counts;
    database::Safe_Copies copies;
    conversion::Jet_Files older_files;
    scoring::Scoring_Data scores;
    foundation::Access_Holder scoring_holder;
    scoring::Scoring scoring;
    reports::Report_State report_state;
    shell::Ticks ticks;
    pupils::Pupil_Records pupil_records;
    pupils::List_To_Import list_to_import;
    foundation::Form8 form8;
    shell::Page_Host host;
};

} // namespace app
