#include "print/command_line.h"

#include "console/console_platform.h"
#include "console/error_line.h"
#include "platform/basics/run_time_error.h"
#include "platform/desktop/qt_printers.h"
#include "print/printed_reports.h"

using namespace Qt::StringLiterals;

namespace paper_output {

namespace {

constexpr int Done = 0;
constexpr int Failed = 2;
const QString Program = u"mevo-print"_s;

void Carry_Out(const Print_Request& request, QTextStream& errors) {
    console::Console_Platform platform(Program, errors);
    desktop::Write_Pdf(Printed_Report(request, platform.Ports()), request.out);
}

int Fail(const QString& line, QTextStream& errors) {
    console::Write_Error_Line(Program, line, errors);
    return Failed;
}

} // namespace

int Run_Command(const QStringList& arguments, QTextStream& output, QTextStream& errors) {
    try {
        QString help;
        if (const auto request = Read_Arguments(arguments, help))
            Carry_Out(*request, errors);
        else
            output << help << Qt::flush;
        return Done;
    } catch (const console::Program_Ended&) {
        return Failed; // the box that was shown has told why
    } catch (const Print_Fault& fault) {
        return Fail(fault.Line(), errors);
    } catch (const basics::Run_Time_Error& error) {
        return Fail(error.Description, errors);
    }
}

} // namespace paper_output
