#include "print/command_line.h"

#include <QGuiApplication>

namespace {

// What the user is told is one line; the toolkit's remarks about the session it runs in are none of it.
void Drop_Remarks(QtMsgType, const QMessageLogContext&, const QString&) {
}

} // namespace

int main(int argc, char** argv) {
#ifdef Q_OS_UNIX
    // Fonts are all that is needed of a window system, and at night there may be none.
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
#endif
    qInstallMessageHandler(Drop_Remarks);
    const QGuiApplication application(argc, argv);
    QTextStream output(stdout);
    QTextStream errors(stderr);
    return paper_output::Run_Command(QGuiApplication::arguments(), output, errors);
}
