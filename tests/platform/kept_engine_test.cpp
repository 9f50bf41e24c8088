#include "platform/database/kept_engine.h"

#include "platform/database/connection.h"
#include "platform/database/engine_errors.h"
#include "platform/database/recordset.h"
#include "support/error_number.h"
#include "support/narrow_places.h"
#include "support/on_windows.h"
#include "support/other_workstation.h"
#include "support/printing.h"
#include "support/sample_file.h"

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <functional>
#include <gtest/gtest.h>

#ifndef _WIN32
#include <sys/stat.h>
#include <unistd.h>
#endif

using namespace Qt::StringLiterals;
using namespace database;
using test_support::Error_Number;
using test_support::On_Windows;
using test_support::Other_Workstation;
using test_support::Plain_Account;
using test_support::Sample_File;

namespace {

class Kept : public testing::Test {
protected:
    void Open(Connection& connection) {
        connection.ConnectionString = foundation::Connection_String_For(sample.Path());
        connection.Keep_In(kept);
        connection.Open();
    }
    static void Query(Recordset& rows, Connection& connection, const QString& sql) {
        rows.Source = sql;
        rows.Set_ActiveConnection(&connection);
        rows.Open();
    }
    // Opens a connection, asks for one value and closes it, as one query of a page does.
    QString Ask(const QString& sql) {
        Connection connection;
        Open(connection);
        Recordset rows;
        Query(rows, connection, sql);
        return rows.Eof() ? u"none"_s : rows.Fields(0).Value().Text_Or_Empty();
    }
    // That this process has open on the file. Where the system doesn't list them, they keep it from being
    // renamed.
    int Handles() const {
        if (On_Windows) {
            const bool moves = QFile::rename(sample.Path(), sample.Path() + u".away"_s);
            if (moves) sample.Put_Back();
            return moves ? 0 : 1;
        }
        int handles = 0;
        for (const QFileInfo& handle : QDir(u"/proc/self/fd"_s).entryInfoList(QDir::Files | QDir::System))
            handles += handle.symLinkTarget().startsWith(sample.Path());
        return handles;
    }

    bool Others_May_Write() const {
        try {
            Engine_Handle(sample.Path(), Access::Read_Write).Run(u"BEGIN EXCLUSIVE; ROLLBACK"_s);
            return true;
        } catch (const std::exception&) {
            return false;
        }
    }
    void Write(const QString& surname) {
        Connection connection;
        Open(connection);
        connection.Execute(u"UPDATE Mevo_Pupils SET Surname = '"_s + surname + u"' WHERE rowid = 1"_s);
    }

    Sample_File sample;
    Kept_Engine kept;
};

const QString First_Name = u"SELECT Surname FROM Mevo_Pupils WHERE rowid = 1"_s;

} // namespace

TEST_F(Kept, ALockThatReadsShareIsGoneBehindThemInWhateverWayTheyEnd) {
    const std::pair<const char*, std::function<void()>> ends[] = {
        {"asked for", [this] { kept.End_Shared_Lock(); }},
        {"a box", [this] { kept.Let_Go(); }},
        {"events are looked at", [] { QCoreApplication::processEvents(); }},
        {"a change", [this] { Write(u"Ours"_s); }},
    };
    for (const auto& [name, end] : ends) {
        SCOPED_TRACE(name);
        const Whole_Act act(kept);
        Ask(First_Name);
        EXPECT_FALSE(Others_May_Write());
        end();
        EXPECT_TRUE(Others_May_Write());
        sample.Run(u"UPDATE Mevo_Pupils SET Surname = 'Theirs'"_s);
        EXPECT_EQ(Ask(First_Name), u"Theirs"_s); // begun anew
    }
    EXPECT_TRUE(Others_May_Write()); // the act's own end
}

TEST_F(Kept, WhoeverWritesGetsInBetweenReadsThatDontEnd) {
    constexpr int longest_ms = 2000; // a quarter of a second, on a busy machine
    Other_Workstation writer(sample.Path());
    const Whole_Act act(kept);
    const QString before = Ask(First_Name);
    writer.Rename_All_For_Ever();
    QElapsedTimer waited;
    waited.start();
    while (Ask(First_Name) == before && waited.elapsed() < longest_ms) {
    }
    EXPECT_LT(waited.elapsed(), longest_ms);
}

