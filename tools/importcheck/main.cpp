#include "console/standard_output.h"
#include "importcheck/command_line.h"

#include <QCoreApplication>
#include <QFile>
#include <cstdio>

#ifdef _WIN32
#include <fcntl.h>
#include <io.h>
#endif

int main(int argc, char** argv) {
#ifdef _WIN32
    _setmode(_fileno(stdout), _O_BINARY); // or each line end would get a second carriage return
#endif
    const QCoreApplication application(argc, argv);
    QFile output;
    if (!console::Opens_Standard_Output(output)) return 2;
    QTextStream errors(stderr);
    return import_check::Run_Command(application.arguments(), output, errors);
}
