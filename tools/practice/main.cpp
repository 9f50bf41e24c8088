#include "platform/desktop/qt_platform.h"
#include "platform/desktop/system_scheme.h"
#include "practice/practice_school.h"
#include "practice/practice_window.h"
#include "shell/conventions/theme.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QDir>
#include <QIcon>
#include <QScreen>
#include <QTextStream>

#include <optional>
#include <stdexcept>

using namespace Qt::StringLiterals;

namespace {

constexpr int Failed = 2;

struct Request {
    QString folder;
    practice::If_There_Is_One if_there_is_one;
};

// Nothing is returned when help was asked for and given.
std::optional<Request> Read_Arguments(const QStringList& arguments) {
    QCommandLineParser parser;
    parser.setApplicationDescription(u"Opens a practice school of 24 made-up pupils with made-up norms."_s);
    parser.addPositionalArgument(u"DIR"_s, u"Where it lies; without it, in this account's own data."_s,
                                 u"[DIR]"_s);
    const QCommandLineOption fresh(u"fresh"_s, u"Begin with the school as it was made."_s);
    parser.addOption(fresh);
    const QCommandLineOption help = parser.addHelpOption();
    if (!parser.parse(arguments)) throw std::runtime_error(parser.errorText().toStdString());
    if (parser.isSet(help)) {
        QTextStream(stdout) << parser.helpText();
        return std::nullopt;
    }
    const QStringList places = parser.positionalArguments();
    if (places.size() > 1 || places.contains(QString()))
        throw std::runtime_error("Usage: mevo-practice [--fresh] [DIR]");
    const QString folder = places.isEmpty() ? practice::Customary_Folder()
                                            : QDir(QDir::fromNativeSeparators(places[0])).absolutePath();
    return Request{folder, parser.isSet(fresh) ? practice::If_There_Is_One::Replace
                                               : practice::If_There_Is_One::Keep};
}

int Show(const Request& request) {
    QApplication::setQuitOnLastWindowClosed(
        false); // the program ends itself, also while its window is hidden
    desktop::Qt_Platform platform;
    practice::Practice_Ports ports(platform.Ports(), request.folder);
    app::Program program(ports.Ports());
    program.Start(QApplication::applicationDirPath());
    practice::Practice_Window window(program.Window());
    window.setGeometry(QGuiApplication::primaryScreen()->availableGeometry());
    window.showMaximized();
    return QApplication::exec();
}

} // namespace

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    QGuiApplication::setDesktopFileName(u"mevo"_s);
    QApplication::setWindowIcon(QIcon::fromTheme(u"mevo"_s));
    shell::Apply_Theme(application, desktop::System_Is_Dark() ? shell::Scheme::Dark : shell::Scheme::Light);
    try {
        const std::optional<Request> request = Read_Arguments(QApplication::arguments());
        if (!request) return 0;
        practice::Provide_School(request->folder, QDate::currentDate(), request->if_there_is_one);
        return Show(*request);
    } catch (const std::runtime_error& error) {
        QTextStream(stderr) << "mevo-practice: " << QString::fromUtf8(error.what()) << '\n';
        desktop::Qt_Platform().Ports().boxes.Ask(
            desktop::Box_Style::Exclamation, desktop::Default_Box_Title(), QString::fromUtf8(error.what()));
        return Failed;
    }
}
