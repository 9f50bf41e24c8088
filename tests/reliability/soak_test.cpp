// Three test players at work on one file, or MEVO_SOAK_PLAYERS, and the administration beside them, or
// MEVO_SOAK_DESKS of them, each of its acts in a process of its own, for fifteen seconds or
// MEVO_SOAK_SECONDS. Each player stores ten rows a second or MEVO_SOAK_RATE. With MEVO_SHARE_US the file lies
// as on a share, and each round trip takes so many microseconds. Every second player is MEVO_OTHER_TESTPLAYER
// and every second act is done by MEVO_OTHER_ACTING_PROGRAM where these are set: programs of another system.

#include "foundation/schema.h"
#include "reliability/player_process.h"
#include "support/database_beside.h"
#include "support/files.h"
#include "support/printing.h"
#include "support/sample_file.h"
#include "support/written_answers.h"

#include <QDir>
#include <QElapsedTimer>
#include <QTemporaryDir>
#include <atomic>
#include <gtest/gtest.h>
#include <iostream>
#include <numeric>
#include <thread>
#include <utility>

using namespace Qt::StringLiterals;
using namespace test_support;

namespace {

constexpr int School = 480; // enough that each of a full run's answers is the only one in its place
constexpr int Newcomers = 14;
constexpr int Acts_A_Round = 4;
constexpr int Deleted_At_Once = 15; // by the acting program, the first by name

using Rows_By_Player = std::vector<qsizetype>;

struct Archive_Made {
    QString file;
    Rows_By_Player rows_before; // logged when the saving began
    Rows_By_Player rows_after;  // and when it was done
    int pupils;                 // at that moment
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
        for (int desk = 1; desk < Desks; ++desk)
            Write_Bytes(school.Folder() + u"/class%1.txt"_s.arg(desk),
                        QByteArray(lines).replace("Aa", "Zz" + QByteArray::number(desk)));
        if (!qEnvironmentVariableIsSet("MEVO_SHARE_US")) return;
        qputenv("SHARE_DELAY_US", qgetenv("MEVO_SHARE_US")); // for the processes that are started
        qputenv("SHARE_FOLDER", school.Folder().toUtf8());
        qputenv("LD_PRELOAD", MEVO_SLOW_SHARE);
    }
    ~Soak() override { qunsetenv("LD_PRELOAD"); }

    void Start_Players() {
        const QStringList codes = school.Column(u"SELECT StudentCode FROM Mevo_Pupils ORDER BY 1"_s);
        for (int player = 0; player < Players; ++player)
            players.push_back(std::make_unique<Player_Process>(
                school.Path(), codes.mid(player * School / Players, School / Players),
                qEnvironmentVariable("MEVO_SOAK_RATE", u"10"_s), logs.filePath(QString::number(player)),
                player % 2 == 1 ? Program_Of_Another_System("MEVO_OTHER_TESTPLAYER", MEVO_TESTPLAYER)
                                : QStringLiteral(MEVO_TESTPLAYER)));
    }
    Rows_By_Player Rows_Logged() const {
        Rows_By_Player rows;
        for (const auto& player : players)
            rows.push_back(player->Committed().size());
        return rows;
    }
    // Between two rows of one player, the pause included.
    qint64 Longest_Gap_Ms() const {
        qint64 longest = 0;
        for (const auto& player : players)
            for (QDateTime before; const auto& row : player->Committed())
                longest = std::max(longest, std::exchange(before, row.when).msecsTo(row.when));
        return longest;
    }

