#include "print/command_line.h"

#include "printing/full_reports.h"
#include "printing/individual_report.h"
#include "reports/reports_page_fixture.h"
#include "support/command_line.h"
#include "support/files.h"
#include "support/on_windows.h"
#include "support/told_by.h"

#include <QDir>
#include <QRegularExpression>
#include <utility>
#include <vector>

using namespace test_support;

namespace {

Outcome Print(const QStringList& arguments) {
    return Outcome_Of([&](QIODevice& device, QTextStream& errors) {
        QTextStream output(&device);
        return paper_output::Run_Command(QStringList{u"mevo-print"_s} + arguments, output, errors);
    });
}

class Print_Tool : public Reports_Page {
protected:
    QString Pdf() const { return sample.Folder() + u"/report.pdf"_s; }
    QStringList Individual(const QStringList& codes, const QStringList& options = {}) const {
        return QStringList{sample.Path(), u"individual"_s} + codes + QStringList{u"--out"_s, Pdf()} + options;
    }
    QStringList Batch(const QStringList& options = {}) const {
        return QStringList{sample.Path(), u"batch"_s, u"--out"_s, Pdf()} + options;
    }
    QStringList Files() const {
        return QDir(sample.Folder()).entryList(QDir::Files | QDir::Hidden, QDir::Name);
    }
};

} // namespace

// Also those of pupils before whom a test was ended early, or who have fewer tests.
TEST_F(Print_Tool, FullReportsAreThoseOfThePreviewPupilByPupil) {
    Open();
    Click(*page, u"HotLabel2"_s); // the time bars
    Click(*page, u"ShowZScores"_s);
    printing::Full_Reports full({installation, scores.pupils, scores.norms, state}, false, outside.platform);
    std::vector<printing::Scored_Pupil> pupils;
    for (int p = 1; p <= scores.pupils.Pupils_Listed; ++p)
        pupils.push_back(full.Score(p));
    const desktop::Printed_Document document = full.Document(u"all"_s, std::move(pupils));
    outside.printers.Print(document);
    const QList<QImage> made = std::exchange(outside.printers.pages, {});
    ASSERT_EQ(made.size(), scores.pupils.Pupils_Listed);
    ASSERT_EQ(document.bookmarks.size(), std::size_t(made.size()));
    for (int p = 1; p <= scores.pupils.Pupils_Listed; ++p) {
        Combo().Set_ListIndex(p - 1);
        printing::Form94 preview(outside.platform, navigator, {installation, state, scores.scores});
        preview.Load();
        preview.HotLabel2_Click();
        EXPECT_EQ(outside.printers.pages.last(), made[p - 1]) << state.Pupil_Name.toStdString();
        EXPECT_EQ(document.bookmarks[std::size_t(p - 1)].title,
                  state.Pupil_Name + u" - "_s + state.Current_Student_Code);
    }
}

// The words on the sheet are those that the program's own pages show for the pupil.
TEST_F(Print_Tool, ThePageIsTheProgramsOwn) {
    if (On_Windows) GTEST_SKIP() << "no other program reads a PDF there";
    const QString code = Code_Where(u"Tolvens = 1 AND BliksFriends = 1 AND Yoon = 1 AND Drell = 1"_s);
    Set(code, u"Comment = 'Élan & care'"_s);
    outside.clock.now = QDateTime::currentDateTime();
    installation.Institution =
        sample.Value(u"SELECT Institution FROM Customer_Details WHERE Product_Name = 'MEVO'"_s);
    Open_On(code);
    Click(*page, u"HotLabel2"_s); // the time bars
    Click(*page, u"ShowZScores"_s);
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
        {{sample.Path(), u"class"_s, out, Pdf()}, u"none of individual, batch and each"_s},
        {{sample.Path(), u"individual"_s, code}, u"--out is missing"_s},
        {{sample.Path(), u"individual"_s, out, Pdf()}, u"No pupil's code"_s},
        {Individual({code, u"NOBODY"_s}), u"'NOBODY'"_s},
        {Individual({u""_s}), u"''"_s},
        {Individual({code}, {u"--group"_s, u"Reception"_s}), u"--group belongs to batch and each"_s},
        {Individual({code}, {u"--scale"_s, u"Q"_s}), u"--scale is P or Z"_s},
        {Individual({code}, {u"--ground"_s, u"BLACK"_s}), u"--ground is GREY or WHITE"_s},
        {Individual({code}, {u"--label"_s, u"both"_s}), u"--label is name or id"_s},
        {Individual({code}, {u"--colour"_s}), u"colour"_s},
        {Batch({u"--group"_s, u"Class 99"_s}), u"no group 'Class 99'"_s},
        {Batch({u"--group"_s, u"Nobody"_s}), u"No pupil of the group 'Nobody'"_s},
        {Batch({u"--group"_s, u"Mrs O'Hara's class"_s}), u"can't be read"_s},
        {Batch({u"--group"_s, u""_s}), u"--group needs"_s},
        {{sample.Path(), u"batch"_s, code, out, Pdf()}, u"takes no codes"_s},
        {{sample.Path(), u"each"_s, code, out, Pdf()}, u"takes no codes"_s},
        {{sample.Path(), u"each"_s, u"--group"_s, u"Class 99"_s, out, Pdf()}, u"no group 'Class 99'"_s},
        {{sample.Path(), u"each"_s, out, sample.Path() + u"/in"_s}, u"can't be made"_s},
        {{sample.Path(), u"batch"_s, out, sample.Folder() + u"/none/report.pdf"_s}, u"can't be written"_s},
        {{sample.Path(), u"batch"_s, out, sample.Folder()}, u"can't be written"_s},
        {{sample.Path(), u"batch"_s, out, sample.Path()}, u"over the database"_s},
        {{sample.Folder() + u"/none.mdb"_s, u"batch"_s, out, Pdf()}, u"Could not find file"_s},
    };
    const QStringList before = Files();
    for (const auto& [arguments, told] : cases) {
        SCOPED_TRACE(arguments.join(u' ').toStdString());
        Print(arguments).Expect_Refusal(u"mevo-print"_s, told);
        EXPECT_EQ(Files(), before);
    }
}

