// Choosing a pupil on the Reports page, until everything that changed is painted.

#include "full_school.h"
#include "measuring.h"
#include "reports/reports_page.h"

#include <QApplication>

using namespace Qt::StringLiterals;

namespace bench {
namespace {

constexpr double Longest_Choice_Ms = 5;

enum class Time_Bars { Off, On };

// One connection for the pupil's row, one for each test that they have done, and with the time bars one more
// for each of these that has norms.
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
    const auto page = school.Make<reports::Form30>(
        reports::Report_Data{school.installation, school.data, school.scoring, school.report_state});
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
    state.SetLabel(Limit_Below(mean_ms, Longest_Choice_Ms));
}

} // namespace

void Register_Choices(Full_School& school) {
    const int once_round = school.data.pupils.Pupils_Listed;
    school.Register("choose_a_pupil", Choose_A_Pupil, Time_Bars::Off)->Iterations(once_round);
    school.Register("choose_a_pupil/time_bars", Choose_A_Pupil, Time_Bars::On)->Iterations(once_round);
}

} // namespace bench
