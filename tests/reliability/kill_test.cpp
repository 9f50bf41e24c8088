// Acts of the administration that are killed at a random moment while a test player writes: thirty, or as
// many as MEVO_KILLS says. MEVO_OTHER_ACTING_PROGRAM names the program of another system that is to act
// instead.

#include "foundation/database_version.h"
#include "foundation/schema.h"
#include "reliability/player_process.h"
#include "sampledb/sample_data.h"
#include "support/files.h"
#include "support/other_workstation.h"
#include "support/sample_file.h"
#include "support/written_answers.h"

#include <QDir>
#include <QElapsedTimer>
#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QThread>
#include <gtest/gtest.h>
#include <iostream>

using namespace Qt::StringLiterals;
using namespace test_support;

namespace {

constexpr int Old_Pupils = 60;
constexpr int Archived_Pupils = 90;
constexpr int Imported_Class = 10;
constexpr int Deleted_Pupils = 15; // by the program under test
constexpr int Played_Pupils = 10;
const QString Integrity = u"PRAGMA integrity_check"_s;

const QStringList& Acts() {
    static const QStringList acts{u"import"_s,      u"archive"_s, u"load"_s,
                                  u"clean start"_s, u"convert"_s, u"delete"_s};
    return acts;
}

// A database's content as text, row by row: the columns that `shape` has, without the rows of these pupils.
QString Content(const QString& file, const QString& shape, const QStringList& without) {
    const QString nobody = u"('%1')"_s.arg(without.join(u"','"_s));
    const Database_Beside database(file);
    QString content;
    for (const foundation::Table& table : foundation::Database_Tables()) {
        const QString columns = Database_Beside(shape).Value(
            u"SELECT group_concat('quote(\"' || name || '\")', ' || '','' || ') FROM pragma_table_info('%1')"_s
                .arg(table.name));
        if (columns == "NULL"_L1) continue; // the shape hasn't got this table
        const bool of_pupils = table.columns.first().kind == foundation::Column_Kind::Key;
        const QString rows = of_pupils ? u" WHERE StudentCode NOT IN "_s + nobody : QString();
        content +=
            table.name + u'\n' +
            database.Value(u"SELECT group_concat(line, char(10)) FROM (SELECT %1 AS line FROM \"%2\"%3 "
                           "ORDER BY 1)"_s.arg(columns, table.name, rows)) +
            u'\n';
    }
    return content;
}

QString Data_Row_Counts(const QString& pupil) {
    QStringList counts;
    for (const foundation::Test_Tables& test : foundation::Tests_In_Order())
        counts.append(u"(SELECT count(*) FROM %1 d WHERE d.StudentCode = %2)"_s.arg(test.data_table, pupil));
    return counts.join(u" + "_s);
}

// A school of its own for each run, the act upon it, and the player meanwhile.
class Killed_Act {
public:
    explicit Killed_Act(const QString& act) : act(act) {
        QDir().mkpath(archives);
        Copy(act == "convert"_L1 ? Made().older.Path() : Made().old.Path(), working);
        Copy(Made().archived.Path(), archive);
        Copy(Made().earlier_archive.Path(), mine);
        sample_data::Write_Template(empty, 1);
        QByteArray lines;
        for (int i = 0; i < Imported_Class; ++i)
            lines += Imported(i).toUtf8() + ",Imported,F,14/03/2019,,\r\n";
        Write_Bytes(folder.filePath(u"class.txt"_s), lines);
        played = Old_Codes().first(Played_Pupils);
        before = Content(working, working, played);
        target_before = Target();
    }

    // Lets the act run to its end, or kills it so many microseconds after it has begun. Gives how long it
    // ran.
    qint64 Let_Act(qint64 kill_after_us) {
        const QString rate = u"200"_s;
        constexpr int longest_wait_ms = 60'000;
        Player_Process player(working, played, rate, journal);
        while (player.Is_Playing() && player.Committed().isEmpty())
            QThread::msleep(2);
        QProcess process;
        process.start(Program_Of_Another_System("MEVO_OTHER_ACTING_PROGRAM", MEVO_ACTING_PROGRAM),
                      {act, folder.path()});
        while (!output.contains("ready\n") && process.waitForReadyRead(longest_wait_ms))
            output += process.readAll();
        QElapsedTimer since;
        since.start();
        if (kill_after_us >= 0) {
            QThread::usleep(static_cast<unsigned long>(kill_after_us));
            process.kill();
        }
        process.waitForFinished(longest_wait_ms);
        const qint64 took = since.nsecsElapsed() / 1000;
        output += process.readAll();
        constexpr int some_rows_ms = 30;
        QThread::msleep(some_rows_ms); // the others go on with what the act has left
        if (player.Is_Playing()) player.Stop();
        log = player.Committed();
        player_told = player.Told();
        return took;
    }
    bool Is_Done() const { return output.contains("done\n"); }

