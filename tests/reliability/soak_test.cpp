// Three test players and the administration at work on one file, for fifteen seconds or MEVO_SOAK_SECONDS.

#include "app/program.h"
#include "foundation/schema.h"
#include "pupils/list_view.h"
#include "reliability/player_process.h"
#include "shell/conventions/click_combo.h"
#include "support/controls.h"
#include "support/files.h"
#include "support/other_workstation.h"
#include "support/sample_file.h"
#include "support/scripted_platform.h"
#include "support/written_answers.h"

#include <QElapsedTimer>
#include <QFileInfo>
#include <QLineEdit>
#include <QRandomGenerator>
#include <gtest/gtest.h>
#include <iostream>

using namespace Qt::StringLiterals;
using namespace test_support;
using desktop::Answer;

namespace {

constexpr int Players = 3;
constexpr int School = 480; // enough that each of a full run's answers is the only one in its place
constexpr int Rows_A_Second = 10;
constexpr int Class_Size = 8;

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
        outside.ini.values[u"SETTINGS/database_sharepath"_s] = school.Folder();
        outside.files.names[school.Folder() + u"\\Mevo05EmptyDatabase.mdb"_s] = u"Mevo05EmptyDatabase.mdb"_s;
        QRandomGenerator generator(1);
        while (outside.random.numbers.size() < 10'007)
            outside.random.numbers.append(generator.generateDouble());
    }
    ~Soak() override { outside.boxes.Expect_All_Asked(); }

    void Start_Players() {
        const QStringList codes = school.Column(
            u"SELECT StudentCode FROM Mevo_Pupils WHERE Forename <> 'Soaked' ORDER BY StudentCode"_s);
        for (int player = 0; player < Players; ++player)
            players.push_back(std::make_unique<Player_Process>(
                school.Path(), codes.mid(player * School / Players, School / Players), Rows_A_Second,
                school.Folder() + u"/journal %1"_s.arg(player)));
    }
    std::array<qsizetype, Players> Rows_Logged() const {
        std::array<qsizetype, Players> rows{};
        for (int player = 0; player < Players; ++player)
            rows[player] = players[player]->Committed().size();
        return rows;
    }

    // ---- the administration, on its own pages

    void Start_Program() {
        program.Window().resize(1366, 768);
        program.Window().show();
        program.Start(QStringLiteral(MEVO_ASSETS));
        Follow_To(u"Form77"_s);
    }
    shell::Page& Page() { return *program.Window().Current(); }
    void Follow_To(const QString& page) {
        ASSERT_TRUE(Wait_Until([&] {
            return program.Window().Current() && program.Window().Current()->objectName() == page;
        })) << page.toStdString();
    }
    void Go(const QString& entry, const QString& page) {
        Click(Page(), entry);
        Follow_To(page);
    }
    void Back_To_The_Menu() { Go(u"HotLabel1"_s, u"Form77"_s); }
    void Press(const QString& button, Answer answer) {
        outside.boxes.Will_Answer(answer);
        Click(Page(), button);
    }
    // Names whose codes never meet: their first letters differ.
    QString Next_Name() {
        QString name;
        for (int rest = names_given++, i = 0; i < 3; ++i, rest /= 26)
            name += QChar(u'a' + rest % 26);
        return name + u"soak"_s;
    }

