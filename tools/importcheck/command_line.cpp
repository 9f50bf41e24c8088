#include "importcheck/command_line.h"

#include "console/error_line.h"
#include "foundation/installation.h"
#include "platform/basics/csv_text.h"
#include "pupils/import/preparation.h"

#include <QCommandLineParser>
#include <QFileInfo>
#include <algorithm>
#include <optional>

using namespace Qt::StringLiterals;

namespace import_check {

namespace {

using pupils::Date_Order;
using pupils::Refused_Source;

constexpr int Done = 0;
constexpr int Failed = 2;
const QString Program = u"mevo-import-check"_s;

struct Request {
    QString file;
    QString database;
    pupils::Source_Choice choice;
    std::optional<Date_Order> order;
    QString class_for_all;
};

void Write_Whole(const QString& text, QIODevice& output) {
    const QByteArray bytes = text.toUtf8();
    if (output.write(bytes) != bytes.size()) throw Refused_Source(u"Can't write: "_s + output.errorString());
}

// The place of a word in a list; a word that isn't there is told with those that are.
int Place_In(const QStringList& words, const QString& word, const QString& option) {
    for (int place = 0; place < words.size(); ++place)
        if (words[place].compare(word, Qt::CaseInsensitive) == 0) return place;
    throw Refused_Source(u"--%1 is one of: %2"_s.arg(option, words.join(u", "_s)));
}

struct Options {
    QCommandLineOption database{u"database"_s, u"Compare with the pupils and classes of this database."_s,
                                u"DATABASE"_s};
    QCommandLineOption sheet{u"sheet"_s, u"The number of a workbook's sheet, from 1."_s, u"NUMBER"_s};
    QCommandLineOption encoding{u"encoding"_s, u"UTF-8, UTF-16 or Windows-1252, in place of a trial."_s,
                                u"NAME"_s};
    QCommandLineOption dates{u"dates"_s, u"What comes first in dates: day, month or year."_s, u"ORDER"_s};
    QCommandLineOption group{u"class"_s, u"The class of all who have none."_s, u"NAME"_s};
};

Request Request_Of(const QCommandLineParser& parser, const Options& options) {
    Request request{parser.positionalArguments().value(0), parser.value(options.database), {}, {}, {}};
    if (parser.positionalArguments().size() != 1)
        throw Refused_Source(u"Usage: mevo-import-check FILE [OPTION...]"_s);
    if (parser.isSet(options.sheet)) request.choice.sheet = parser.value(options.sheet).toInt() - 1;
    if (request.choice.sheet < 0) throw Refused_Source(u"--sheet is a number from 1"_s);
    if (parser.isSet(options.encoding))
        request.choice.encoding = pupils::Encoding(
            Place_In(pupils::Encoding_Names(), parser.value(options.encoding), u"encoding"_s));
    if (parser.isSet(options.dates))
        request.order = Date_Order(
            1 + Place_In({u"day"_s, u"month"_s, u"year"_s}, parser.value(options.dates), u"dates"_s));
    request.class_for_all = parser.value(options.group);
    return request;
}

// Nothing is returned when help was asked for and given.
std::optional<Request> Read_Arguments(const QStringList& arguments, QIODevice& output) {
    QCommandLineParser parser;
    parser.setApplicationDescription(
        u"Tells of each row of a school's list what an import would make of it."_s);
    parser.addPositionalArgument(u"FILE"_s, u"A CSV or text file, or a workbook (.xlsx)."_s);
    const Options options;
    parser.addOptions({options.database, options.sheet, options.encoding, options.dates, options.group});
    const QCommandLineOption help = parser.addHelpOption();
    if (!parser.parse(arguments)) throw Refused_Source(parser.errorText());
    if (!parser.isSet(help)) return Request_Of(parser, options);
    Write_Whole(parser.helpText(), output);
    return std::nullopt;
}

QString Line_Of(const pupils::Rehearsed_Row& row) {
    QStringList fields{QString::number(row.line), pupils::Words_Of(row.kind)};
    fields += row.fields;
    const bool has_age = row.birthday.isValid();
    fields += {has_age ? QString::number(row.age_months) : QString(),
               has_age ? QString::number(pupils::Has_Norms(row.age_months) ? 1 : 0) : QString(),
               row.words.join(u"; "_s), QString::number(row.curable ? 1 : 0)};
    return basics::Csv_Line(fields);
}

QString Rehearsal_Of(const Request& request, const QDateTime& now) {
    pupils::Registered registered;
    if (!request.database.isEmpty())
        registered = pupils::Read_Registered(
            foundation::Connection_String_For(QFileInfo(request.database).absoluteFilePath()));
    if (!registered.why_unknown.isEmpty()) throw Refused_Source(u"The database: "_s + registered.why_unknown);
    pupils::Preparation list;
    pupils::Take_Source(list, pupils::Read_Source_File(request.file, request.choice), now.date());
    list.order = request.order.value_or(list.order);
    list.class_for_all = request.class_for_all;
    QString text = basics::Csv_Line({u"line"_s, u"kind"_s, u"surname"_s, u"forename"_s, u"gender"_s,
                                     u"date_of_birth"_s, u"class"_s, u"password"_s, u"age_months"_s,
                                     u"has_norms"_s, u"words"_s, u"can_be_cured"_s});
    for (const pupils::Rehearsed_Row& row : pupils::Rehearse(list, registered, now))
        text += Line_Of(row);
    return text;
}

} // namespace

int Run_Command(const QStringList& arguments, QIODevice& output, QTextStream& errors, const QDateTime& now) {
    try {
        if (const auto request = Read_Arguments(arguments, output))
            Write_Whole(Rehearsal_Of(*request, now), output);
        return Done;
    } catch (const Refused_Source& refused) {
        console::Write_Error_Line(Program, refused.Why(), errors);
        return Failed;
    }
}

} // namespace import_check
