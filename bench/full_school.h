#pragma once

#include "nowhere.h"
#include "plain_reading.h"
#include "reports/state/report_state.h"
#include "scoring/pupil_lists.h"
#include "scoring/score_all_tests.h"
#include "shell/conventions/menu_counts.h"

#include <QTemporaryDir>
#include <QTimer>
#include <QWidget>
#include <benchmark/benchmark.h>
#include <memory>
#include <string>

namespace bench {

// A school of that many pupils in a file of its own, and all that the pages work on. Of the pupils with
// results the list holds at most so many, where a round number of them is wanted.
class Full_School {
public:
    Full_School(desktop::Platform& platform, int pupils, qint16 most_listed);

    // A benchmark on this school. Lines that differ in the number behind the stroke only are compared.
    template<class Function, class... Arguments>
    benchmark::internal::Benchmark* Register(const std::string& name, Function function,
                                             Arguments... arguments) {
        return benchmark::RegisterBenchmark((name + '/' + std::to_string(size)).c_str(), function,
                                            std::ref(*this), arguments...)
            ->Unit(benchmark::kMillisecond)
            ->MeasureProcessCPUTime();
    }

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

    int size; // pupils, or those listed where that number was asked for
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

// A timer's work is called, and measured, by itself.
inline void Take_Timers_From(const QObject& page) {
    qDeleteAll(page.findChildren<QTimer*>(Qt::FindDirectChildrenOnly));
}

// Each adds its benchmarks. The schools live until all have run.
void Register_Choices(Full_School& school);
void Register_Openings(Full_School& school);
void Register_Whole_File(Full_School& school);
void Register_Paper(Full_School& school);
void Register_Preparing(Full_School& school);
void Register_Scores(Full_School& school);

} // namespace bench