    void Act(const QString& name, int desk = 0) {
        constexpr int longest_wait_ms = 600'000;
        QElapsedTimer since;
        since.start();
        QProcess process;
        const bool others_turn =
            (acts + acts / Acts_A_Round) % 2 == 1; // so that each kind of act falls to both
        process.start(others_turn
                          ? Program_Of_Another_System("MEVO_OTHER_ACTING_PROGRAM", MEVO_ACTING_PROGRAM)
                          : QStringLiteral(MEVO_ACTING_PROGRAM),
                      desk == 0 ? QStringList{name, school.Folder()}
                                : QStringList{name, school.Folder(), QString::number(desk)});
        ASSERT_TRUE(process.waitForFinished(longest_wait_ms)) << name.toStdString();
        const QByteArray told = process.readAll();
        ASSERT_TRUE(told.endsWith("done\n")) << name.toStdString() << ": " << told.toStdString();
        ++acts;
        const QByteArray waited = told.mid(told.lastIndexOf("waited ") + 7);
        longest_wait_s = std::max<int>(longest_wait_s, waited.left(waited.indexOf('\n')).toInt());
        longest_act_ms = std::max<qint64>(longest_act_ms, since.elapsed());
    }
    void Work_Beside(int desk, const std::atomic<bool>& is_over) {
        for (const QString& name : {u"import"_s, u"archive"_s, u"delete"_s})
            if (!HasFailure()) Act(name, desk);
        if (!is_over && !HasFailure()) Work_Beside(desk, is_over);
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
    void Expect_Rows(const QString& file, const Rows_By_Player& least, const Rows_By_Player& most) {
        const Answers_In_A_File found = Read_Answers(file);
        for (std::size_t player = 0; player < players.size(); ++player)
            EXPECT_NE(Rows_In(found, players[player]->Committed(), least[player], most[player], at_the_start),
                      -1)
                << "player " << player << ": not from " << least[player] << " to " << most[player] << " rows";
    }

    const int Players = Number_From_Environment("MEVO_SOAK_PLAYERS", 3);
    const int Desks = Number_From_Environment("MEVO_SOAK_DESKS", 1);
    Sample_File school{School};
    QTemporaryDir logs; // on each workstation's own disk
    Answers_In_A_File at_the_start;
    std::vector<std::unique_ptr<Player_Process>> players;
    int pupils = School;
    QList<Archive_Made> archives;
    std::atomic<int> acts = 0;
    std::atomic<qint64> longest_act_ms = 0;
    std::atomic<int> longest_wait_s = 0;
};

} // namespace

TEST_F(Soak, NothingIsLostTornOrComplainedOf) {
    const int seconds = Number_From_Environment("MEVO_SOAK_SECONDS", 15);
    Start_Players();
    std::atomic<bool> is_over = false;
    std::vector<std::thread> desks;
    for (int desk = 1; desk < Desks; ++desk)
        desks.emplace_back([this, desk, &is_over] { Work_Beside(desk, is_over); });
    Work_For(seconds);
    is_over = true;
    for (std::thread& desk : desks)
        desk.join();
    for (const auto& player : players) {
        player->Stop();
        EXPECT_EQ(player->Status(), 0);
        EXPECT_EQ(player->Told(), u"%1 rows committed"_s.arg(player->Committed().size()));
        EXPECT_GT(player->Committed().size(), seconds / Players); // it was at work
    }
    EXPECT_GE(archives.size(), 2);
    const Rows_By_Player all = Rows_Logged();
    // Where several desks and players ask for more than the file can take, a statement may wait in vain.
    if (Desks == 1) Expect_Whole(school.Path(), pupils);
    EXPECT_EQ(Database_Beside(school.Path()).Value(u"PRAGMA integrity_check"_s), u"ok"_s);
    Expect_Rows(school.Path(), all, all);
    // Each archive was taken between two transactions: it holds the first so many rows of each log.
    for (const Archive_Made& made : std::as_const(archives)) {
        SCOPED_TRACE(made.file.toStdString());
        if (Desks == 1) Expect_Whole(made.file, made.pupils); // else another is in the midst of an act
        Rows_By_Player most = made.rows_after;
        for (qsizetype& rows : most)
            ++rows; // committed, and not yet in the log
        Expect_Rows(made.file, made.rows_before, most);
    }
    std::cout << seconds << " s: " << std::accumulate(all.begin(), all.end(), qsizetype(0))
              << " rows of answers committed by " << Players << " players, " << acts << " acts, "
              << archives.size() << " archives; longest act " << longest_act_ms
              << " ms, longest wait of one for the file about " << longest_wait_s
              << " s, longest gap of a player " << Longest_Gap_Ms() << " ms" << std::endl;
}
