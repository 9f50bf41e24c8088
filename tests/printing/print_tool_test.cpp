#include "print/command_line.h"

#include "printing/individual_report.h"
#include "reports/reports_page.h"
#include "support/controls.h"
#include "support/files.h"
#include "support/on_windows.h"
#include "support/sample_file.h"
#include "support/scripted_platform.h"
#include "support/told_by.h"

#include <QDir>
#include <QProcess>
#include <QRegularExpression>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace test_support;

namespace {

struct Outcome {
    int status;
    QString output;
    QStringList errors;
};

Outcome Print(const QStringList& arguments) {
    QString output;
    QString told;
    QTextStream out(&output);
    QTextStream errors(&told);
    const int status = paper_output::Run_Command(QStringList{u"mevo-print"_s} + arguments, out, errors);
    return {status, output, told.split(u'\n', Qt::SkipEmptyParts)};
}

class Print_Tool : public testing::Test {
protected:
    QString Pdf() const { return sample.Folder() + u"/report.pdf"_s; }
    QString Code_Where(const QString& condition, int skip = 0) const {
        return sample.Value(
            u"SELECT StudentCode FROM Mevo_Pupils WHERE %1 ORDER BY StudentCode LIMIT 1 OFFSET %2"_s
                .arg(condition)
                .arg(skip));
    }
    QStringList Individual(const QStringList& codes, const QStringList& options = {}) const {
        return QStringList{sample.Path(), u"individual"_s} + codes + QStringList{u"--out"_s, Pdf()} + options;
    }
    QStringList Batch(const QStringList& options = {}) const {
        return QStringList{sample.Path(), u"batch"_s, u"--out"_s, Pdf()} + options;
    }
    QStringList Files() const {
        return QDir(sample.Folder()).entryList(QDir::Files | QDir::Hidden, QDir::Name);
    }

    Sample_File sample{40};
};

} // namespace

// The words on the sheet are those that the program's own pages show for the pupil.
TEST_F(Print_Tool, ThePageIsTheProgramsOwn) {
    if (On_Windows) GTEST_SKIP() << "no other program reads a PDF there";
    const QString code = Code_Where(u"Tolvens = 1 AND BliksFriends = 1 AND Yoon = 1 AND Drell = 1"_s);
    sample.Run(u"UPDATE Mevo_Pupils SET Comment = 'Élan & care' WHERE StudentCode = '"_s + code + u'\'');
    Scripted_Platform outside;
    outside.clock.now = QDateTime::currentDateTime();
    Recording_Navigator navigator;
    foundation::Installation installation = sample.Installed();
    installation.App_Path = QStringLiteral(MEVO_ASSETS);
    installation.Institution =
        sample.Value(u"SELECT Institution FROM Customer_Details WHERE Product_Name = 'MEVO'"_s);
    scoring::Scoring_Data scores;
    foundation::Access_Holder holder(outside.platform);
    scoring::Scoring scoring = scoring::Pass_Over(scores, installation, holder);
    reports::Report_State state;
    reports::Form30 reports_page(outside.platform, navigator, {installation, scores, scoring, state});
    reports_page.Load();
    reports_page.Timer2_Timer();
    auto& pupils = Control<shell::Click_Combo>(reports_page, u"Combo1"_s);
    pupils.Set_ListIndex(pupils.findText(code, Qt::MatchContains));
    Click(reports_page, u"HotLabel2"_s); // the time bars
    Click(reports_page, u"ShowZScores"_s);
    printing::Form94 report_page(outside.platform, navigator, {installation, state, scores.scores});
    report_page.Load();
    QStringList shown = Control<preview::Preview_Window>(report_page, u"ViewPro1"_s)
                            .accessibleDescription()
                            .section(u". "_s, 1) // behind the page's number
                            .split(u' ', Qt::SkipEmptyParts);

    EXPECT_EQ(Print(Individual({code}, {u"--scale"_s, u"Z"_s, u"--time-bars"_s})).status, 0);
    QStringList printed;
    static const QRegularExpression word(u">([^<]*)</word>"_s);
    QString words = Told_By(u"pdftotext"_s, {u"-bbox"_s, Pdf(), u"-"_s});
    for (const auto& match : word.globalMatch(words.replace(u"&apos;"_s, u"'"_s).replace(u"&amp;"_s, u"&"_s)))
        printed.append(match.captured(1));
    shown.sort();
    printed.sort();
    EXPECT_EQ(printed, shown);
}

