#include "keeping/earlier_takings.h"
#include "keeping/support_copy.h"
#include "scores/command_line.h"
#include "scoring/earlier/earlier_results.h"
#include "support/command_line.h"
#include "support/database_beside.h"
#include "support/files.h"
#include "support/sample_file.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace test_support;
using scoring::Difference;

namespace {

QList<QStringList> Exported_Records(const QStringList& arguments) {
    const Outcome outcome = Outcome_Of([&](QIODevice& output, QTextStream& errors) {
        return score_export::Run_Command(QStringList{u"mevo-scores"_s} + arguments, output, errors);
    });
    EXPECT_EQ(outcome.status, 0) << outcome.errors.join(u'\n').toStdString();
    QList<QStringList> records;
    for (const QString& line : outcome.output.split(u"\r\n"_s, Qt::SkipEmptyParts))
        records.append(line.split(u','));
    return records;
}

// Everybody's tests are kept as they stand: each is scored as the database's own row is, in every cell.
TEST(EarlierResults, AKeptRowScoresAsItDidInTheDatabase) {
    const Sample_File sample(60);
    for (const QString& code : sample.Column(u"SELECT StudentCode FROM Mevo_Pupils"_s)) {
        QList<int> tests;
        for (int t = 1; t <= scoring::All_Tests; ++t)
            if (sample.Value(u"SELECT %1 FROM Mevo_Pupils WHERE StudentCode = '%2'"_s.arg(
                    scoring::Test_At(t).Status_Column, code)) == "1"_L1)
                tests.append(t);
        if (!tests.isEmpty()) keeping::Keep_Takings(sample.Path(), code, tests, QDateTime::currentDateTime());
    }
    const QList<QStringList> records = Exported_Records({sample.Path(), u"--earlier"_s});
    ASSERT_GT(records.size(), 300);
    for (qsizetype i = 1; i + 1 < records.size(); i += 2) {
        QStringList earlier = records[i];
        QStringList now = records[i + 1];
        EXPECT_EQ(earlier[3] + now[3], u"earliernow"_s);
        const bool scored = !now[7].isEmpty() && now[7] != "0"_L1;
        EXPECT_EQ(now[10], scored && now[2] != "Pindo"_L1 ? u"no difference"_s : QString());
        earlier[3] = now[3];
        earlier[10] = now[10];
        EXPECT_EQ(earlier, now);
    }
}

TEST(EarlierResults, OnlyWhatOnePointCouldntMakeIsADifference) {
    scoring::Norm_Tables norms; // of test 1: centiles by raw score, at ages 4 and 5
    const QList<qint16> at_4{0, 10, 20, 30, 50, 60};
    const QList<qint16> at_5{0, 5, 12, 28, 31, 45};
    for (int raw = 0; raw < at_4.size(); ++raw) {
        norms.Centile_Norms[1][5][raw] = at_4[raw];
        norms.Centile_Norms[1][6][raw] = at_5[raw];
    }
    const struct {
        int before, months_before, after, months_after;
        Difference expected;
    } cases[] = {
        {3, 50, 4, 50, Difference::None},         // one point
        {2, 50, 4, 50, Difference::Higher},       // two
        {4, 50, 2, 50, Difference::Lower},        //
        {3, 50, 4, 62, Difference::None},         // 30 and 31, though a point more
        {3, 50, 5, 62, Difference::None},         // 45: a point more at the first age made 50
        {2, 50, 5, 62, Difference::Higher},       // 20 and 45: one point makes 30 or 31 of them
        {5, 50, 4, 50, Difference::None},         // no row above the last
        {0, 50, 4, 50, Difference::Not_Compared}, // no score at that age
        {70, 50, 4, 50, Difference::Not_Compared},
    };
    for (const auto& tried : cases) {
        SCOPED_TRACE(QString::number(tried.before).toStdString() + " and " + std::to_string(tried.after));
        EXPECT_EQ(scoring::Difference_Between(1, {tried.before, tried.months_before},
                                              {tried.after, tried.months_after}, norms),
                  tried.expected);
    }
}

TEST(SupportCopy, NamesNobodyAndScoresTheSame) {
    const Sample_File sample(60);
    const QString target = sample.Folder() + u"/support.mdb"_s;
    sample.Run(u"UPDATE Mevo_Pupils SET Surname = 'Greene' WHERE Surname = 'Green'"_s); // an answer as well
    sample.Run(u"UPDATE Mevo_Pupils SET Comment = 'a comment on the pupil'"_s);
    sample.Run(u"CREATE TABLE Notes (Words TEXT)"_s);
    sample.Run(u"INSERT INTO Notes VALUES ('a note of others')"_s);
    sample.Run(
        u"DELETE FROM Mevo_Pupils WHERE rowid = 7"_s); // their rows of answers, and their name in free room
    double next = 0;
    keeping::Write_Support_Copy(sample.Path(), target, [&] { return next = next > 0.9 ? 0 : next + 0.17; });
    QStringList hidden{u"a comment on"_s, u"a note of"_s};
    for (const QString& sql :
         {u"SELECT Surname FROM Mevo_Pupils"_s, u"SELECT Forename FROM Mevo_Pupils"_s,
          u"SELECT StudentCode FROM Mevo_Karrel_data"_s, u"SELECT StudentCode FROM Mevo_Pupils"_s,
          u"SELECT Password FROM Mevo_Pupils WHERE length(Password) > 3"_s,
          u"SELECT Group_Name FROM Mevo_Groups WHERE Group_Name <> 'Universal'"_s,
          u"SELECT Institution FROM Customer_Details"_s, u"SELECT CustomerName FROM Customer_Details"_s,
          u"SELECT Admin_Password FROM Customer_Details"_s})
        hidden += sample.Column(sql);
    ASSERT_GT(hidden.size(), 240);
    const QByteArray bytes = Bytes_Of(target);
    for (const QString& text : hidden)
        EXPECT_TRUE(text.size() <= 3 || text == "NULL"_L1 || !bytes.contains(text.toUtf8()))
            << text.toStdString();
    EXPECT_EQ(Database_Beside(target).Value(u"PRAGMA integrity_check"_s), u"ok"_s);
    QList<QStringList> scores[2] = {Exported_Records({sample.Path(), u"--times"_s}),
                                    Exported_Records({target, u"--times"_s})};
    for (QList<QStringList>& records : scores)
        for (QStringList& record : records)
            record.remove(0, 2); // code and name
    EXPECT_EQ(scores[0], scores[1]);
    const QString births = u"SELECT DOB FROM Mevo_Pupils ORDER BY rowid"_s;
    const QStringList before = sample.Column(births);
    const QStringList after = Database_Beside(target).Column(births);
    for (qsizetype i = 0; i < before.size(); ++i)
        EXPECT_TRUE(before[i] == "NULL"_L1 || after[i] != before[i]);
}

} // namespace
