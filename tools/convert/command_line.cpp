#include "convert/command_line.h"

#include "console/error_line.h"
#include "conversion/convert.h"
#include "conversion/jet_file.h"
#include "conversion/refusal.h"
#include "convert/progress_line.h"

#include <QCommandLineParser>
#include <QDir>
#include <algorithm>
#include <optional>

using namespace Qt::StringLiterals;

namespace convert_command {

using conversion::If_There_Is_One;
using conversion::Progress;
using conversion::Refusal;

namespace {

const QString Program = u"mevo-convert"_s;
const QString Usage = u"Usage: mevo-convert SOURCE.mdb TARGET.mdb [--check | --force], or "
                      "mevo-convert --folder IN OUT [--check | --force]"_s;

struct Request {
    QString source; // files, or folders
    QString target;
    bool folder;
    bool check;
    If_There_Is_One if_there_is_one;
};

void Write(const QString& text, QIODevice& output) {
    const QByteArray bytes = text.toUtf8();
    if (output.write(bytes) != bytes.size()) throw Refusal(u"Can't write: "_s + output.errorString());
}

// Nothing is returned when help was asked for and given.
std::optional<Request> Read_Arguments(const QStringList& arguments, QIODevice& output) {
    QCommandLineParser parser;
    parser.setApplicationDescription(
        u"Makes databases of this program's format from files that Access 97 to 2003 saved. The source stays as it is."_s);
    parser.addPositionalArgument(u"SOURCE"_s, u"The Access file; with --folder, a folder of them."_s);
    parser.addPositionalArgument(u"TARGET"_s, u"The new database; with --folder, the folder for them."_s);
    const QCommandLineOption folder(u"folder"_s, u"Convert each .mdb file of a folder under its own name."_s);
    const QCommandLineOption check(
        u"check"_s, u"Write nothing; compare an existing target with its source, value by value. "
                    "The exit status is 1 where they differ."_s);
    const QCommandLineOption force(u"force"_s, u"Replace a target that is there already."_s);
    parser.addOptions({folder, check, force});
    const QCommandLineOption help = parser.addHelpOption();

    if (!parser.parse(arguments)) throw Refusal(parser.errorText());
    if (parser.isSet(help)) {
        Write(parser.helpText(), output);
        return std::nullopt;
    }
    const QStringList places = parser.positionalArguments();
    if (places.size() != 2 || places.contains(QString()) || (parser.isSet(check) && parser.isSet(force)))
        throw Refusal(Usage);
    return Request{places[0], places[1], parser.isSet(folder), parser.isSet(check),
                   parser.isSet(force) ? If_There_Is_One::Replace : If_There_Is_One::Refuse};
}

// The first column stands at the left, the others at the right.
QString Text_Table(const QList<QStringList>& rows) {
    QList<qsizetype> widths(rows.first().size());
    for (const QStringList& row : rows)
        for (qsizetype i = 0; i < row.size(); ++i)
            widths[i] = std::max(widths[i], row[i].size());
    QString text;
    for (const QStringList& row : rows) {
        QString line = row[0].leftJustified(widths[0]);
        for (qsizetype i = 1; i < row.size(); ++i)
            line += u"  "_s + row[i].rightJustified(widths[i]);
        text += line + u'\n';
    }
    return text;
}

QString Summary_Text(const QList<conversion::Table_Summary>& summary) {
    QList<QStringList> rows = {{u"Table"_s, u"Rows read"_s, u"Rows written"_s}};
    QString notes;
    qint64 read = 0;
    qint64 written = 0;
    for (const conversion::Table_Summary& table : summary) {
        rows.append({table.table, QString::number(table.read), QString::number(table.written)});
        read += table.read;
        written += table.written;
        if (table.lost_key)
            notes +=
                u"%1: some rows have the same key, so the table is kept without one.\n"_s.arg(table.table);
    }
    rows.append({u"All %1 tables"_s.arg(summary.size()), QString::number(read), QString::number(written)});
    return Text_Table(rows) + notes;
}

QString Comparison_Text(const conversion::Comparison& comparison) {
    QList<QStringList> rows = {{u"Table"_s, u"Rows compared"_s, u"Differences"_s}};
    qint64 differing = 0;
    for (const conversion::Table_Comparison& table : comparison.Tables()) {
        rows.append({table.table, QString::number(table.rows), QString::number(table.differing)});
        differing += table.differing;
    }
    QString text = Text_Table(rows);
    for (const QString& example : comparison.Examples())
        text += example + u'\n';
    if (differing > comparison.Examples().size())
        text += u"... and %1 more\n"_s.arg(differing - comparison.Examples().size());
    return text + (differing == 0 ? u"All values are equal.\n"_s : u"They differ.\n"_s);
}

class Command {
public:
    Command(const Request& request, const Surroundings& around) : request(request), around(around) {}