    // What must hold whenever the act ended. `after`: the database's content when the act ran to its end.
    void Expect_Nothing_Lost(const QString& after) {
        EXPECT_TRUE(output.contains("ready\n")) << output.toStdString();
        EXPECT_FALSE(output.contains("failed")) << output.toStdString();
        EXPECT_TRUE(player_told.endsWith(u"rows committed"_s) || act == "clean start"_L1 ||
                    act == "delete"_L1)
            << player_told.toStdString();
        foundation::Installation installation;
        installation.Connection_String = foundation::Connection_String_For(working);
        EXPECT_NO_THROW(foundation::Database_Is_Version_51(installation)); // takes back what was half written
        for (const QString& file : Databases())
            EXPECT_EQ(Database_Beside(file).Value(Integrity), u"ok"_s) << file.toStdString();
        changed = Target() != target_before;
        Expect_The_Rows_Of_The_Player();
        if (act == "import"_L1) return Expect_Imported();
        if (act == "delete"_L1) return Expect_Deleted();
        const QString found = Content(working, Shape(), played);
        EXPECT_TRUE(found == before || found == after) << "the working database is a part of one";
        if (act == "load"_L1 || act == "clean start"_L1) Expect_The_Old_Kept(found != before);
        if (act == "archive"_L1) Expect_Archived();
        if (act == "convert"_L1 && Is_Done()) {
            EXPECT_TRUE(foundation::Database_Is_Version_51(installation));
        }
    }
    QString What_Is_There() const { return Content(working, Shape(), played); }
    // Whether the file that the act is to change was changed.
    bool Has_Changed() const { return changed; }
    qsizetype Rows_Played() const { return log.size(); }

private:
    static void Copy(const QString& from, const QString& to) {
        if (!QFile::copy(from, to)) throw std::runtime_error("can't copy " + from.toStdString());
    }
    // Made once for all runs.
    struct Schools {
        Schools() {
            older.Make_Older();
            archived.Run(u"UPDATE Mevo_Pupils SET Surname = 'Archived'"_s);
        }
        Sample_File old{Old_Pupils};
        Sample_File older{Old_Pupils};
        Sample_File archived{Archived_Pupils};
        Sample_File earlier_archive{Played_Pupils};
    };
    static const Schools& Made() {
        static const Schools made;
        return made;
    }
    static QStringList Old_Codes() {
        return Made().old.Column(u"SELECT StudentCode FROM Mevo_Pupils ORDER BY rowid"_s);
    }
    static QString Imported(int i) { return u"%1imported"_s.arg(QChar(u'A' + i)); }
    QString Target() const {
        const QString& file = act == "archive"_L1 ? mine : working;
        return Content(file, file, played);
    }
    QString Shape() const { return act == "convert"_L1 ? Made().older.Path() : Made().old.Path(); }

    QStringList Kept() const {
        QStringList kept;
        for (const QString& name : QDir(archives).entryList({u"Mevo05_before_*.mdb"_s}, QDir::Files))
            kept.append(archives + u'/' + name);
        return kept;
    }
    QStringList Databases() const { return QStringList{working, empty, archive, mine} + Kept(); }