TEST_F(Print_Tool, TheOptionsReachTheSheets) {
    if (On_Windows) GTEST_SKIP() << "no other program reads a PDF there";
    const QString code = Code_Where(u"Yoon = 1"_s);
    EXPECT_EQ(Print(Batch({u"--label"_s, u"id"_s})).status, 0);
    EXPECT_TRUE(Told_By(u"pdftotext"_s, {Pdf(), u"-"_s}).contains(u"Mevo ID: "_s + code));
    const auto picture = [&](const QStringList& options) {
        EXPECT_EQ(Print(Individual({code}, options)).status, 0);
        Told_By(u"pdftoppm"_s, {u"-r"_s, u"40"_s, u"-singlefile"_s, u"-png"_s, Pdf(), Pdf()});
        return QImage(Pdf() + u".png"_s);
    };
    const QImage usual = picture({});
    EXPECT_FALSE(usual.isNull());
    EXPECT_NE(picture({u"--ground"_s, u"WHITE"_s}), usual);
    EXPECT_NE(picture({u"--time-bars"_s}), usual);
    EXPECT_NE(picture({u"--margins"_s}), usual);
    EXPECT_EQ(picture({u"--ground"_s, u"grey"_s}), usual);
}

TEST_F(Print_Tool, WhateverIsWrongIsOneLineAndLeavesNoFile) {
    sample.Run(u"INSERT INTO Mevo_Groups (Group_Name) VALUES ('Nobody')"_s);
    const QString code = Code_Where(u"Yoon = 1"_s);
    const QString out = u"--out"_s;
    const std::pair<QStringList, QString> cases[] = {
        {{}, u"Usage: mevo-print"_s},
        {{sample.Path()}, u"Usage: mevo-print"_s},
        {{sample.Path(), u"class"_s, out, Pdf()}, u"neither individual nor batch"_s},
        {{sample.Path(), u"individual"_s, code}, u"--out is missing"_s},
        {{sample.Path(), u"individual"_s, out, Pdf()}, u"No pupil's code"_s},
        {Individual({code, u"NOBODY"_s}), u"'NOBODY'"_s},
        {Individual({u""_s}), u"''"_s},
        {Individual({code}, {u"--group"_s, u"Reception"_s}), u"--group belongs to a batch"_s},
        {Individual({code}, {u"--scale"_s, u"Q"_s}), u"--scale is P or Z"_s},
        {Individual({code}, {u"--ground"_s, u"BLACK"_s}), u"--ground is GREY or WHITE"_s},
        {Individual({code}, {u"--label"_s, u"both"_s}), u"--label is name or id"_s},
        {Individual({code}, {u"--colour"_s}), u"colour"_s},
        {Batch({u"--group"_s, u"Class 99"_s}), u"no group 'Class 99'"_s},
        {Batch({u"--group"_s, u"Nobody"_s}), u"No pupil of the group 'Nobody'"_s},
        {Batch({u"--group"_s, u"Mrs O'Hara's class"_s}), u"can't be read"_s},
        {Batch({u"--group"_s, u""_s}), u"--group needs"_s},
        {{sample.Path(), u"batch"_s, code, out, Pdf()}, u"takes no codes"_s},
        {{sample.Path(), u"batch"_s, out, sample.Folder() + u"/none/report.pdf"_s}, u"can't be written"_s},
        {{sample.Path(), u"batch"_s, out, sample.Folder()}, u"can't be written"_s},
        {{sample.Path(), u"batch"_s, out, sample.Path()}, u"over the database"_s},
        {{sample.Folder() + u"/none.mdb"_s, u"batch"_s, out, Pdf()}, u"Could not find file"_s},
    };
    const QStringList before = Files();
    for (const auto& [arguments, told] : cases) {
        SCOPED_TRACE(arguments.join(u' ').toStdString());
        const Outcome outcome = Print(arguments);
        EXPECT_EQ(outcome.status, 2);
        EXPECT_EQ(outcome.output, u""_s);
        ASSERT_EQ(outcome.errors.size(), 1);
        EXPECT_TRUE(outcome.errors.first().startsWith(u"mevo-print: "_s));
        EXPECT_TRUE(outcome.errors.first().contains(told)) << outcome.errors.first().toStdString();
        EXPECT_EQ(Files(), before);
    }
}