    void Archive() {
        Archive_Made made{
            school.Folder() + u"/archive %1.mdb"_s.arg(archives.size()), Rows_Logged(), {}, pupils};
        Go(u"HotLabel8"_s, u"Form60"_s);
        outside.file_dialogs.answers = {made.file};
        Press(u"HotLabel2"_s, Answer::Ok);
        EXPECT_EQ(outside.boxes.shown.last().text, u"Your database has been archived as "_s + made.file);
        made.rows_after = Rows_Logged();
        archives.append(made);
        Back_To_The_Menu();
    }
    void View_The_Last_Archive() {
        Go(u"HotLabel8"_s, u"Form60"_s);
        outside.file_dialogs.answers = {archives.last().file};
        Press(u"HotLabel3"_s, Answer::Ok);
        Back_To_The_Menu();
        EXPECT_TRUE(program.Installed().Viewing_Mode);
        Go(u"HotLabel8"_s, u"Form60"_s);
        EXPECT_EQ(Caption(Page(), u"Label13"_s), QString::number(pupils));
        Press(u"HotLabel6"_s, Answer::Ok);
        Back_To_The_Menu();
        ++views;
    }
    void Register_A_Pupil() {
        Go(u"HotLabel4"_s, u"Form10"_s);
        ASSERT_TRUE(Wait_Until([&] { return Control<shell::Click_Combo>(Page(), u"Combo3"_s).count() > 0; }));
        registered.append(Next_Name());
        Control<QLineEdit>(Page(), u"Text3"_s).setText(registered.last());
        Control<QLineEdit>(Page(), u"Text4"_s).setText(u"Soaked"_s);
        Press(u"HotLabel2"_s, Answer::Yes);
        ++pupils;
        Back_To_The_Menu();
    }
    void Import_A_Class() {
        const QString file = school.Folder() + u"/class.txt"_s;
        QByteArray lines;
        for (int i = 0; i < Class_Size; ++i) {
            imported.append(Next_Name());
            lines +=
                imported.last().toUtf8() + ",Soaked,F,14/03/2019,Class " + QByteArray::number(i) + ",\r\n";
        }
        Write_Bytes(file, lines);
        Go(u"HotLabel2"_s, u"Form42"_s);
        outside.file_dialogs.answers = {file};
        Click(Page(), u"PreviewImport"_s);
        Press(u"HotLabel3"_s, Answer::Yes);
        pupils += Class_Size;
        Back_To_The_Menu();
    }
    // The class that was imported first, and one who is being tested: the school stays as large as it is.
    void Delete_A_Class() {
        Go(u"HotLabel3"_s, u"Form9"_s);
        auto& list = Control<pupils::List_View>(Page(), u"ListView1"_s);
        const Player_Process& player = *players[played_deleted % Players];
        const QString played = player.Codes().value(played_deleted++ / Players);
        const QStringList leaving = imported.first(Class_Size);
        imported = imported.mid(Class_Size);
        QStringList codes;
        for (int i = 0; i < list.topLevelItemCount(); ++i) {
            QTreeWidgetItem* item = list.topLevelItem(i);
            if (!leaving.contains(item->text(0)) && item->text(3) != played) continue;
            item->setSelected(true);
            codes.append(item->text(3));
        }
        EXPECT_EQ(codes.size(), Class_Size + 1);
        Press(u"HotLabel2"_s, Answer::Yes);
        deleted += codes;
        pupils -= static_cast<int>(codes.size());
        EXPECT_EQ(Caption(Page(), u"Label7"_s), QString::number(pupils));
        Back_To_The_Menu();
    }
    void Work_For(int seconds) {
        constexpr int ms_in_a_second = 1000;
        QElapsedTimer since;
        since.start();
        while (since.elapsed() < seconds * ms_in_a_second && !HasFailure()) {
            for (const auto& act : {&Soak::Archive, &Soak::View_The_Last_Archive, &Soak::Register_A_Pupil,
                                    &Soak::Import_A_Class, &Soak::Delete_A_Class}) {
                QElapsedTimer took;
                took.start();
                (this->*act)();
                longest_act_ms = std::max(longest_act_ms, took.elapsed());
                ++acts;
            }
            for (const auto& player : players)
                ASSERT_TRUE(player->Is_Playing()) << player->Told().toStdString();
        }
    }

    // ---- what must have come of it

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
    void Expect_The_Working_File_Whole() {
        Expect_Whole(school.Path(), pupils);
        const std::array<qsizetype, Players> all = Rows_Logged();
        Expect_Rows(school.Path(), all, all);
        for (const QString& name : registered + imported)
            EXPECT_EQ(school.Value(u"SELECT count(*) FROM Mevo_Pupils WHERE Surname = '%1'"_s.arg(name)),
                      u"1"_s);
        for (const QString& code : deleted)
            EXPECT_EQ(school.Value(u"SELECT count(*) FROM Mevo_Pupils WHERE StudentCode = '%1'"_s.arg(code)),
                      u"0"_s);
    }
    // Each was taken between two transactions: it holds the first so many rows of each log and nothing else.
    void Expect_The_Archives_Whole() {
        for (const Archive_Made& made : std::as_const(archives)) {
            SCOPED_TRACE(made.file.toStdString());
            Expect_Whole(made.file, made.pupils);
            std::array<qsizetype, Players> most = made.rows_after;
            for (qsizetype& rows : most)
                ++rows; // committed, and not yet in the log
            Expect_Rows(made.file, made.rows_before, most);
        }
    }

    Sample_File school{School};
    Answers_In_A_File at_the_start;
    std::vector<std::unique_ptr<Player_Process>> players;
    Scripted_Platform outside;
    app::Program program{outside.platform};

    int pupils = School;
    int names_given = 0;
    int played_deleted = 0;
    QStringList registered, imported, deleted;
    QList<Archive_Made> archives;
    int views = 0;
    int acts = 0;
    qint64 longest_act_ms = 0;
};

} // namespace

TEST_F(Soak, NothingIsLostTornOrComplainedOf) {
    const int seconds = Number_From_Environment("MEVO_SOAK_SECONDS", 15);
    Start_Program();
    Import_A_Class(); // one is always there
    Start_Players();
    Work_For(seconds);
    for (const auto& player : players) {
        player->Stop();
        EXPECT_EQ(player->Status(), 0);
        EXPECT_EQ(player->Told(), u"%1 rows committed"_s.arg(player->Committed().size()));
        EXPECT_GT(player->Committed().size(), seconds); // it was at work
    }
    EXPECT_GE(archives.size(), 2);
    Expect_The_Working_File_Whole();
    Expect_The_Archives_Whole();

    qsizetype rows = 0;
    for (const qsizetype of_one : Rows_Logged())
        rows += of_one;
    std::cout << seconds << " s: " << rows << " rows of answers committed by " << Players << " players, "
              << archives.size() << " archives of up to " << QFileInfo(archives.last().file).size() / 1024
              << " KB, " << views << " views, " << registered.size() << " registered, "
              << names_given - registered.size() << " imported, " << deleted.size() << " deleted, "
              << outside.boxes.shown.size() << " boxes, longest act " << longest_act_ms << " ms" << std::endl;
}
