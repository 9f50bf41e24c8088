// Three test players at work on one file, and the administration beside them, each of its acts in a process
// of its own, for fifteen seconds or MEVO_SOAK_SECONDS. Every second player is MEVO_OTHER_TESTPLAYER and
// every second act is done by MEVO_OTHER_ACTING_PROGRAM where these are set: programs of another system.

#include "foundation/schema.h"
#include "reliability/player_process.h"
#include "support/database_beside.h"
#include "support/files.h"
#include "support/sample_file.h"
#include "support/written_answers.h"

#include <QDir>
#include <QElapsedTimer>
#include <gtest/gtest.h>
#include <iostream>

using namespace Qt::StringLiterals;
using namespace test_support;

namespace {

constexpr int Players = 3;
constexpr int School = 480; // enough that each of a full run's answers is the only one in its place
constexpr int Rows_A_Second = 10;
constexpr int Newcomers = 14;
constexpr int Acts_A_Round = 4;
constexpr int Deleted_At_Once = 15; // by the acting program, the first by name

struct Archive_Made {
    QString file;
    std::array<qsizetype, Players> rows_before; // logged when the saving began
    std::array<qsizetype, Players> rows_after;  // and when it was done
    int pupils;                                 // at that moment
};

class Soak : public testing::Test {
protected:
    Soak() {
        for (const QString& status : foundation::Status_Columns())
            school.Run(u"UPDATE Mevo_Pupils SET %1 = 0, %1_age = 0, %1_date = NULL"_s.arg(status));
        at_the_start = Read_Answers(school.Path());
        QDir(school.Folder()).mkdir(u"archives"_s);
        QByteArray lines;
        for (char letter = 'a'; letter < 'a' + Newcomers; ++letter)
            lines += QByteArray("Aa") + letter + ",Soaked,F,14/03/2019,,\r\n";
        Write_Bytes(school.Folder() + u"/class.txt"_s, lines);
    }

    void Start_Players() {
        const QStringList codes = school.Column(u"SELECT StudentCode FROM Mevo_Pupils ORDER BY 1"_s);
        for (int player = 0; player < Players; ++player)
            players.push_back(std::make_unique<Player_Process>(
                school.Path(), codes.mid(player * School / Players, School / Players), Rows_A_Second,
                school.Folder() + u"/journal %1"_s.arg(player),
                player % 2 == 1 ? Program_Of_Another_System("MEVO_OTHER_TESTPLAYER", MEVO_TESTPLAYER)
                                : QStringLiteral(MEVO_TESTPLAYER)));
    }
    std::array<qsizetype, Players> Rows_Logged() const {
        std::array<qsizetype, Players> rows{};
        for (int player = 0; player < Players; ++player)
            rows[player] = players[player]->Committed().size();
        return rows;
    }

    void Act(const QString& name) {
        constexpr int longest_wait_ms = 60'000;
        QProcess process;
        const bool others_turn =
            (acts + acts / Acts_A_Round) % 2 == 1; // so that each kind of act falls to both
        process.start(others_turn
                          ? Program_Of_Another_System("MEVO_OTHER_ACTING_PROGRAM", MEVO_ACTING_PROGRAM)
                          : QStringLiteral(MEVO_ACTING_PROGRAM),
                      {name, school.Folder()});
        ASSERT_TRUE(process.waitForFinished(longest_wait_ms)) << name.toStdString();
        const QByteArray told = process.readAll();
        ASSERT_TRUE(told.endsWith("done\n")) << name.toStdString() << ": " << told.toStdString();
        ++acts;
    }
    void Archive() {
        const QString folder = school.Folder() + u"/archives/"_s;
        Archive_Made made{folder + QString::number(archives.size()), Rows_Logged(), {}, pupils};
        Act(u"archive"_s);
        made.rows_after = Rows_Logged();
        ASSERT_TRUE(QFile::rename(folder + u"mine.mdb"_s, made.file));
        archives.append(made);
    }
    // Imports a class, and deletes it together with one pupil who is being tested.
    void Work_For(qint64 seconds) {
        QElapsedTimer since;
        since.start();
        while (!since.hasExpired(seconds * 1000) && !HasFailure()) {
            Act(u"import"_s);
            pupils += Newcomers;
            Archive();
            Act(u"delete"_s);
            pupils -= Deleted_At_Once;
            Archive();
            for (const auto& player : players)
                ASSERT_TRUE(player->Is_Playing()) << player->Told().toStdString();
        }
    }

    void Expect_Whole(const QString& file, int pupils_there) {
        const Database_Beside database(file);
        EXPECT_EQ(database.Value(u"PRAGMA integrity_check"_s), u"ok"_s);
        EXPECT_EQ(database.Value(u"SELECT count(*) FROM Mevo_Pupils"_s).toInt(), pupils_there);
        // Everyone has their row in each data table, and nobody else has.
        for (const foundation::Test_Tables& test : foundation::Tests_In_Order())
            EXPECT_EQ(
                database.Value(u"SELECT count(*) || ' ' || count(DISTINCT p.StudentCode) FROM %1 d LEFT JOIN "
                               "Mevo_Pupils p ON p.StudentCode = d.StudentCode"_s.arg(test.data_table)),
                u"%1 %1"_s.arg(pupils_there))
                << test.data_table.toStdString();
    }
    void Expect_Rows(const QString& file, const std::array<qsizetype, Players>& least,
                     const std::array<qsizetype, Players>& most) {
        const Answers_In_A_File found = Read_Answers(file);
        for (int player = 0; player < Players; ++player)
            EXPECT_NE(Rows_In(found, players[player]->Committed(), least[player], most[player], at_the_start),
                      -1)
                << "player " << player << ": not from " << least[player] << " to " << most[player] << " rows";
    }

    Sample_File school{School};
    Answers_In_A_File at_the_start;
    std::vector<std::unique_ptr<Player_Process>> players;
    int pupils = School;
    QList<Archive_Made> archives;
    int acts = 0;
};

} // namespace

TEST_F(Soak, NothingIsLostTornOrComplainedOf) {
    const int seconds = Number_From_Environment("MEVO_SOAK_SECONDS", 15);
    Start_Players();
    Work_For(seconds);
    for (const auto& player : players) {
        player->Stop();
        EXPECT_EQ(player->Status(), 0);
        EXPECT_EQ(player->Told(), u"%1 rows committed"_s.arg(player->Committed().size()));
        EXPECT_GT(player->Committed().size(), seconds); // it was at work
    }
    EXPECT_GE(archives.size(), 2);
    const std::array<qsizetype, Players> all = Rows_Logged();
    Expect_Whole(school.Path(), pupils);
    Expect_Rows(school.Path(), all, all);
    // Each archive was taken between two transactions: it holds the first so many rows of each log.
    for (const Archive_Made& made : std::as_const(archives)) {
        SCOPED_TRACE(made.file.toStdString());
        Expect_Whole(made.file, made.pupils);
        std::array<qsizetype, Players> most = made.rows_after;
        for (qsizetype& rows : most)
            ++rows; // committed, and not yet in the log
        Expect_Rows(made.file, made.rows_before, most);
    }
    std::cout << seconds << " s: " << all[0] + all[1] + all[2] << " rows of answers committed by " << Players
              << " players, " << acts << " acts, " << archives.size() << " archives" << std::endl;
}
