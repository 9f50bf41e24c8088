#include "testplayer/answer_journal.h"
#include "testplayer/command_line.h"

#include "foundation/schema.h"
#include "support/command_line.h"
#include "support/files.h"
#include "support/other_workstation.h"
#include "support/sample_file.h"
#include "support/written_answers.h"

using namespace Qt::StringLiterals;
using namespace test_support;

namespace test_player {
namespace {

class Player : public testing::Test {
protected:
    Outcome Play(const QStringList& arguments) {
        return Outcome_Of([&](QIODevice& device, QTextStream& errors) {
            QTextStream output(&device);
            return Run_Command(QStringList{u"mevo-testplayer"_s} + arguments, pause, output, errors);
        });
    }
    QList<Stored_Answers> Journal() const { return Answer_Journal::Read(journal); }
    void Forget_All_Tests() const {
        for (const QString& status : foundation::Status_Columns())
            sample.Run(u"UPDATE Mevo_Pupils SET %1 = 0, %1_age = 0, %1_date = NULL"_s.arg(status));
    }

    Sample_File sample;
    QString journal = sample.Folder() + u"/journal"_s;
    QList<int> pauses;
    Pause pause = [this](int milliseconds) {
        pauses.append(milliseconds);
        return true;
    };
};

} // namespace

TEST_F(Player, StoresEveryTestOfEveryPupilWithStatusAgeAndDate) {
    Forget_All_Tests();
    const int sittings = 12 * 9;
    const Outcome outcome = Play({sample.Path(), u"--all"_s, u"--rate"_s, u"20"_s, u"--count"_s,
                                  QString::number(sittings), u"--journal"_s, journal});
    EXPECT_EQ(outcome.status, 0) << outcome.errors.join(u'\n').toStdString();
    EXPECT_EQ(outcome.output, u"108 rows committed\n"_s);
    EXPECT_EQ(pauses, QList<int>(sittings - 1, 50));
    const Answers_In_A_File found = Read_Answers(sample.Path());
    ASSERT_EQ(Journal().size(), sittings);
    for (const Stored_Answers& stored : Journal())
        EXPECT_EQ(found.value({stored.code, stored.test}), Cell_Of(stored)) << stored.code.toStdString();
    EXPECT_EQ(sample.Value(u"SELECT count(*) FROM Mevo_Pupils WHERE Yoon_age BETWEEN 48 AND 200"_s), u"12"_s);
}

TEST_F(Player, ALogGoesOnAndLosesOnlyALineThatWasCutOff) {
    for (int i = 0; i < 2; ++i)
        Play({sample.Path(), u"--all"_s, u"--count"_s, u"3"_s, u"--journal"_s, journal});
    EXPECT_EQ(Journal().size(), 6);
    Write_Bytes(journal, Bytes_Of(journal).chopped(5));
    EXPECT_EQ(Journal().size(), 5);
}

TEST_F(Player, WaitsForAFileInUseAndEndsAtAPause) {
    pause = [](int) { return false; };
    Other_Workstation other(sample.Path());
    other.Hold_Exclusively();
    other.Commit_After(400);
    EXPECT_EQ(Play({sample.Path(), u"--all"_s}).output, u"1 rows committed\n"_s);
}

TEST_F(Player, AFaultIsOneLineAndTouchesNothing) {
    const QString text = sample.Folder() + u"/text"_s;
    Write_Bytes(text, "Surname,Forename\n");
    const QByteArray before = Bytes_Of(sample.Path());
    const std::pair<QStringList, QString> cases[] = {
        {{}, u"Usage"_s},
        {{sample.Path(), u"--all"_s, u"--code"_s, u"A"_s}, u"Usage"_s},
        {{sample.Path(), u"--code"_s, u"NOBODY"_s}, u"No pupil has the code NOBODY"_s},
        {{sample.Path(), u"--all"_s, u"--rate"_s, u"0"_s}, u"--rate"_s},
        {{sample.Path(), u"--all"_s, u"--count"_s, u"0"_s}, u"--count"_s},
        {{sample.Path(), u"--all"_s, u"--journal"_s, sample.Folder()}, u"Can't write"_s},
        {{sample.Folder(), u"--all"_s}, u"folder"_s},
        {{sample.Folder() + u"/nothing"_s, u"--all"_s}, u"Could not find file"_s},
        {{text, u"--all"_s}, u"Unrecognized database format"_s},
    };
    for (const auto& [arguments, told] : cases) {
        SCOPED_TRACE(told.toStdString());
        Play(arguments).Expect_Refusal(u"mevo-testplayer"_s, told);
    }
    EXPECT_EQ(Bytes_Of(sample.Path()), before);
}

} // namespace test_player