TEST_F(Print_Tool, AFailureLeavesAnEarlierFileAsItWas) {
    Write_Bytes(Pdf(), "an earlier report");
    const QString code = Code_Where(u"Tolvens = 1"_s);
    Set(code, u"Level_11_holes_req = NULL"_s, u"Mevo_Tolvens_data"_s);
    for (const QStringList& arguments : {Individual({code}), Batch()}) {
        Print(arguments).Expect_Refusal(u"mevo-print"_s, u": Pupil "_s + code + u": Invalid use of Null"_s);
        EXPECT_EQ(Bytes_Of(Pdf()), "an earlier report");
    }
}

TEST_F(Print_Tool, ASurnameWithADividerIsNamed) {
    const QString code = Code_Where(u"Yoon = 1"_s);
    Set(code, u"Surname = 'Thompson - Ellis'"_s);
    Print(Batch()).Expect_Refusal(u"mevo-print"_s, u"Thompson - Ellis"_s);
    EXPECT_EQ(Print(Individual({code})).status, 0); // one at a time they can be printed
}

// Each sheet is that of the pupil alone, whoever was scored before them; who can't be scored is named.
TEST_F(Print_Tool, AFileForEachPupilOfAGroup) {
    const QString spoilt = Code_Where(u"Tolvens = 1 AND Drell = 1"_s);
    const QString hidden = Code_Where(u"Yoon = 1 AND StudentCode <> '%1'"_s.arg(spoilt));
    sample.Run(
        u"UPDATE Mevo_Pupils SET Group_Class = 'Oak' WHERE Yoon = 1 OR StudentCode = '%1'"_s.arg(spoilt));
    sample.Run(u"INSERT INTO Mevo_Groups (Group_Name) VALUES ('Oak')"_s);
    Set(spoilt, u"Level_11_holes_req = NULL"_s, u"Mevo_Tolvens_data"_s);
    Set(hidden, u"Surname = 'Thompson - Ellis', Forename = 'A/B'"_s);
    const QStringList before = Files();
    const QDir folder(sample.Folder() + u"/new/each"_s);
    const Outcome outcome =
        Print({sample.Path(), u"each"_s, u"--group"_s, u"Oak"_s, u"--out"_s, folder.path()});
    EXPECT_EQ(outcome.status, 1);
    ASSERT_EQ(outcome.errors.size(), 1);
    EXPECT_TRUE(outcome.errors[0].contains(u"Left out: "_s) && outcome.errors[0].contains(spoilt) &&
                outcome.errors[0].contains(u"Invalid use of Null"_s));
    EXPECT_EQ(Files(), before);
    QStringList codes = sample.Column(
        u"SELECT StudentCode FROM Mevo_Pupils WHERE Group_Class = 'Oak' AND StudentCode <> '%1' AND Tolvens + BliksFriends + Karrel + BliksLetters + BliksLetterNames + Drell + Mirvel + Yoon > 0"_s
            .arg(spoilt));
    EXPECT_EQ(folder.entryList(QDir::Files).size(), codes.size());
    EXPECT_TRUE(folder.exists(hidden + u" Thompson - Ellis A_B.pdf"_s));
    if (On_Windows) return; // no other program reads a PDF there
    const auto picture = [](const QString& pdf) {
        Told_By(u"pdftoppm"_s, {u"-r"_s, u"40"_s, u"-singlefile"_s, u"-png"_s, pdf, pdf});
        return QImage(pdf + u".png"_s);
    };
    for (const QString& code : codes) {
        EXPECT_EQ(Print(Individual({code})).status, 0);
        const QString file = folder.entryList({code + u"*.pdf"_s}).value(0);
        EXPECT_EQ(picture(folder.filePath(file)), picture(Pdf())) << file.toStdString();
    }
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
        const Outcome outcome = End_Of(process);
        EXPECT_EQ(outcome.status, status);
        EXPECT_EQ(outcome.errors.size(), status == 0 ? 0 : 1) << outcome.errors.join(u'\n').toStdString();
        EXPECT_EQ(outcome.output, u""_s);
    }
    EXPECT_TRUE(On_Windows || Told_By(u"pdfinfo"_s, {Pdf()}).contains(QRegularExpression(u"Pages: +1\n"_s)));
    const Outcome help = Print({u"--help"_s});
    EXPECT_TRUE(help.status == 0 && help.errors.isEmpty() && help.output.contains(u"--time-bars"_s));
}