TEST_F(Kept, AJournalStaysOnlyWhereWhoeverMayWriteTheFileMayWriteItToo) {
#ifdef _WIN32
    GTEST_SKIP() << "there journals are removed";
#else
    struct Case {
        const char* name;
        mode_t folder, file;
        gid_t group;
        bool stays, others_write;
    };
    constexpr gid_t other_group = 12345;
    const gid_t own_group = getegid();
    for (const Case& c : {Case{"one account's file", 0755, 0644, own_group, true, false},
                          {"everybody's file", 0777, 0666, other_group, true, true},
                          {"a folder from which only owners remove", 01777, 0666, own_group, false, true},
                          {"a file of a group that we are of", 0770, 0660, own_group, true, true},
                          {"another group's file", 0770, 0660, other_group, true, false}}) {
        SCOPED_TRACE(c.name);
        const Sample_File shared;
        const QByteArray file = QFile::encodeName(shared.Path());
        const QByteArray folder = QFile::encodeName(shared.Folder());
        const auto give = [&](const QByteArray& place, mode_t mode) {
            return chown(place.constData(), static_cast<uid_t>(-1), c.group) == 0 &&
                   chmod(place.constData(), mode) == 0;
        };
        if (!give(folder, c.folder) || !give(file, c.file))
            continue; // another's group wants an administrator
        Connection connection;
        connection.ConnectionString = foundation::Connection_String_For(shared.Path());
        connection.Open();
        connection.Execute(u"UPDATE Mevo_Pupils SET Surname = 'Ours'"_s);
        const QFileInfo journal(shared.Path() + u"-journal"_s);
        EXPECT_EQ(journal.exists(), c.stays);
        EXPECT_EQ(journal.size(), 0);
        if (c.stays) {
            const QFileInfo database(shared.Path());
            EXPECT_EQ(journal.permissions(), database.permissions());
            EXPECT_EQ(journal.groupId(), database.groupId());
        }
        if (c.others_write) {
            const Plain_Account somebody; // as far as the process may change to one
            shared.Run(u"UPDATE Mevo_Pupils SET Surname = 'Theirs'"_s);
            EXPECT_FALSE(QFileInfo::exists(journal.filePath())); // a plain program removes it
        }
        EXPECT_EQ(shared.Value(u"PRAGMA integrity_check"_s), u"ok"_s);
    }
#endif
}

TEST_F(Kept, AHandleLivesNoLongerThanTheUsersAction) {
    if (!On_Windows && !QDir(u"/proc/self/fd"_s).exists())
        GTEST_SKIP() << "this system doesn't list open files";
    for (int action = 1; action <= 2; ++action) {
        Ask(u"SELECT count(*) FROM Mevo_Pupils"_s);
        Ask(u"SELECT count(*) FROM Mevo_Groups"_s);
        EXPECT_EQ(Handles(), 1);
        QCoreApplication::processEvents();
        EXPECT_EQ(Handles(), 0);
    }
    Ask(u"SELECT count(*) FROM Mevo_Pupils"_s);
    kept.Let_Go();
    EXPECT_EQ(Handles(), 0);
}

TEST_F(Kept, OthersWriteBetweenTwoQueriesOfOneAction) {
    const QString count = u"SELECT count(*) FROM Mevo_Pupils WHERE Surname = 'Changed'"_s;
    EXPECT_EQ(Ask(count), u"0"_s);
    sample.Run(u"UPDATE Mevo_Pupils SET Surname = 'Changed' WHERE rowid <= 5"_s);
    EXPECT_EQ(Ask(count), u"5"_s);
    sample.Run(u"ALTER TABLE Mevo_Groups ADD COLUMN First TEXT"_s);
    EXPECT_EQ(Ask(count), u"5"_s);
}

TEST_F(Kept, ATableThatGrewShowsItsNewColumns) {
    const QString groups = u"SELECT * FROM Mevo_Groups"_s;
    Ask(groups);
    sample.Run(u"ALTER TABLE Mevo_Groups ADD COLUMN Later TEXT DEFAULT 'seen'"_s);
    Connection connection;
    Open(connection);
    Recordset rows;
    Query(rows, connection, groups);
    EXPECT_EQ(rows.Fields(u"Later"_s).Value().As_Text(), u"seen"_s);
}

TEST_F(Kept, AFileThatTookThePlaceOfTheOldOneIsRead) {
    if (On_Windows) GTEST_SKIP() << "nothing takes the place of an open file";
    const QString name = u"SELECT Surname FROM Mevo_Pupils WHERE rowid = 1"_s;
    const QString before = Ask(name);
    const Sample_File other;
    other.Run(u"UPDATE Mevo_Pupils SET Surname = 'Elsewhere'"_s);
    sample.Move_Away();
    ASSERT_TRUE(QFile::copy(other.Path(), sample.Path()));
    EXPECT_NE(before, u"Elsewhere"_s);
    EXPECT_EQ(Ask(name), u"Elsewhere"_s);
    ASSERT_TRUE(QFile::remove(sample.Path()));
    EXPECT_NE(Error_Number([&] { Ask(name); }), 0);
}