    int Run() {
        return request.folder ? Do_Folder()
                              : Do_File(QDir::fromNativeSeparators(request.source),
                                        QDir::fromNativeSeparators(request.target));
    }

private:
    int Do_File(const QString& source, const QString& target) {
        try {
            return request.check ? Check(source, target) : Convert(source, target);
        } catch (const Refusal& refusal) {
            console::Write_Error_Line(Program, QDir::toNativeSeparators(source) + u": "_s + refusal.Why(),
                                      around.errors);
            return Failed;
        }
    }

    conversion::Watcher Watching(Progress_Line& line) const {
        return [this, &line](const Progress& progress) {
            if (around.interrupted()) throw Refusal(u"Interrupted."_s);
            line.Show(progress);
        };
    }

    int Convert(const QString& source, const QString& target) {
        QList<conversion::Table_Summary> summary;
        {
            Progress_Line line(around.errors, around.shows_progress);
            summary = conversion::Convert_Jet_File(source, target, request.if_there_is_one, around.reader,
                                                   Watching(line));
        }
        Write(Heading(source, target) + Summary_Text(summary), around.output);
        return Done;
    }

    int Check(const QString& source, const QString& target) {
        if (!QFileInfo(target).isFile()) throw Refusal(u"There is no %1 to compare it with."_s.arg(target));
        conversion::Comparison comparison(target);
        {
            Progress_Line line(around.errors, around.shows_progress);
            conversion::Compare_With_Jet_File(source, comparison, around.reader, Watching(line));
        }
        Write(Heading(source, target) + Comparison_Text(comparison), around.output);
        return comparison.All_Equal() ? Done : Different;
    }

    static QString Heading(const QString& source, const QString& target) {
        return u"%1 -> %2\n"_s.arg(QDir::toNativeSeparators(source), QDir::toNativeSeparators(target));
    }

    int Do_Folder() {
        const QDir in(QDir::fromNativeSeparators(request.source));
        const QDir out(QDir::fromNativeSeparators(request.target));
        if (!in.exists()) throw Refusal(u"There is no folder %1."_s.arg(request.source));
        if (!request.check && !out.mkpath(u"."_s))
            throw Refusal(u"The folder %1 can't be made."_s.arg(request.target));
        if (in.canonicalPath() == out.canonicalPath())
            throw Refusal(u"The two folders must not be the same."_s);
        const QStringList names = in.entryList({u"*.mdb"_s}, QDir::Files, QDir::Name);
        if (names.isEmpty()) throw Refusal(u"There is no .mdb file in %1."_s.arg(request.source));

        int worst = Done;
        int done = 0;
        for (const QString& name : names) {
            if (around.interrupted()) throw Refusal(u"Interrupted."_s);
            const int status = Do_File(in.filePath(name), out.filePath(name));
            worst = std::max(worst, status);
            done += status == Done ? 1 : 0;
        }
        const QString act = request.check ? u"equal"_s : u"converted"_s;
        Write(u"%1 of %2 files %3.\n"_s.arg(done).arg(names.size()).arg(act), around.output);
        return worst;
    }

    const Request& request;
    const Surroundings& around;
};

} // namespace

int Run_Command(const QStringList& arguments, const Surroundings& around) {
    try {
        const std::optional<Request> request = Read_Arguments(arguments, around.output);
        return request ? Command(*request, around).Run() : Done;
    } catch (const Refusal& refusal) {
        console::Write_Error_Line(Program, refusal.Why(), around.errors);
        return Failed;
    }
}

} // namespace convert_command
