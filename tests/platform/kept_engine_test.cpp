#include "platform/database/kept_engine.h"

#include "platform/database/connection.h"
#include "platform/database/engine_errors.h"
#include "platform/database/recordset.h"
#include "support/error_number.h"
#include "support/on_windows.h"
#include "support/printing.h"
#include "support/sample_file.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace database;
using test_support::Error_Number;
using test_support::On_Windows;
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

    Sample_File sample;
    Kept_Engine kept;
};

} // namespace

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
