#include "console/standard_output.h"
#include "scores/command_line.h"

#include <QCoreApplication>
#include <QFile>

int main(int argc, char** argv) {
    console::Leave_Line_Ends_As_Written();
    const QCoreApplication application(argc, argv);
    QFile output;
    if (!console::Opens_Standard_Output(output)) return 2;
    QTextStream errors(stderr);
    return score_export::Run_Command(application.arguments(), output, errors);
}
