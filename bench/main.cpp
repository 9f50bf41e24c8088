// Measures what a teacher waits for, each time beside what the engine or the toolkit alone takes for the
// same.

#include "full_school.h"
#include "growth.h"
#include "import_bench.h"
#include "platform/desktop/qt_platform.h"
#include "share.h"
#include "shell/conventions/theme.h"
#include "start.h"

#include <QApplication>
#include <QDir>
#include <QEvent>
#include <QMessageBox>
#include <QTextStream>
#include <algorithm>
#include <benchmark/benchmark.h>
#include <cstdlib>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

constexpr int Full_List = 2500;
constexpr int Small_List = 250;
// Round numbers of scored pupils; some of a school have done no test yet.
constexpr qint16 Full_Cohort = 2000;
constexpr qint16 Small_Cohort = 200;
constexpr qint16 Nobody_Left_Out = 32767;

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

} // namespace

// The figures are kept beside the program, unless another place was asked for.
static std::vector<char*> With_A_File(int argc, char** argv, std::string& option) {
    std::vector<char*> arguments(argv, argv + argc);
    const bool asked = std::any_of(arguments.begin(), arguments.end(), [](const char* argument) {
        return std::string_view(argument).substr(0, 16) == "--benchmark_out=";
    });
    if (!asked) {
        option = "--benchmark_out=" +
                 QFileInfo(QFile::decodeName(argv[0])).dir().filePath(u"mevo-bench.json"_s).toStdString();
        arguments.push_back(option.data());
    }
    return arguments;
}

static void Measure(desktop::Platform& ports) {
    bench::Full_School small(ports, Small_List, Nobody_Left_Out);
    bench::Full_School full(ports, Full_List, Nobody_Left_Out);
    bench::Full_School small_cohort(ports, Small_List, Small_Cohort);
    bench::Full_School full_cohort(ports, Full_List, Full_Cohort);
    for (bench::Full_School* school : {&small, &full}) {
        bench::Register_Choices(*school);
        bench::Register_Openings(*school);
        bench::Register_Preparing(*school);
    }
    for (bench::Full_School* school : {&small_cohort, &full_cohort}) {
        bench::Register_Scores(*school);
        bench::Register_Paper(*school);
    }
    for (bench::Full_School* school : {&small, &full}) // last, as it changes their groups
        bench::Register_Whole_File(*school);
    bench::Register_Starts();
    bench::Register_Share();
    benchmark::RegisterBenchmark("import_a_school", bench::Import_A_School, std::ref(ports))
        ->Iterations(bench::Classes)
        ->Unit(benchmark::kMillisecond)
        ->MeasureProcessCPUTime();
    benchmark::RegisterBenchmark("delete_a_school", bench::Delete_A_School, std::ref(ports))
        ->Iterations(bench::Selections)
        ->Unit(benchmark::kMillisecond)
        ->MeasureProcessCPUTime();
    benchmark::AddCustomContext("pupils on the list", std::to_string(full.data.pupils.Pupils_Listed));
    bench::Growth_Reporter table;
    benchmark::RunSpecifiedBenchmarks(&table);
}

int main(int argc, char** argv) {
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    if (const auto status = bench::Started_To_Be_Measured(argc, argv)) return *status;
    if (const auto status = bench::Started_On_A_Share(argc, argv)) return *status;
    if (argc == 2 && std::string_view(argv[1]) == "--round-trips") {
        const QApplication application(argc, argv);
        return bench::Tell_Round_Trips();
    }
    std::string option;
    std::vector<char*> arguments = With_A_File(argc, argv, option);
    int count = static_cast<int>(arguments.size());
    benchmark::Initialize(&count, arguments.data());
    QApplication application(count, arguments.data());
    if (benchmark::ReportUnrecognizedArguments(count, arguments.data())) return 2;
    shell::Apply_Theme(application);
    try {
        Box_Refusal refusal;
        application.installEventFilter(&refusal);
        desktop::Qt_Platform platform;
        Measure(platform.Ports());
    } catch (const std::exception& error) {
        QTextStream(stderr) << "mevo-bench: " << error.what() << Qt::endl;
        return 1;
    }
    return 0;
}
