#include "sampledb/sample_data.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QDir>
#include <QTextStream>

#include <limits>
#include <optional>
#include <stdexcept>

using namespace Qt::StringLiterals;

namespace {

constexpr int Wrong_Use = 2;
constexpr int Most_Pupils = 100000;

struct Request {
    QString folder;
    sample_data::Options options;
};

qint64 Number_Of(const QCommandLineParser& parser, const QString& option, qint64 highest) {
    bool is_number = false;
    const qint64 number = parser.value(option).toLongLong(&is_number);
    if (!is_number || number < 0 || number > highest)
        throw std::runtime_error(
            u"--%1 takes a whole number from 0 to %2"_s.arg(option).arg(highest).toStdString());
    return number;
}

// Nothing is returned when help was asked for and given.
std::optional<Request> Read_Arguments(const QStringList& arguments) {
    const sample_data::Options defaults;
    QCommandLineParser parser;
    parser.setApplicationDescription(u"Writes a template and a working database of made-up pupils."_s);
    parser.addPositionalArgument(u"DIR"_s, u"Folder for the two files, made if missing."_s);
    parser.addOption({u"pupils"_s, u"How many pupils."_s, u"N"_s, QString::number(defaults.pupils)});
    parser.addOption({u"seed"_s, u"Another seed, other pupils."_s, u"S"_s, QString::number(defaults.seed)});
    const QCommandLineOption help = parser.addHelpOption();

    if (!parser.parse(arguments)) throw std::runtime_error(parser.errorText().toStdString());
    if (parser.isSet(help)) {
        QTextStream(stdout) << parser.helpText();
        return std::nullopt;
    }
    if (parser.positionalArguments().size() != 1 || parser.positionalArguments().first().isEmpty())
        throw std::runtime_error("Usage: mevo-sampledb DIR [--pupils N] [--seed S]");
    const qint64 pupils = Number_Of(parser, u"pupils"_s, Most_Pupils);
    const qint64 seed = Number_Of(parser, u"seed"_s, std::numeric_limits<quint32>::max());
    return Request{parser.positionalArguments().first(), {int(pupils), quint32(seed)}};
}

void Write_Both(const Request& request) {
    const QDir folder(request.folder);
    if (!folder.mkpath(u"."_s))
        throw std::runtime_error(u"Can't make the folder %1"_s.arg(request.folder).toStdString());
    const QString empty = folder.filePath(u"Mevo05EmptyDatabase.mdb"_s);
    const QString data = folder.filePath(u"Mevo05Data.mdb"_s);
    sample_data::Write_Template(empty, request.options.seed);
    sample_data::Write_Database(data, request.options);
    QTextStream(stdout) << QDir::toNativeSeparators(empty) << ": template\n"
                        << QDir::toNativeSeparators(data) << ": " << request.options.pupils
                        << " pupils, seed " << request.options.seed << '\n';
}

} // namespace

int main(int argc, char** argv) {
    const QCoreApplication application(argc, argv);
    try {
        if (const std::optional<Request> request = Read_Arguments(application.arguments()))
            Write_Both(*request);
        return 0;
    } catch (const std::runtime_error& error) {
        QTextStream(stderr) << "mevo-sampledb: " << QString::fromUtf8(error.what()) << '\n';
        return Wrong_Use;
    }
}
