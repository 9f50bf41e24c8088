#include "platform/basics/csv_text.h"
#include "scores/command_line.h"
#include "scores/score_lines.h"
#include "support/command_line.h"
#include "support/files.h"
#include "support/sample_file.h"

using namespace Qt::StringLiterals;
using namespace test_support;

namespace {

Outcome Export(const QStringList& arguments) {
    return Outcome_Of([&](QIODevice& output, QTextStream& errors) {
        return score_export::Run_Command(QStringList{u"mevo-scores"_s} + arguments, output, errors);
    });
}

// Line ends apart: a checkout may change those of a text file.
QStringList Records(QString text) {
    return text.remove(u'\r').split(u'\n', Qt::SkipEmptyParts);
}

constexpr int Time_Seconds = 9; // columns, from 0
constexpr int Time_Z_Score = 11;

} // namespace

// Every score in the file was compared with those of a second implementation, written apart from this one.
TEST(ScoreExport, AgreesWithScoresWorkedOutElsewhere) {
    const QString folder = QStringLiteral(MEVO_TEST_DATA);
    const Outcome outcome = Export({folder + u"/expected-data.sqlite"_s, u"--times"_s});
    EXPECT_EQ(outcome.status, 0);
    const QStringList records = Records(outcome.output);
    const QStringList expected = Records(QString::fromUtf8(Bytes_Of(folder + u"/expected-scores.csv"_s)));
    ASSERT_EQ(records.size(), expected.size());
    for (qsizetype i = 0; i < records.size(); ++i)
        EXPECT_EQ(records[i], expected[i]) << "record " << i;
}

TEST(ScoreExport, TimesAreLeftEmptyUnlessAskedForAndChangeNothingElse) {
    const Sample_File sample;
    const QStringList without = Records(Export({sample.Path()}).output);
    const QStringList with = Records(Export({u"--times"_s, sample.Path()}).output);
    ASSERT_EQ(without.size(), with.size());
    ASSERT_GT(without.size(), 9);
    int timed = 0;
    for (qsizetype i = 1; i < with.size(); ++i) {
        QStringList fields = with[i].split(u',');
        if (!fields[Time_Seconds].isEmpty()) ++timed;
        for (int column = Time_Seconds; column <= Time_Z_Score; ++column)
            fields[column].clear();
        EXPECT_EQ(without[i], fields.join(u','));
    }
    EXPECT_GT(timed, 0);
}

TEST(ScoreExport, NormsAreLookedIntoWhenAsked) {
    const std::pair<QString, QString> cases[] = {
        {u"UPDATE Tolvens_Norms SET \"Age 5 Centile\" = 1 WHERE rowid = 31"_s,
         u"Tolvens_Norms (raw scores 0 to 49): Age 5: the centile falls at raw score 30."_s},
        {u"UPDATE Yoon_Norms SET \"Age 6 Centile\" = 0"_s, u"): Age 6: the column is empty.\n"_s},
        {u"UPDATE Yoon_TimeNorms SET \"Raw score 7\" = 999999 WHERE Centile = 40"_s,
         u"Yoon_TimeNorms (centiles 1 to 99): Age 7: the time rises at centile 40."_s},
        {u"DELETE FROM Yoon_TimeNorms WHERE Centile IN (40, 41, 43)"_s,
         u"Age 8: no time for centile 40 to 41, 43."_s},
        {u"DELETE FROM Mirvel_Norms WHERE rowid > 12"_s,
         u"Mirvel_Norms (raw scores 0 to 11): Age 7: no centile for raw score 12. Age 8: "_s},
        {u"DELETE FROM Drell_Norms WHERE rowid > 20"_s, u"no centile for raw score 20 to "_s},
        {u"UPDATE Drell_Norms SET \"Age 8 Centile\" = 120 WHERE rowid = 32"_s,
         u"Age 8: no standard score belongs to the centile of raw score 31."_s},
        {u"UPDATE Drell_Norms SET \"Age 7 Centile\" = NULL WHERE rowid = 32"_s,
         u"Drell_Norms (raw scores 0 to 31): The table can't be read to its end: Invalid use of Null"_s},
        {u"DROP TABLE Karrel_Norms"_s, u"The table can't be read to its end: no such table: Karrel_Norms"_s},
    };
    for (const auto& [change, told] : cases) {
        const Sample_File sample;
        // The made-up norms have no score for the youngest who know next to nothing.
        for (const QString& table : {u"Karrel_Norms"_s, u"BliksLetters_Norms"_s})
            sample.Run(u"UPDATE %1 SET \"Age 4 Centile\" = 1 WHERE \"Age 4 Centile\" IS NULL"_s.arg(table));
        const QStringList arguments{sample.Path(), u"--check-norms"_s};
        EXPECT_EQ(Export(arguments).status, 0) << Export(arguments).output.toStdString();
        sample.Run(change);
        const Outcome outcome = Export(arguments);
        EXPECT_EQ(outcome.status, 1);
        EXPECT_TRUE(outcome.output.contains(told)) << outcome.output.toStdString();
    }
}

