#include "platform/desktop/system_scheme.h"
#include "setup/wizard.h"
#include "shell/conventions/theme.h"

#include <QApplication>
#include <QFileDialog>
#include <QIcon>

using namespace Qt::StringLiterals;

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    QGuiApplication::setDesktopFileName(u"mevo"_s);
    QApplication::setWindowIcon(QIcon::fromTheme(u"mevo"_s));
    shell::Apply_Theme(application, desktop::System_Is_Dark() ? shell::Scheme::Dark : shell::Scheme::Light);
    set_up::Wizard_State state{
        set_up::Surroundings_Here(),
        [](const QString& title) {
            return QFileDialog::getExistingDirectory(QApplication::activeWindow(), title);
        },
        [](const QString& title) {
            return QFileDialog::getOpenFileName(QApplication::activeWindow(), title, {},
                                                u"Databases (*.mdb);;All files (*)"_s);
        },
        {}};
    state.start = [&state](const QString& program) {
        return set_up::Start_Beside(program, {}, state.around);
    };
    set_up::Wizard wizard(state);
    wizard.show();
    return QApplication::exec();
}
