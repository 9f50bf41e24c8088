#include "console/csv_line.h"
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

TEST(ScoreExport, FieldsAreQuotedWhereTheyMustBe) {
    EXPECT_EQ(console::Csv_Line({u"plain"_s, u""_s, u"a,b"_s, u"say \"hi\""_s, u"two\nlines"_s, u" 7"_s}),
              u"plain,,\"a,b\",\"say \"\"hi\"\"\",\"two\nlines\", 7\r\n"_s);
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