TEST_F(Print_Tool, AFailureLeavesAnEarlierFileAsItWas) {
    Write_Bytes(Pdf(), "an earlier report");
    const QString code = Code_Where(u"Tolvens = 1"_s);
    sample.Run(
        u"UPDATE Mevo_Tolvens_data SET Level_11_holes_req = NULL WHERE StudentCode = '%1'"_s.arg(code));
    for (const QStringList& arguments : {Individual({code}), Batch()}) {
        const Outcome outcome = Print(arguments);
        EXPECT_EQ(outcome.status, 2);
        EXPECT_EQ(outcome.errors, QStringList{u"mevo-print: Pupil "_s + code + u": Invalid use of Null"_s});
        EXPECT_EQ(Bytes_Of(Pdf()), "an earlier report");
    }
}

TEST_F(Print_Tool, ASurnameWithADividerIsNamed) {
    const QString code = Code_Where(u"Yoon = 1"_s);
    sample.Run(u"UPDATE Mevo_Pupils SET Surname = 'Thompson - Ellis' WHERE StudentCode = '"_s + code + u'\'');
    const Outcome outcome = Print(Batch());
    EXPECT_EQ(outcome.status, 2);
    ASSERT_EQ(outcome.errors.size(), 1);
    EXPECT_TRUE(outcome.errors.first().contains(u"Thompson - Ellis"_s));
    EXPECT_EQ(Print(Individual({code})).status, 0); // one at a time they can be printed
}

// The program itself, where no window system is.
TEST_F(Print_Tool, RunsWithoutADisplayAndSaysNothingElse) {
    QProcessEnvironment bare;
    for (const QString& kept : {u"PATH"_s, u"HOME"_s, u"LD_LIBRARY_PATH"_s, u"SystemRoot"_s})
        bare.insert(kept, QProcessEnvironment::systemEnvironment().value(kept));
    const std::pair<QStringList, int> cases[] = {{Individual({Code_Where(u"Yoon = 1"_s)}), 0},
                                                 {Individual({u"NOBODY"_s}), 2}};
    for (const auto& [arguments, status] : cases) {
        QProcess process;
        process.setProcessEnvironment(bare);
        process.start(QStringLiteral(MEVO_PRINT), arguments);
        ASSERT_TRUE(process.waitForFinished());
        EXPECT_EQ(process.exitCode(), status);
        const QByteArray errors = process.readAllStandardError();
        EXPECT_EQ(errors.count('\n'), status == 0 ? 0 : 1) << errors.toStdString();
        EXPECT_EQ(process.readAllStandardOutput(), QByteArray());
    }
    EXPECT_TRUE(On_Windows || Told_By(u"pdfinfo"_s, {Pdf()}).contains(QRegularExpression(u"Pages: +1\n"_s)));
    const Outcome help = Print({u"--help"_s});
    EXPECT_TRUE(help.status == 0 && help.errors.isEmpty() && help.output.contains(u"--time-bars"_s));
}
