#include "testplayer/command_line.h"

#include "console/error_line.h"
#include "testplayer/answer_journal.h"

#include <QCommandLineParser>
#include <QRandomGenerator>
#include <limits>
#include <memory>
#include <optional>

using namespace Qt::StringLiterals;

namespace test_player {

namespace {

constexpr int Done = 0;
constexpr int Failed = 2;
constexpr double Highest_Rate = 1000;
const QString Program = u"mevo-testplayer"_s;
const QString Usage =
    u"Usage: mevo-testplayer DATABASE --code CODE... | --all [--rate N] [--count N] [--journal FILE]"_s;

struct Request {
    QString database;
    QStringList codes; // none: everybody
    double rate = 0;   // rows a second
    int count = 0;     // of rows
    QString journal;   // empty: none
};

double Rate_Of(const QString& text) {
    bool is_number = false;
    const double rate = text.toDouble(&is_number);
    if (!is_number || !(rate > 0) || rate > Highest_Rate)
        throw Play_Fault(u"--rate takes a number above 0, up to %1"_s.arg(Highest_Rate));
    return rate;
}

int Count_Of(const QString& text) {
    if (text.isEmpty()) return std::numeric_limits<int>::max();
    bool is_number = false;
    const int count = text.toInt(&is_number);
    if (!is_number || count < 1) throw Play_Fault(u"--count takes a whole number from 1 up"_s);
    return count;
}

// Nothing is returned when help was asked for and given.
std::optional<Request> Read_Arguments(const QStringList& arguments, QTextStream& output) {
    QCommandLineParser parser;
    parser.setApplicationDescription(
        u"Plays the part of the test modules on another workstation: stores made-up answers, row by row."_s);
    parser.addPositionalArgument(u"DATABASE"_s, u"The database file."_s);
    parser.addOption({u"code"_s, u"The pupils who play; more codes may follow."_s, u"CODE"_s});
    const QCommandLineOption all(u"all"_s, u"Everybody plays."_s);
    parser.addOption(all);
    parser.addOption({u"rate"_s, u"Rows a second."_s, u"N"_s, u"1"_s});
    parser.addOption({u"count"_s, u"Ends after so many rows."_s, u"N"_s});
    parser.addOption({u"journal"_s, u"Logs each committed row there."_s, u"FILE"_s});
    const QCommandLineOption help = parser.addHelpOption();

    if (!parser.parse(arguments)) throw Play_Fault(parser.errorText());
    if (parser.isSet(help)) {
        output << parser.helpText();
        return std::nullopt;
    }
    const QStringList plain = parser.positionalArguments();
    const bool some = parser.isSet(u"code"_s);
    if (plain.isEmpty() || plain.first().isEmpty() || some == parser.isSet(all) ||
        (!some && plain.size() > 1))
        throw Play_Fault(Usage);
    const QStringList codes = some ? parser.values(u"code"_s) + plain.mid(1) : QStringList();
    return Request{plain.first(), codes, Rate_Of(parser.value(u"rate"_s)), Count_Of(parser.value(u"count"_s)),
                   parser.value(u"journal"_s)};
}

void Play(const Request& request, const Pause& pause, int& committed) {
    constexpr double ms_in_a_second = 1000;
    Test_Player player(request.database, request.codes, QRandomGenerator::global()->generate());
    std::unique_ptr<Answer_Journal> journal;
    if (!request.journal.isEmpty()) journal = std::make_unique<Answer_Journal>(request.journal);
    while (committed < request.count) {
        const std::optional<Stored_Answers> stored = player.Sit_Next();
        if (!stored) throw Play_Fault(u"None of the pupils is left"_s);
        ++committed;
        if (journal) journal->Add(*stored);
        if (committed < request.count && !pause(static_cast<int>(ms_in_a_second / request.rate))) return;
    }
}

} // namespace

int Run_Command(const QStringList& arguments, const Pause& pause, QTextStream& output, QTextStream& errors) {
    std::optional<Request> request;
    int committed = 0;
    int status = Done;
    try {
        request = Read_Arguments(arguments, output);
        if (request) Play(*request, pause, committed);
    } catch (const Play_Fault& fault) {
        console::Write_Error_Line(Program, QString::fromUtf8(fault.what()), errors);
        status = Failed;
    }
    if (committed > 0) output << committed << " rows committed\n" << Qt::flush;
    return status;
}

} // namespace test_player
