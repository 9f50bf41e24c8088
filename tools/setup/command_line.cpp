#include "setup/command_line.h"

#include "console/error_line.h"
#include "conversion/refusal.h"
#include "setup/folders.h"
#include "setup/share_check.h"

#include <QCommandLineParser>
#include <QDir>
#include <QFile>

using namespace Qt::StringLiterals;

namespace set_up {

using conversion::Refusal;

namespace {

const QString Program = u"mevo-setup"_s;

void Write(const QString& text, QIODevice& output) {
    const QByteArray bytes = text.toUtf8();
    if (output.write(bytes) != bytes.size()) throw Refusal(u"Can't write: "_s + output.errorString());
}

// The first line, whatever ends it.
QString First_Line(QIODevice& source) {
    QByteArray line = source.readLine();
    while (line.endsWith('\n') || line.endsWith('\r'))
        line.chop(1);
    if (line.isEmpty()) throw Refusal(u"The password is empty, and Mevo takes no empty one."_s);
    return QString::fromUtf8(line);
}

QString Password_From(const QString& place, QIODevice& input) {
    if (place == "-"_L1) return First_Line(input);
    QFile file(QDir::fromNativeSeparators(place));
    if (!file.open(QIODevice::ReadOnly))
        throw Refusal(u"The password's file %1 can't be read: %2"_s.arg(place, file.errorString()));
    return First_Line(file);
}

struct Options {
    const QCommandLineOption folder{
        u"folder"_s,
        u"Where the databases lie or are to lie; without it, this computer's folder for all users' data."_s,
        u"DIR"_s};
    const QCommandLineOption group{u"group"_s, u"Whose accounts may use the folder where it is made."_s,
                                   u"NAME"_s};
    const QCommandLineOption school{u"school"_s, u"Make a new empty school of that name."_s, u"NAME"_s};
    const QCommandLineOption classes{u"classes"_s, u"The new school's classes."_s, u"1 Oak,1 Ash"_s};
    const QCommandLineOption password{
        u"password-from"_s,
        u"The new school's Administrator's password is the first line of that file, or of the input."_s,
        u"FILE|-"_s};
    const QCommandLineOption from{u"from"_s,
                                  u"The new school's template; without --school, the school's database to "
                                  u"bring, or a folder with it and its "
                                  "template. Files of the older format are converted."_s,
                                  u"FILE"_s};
    const QCommandLineOption sheets{
        u"sheets"_s,
        u"Where report sheets begin for this school: within the margins, or at the paper's corner."_s,
        u"margins|corner"_s};
    const QCommandLineOption check{
        u"check"_s, u"Change nothing; tell whether the folder is fit for a database that computers share."_s};
    const QCommandLineOption hold_lock = Hidden(u"hold-lock"_s); // for the check, in a process of its own

    static QCommandLineOption Hidden(const QString& name) {
        QCommandLineOption option(name, {}, u"FILE"_s);
        option.setFlags(QCommandLineOption::HiddenFromHelp);
        return option;
    }
};

Sheets Sheets_Named(const QString& word) {
    if (word == "margins"_L1) return Sheets::Within_The_Margins;
    if (word == "corner"_L1) return Sheets::At_The_Papers_Corner;
    throw Refusal(u"--sheets takes margins or corner."_s);
}

New_School School_Asked_For(const QCommandLineParser& parser, const Options& options, QIODevice& input) {
    New_School school{
        parser.value(options.school).simplified(), Classes_Of(parser.value(options.classes)), {}};
    if (school.name.isEmpty()) throw Refusal(u"The school's name is empty."_s);
    if (parser.isSet(options.password))
        school.password = Password_From(parser.value(options.password), input);
    return school;
}

Order Order_Given(const QCommandLineParser& parser, const Options& options, const Around& around,
                  QIODevice& input) {
    Order order;
    order.folder =
        parser.isSet(options.folder) ? Plain_Folder(parser.value(options.folder)) : around.standard_folder;
    order.group = parser.value(options.group);
    order.from = QDir::fromNativeSeparators(parser.value(options.from));
    if (parser.isSet(options.sheets)) order.sheets = Sheets_Named(parser.value(options.sheets));
    if (parser.isSet(options.school))
        order.school = School_Asked_For(parser, options, input);
    else if (parser.isSet(options.classes) || parser.isSet(options.password))
        throw Refusal(u"--classes and --password-from go with --school."_s);
    return order;
}

int Check(const QString& folder, const Around& around, QIODevice& output) {
    const QList<Finding> findings = Check_Folder(folder, around.own_program);
    QString text;
    for (const Finding& finding : findings) {
        text += u"%1: %2\n"_s.arg(Word_For(finding.mark), finding.what);
        if (!finding.advice.isEmpty()) text += u"    %1\n"_s.arg(finding.advice);
    }
    Write(text, output);
    return Is_All_Good(findings) ? Succeeded : Wants_Attention;
}

int Set_Up(const Order& order, const Around& around, const Streams& streams) {
    const Done done = Carry_Out(order, around);
    QString text;
    for (const QString& line : done.lines)
        text += line + u'\n';
    if (done.program.told) text += u"%1: %2\n"_s.arg(done.program.file, done.program.line);
    Write(text, streams.output);
    if (done.program.told) return Succeeded;
    console::Write_Error_Line(
        Program,
        u"%1 can't be written by this account. It must hold the line %2 below [SETTINGS]. An administrator's command for it: %3"_s
            .arg(done.program.file, done.program.line, done.program.command),
        streams.errors);
    return Wants_Attention;
}

int Run(const QStringList& arguments, const Around& around, const Streams& streams) {
    QCommandLineParser parser;
    parser.setApplicationDescription(
        u"Sets Mevo up: without arguments by a wizard, with them without asking anything."_s);
    const Options options;
    parser.addOptions({options.folder, options.group, options.school, options.classes, options.password,
                       options.from, options.sheets, options.check, options.hold_lock});
    const QCommandLineOption help = parser.addHelpOption();
    if (!parser.parse(arguments)) throw Refusal(parser.errorText());
    if (parser.isSet(help)) {
        Write(parser.helpText(), streams.output);
        return Succeeded;
    }
    if (parser.isSet(options.hold_lock)) return Hold_Lock(parser.value(options.hold_lock));
    const bool names_nothing = parser.isSet(options.folder) && parser.value(options.folder).isEmpty();
    if (!parser.positionalArguments().isEmpty() || names_nothing)
        throw Refusal(
            u"Usage: mevo-setup --folder DIR [--school NAME --classes \"1 Oak,1 Ash\" --password-from FILE|-] [--from FILE] [--check]"_s);
    const Order order = Order_Given(parser, options, around, streams.input);
    return parser.isSet(options.check) ? Check(order.folder, around, streams.output)
                                       : Set_Up(order, around, streams);
}

} // namespace

int Run_Command(const QStringList& arguments, const Around& around, const Streams& streams) {
    try {
        return Run(arguments, around, streams);
    } catch (const Refusal& refusal) {
        console::Write_Error_Line(Program, refusal.Why(), streams.errors);
        return Failed;
    }
}

} // namespace set_up
