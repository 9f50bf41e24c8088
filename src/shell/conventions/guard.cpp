#include "shell/conventions/guard.h"

#include "platform/basics/number_text.h"
#include "platform/basics/run_time_error.h"

#include <QAbstractButton>
#include <QApplication>
#include <QScopeGuard>
#include <algorithm>

using namespace Qt::StringLiterals;

namespace shell {

[[noreturn]] static void End_With(desktop::Platform& platform, const QString& description) {
    platform.pointer.Set(desktop::Pointer_Shape::Default);
    platform.boxes.Ask(desktop::Box_Style::Critical, desktop::Default_Box_Title(), description);
    platform.processes.End(1);
}

[[noreturn]] static void End_With(desktop::Platform& platform, int number, const QString& description,
                                  const QString& about = {}) {
    const QString told = about.isEmpty() ? description : description + u"\r\r"_s + about;
    End_With(platform, u"Run-time error '"_s + basics::Plain_Number(number) + u"':\r\r"_s + told);
}

void Guarded(desktop::Platform& platform, const std::function<void()>& work, const QWidget* window) {
    platform.work.windows.push_back(window);
    const auto done = qScopeGuard([&platform] { platform.work.windows.pop_back(); });
    try {
        work();
    } catch (const basics::Run_Time_Error& error) {
        End_With(platform, error.Number, error.Description, error.About);
    } catch (const std::bad_alloc&) {
        End_With(platform, basics::errors::Out_Of_Memory, u"Out of memory"_s);
    } catch (const std::exception& error) {
        End_With(platform, QString::fromLocal8Bit(error.what()));
    }
}

static void Look_At_Events(desktop::Platform& platform, QEventLoop::ProcessEventsFlags which) {
    platform.work.painting = true;
    const auto done = qScopeGuard([&platform] { platform.work.painting = false; });
    QCoreApplication::processEvents(which);
}

void Paint_Meanwhile(desktop::Platform& platform) {
    Look_At_Events(platform, QEventLoop::ExcludeUserInputEvents);
}

void Paint_And_Listen(desktop::Platform& platform) {
    Look_At_Events(platform, QEventLoop::AllEvents);
}

bool Behind_A_Box(const QWidget& control) {
    const QWidget* box = QApplication::activeModalWidget();
    return box && box != control.window() && control.window()->isVisible();
}

bool Is_Idle(const desktop::Platform& platform, const QWidget& control) {
    const auto& busy = platform.work.windows;
    return !platform.work.painting && !Behind_A_Box(control) &&
           std::find(busy.begin(), busy.end(), control.window()) == busy.end();
}

// A hidden page stands beneath another.
static bool Hidden_In_A_Shown_Window(const QWidget& control) {
    return !control.isVisible() && control.window()->isVisible();
}

bool Takes_Event(const desktop::Platform& platform, const QObject* sender, const QObject* owner) {
    // The program itself raises the events of lists and fields inside its handlers, but it presses no button.
    if (const auto* button = qobject_cast<const QAbstractButton*>(sender))
        return Is_Idle(platform, *button) && !Hidden_In_A_Shown_Window(*button);
    const auto* control = qobject_cast<const QWidget*>(owner);
    return !control || !(platform.work.painting || Behind_A_Box(*control));
}

const QWidget* Window_Of(const QObject* owner) {
    const auto* control = qobject_cast<const QWidget*>(owner);
    return control ? control->window() : nullptr;
}

} // namespace shell
