#include "print/print_request.h"

#include <QCommandLineParser>
#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace paper_output {

namespace {

const QString Usage =
    u"Usage: mevo-print DATABASE individual CODE... --out FILE.pdf, or mevo-print DATABASE batch "
    "[--group NAME] --out FILE.pdf, or mevo-print DATABASE each [--group NAME] --out FOLDER"_s;

// An option that takes one of two words, the first if it isn't given.
QString One_Of(const QCommandLineParser& parser, const QString& option, const QString& usual,
               const QString& other) {
    if (!parser.isSet(option)) return usual;
    const QString value = parser.value(option);
    for (const QString& word : {usual, other})
        if (value.compare(word, Qt::CaseInsensitive) == 0) return word;
    throw Print_Fault(u"--%1 is %2 or %3, not '%4'."_s.arg(option, usual, other, value));
}

Report_Kind Kind_Named(const QString& word) {
    if (word == "individual"_L1) return Report_Kind::Individual;
    if (word == "batch"_L1) return Report_Kind::Batch;
    if (word == "each"_L1) return Report_Kind::Each;
    throw Print_Fault(u"'"_s + word + u"' is none of individual, batch and each. "_s + Usage);
}

bool Is_Same_File(const QString& one, const QString& other) {
    const QFileInfo first(one);
    const QFileInfo second(other);
    return first.exists() && second.exists() && first.canonicalFilePath() == second.canonicalFilePath();
}

void Check(const Print_Request& request) {
    if (request.database.isEmpty()) throw Print_Fault(Usage);
    if (request.out.isEmpty()) throw Print_Fault(u"--out is missing. "_s + Usage);
    if (Is_Same_File(request.out, request.database))
        throw Print_Fault(u"The report can't be written over the database."_s);
    if (request.kind != Report_Kind::Individual) {
        if (!request.codes.isEmpty()) throw Print_Fault(u"A group takes no codes. "_s + Usage);
        return;
    }
    if (request.codes.isEmpty()) throw Print_Fault(u"No pupil's code is given. "_s + Usage);
    if (!request.group.isEmpty()) throw Print_Fault(u"--group belongs to batch and each. "_s + Usage);
}

Print_Request Request_From(const QCommandLineParser& parser) {
    QStringList words = parser.positionalArguments();
    if (words.size() < 2) throw Print_Fault(Usage);
    Print_Request request;
    request.database = words.takeFirst();
    request.kind = Kind_Named(words.takeFirst());
    request.codes = words;
    if (parser.isSet(u"group"_s) && parser.value(u"group"_s).isEmpty())
        throw Print_Fault(u"--group needs the name of a group."_s);
    request.group = parser.value(u"group"_s);
    request.out = parser.value(u"out"_s);
    request.scale = One_Of(parser, u"scale"_s, u"P"_s, u"Z"_s);
    request.ground = One_Of(parser, u"ground"_s, u"GREY"_s, u"WHITE"_s);
    request.time_bars = parser.isSet(u"time-bars"_s);
    request.keep_to_margins = parser.isSet(u"margins"_s);
    request.label_by_name = One_Of(parser, u"label"_s, u"name"_s, u"id"_s) == "name"_L1;
    Check(request);
    return request;
}

} // namespace

std::optional<Print_Request> Read_Arguments(const QStringList& arguments, QString& help) {
    QCommandLineParser parser;
    parser.setApplicationDescription(
        u"Prints individual reports, or a batch of miniature profiles, to PDF files. Ends with status 0; "
        "with 1 if pupils of a group were left out, which are named; and with 2 if nothing could be done."_s);
    parser.addPositionalArgument(u"DATABASE"_s, u"The database file."_s);
    parser.addPositionalArgument(u"KIND"_s,
                                 u"individual; batch; or each, a file for each pupil of a group"_s);
    parser.addPositionalArgument(u"CODE"_s, u"The User ID of each pupil, for individual reports."_s,
                                 u"[CODE...]"_s);
    parser.addOptions({
        {u"out"_s, u"The PDF to write; of each, the folder for them, which is made if need be."_s, u"FILE"_s},
        {u"group"_s, u"The group of a batch or of each; all pupils if it isn't given."_s, u"NAME"_s},
        {u"scale"_s, u"Centiles, which is usual, or z-scores."_s, u"P|Z"_s},
        {u"ground"_s, u"Grey bands, which is usual, or a white chart."_s, u"GREY|WHITE"_s},
        {u"time-bars"_s, u"Shows the time scores as well."_s},
        {u"margins"_s, u"Keeps all that is drawn inside the paper's margins."_s},
        {u"label"_s, u"What names a pupil of a batch; the name is usual."_s, u"name|id"_s},
    });
    const QCommandLineOption help_option = parser.addHelpOption();
    if (!parser.parse(arguments)) throw Print_Fault(parser.errorText());
    if (parser.isSet(help_option)) {
        help = parser.helpText();
        return std::nullopt;
    }
    return Request_From(parser);
}

} // namespace paper_output
