#include "app/program.h"
#include "platform/desktop/qt_platform.h"
#include "platform/desktop/system_scheme.h"
#include "platform/desktop/windows_services.h"
#include "shell/conventions/theme.h"

#include <QApplication>
#include <QIcon>
#include <QScreen>

using namespace Qt::StringLiterals;

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    // Names the program's entry in the menu of applications: a desktop gives the windows that entry's icon.
    QGuiApplication::setDesktopFileName(u"mevo"_s);
    QApplication::setWindowIcon(QIcon::fromTheme(u"mevo"_s));
    // The program ends through Processes::End alone, also while its window is hidden.
    QApplication::setQuitOnLastWindowClosed(false);
    shell::Apply_Theme(application, desktop::System_Is_Dark() ? shell::Scheme::Dark : shell::Scheme::Light);
    desktop::Keep_Windows_While_They_Work();
    desktop::Qt_Platform platform;
    app::Program program(platform.Ports());
    program.Start(QApplication::applicationDirPath());
    // Without a window manager nothing would enlarge the window.
    program.Window().setGeometry(QGuiApplication::primaryScreen()->availableGeometry());
    program.Window().showMaximized();
    return QApplication::exec();
}
