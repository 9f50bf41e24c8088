// Measures what a teacher waits for, each time beside what the engine or the toolkit alone takes for the
// same.

#include "full_school.h"
#include "import_bench.h"
#include "platform/desktop/qt_platform.h"
#include "shell/conventions/theme.h"

#include <QApplication>
#include <QEvent>
#include <QMessageBox>
#include <QTextStream>
#include <algorithm>
#include <benchmark/benchmark.h>
#include <cstdlib>
#include <stdexcept>

using namespace Qt::StringLiterals;

namespace {

constexpr int Full_List = 2500;
constexpr int Full_Batch = 2000;
constexpr int Pupils_For_A_Batch = 2200; // some of them have done no test yet

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

int main(int argc, char** argv) {
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    benchmark::Initialize(&argc, argv);
    QApplication application(argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 2;
    shell::Apply_Theme(application);
    try {
        Box_Refusal refusal;
        application.installEventFilter(&refusal);
        desktop::Qt_Platform platform;
        bench::Full_School school(platform.Ports(), Full_List);
        bench::Full_School batch(platform.Ports(), Pupils_For_A_Batch);
        batch.data.pupils.Pupils_Listed = std::min<qint16>(batch.data.pupils.Pupils_Listed, Full_Batch);
        bench::Register_Pages(school);
        bench::Register_Paper(batch);
        bench::Register_Scores(batch);
        benchmark::RegisterBenchmark("import_a_school", bench::Import_A_School, std::ref(platform.Ports()))
            ->Iterations(bench::Classes)
            ->Unit(benchmark::kMillisecond)
            ->MeasureProcessCPUTime();
        benchmark::AddCustomContext("pupils on the list", std::to_string(school.data.pupils.Pupils_Listed));
        benchmark::AddCustomContext("pupils in the batch", std::to_string(batch.data.pupils.Pupils_Listed));
        benchmark::RunSpecifiedBenchmarks();
    } catch (const std::exception& error) {
        QTextStream(stderr) << "mevo-bench: " << error.what() << Qt::endl;
        return 1;
    }
    return 0;
}
