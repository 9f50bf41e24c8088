#include "console/standard_output.h"
#include "convert/command_line.h"

#include <QCoreApplication>
#include <QFile>
#include <csignal>
#include <cstdio>

#ifdef _WIN32
#include <io.h>
#else
#include <unistd.h>
#endif

namespace {

// A signal handler may set nothing but a variable like this. The conversion asks for it, so that the
// unfinished file goes the way of any other failure.
volatile std::sig_atomic_t was_interrupted = 0;

bool Somebody_Sits_Before_The_Errors() {
#ifdef _WIN32
    return _isatty(_fileno(stderr)) != 0;
#else
    return isatty(STDERR_FILENO) != 0;
#endif
}

} // namespace

int main(int argc, char** argv) {
    const QCoreApplication application(argc, argv);
    for (const int signal : {SIGINT, SIGTERM})
        std::signal(signal, [](int) { was_interrupted = 1; });
    QFile output;
    if (!console::Opens_Standard_Output(output)) return convert_command::Failed;
    QTextStream errors(stderr);
    return convert_command::Run_Command(application.arguments(),
                                        {output, errors, Somebody_Sits_Before_The_Errors(),
                                         [] { return was_interrupted != 0; },
                                         conversion::Reader_Beside_This_Program()});
}
