#pragma once

#include "nowhere.h"
#include "plain_reading.h"
#include "reports/state/report_state.h"
#include "scoring/chosen_pupil.h"
#include "scoring/pupil_lists.h"
#include "shell/conventions/menu_counts.h"

#include <QTemporaryDir>
#include <QWidget>
#include <memory>

namespace bench {

// A school of that many pupils in a file of its own, and all that the pages work on.
class Full_School {
public:
    Full_School(desktop::Platform& platform, int pupils);

    // A page in the window, laid out but neither loaded nor shown.
    template<class Page, class... Arguments>
    std::unique_ptr<Page> Make(Arguments&&... arguments) {
        auto page = std::make_unique<Page>(platform, nowhere, std::forward<Arguments>(arguments)...);
        page->setParent(&window);
        page->setGeometry(window.rect());
        return page;
    }

    // What the engine alone takes: one connection, one statement, every cell of every row.
    int Read(const QString& sql) const;
    int Read_Row(const QString& table, int p) const;

    desktop::Platform& platform;
    foundation::Installation installation;
    shell::Menu_Counts counts;
    scoring::Scoring_Data data;
    reports::Report_State report_state;

private:
    QTemporaryDir folder;
    Nowhere nowhere;
    QWidget window;
    foundation::Access_Holder holder;

public:
    scoring::Scoring scoring;
};

// Each adds its benchmarks. The schools live until all have run.
void Register_Pages(Full_School& school);
void Register_Paper(Full_School& school);
void Register_Scores(Full_School& school);

} // namespace bench