TEST(ScoreExport, ACommentNamesTheNormsWhenAsked) {
    const Sample_File sample;
    const QString with = Export({sample.Path(), u"--about"_s}).output;
    const qsizetype end = with.indexOf(u'\n') + 1;
    EXPECT_EQ(with.first(end), u"# Mevo 5.11, norms 9d9d-eed5-49bc-b0df (made up, for practice)\r\n"_s);
    EXPECT_EQ(with.sliced(end), Export({sample.Path()}).output);
}

TEST(ScoreExport, FieldsAreQuotedWhereTheyMustBe) {
    EXPECT_EQ(basics::Csv_Line({u"plain"_s, u""_s, u"a,b"_s, u"say \"hi\""_s, u"two\nlines"_s, u" 7"_s}),
              u"plain,,\"a,b\",\"say \"\"hi\"\"\",\"two\nlines\", 7\r\n"_s);
}

TEST(ScoreExport, NoSpreadsheetTakesATextForAFormula) {
    const struct {
        QString text, as_text, as_value, with_comma;
    } cases[] = {
        {u"=1+1"_s, u"'=1+1"_s, u"'=1+1"_s, u"'=1+1"_s},
        {u"@SUM(A1)"_s, u"'@SUM(A1)"_s, u"'@SUM(A1)"_s, u"'@SUM(A1)"_s},
        {u"\t=1"_s, u"'\t=1"_s, u"'\t=1"_s, u"'\t=1"_s},
        {u"-1.2"_s, u"'-1.2"_s, u"-1.2"_s, u"-1,2"_s},
        {u"+1"_s, u"'+1"_s, u"'+1"_s, u"'+1"_s},
        {u"-1\n"_s, u"\"'-1\n\""_s, u"\"'-1\n\""_s, u"\"'-1\n\""_s},
        {u"-2+3"_s, u"'-2+3"_s, u"'-2+3"_s, u"'-2+3"_s},
        {u"12.50"_s, u"12.50"_s, u"12.50"_s, u"12,50"_s},
        {u"a.b"_s, u"a.b"_s, u"a.b"_s, u"a.b"_s},
        {u"a,b"_s, u"\"a,b\""_s, u"\"a,b\""_s, u"a,b"_s},
        {u"a;b"_s, u"a;b"_s, u"a;b"_s, u"\"a;b\""_s},
        {u"=\"x\""_s, u"\"'=\"\"x\"\"\""_s, u"\"'=\"\"x\"\"\""_s, u"\"'=\"\"x\"\"\""_s},
        {u""_s, u""_s, u""_s, u""_s},
    };
    using basics::Decimal_Mark;
    for (const auto& [text, as_text, as_value, with_comma] : cases) {
        EXPECT_EQ(basics::Spreadsheet_Line({text, text}, 1, Decimal_Mark::Point),
                  as_text + u',' + as_value + u"\r\n"_s);
        EXPECT_EQ(basics::Spreadsheet_Line({text}, 0, Decimal_Mark::Comma), with_comma + u"\r\n"_s);
    }
}

TEST(ScoreExport, FailsInOneLineAndWritesNothing) {
    const Sample_File sample;
    const Sample_File no_norms;
    no_norms.Run(u"DROP TABLE Yoon_TimeNorms"_s);
    const QString text = sample.Folder() + u"/text.mdb"_s;
    Write_Bytes(text, "a line of text, and no database at all");
    const std::pair<QStringList, QString> cases[] = {
        {{}, u"Usage"_s},
        {{sample.Path(), sample.Path()}, u"Usage"_s},
        {{u""_s}, u"Usage"_s},
        {{sample.Path(), u"--time-bars"_s}, u"time-bars"_s},
        {{sample.Folder() + u"/none.mdb"_s}, u"Could not find file"_s},
        {{sample.Folder() + u"/none.mdb"_s, u"--check-norms"_s}, u"Could not find file"_s},
        {{sample.Folder()}, u"folder"_s},
        {{text}, u"Unrecognized database format"_s},
        {{no_norms.Path()}, u"Yoon_TimeNorms"_s},
    };
    for (const auto& [arguments, told] : cases) {
        SCOPED_TRACE(told.toStdString());
        Export(arguments).Expect_Refusal(u"mevo-scores"_s, told);
    }
    EXPECT_EQ(Export({u"--help"_s}).status, 0);
    const QString code = sample.Value(u"SELECT StudentCode FROM Mevo_Pupils WHERE Tolvens = 1 LIMIT 1"_s);
    sample.Run(
        u"UPDATE Mevo_Tolvens_data SET Level_11_holes_req = NULL WHERE StudentCode = '%1'"_s.arg(code));
    Export({sample.Path()})
        .Expect_Refusal(u"mevo-scores"_s, u": Pupil "_s + code + u": Invalid use of Null"_s);
}
