#include "console/standard_output.h"
#include "setup/command_line.h"

#include <QCoreApplication>
#include <QFile>
#include <cstdio>

#ifdef _WIN32
#include <windows.h>
#else
#include <unistd.h>
#endif

using namespace Qt::StringLiterals;

namespace {

#ifdef _WIN32

// It has no console of its own, as one would flash up whenever the menu of programs starts it. What was
// started from one, and whose output goes nowhere else, writes there.
void Take_The_Starters_Console() {
    const auto is_open = [](DWORD which) {
        const HANDLE handle = GetStdHandle(which);
        return handle && handle != INVALID_HANDLE_VALUE && GetFileType(handle) != FILE_TYPE_UNKNOWN;
    };
    const bool out = is_open(STD_OUTPUT_HANDLE);
    const bool err = is_open(STD_ERROR_HANDLE);
    if ((out && err) || !AttachConsole(ATTACH_PARENT_PROCESS)) return;
    if (!out) std::freopen("CONOUT$", "w", stdout);
    if (!err) std::freopen("CONOUT$", "w", stderr);
}

// Another program takes this one's place on the screen.
bool Becomes(const QString& program, const set_up::Around& around) {
    return set_up::Start_Beside(program, {}, around);
}

#else

void Take_The_Starters_Console() {
}

// The process goes on as the other program, so that whoever started it waits for that one.
bool Becomes(const QString& program, const set_up::Around& around) {
    const QByteArray file = QFile::encodeName(around.program_folder + u'/' + program);
    execl(file.constData(), file.constData(), static_cast<char*>(nullptr));
    return false;
}

#endif

} // namespace

int main(int argc, char** argv) {
    const QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    const set_up::Around around = set_up::Surroundings_Here();
    Take_The_Starters_Console();
    QTextStream errors(stderr);
    const bool then_start = arguments.size() == 2 && arguments[1] == u"--then-start"_s;
    if (then_start && set_up::Mevo_Finds_Its_Database(around.program_folder) && Becomes(u"mevo"_s, around))
        return set_up::Succeeded;
    if (then_start || arguments.size() == 1) {
        if (Becomes(u"mevo-setup-wizard"_s, around)) return set_up::Succeeded;
        errors << "mevo-setup: mevo-setup-wizard can't be started beside it.\n";
        return set_up::Failed;
    }
    QFile input;
    QFile output;
    if (!console::Opens_Standard_Output(output)) return set_up::Failed;
    if (!input.open(stdin, QIODevice::ReadOnly)) return set_up::Failed;
    return set_up::Run_Command(arguments, around, {input, output, errors});
}
