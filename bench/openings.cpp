// Opening a page on a full list: until it stands before the teacher for the first time, and what its timer
// does after that.

#include "full_school.h"
#include "measuring.h"
#include "pupils/delete_page.h"
#include "pupils/fine_tuning_page.h"
#include "pupils/security_page.h"
#include "reports/reports_page.h"
#include "shell/main_menu.h"

#include <QApplication>

using namespace Qt::StringLiterals;

namespace bench {
namespace {

constexpr double Longest_To_First_Paint_Ms = 50;
constexpr double Longest_To_Full_List_Ms = 150;
constexpr double Most_Times_The_Reading = 3;

// What the pages that change pupils keep between them; apart from the school's own lists, which other lines
// rely on.
struct Editing {
    scoring::Pupil_Lists pupils;
    pupils::Pupil_Records records;
};

pupils::Record_Data Of(Full_School& school, Editing& editing) {
    return {school.installation, editing.pupils, editing.records};
}

// The norms are read before the Reports page shows, the pupils by all.
void Read_Norms(const Full_School& school) {
    for (int t = 1; t <= scoring::Normed_Tests; ++t) {
        school.Read(u"SELECT * FROM "_s + scoring::Test_At(t).Norm_Table);
        school.Read(u"SELECT * FROM "_s + scoring::Test_At(t).Time_Norm_Table);
    }
}

void Read_Pupils(const Full_School& school) {
    school.Read(u"SELECT * FROM Mevo_Pupils"_s);
}

template<class Page>
std::unique_ptr<Page> New_Page(Full_School& school, Editing& editing) {
    if constexpr (std::is_same_v<Page, reports::Form30>)
        return school.Make<Page>(
            reports::Report_Data{school.installation, school.data, school.scoring, school.report_state});
    else if constexpr (std::is_same_v<Page, shell::Form77>)
        return school.Make<Page>(school.installation, school.counts);
    else if constexpr (std::is_same_v<Page, pupils::Form9>)
        return school.Make<Page>(Of(school, editing), school.counts);
    else
        return school.Make<Page>(Of(school, editing));
}

template<class Page>
std::unique_ptr<Page> Opened(Full_School& school, Editing& editing) {
    auto page = New_Page<Page>(school, editing);
    page->Load();
    Take_Timers_From(*page);
    page->show();
    QApplication::processEvents();
    return page;
}

template<class Page>
void First_Paint(benchmark::State& state, Full_School& school, void (*read)(const Full_School&)) {
    Editing editing;
    std::unique_ptr<Page> page;
    const double mean_ms = Measure_Beside(
        state, [&] { page = Opened<Page>(school, editing); }, [&] { read(school); }, Processor_Ms,
        [&] { page.reset(); });
    std::string limits = Limit_Below(mean_ms, Longest_To_First_Paint_Ms);
    if constexpr (std::is_same_v<Page, pupils::Form9>) // its list is there before it shows
        limits += ", " + Limit_At_Most(state, Most_Times_The_Reading);
    state.SetLabel(limits);
}

template<class Page>
void Full_List(benchmark::State& state, Full_School& school, void (Page::*timer)()) {
    Editing editing;
    std::unique_ptr<Page> page;
    const double mean_ms = Measure_Beside(
        state,
        [&] {
            ((*page).*timer)();
            QApplication::processEvents();
        },
        [&] { Read_Pupils(school); }, Processor_Ms, [&] { page = Opened<Page>(school, editing); });
    state.SetLabel(Limit_Below(mean_ms, Longest_To_Full_List_Ms) + ", " +
                   Limit_At_Most(state, Most_Times_The_Reading));
}

} // namespace

void Register_Openings(Full_School& school) {
    school.Register("open_menu/first_paint", First_Paint<shell::Form77>, Read_Pupils);
    school.Register("open_reports/first_paint", First_Paint<reports::Form30>, Read_Norms);
    school.Register("open_reports/list", Full_List<reports::Form30>, &reports::Form30::Timer2_Timer);
    school.Register("open_security/first_paint", First_Paint<pupils::Form2>, Read_Pupils);
    school.Register("open_security/list", Full_List<pupils::Form2>, &pupils::Form2::Timer1_Timer);
    school.Register("open_delete/first_paint", First_Paint<pupils::Form9>, Read_Pupils);
    school.Register("open_fine_tuning/first_paint", First_Paint<pupils::Form15>, Read_Pupils);
    school.Register("open_fine_tuning/list", Full_List<pupils::Form15>, &pupils::Form15::Timer1_Timer);
}

} // namespace bench
