#include "print/command_line.h"

#include "console/console_platform.h"
#include "console/error_line.h"
#include "platform/basics/run_time_error.h"
#include "print/printed_reports.h"

using namespace Qt::StringLiterals;

namespace paper_output {

namespace {

constexpr int Done = 0;
constexpr int Some_Left_Out = 1;
constexpr int Failed = 2;
const QString Program = u"mevo-print"_s;

int Carry_Out(const Print_Request& request, QTextStream& errors) {
    console::Console_Platform platform(Program, errors);
    const QStringList left_out = Print_Reports(request, platform.Ports());
    for (const QString& pupil : left_out)
        console::Write_Error_Line(Program, u"Left out: "_s + pupil, errors);
    return left_out.isEmpty() ? Done : Some_Left_Out;
}

int Fail(const QString& line, QTextStream& errors) {
    console::Write_Error_Line(Program, line, errors);
    return Failed;
}

} // namespace

int Run_Command(const QStringList& arguments, QTextStream& output, QTextStream& errors) {
    try {
        QString help;
        if (const auto request = Read_Arguments(arguments, help)) return Carry_Out(*request, errors);
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
