#include "start.h"

#include "app/program.h"
#include "console/other_ports.h"
#include "installed_folder.h"
#include "measuring.h"
#include "platform/desktop/qt_platform.h"
#include "shell/conventions/click_combo.h"
#include "shell/conventions/theme.h"

#include <QApplication>
#include <QFile>
#include <QPaintEvent>
#include <QProcess>
#include <QTextStream>
#include <QTimer>
#include <stdexcept>

using namespace Qt::StringLiterals;

namespace bench {
namespace {

constexpr double Longest_Start_Ms = 300;
constexpr int Most_Memory_MB = 120;
constexpr int Pupils = 2500;

// Of this program alone: what the system's accounts say of a process includes the one that started it.
double Peak_Memory_MB() {
    QFile status(u"/proc/self/status"_s);
    if (!status.open(QIODevice::ReadOnly)) return 0;
    for (const QByteArray& line : status.readAll().split('\n'))
        if (line.startsWith("VmHWM:")) return line.mid(6).trimmed().chopped(3).toDouble() / 1024;
    return 0;
}

// Tells the measuring process, at the other end of the pipe, how much memory was taken, and ends.
[[noreturn]] void Reached() {
    QTextStream(stdout) << Peak_Memory_MB() << Qt::endl;
    std::_Exit(0);
}

// Calls back once the widget of this name has been painted.
class Once_Painted final : public QObject {
public:
    Once_Painted(QString name, std::function<void()> then) : name(std::move(name)), then(std::move(then)) {
        qApp->installEventFilter(this);
    }
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() != QEvent::Paint || watched->objectName() != name) return false;
        qApp->removeEventFilter(this);
        QTimer::singleShot(0, then);
        return false;
    }

private:
    QString name;
    std::function<void()> then;
};

int Paint_A_Window(QApplication&) {
    QWidget window;
    window.setObjectName(u"window"_s);
    const Once_Painted painted(u"window"_s, Reached);
    window.showMaximized();
    return QApplication::exec();
}

void Choose_From_A_Full_List(QWidget& window) {
    auto* list = window.findChild<shell::Click_Combo*>(u"Combo1"_s);
    if (!list || list->count() == 0) {
        QTimer::singleShot(1, &window, [&window] { Choose_From_A_Full_List(window); });
        return;
    }
    list->Set_ListIndex(list->count() / 2);
    QTimer::singleShot(0, Reached);
}

int Run_The_Program(const QString& folder, bool on_to_reports) {
    desktop::Qt_Platform platform;
    console::Hurried_Clock clock; // the second before the program's work is everybody's, and not measured
    desktop::Platform hurried = console::With({.clock = &clock}, platform.Ports());
    QApplication::setQuitOnLastWindowClosed(false);
    shell::Apply_Theme(*qApp);
    app::Program program(hurried);
    const Once_Painted menu(u"Form77"_s, [&] {
        if (!on_to_reports) Reached();
        program.Window().findChild<QAbstractButton*>(u"HotLabel1"_s)->click();
        Choose_From_A_Full_List(program.Window());
    });
    program.Start(folder);
    program.Window().showMaximized();
    return QApplication::exec();
}

// Starts this program as the one to be measured, and waits until it has got there; gives its memory, in MB.
double Start(const QStringList& arguments) {
    QProcess process;
    process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    process.start(QApplication::applicationFilePath(), arguments);
    process.waitForReadyRead();
    bool is_number = false;
    const double memory = QString::fromUtf8(process.readLine()).toDouble(&is_number);
    process.waitForFinished();
    if (!is_number) throw std::runtime_error("a process that was started didn't get there");
    return memory;
}

void Start_To_Menu(benchmark::State& state) {
    const Installed_Folder installed(Pupils);
    const double mean_ms = Measure_Beside(
        state,
        [&] {
            Start({u"--paint-the-menu"_s, installed.Path()});
        },
        [] { Start({u"--paint-a-window"_s}); }, Wall_Ms);
    state.SetLabel(Limit_Below(mean_ms, Longest_Start_Ms));
}

void Memory_Of_A_Full_List(benchmark::State& state) {
    const Installed_Folder installed(Pupils);
    double memory = 0;
    double plain = 0;
    Measure_Beside(
        state,
        [&] {
            memory = Start({u"--choose-from-a-full-list"_s, installed.Path()});
        },
        [&] { plain = Start({u"--paint-a-window"_s}); }, Wall_Ms);
    state.counters["peak_MB"] = memory;
    state.counters["plain_MB"] = plain;
    state.SetLabel((memory < Most_Memory_MB ? "below " : "NOT below ") + std::to_string(Most_Memory_MB) +
                   " MB");
}

} // namespace

void Register_Starts() {
    benchmark::RegisterBenchmark("start_to_menu", Start_To_Menu)
        ->Unit(benchmark::kMillisecond)
        ->UseRealTime()
        ->Iterations(20);
    benchmark::RegisterBenchmark("memory_of_a_full_list", Memory_Of_A_Full_List)
        ->Unit(benchmark::kMillisecond)
        ->UseRealTime()
        ->Iterations(3);
}

std::optional<int> Started_To_Be_Measured(int argc, char** argv) {
    if (argc < 2) return {};
    const QLatin1StringView way(argv[1]);
    const bool full_list = way == "--choose-from-a-full-list"_L1;
    if (way != "--paint-a-window"_L1 && way != "--paint-the-menu"_L1 && !full_list) return {};
    QApplication application(argc, argv);
    if (argc < 3) return Paint_A_Window(application);
    return Run_The_Program(QString::fromLocal8Bit(argv[2]), full_list);
}

} // namespace bench
