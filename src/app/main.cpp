#include "app/program.h"
#include "platform/desktop/qt_platform.h"
#include "shell/conventions/theme.h"

#include <QApplication>

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    // Between two pages there is a moment without a window.
    QApplication::setQuitOnLastWindowClosed(false);
    shell::Apply_Theme(application);
    desktop::Qt_Platform platform;
    app::Program program(platform.Ports());
    program.Start(QApplication::applicationDirPath());
    program.Window().showMaximized();
    return QApplication::exec();
}
