// What a teacher waits for on the pages.

#include "full_school.h"
#include "measuring.h"
#include "reports/reports_page.h"
#include "shell/main_menu.h"

#include <QApplication>
#include <QTimer>

using namespace Qt::StringLiterals;

namespace bench {
namespace {

constexpr double Longest_Choice_Ms = 16; // one frame of a screen that shows sixty a second

// A timer's work is called, and measured, by itself.
void Take_Timers_From(const QObject& page) {
    qDeleteAll(page.findChildren<QTimer*>(Qt::FindDirectChildrenOnly));
}

std::unique_ptr<reports::Form30> Make_Reports(Full_School& school) {
    return school.Make<reports::Form30>(
        reports::Report_Data{school.installation, school.data, school.scoring, school.report_state});
}

// ---- choosing a pupil

enum class Time_Bars { Off, On };

// One connection for the pupil's row, one for each test that he has done, and with the time bars one more for
// each of these that has norms.
void Read_Answers_Plainly(const Full_School& school, int p, Time_Bars time_bars) {
    school.Read_Row(u"Mevo_Pupils"_s, p);
    for (int t = 1; t <= scoring::All_Tests; ++t) {
        if (school.data.pupils.Test_Status[t][p] != 1) continue;
        const int passes = time_bars == Time_Bars::On && t <= scoring::Normed_Tests ? 2 : 1;
        for (int pass = 1; pass <= passes; ++pass)
            school.Read_Row(scoring::Test_At(t).Data_Table, p);
    }
}

void Choose_A_Pupil(benchmark::State& state, Full_School& school, Time_Bars time_bars) {
    const auto page = Make_Reports(school);
    page->Load();
    Take_Timers_From(*page);
    page->show();
    page->Timer2_Timer();
    if (time_bars == Time_Bars::On) page->HotLabel2_Click();
    QApplication::processEvents();

    auto* list = page->findChild<shell::Click_Combo*>(u"Combo1"_s);
    int index = -1;
    const double mean_ms = Measure_Beside(
        state,
        [&] {
            index = (index + 1) % list->count();
            list->Set_ListIndex(index);
            QApplication::processEvents(); // paints what has changed
        },
        [&] { Read_Answers_Plainly(school, index + 1, time_bars); });
    state.SetLabel(mean_ms < Longest_Choice_Ms ? "below 16 ms" : "NOT below 16 ms");
}

// ---- opening the Reports page

void Load_Reports(benchmark::State& state, Full_School& school) {
    const auto page = Make_Reports(school);
    page->show();
    Measure_Beside(
        state, [&] { page->Load(); },
        [&] {
            for (int t = 1; t <= scoring::Normed_Tests; ++t) {
                school.Read(u"SELECT * FROM "_s + scoring::Test_At(t).Norm_Table);
                school.Read(u"SELECT * FROM "_s + scoring::Test_At(t).Time_Norm_Table);
            }
        });
}

void List_Pupils(benchmark::State& state, Full_School& school) {
    const auto page = Make_Reports(school);
    page->Load();
    page->show();
    Measure_Beside(
        state, [&] { page->Timer2_Timer(); }, [&] { school.Read(u"SELECT * FROM Mevo_Pupils"_s); });
}

// ---- the Main menu

void Load_Menu(benchmark::State& state, Full_School& school) {
    const auto page = school.Make<shell::Form77>(school.installation, school.counts);
    page->show();
    Measure_Beside(
        state, [&] { page->Load(); },
        [&] {
            school.Read(u"SELECT * FROM Mevo_Pupils"_s);
            school.Read(u"SELECT * FROM Mevo_Pupils WHERE Tolvens + BliksFriends + Karrel + BliksLetters + "
                        "BliksLetterNames + Drell + Mirvel + Yoon > 0"_s);
        });
}

} // namespace

void Register_Pages(Full_School& school) {
    using benchmark::RegisterBenchmark;
    const int once_round = school.data.pupils.Pupils_Listed;
    benchmark::internal::Benchmark* all[] = {
        RegisterBenchmark("choose_a_pupil", Choose_A_Pupil, std::ref(school), Time_Bars::Off)
            ->Iterations(once_round),
        RegisterBenchmark("choose_a_pupil/time_bars", Choose_A_Pupil, std::ref(school), Time_Bars::On)
            ->Iterations(once_round),
        RegisterBenchmark("open_reports/Load", Load_Reports, std::ref(school)),
        RegisterBenchmark("open_reports/Timer2_Timer", List_Pupils, std::ref(school)),
        RegisterBenchmark("open_menu/Load", Load_Menu, std::ref(school)),
    };
    for (auto* one : all)
        one->Unit(benchmark::kMillisecond)->MeasureProcessCPUTime();
}

} // namespace bench
