#include "scores/command_line.h"

#include "console/console_platform.h"
#include "console/error_line.h"
#include "scores/earlier_lines.h"
#include "scores/score_lines.h"

#include <QCommandLineParser>
#include <optional>

using namespace Qt::StringLiterals;

namespace score_export {

namespace {

constexpr int Done = 0;
constexpr int Found_Something = 1;
constexpr int Failed = 2;
const QString Program = u"mevo-scores"_s;

struct Request {
    QString database;
    scoring::Passes_Wanted wanted;
    bool check_norms;
    Header_Comment comment;
    bool earlier; // the takings before a retest too
};

void Write_Whole(const QString& text, QIODevice& output) {
    const QByteArray bytes = text.toUtf8();
    if (output.write(bytes) != bytes.size()) throw Export_Fault(u"Can't write: "_s + output.errorString());
}

// Nothing is returned when help was asked for and given.
std::optional<Request> Read_Arguments(const QStringList& arguments, QIODevice& output) {
    QCommandLineParser parser;
    parser.setApplicationDescription(u"Writes the scores of all pupils as comma-separated values."_s);
    parser.addPositionalArgument(u"DATABASE"_s, u"The database file."_s);
    const QCommandLineOption times(u"times"_s, u"Score the item times as well."_s);
    parser.addOption(times);
    const QCommandLineOption check(
        u"check-norms"_s, u"Look into the norm tables instead; status 1 where something is wrong."_s);
    parser.addOption(check);
    const QCommandLineOption about(u"about"_s,
                                   u"Begin with a comment that names the norms by their digest."_s);
    parser.addOption(about);
    const QCommandLineOption earlier(u"earlier"_s,
                                     u"List each taking of each test, those before a retest too."_s);
    parser.addOption(earlier);
    const QCommandLineOption help = parser.addHelpOption();

    if (!parser.parse(arguments)) throw Export_Fault(parser.errorText());
    if (parser.isSet(help)) {
        Write_Whole(parser.helpText(), output);
        return std::nullopt;
    }
    const QStringList files = parser.positionalArguments();
    if (files.size() != 1 || files.first().isEmpty())
        throw Export_Fault(u"Usage: mevo-scores DATABASE [--times] [--about] [--check-norms] [--earlier]"_s);
    using scoring::Passes_Wanted;
    return Request{files.first(), parser.isSet(times) ? Passes_Wanted::Raw_And_Time : Passes_Wanted::Raw,
                   parser.isSet(check), parser.isSet(about) ? Header_Comment::Norms : Header_Comment::None,
                   parser.isSet(earlier)};
}

int Check_The_Norms(const QString& database, desktop::Platform& platform, QIODevice& output) {
    const scoring::Norm_Check check = Check_Of(database, platform);
    Write_Whole(Norm_Lines(check), output);
    return check.Findings() == 0 ? Done : Found_Something;
}

} // namespace

int Run_Command(const QStringList& arguments, QIODevice& output, QTextStream& errors) {
    try {
        const std::optional<Request> request = Read_Arguments(arguments, output);
        if (!request) return Done;
        console::Console_Platform platform(Program, errors);
        if (request->check_norms) return Check_The_Norms(request->database, platform.Ports(), output);
        Write_Whole(request->earlier
                        ? Earlier_Lines(request->database, platform.Ports())
                        : Score_Lines(request->database, request->wanted, platform.Ports(), request->comment),
                    output);
        return Done;
    } catch (const console::Program_Ended&) {
        return Failed; // the box that was shown has told why
    } catch (const Export_Fault& fault) {
        console::Write_Error_Line(Program, QString::fromUtf8(fault.what()), errors);
        return Failed;
    }
}

} // namespace score_export
