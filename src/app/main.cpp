#include "app/program.h"
#include "platform/desktop/qt_platform.h"
#include "shell/conventions/theme.h"

#include <QApplication>
#include <QIcon>
#include <QScreen>

using namespace Qt::StringLiterals;

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    // The entry in the menu of applications, whose icon the windows get too.
    QGuiApplication::setDesktopFileName(u"mevo"_s);
    QApplication::setWindowIcon(QIcon::fromTheme(u"mevo"_s));
    // Between two pages there is a moment without a window.
    QApplication::setQuitOnLastWindowClosed(false);
    shell::Apply_Theme(application);
    desktop::Qt_Platform platform;
    app::Program program(platform.Ports());
    program.Start(QApplication::applicationDirPath());
    // Where no window manager enlarges a window, it has its size already.
    program.Window().setGeometry(QGuiApplication::primaryScreen()->availableGeometry());
    program.Window().showMaximized();
    return QApplication::exec();
}