TEST_F(Kept, StatementsThatDifferInTheirTextsDontMixThem) {
    const QString insert = u"INSERT INTO Mevo_Groups (Group_Name) VALUES ('%1')"_s;
    const QString names[] = {u"St Mary's"_s,      u"a ? mark"_s, u"[brackets]"_s,
                             u"\"\"quoted\"\""_s, u""_s,         u"Žižek; DROP TABLE Mevo_Pupils"_s};
    for (const QString& stored : names) {
        SCOPED_TRACE(stored.toStdString());
        const QString spliced = QString(stored).replace(u"'"_s, u"''"_s);
        Ask(u"SELECT 1 FROM Mevo_Groups"_s);
        Connection connection;
        Open(connection);
        EXPECT_EQ(connection.Execute(insert.arg(spliced)), 1);
        connection.Close();
        EXPECT_EQ(Ask(u"SELECT Group_Name FROM Mevo_Groups WHERE Group_Name = '"_s + spliced + u"'"_s),
                  stored);
        EXPECT_EQ(sample.Value(u"SELECT Group_Name FROM Mevo_Groups ORDER BY rowid DESC LIMIT 1"_s), stored);
    }
}

TEST_F(Kept, AMarkThatStandsForNothingIsRefusedAlsoBesideAKnownStatement) {
    EXPECT_EQ(Ask(u"SELECT count(*) FROM Mevo_Groups WHERE Group_Name = 'nobody'"_s), u"0"_s);
    for (const QString& name : {u"?"_s, u"'nobody"_s, u"'no'?'body'"_s, u"'x'; SELECT 'y'"_s})
        EXPECT_EQ(
            Error_Number([&] { Ask(u"SELECT count(*) FROM Mevo_Groups WHERE Group_Name = "_s + name); }),
            errors::Syntax)
            << name.toStdString();
}

TEST_F(Kept, RowsThatAreStillReadKeepTheirContent) {
    Connection connection;
    Open(connection);
    const auto pupil = [&](Recordset& rows, int row) {
        const QString code = sample.Value(u"SELECT StudentCode FROM Mevo_Pupils WHERE rowid = %1"_s.arg(row));
        Query(rows, connection,
              u"SELECT StudentCode FROM Mevo_Pupils WHERE StudentCode = '"_s + code + u'\'');
        return rows.Fields(0).Value().As_Text();
    };
    Recordset first, second;
    const QString code = pupil(first, 1);
    EXPECT_NE(pupil(second, 2), code);
    EXPECT_EQ(first.Fields(0).Value().As_Text(), code);
}

TEST_F(Kept, PiecesOfTheFileAreAsItIsWhoeverChangedIt) {
    Engine_Files files, narrow_files;
    const auto fail = Engine_Handle::Throw_Its_Words;
    const Engine_Handle ours(sample.Path(), Access::Read_Write, fail, files.Name());
    const Engine_Handle narrow(sample.Path(), Access::Read_Write, fail, narrow_files.Name());
    const Engine_Handle theirs(sample.Path(), Access::Read_Write);
    ours.Run(u"CREATE TABLE Rows (Id INTEGER PRIMARY KEY, Content)"_s);
    narrow.Run(u"PRAGMA cache_size = 4"_s); // pages, of which it must let go in mid-transaction
    const auto rows = [](const Engine_Handle& engine) {
        Engine_Statement statement(
            engine, u"SELECT group_concat(Id || hex(Content)) FROM (SELECT * FROM Rows ORDER BY Id)"_s);
        statement.Step();
        return statement.Text(0);
    };
    const QString grow = u"WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 300) "
                         "INSERT INTO Rows (Content) SELECT randomblob(900) FROM n;"_s;
    const QString change = u"UPDATE Rows SET Content = randomblob(900);"_s; // a journal of more than 128 kB
    const QString shrink = u"DELETE FROM Rows WHERE Id % 3 = 0;"_s;
    for (const QString& work : {grow, change, u"BEGIN;"_s + grow + change + u"ROLLBACK"_s, shrink, grow})
        for (const Engine_Handle* writer : {&ours, &theirs, &narrow}) {
            SCOPED_TRACE(work.toStdString());
            writer->Run(work);
            EXPECT_EQ(rows(ours), rows(theirs));
            EXPECT_EQ(rows(narrow), rows(theirs));
        }
}
