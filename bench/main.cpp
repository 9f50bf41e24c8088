// Measures what a teacher waits for when the list of pupils is full, each time beside what the engine alone
// takes to read the same rows in the same way.

#include "import_bench.h"
#include "measuring.h"
#include "nowhere.h"
#include "plain_reading.h"
#include "platform/desktop/qt_platform.h"
#include "reports/reports_page.h"
#include "sampledb/sample_data.h"
#include "shell/conventions/theme.h"
#include "shell/main_menu.h"

#include <QApplication>
#include <QEvent>
#include <QMessageBox>
#include <QTemporaryDir>
#include <QTextStream>
#include <QTimer>
#include <benchmark/benchmark.h>
#include <cstdlib>
#include <stdexcept>

using namespace Qt::StringLiterals;

namespace bench {
namespace {

constexpr int Full_List = 2500;
constexpr QSize Common_Screen{1366, 768};
constexpr double Longest_Choice_Ms = 16; // one frame of a screen that shows sixty a second

// A box would wait for an answer that nobody gives: its text ends the program instead.
class Box_Refusal final : public QObject {
public:
    bool eventFilter(QObject* watched, QEvent* event) override {
        const auto* box = event->type() == QEvent::Show ? qobject_cast<QMessageBox*>(watched) : nullptr;
        if (!box) return false;
        QTextStream(stderr) << "mevo-bench met a box: " << box->text().simplified() << Qt::endl;
        std::_Exit(1);
    }
};

// A timer's work is called, and measured, by itself.
void Take_Timers_From(const QObject& page) {
    qDeleteAll(page.findChildren<QTimer*>(Qt::FindDirectChildrenOnly));
}

// A school with as many pupils as the list holds, and all that its pages work on.
class Full_School {
public:
    explicit Full_School(desktop::Platform& platform) : platform(platform), holder(platform) {
        const QString file = folder.filePath(u"Mevo05Data.mdb"_s);
        sample_data::Write_Database(file, {Full_List, 1});
        installation.App_Path = QApplication::applicationDirPath();
        installation.Current_Database_Path = file;
        installation.Connection_String = foundation::Connection_String_For(file);
        scoring::Load_Pupil_Lists(holder, installation, platform.clock, data.pupils);
        window.resize(Common_Screen);
        window.show();
    }

    std::unique_ptr<reports::Form30> Make_Reports() {
        auto page = std::make_unique<reports::Form30>(
            platform, nowhere, reports::Report_Data{installation, data, scoring, report_state});
        page->setParent(&window);
        page->setGeometry(window.rect());
        return page;
    }

    std::unique_ptr<shell::Form77> Make_Menu() {
        auto page = std::make_unique<shell::Form77>(platform, nowhere, installation, counts);
        page->setParent(&window);
        page->setGeometry(window.rect());
        return page;
    }

    const scoring::Pupil_Lists& Pupils() const { return data.pupils; }

    int Read(const QString& sql) const { return Read_Plainly(installation.Current_Database_Path, sql); }
    int Read_Row(const QString& table, int p) const {
        return Read(u"SELECT * FROM "_s + table + u" WHERE StudentCode = '"_s + data.pupils.Student_Code[p] +
                    u'\'');
    }

private:
    desktop::Platform& platform;
    QTemporaryDir folder;
    Nowhere nowhere;
    foundation::Installation installation;
    shell::Menu_Counts counts;
    scoring::Scoring_Data data;
    foundation::Access_Holder holder;
    scoring::Scoring scoring = scoring::Pass_Over(data, installation, holder);
    reports::Report_State report_state;
    QWidget window;
};

// ---- choosing a pupil

enum class Time_Bars { Off, On };

// One connection for the pupil's row, one for each test that he has done, and with the time bars one more for
// each of these that has norms.
void Read_Answers_Plainly(const Full_School& school, int p, Time_Bars time_bars) {
    school.Read_Row(u"Mevo_Pupils"_s, p);
    for (int t = 1; t <= scoring::All_Tests; ++t) {
        if (school.Pupils().Test_Status[t][p] != 1) continue;
        const int passes = time_bars == Time_Bars::On && t <= scoring::Normed_Tests ? 2 : 1;
        for (int pass = 1; pass <= passes; ++pass)
            school.Read_Row(scoring::Test_At(t).Data_Table, p);
    }
}

void Choose_A_Pupil(benchmark::State& state, Full_School& school, Time_Bars time_bars) {
    const auto page = school.Make_Reports();
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
    const auto page = school.Make_Reports();
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
    const auto page = school.Make_Reports();
    page->Load();
    page->show();
    Measure_Beside(
        state, [&] { page->Timer2_Timer(); }, [&] { school.Read(u"SELECT * FROM Mevo_Pupils"_s); });
}

// ---- the Main menu

void Load_Menu(benchmark::State& state, Full_School& school) {
    const auto page = school.Make_Menu();
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

static void Register_All(Full_School& school, desktop::Platform& platform) {
    using benchmark::RegisterBenchmark;
    const int once_round = school.Pupils().Pupils_Listed;
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
    RegisterBenchmark("import_a_school", Import_A_School, std::ref(platform))
        ->Iterations(Classes)
        ->Unit(benchmark::kMillisecond)
        ->MeasureProcessCPUTime();
}

} // namespace bench

int main(int argc, char** argv) {
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    benchmark::Initialize(&argc, argv);
    QApplication application(argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 2;
    shell::Apply_Theme(application);
    try {
        bench::Box_Refusal refusal;
        application.installEventFilter(&refusal);
        desktop::Qt_Platform platform;
        bench::Full_School school(platform.Ports());
        bench::Register_All(school, platform.Ports());
        benchmark::AddCustomContext("pupils on the list", std::to_string(school.Pupils().Pupils_Listed));
        benchmark::RunSpecifiedBenchmarks();
    } catch (const std::exception& error) {
        QTextStream(stderr) << "mevo-bench: " << error.what() << Qt::endl;
        return 1;
    }
    return 0;
}