    // In the working file, or in what the act kept of it.
    void Expect_The_Rows_Of_The_Player() {
        EXPECT_GT(log.size(), 0);
        QStringList lost = Missing_In(Read_Answers(working), log);
        for (const QString& kept : Kept()) {
            const Answers_In_A_File found = Read_Answers(kept);
            qsizetype rows = log.size();
            while (rows > 0 && !Missing_In(found, log.first(rows)).isEmpty())
                --rows;
            // The kept copy has the first rows, and the new database those that came later.
            lost = Missing_In(Read_Answers(working), log.mid(rows));
            EXPECT_GT(rows, 0);
        }
        EXPECT_EQ(lost, QStringList());
    }
    void Expect_The_Old_Kept(bool replaced) {
        EXPECT_TRUE(!replaced || Kept().size() == 1) << Kept().size();
        for (const QString& kept : Kept())
            EXPECT_EQ(Content(kept, kept, played), before);
        EXPECT_EQ(Database_Beside(archive).Value(u"SELECT count(*) FROM Mevo_Pupils"_s),
                  QString::number(Archived_Pupils));
    }
    void Expect_Archived() {
        const QString found = Content(mine, mine, played);
        const QString earlier = Content(Made().earlier_archive.Path(), Made().earlier_archive.Path(), played);
        EXPECT_TRUE(found == before || (found == earlier && !Is_Done())) << "a torn archive";
    }
    int Count(const QString& condition) const {
        return Database_Beside(working)
            .Value(u"SELECT count(*) FROM Mevo_Pupils p WHERE "_s + condition)
            .toInt();
    }
    // Who was there is there, and the pupils told as stored are; the one in hand may lack rows.
    void Expect_Imported() {
        const qsizetype told = output.count("stored ") - output.count("stored 0\n");
        const int there = Count(u"Forename = 'Imported'"_s);
        const int whole =
            Count(u"Forename = 'Imported' AND %1 = 9"_s.arg(Data_Row_Counts(u"p.StudentCode"_s)));
        EXPECT_GE(whole, told);
        EXPECT_LE(there, whole + 1);
        EXPECT_TRUE(!Is_Done() || (there == Imported_Class && told == Imported_Class));
        const QStringList newcomers = Database_Beside(working).Column(
            u"SELECT StudentCode FROM Mevo_Pupils WHERE Forename = 'Imported'"_s);
        EXPECT_EQ(Content(working, working, played + newcomers), before);
    }
    // Who is still registered has all that they had; of one alone may rows be left behind.
    void Expect_Deleted() {
        QStringList gone;
        int left_in_part = 0;
        for (const QString& code : Old_Codes()) {
            const bool there = Count(u"StudentCode = '%1'"_s.arg(code)) == 1;
            const int rows =
                Database_Beside(working).Value(u"SELECT "_s + Data_Row_Counts(u"'%1'"_s.arg(code))).toInt();
            EXPECT_TRUE(!there || rows == 9) << code.toStdString();
            left_in_part += !there && rows > 0;
            if (!there) gone.append(code);
        }
        EXPECT_LE(left_in_part, Is_Done() ? 0 : 1);
        EXPECT_TRUE(!Is_Done() || gone.size() == Deleted_Pupils);
        EXPECT_EQ(Content(working, working, gone + played),
                  Content(Made().old.Path(), working, gone + played));
    }

    QString act;
    QTemporaryDir folder;
    QString working = folder.filePath(u"Mevo05Data.mdb"_s);
    QString empty = folder.filePath(u"Mevo05EmptyDatabase.mdb"_s);
    QString archives = folder.filePath(u"archives"_s);
    QString archive = archives + u"/archive.mdb"_s;
    QString mine = archives + u"/mine.mdb"_s;
    QString journal = folder.filePath(u"journal"_s);
    QStringList played;
    QString before;
    QString target_before;
    bool changed = false;
    QByteArray output;
    QList<test_player::Stored_Answers> log;
    QString player_told;
};

struct Whole_Act {
    qint64 took_us = 0;
    QString content;
    int killed_within = 0;
    int killed_after_a_change = 0;
};

} // namespace

TEST(Killed_Program, LosesNothingThatWasCommitted) {
    const int kills = Number_From_Environment("MEVO_KILLS", 30);
    QMap<QString, Whole_Act> whole;
    for (const QString& act : Acts()) {
        SCOPED_TRACE(act.toStdString() + ", not killed");
        Killed_Act run(act);
        whole[act].took_us = run.Let_Act(-1);
        whole[act].content = run.What_Is_There();
        run.Expect_Nothing_Lost(whole[act].content);
        ASSERT_TRUE(run.Is_Done());
    }
    QRandomGenerator random = QRandomGenerator::securelySeeded();
    qsizetype rows = 0;
    for (int i = 0; i < kills && !testing::Test::HasFailure(); ++i) {
        const QString& act = Acts()[i % Acts().size()];
        const qint64 moment = random.bounded(whole[act].took_us * 11 / 10);
        SCOPED_TRACE(act.toStdString() + ", killed after " + std::to_string(moment) + " us");
        Killed_Act run(act);
        run.Let_Act(moment);
        run.Expect_Nothing_Lost(whole[act].content);
        whole[act].killed_within += !run.Is_Done();
        whole[act].killed_after_a_change += !run.Is_Done() && run.Has_Changed();
        rows += run.Rows_Played();
    }
    std::cout << kills << " kills, " << rows << " rows of answers committed meanwhile\n";
    for (const QString& act : Acts())
        std::cout << act.toStdString() << ": takes " << whole[act].took_us / 1000 << " ms, killed within "
                  << whole[act].killed_within << " times, " << whole[act].killed_after_a_change
                  << " of them after a first change" << std::endl;
}
