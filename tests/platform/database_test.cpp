#include "platform/database/connection.h"
#include "platform/database/engine_errors.h"
#include "platform/database/recordset.h"
#include "support/error_number.h"
#include "support/files.h"
#include "support/other_workstation.h"
#include "support/printing.h"
#include "support/sample_file.h"

#include <QFile>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace database;
using test_support::Error_Number;
using test_support::Sample_File;

namespace {

class Database : public testing::Test {
protected:
    void Open(int timeout = 15) {
        connection.ConnectionString = foundation::Connection_String_For(sample.Path());
        connection.ConnectionTimeout = timeout;
        connection.Open();
    }
    void Query(const QString& sql, Lock_Type lock = Lock_Type::Optimistic) {
        rows.LockType = lock;
        rows.Source = sql;
        rows.Set_ActiveConnection(&connection);
        rows.Open();
    }
    int Open_Error() {
        return Error_Number([this] { Open(0); });
    }

    Sample_File sample;
    Connection connection;
    Recordset rows;
};

} // namespace

TEST_F(Database, RewindsAfterTheLastRow) {
    Open();
    Query(u"SELECT StudentCode FROM mevo_PUPILS ORDER BY Surname"_s);
    const QString first = rows.Fields(u"STUDENTCODE"_s).Value().As_Text();
    int count = 0;
    for (; !rows.Eof(); rows.MoveNext())
        ++count;
    EXPECT_EQ(count, 12);
    EXPECT_EQ(Error_Number([this] { rows.MoveNext(); }), errors::No_Current_Record);
    rows.MoveFirst();
    sample.Run(u"UPDATE Mevo_Pupils SET Show_Name = 1"_s); // no lock is held between reads
    EXPECT_EQ(rows.Fields(u"studentcode"_s).Value().As_Text(), first);
    EXPECT_EQ(Error_Number([this] { rows.Fields(u"nothing"_s); }), errors::No_Such_Field);
}

TEST_F(Database, ARowThatHasGoneIsAnError) {
    Open();
    Query(u"SELECT * FROM Mevo_Groups WHERE Group_Name = 'Universal'"_s);
    sample.Run(u"DELETE FROM Mevo_Groups WHERE Group_Name = 'Universal'"_s);
    rows.Fields(u"XtraField"_s).Set_Value(u"x"_s);
    EXPECT_EQ(Error_Number([this] { rows.Update(); }), errors::Row_Has_Gone);
}

TEST_F(Database, OnlyALockThatAllowsItWrites) {
    Open();
    Query(u"SELECT * FROM Mevo_Groups"_s, Lock_Type::Read_Only);
    EXPECT_EQ(Error_Number([this] { rows.Fields(u"XtraField"_s).Set_Value(u"x"_s); }), errors::Not_Updatable);
    EXPECT_EQ(Error_Number([this] { rows.AddNew(); }), errors::Not_Updatable);
}

TEST_F(Database, TextsCompareWithoutRegardToCaseBeyondAscii) {
    sample.Run(u"UPDATE Mevo_Groups SET Group_Name = 'Élan' WHERE Group_Name = 'Universal'"_s);
    Open();
    Query(u"SELECT * FROM Mevo_Groups WHERE group_name = 'éLAN'"_s);
    EXPECT_FALSE(rows.Eof());
}

TEST_F(Database, SortsNamesByTheProgramsOwnOrder) {
    sample.Run(u"DROP TABLE Mevo_Groups"_s);
    sample.Run(u"CREATE TABLE Mevo_Groups (Group_Name)"_s);
    sample.Run(u"INSERT INTO Mevo_Groups VALUES ('Ember'), ('élan'), ('dean'), ('Edge'), ('De Souza')"_s);
    Open();
    Query(u"SELECT Group_Name FROM Mevo_Groups ORDER BY Group_Name"_s);
    QStringList names;
    for (; !rows.Eof(); rows.MoveNext())
        names.append(rows.Fields(0).Value().As_Text());
    EXPECT_EQ(names.join(u','), u"De Souza,dean,Edge,élan,Ember"_s);
}

// Whole rows are sorted once they are read, single columns by the engine.
TEST_F(Database, SortsWholeRowsAsTheEngineSortsThem) {
    sample.Run(u"CREATE TABLE Mixed (A, B, N)"_s);
    sample.Run(
        u"INSERT INTO Mixed VALUES ('b', 1, 1), (NULL, 'x', 2), (x'62', 'x', 3), (2, 2.5, 4), (2.0, 2, 5), "
        "('B', 1.0, 6), ('á', NULL, 7), (NULL, 'É', 8), (-1.5, 3, 9), ('', 0, 10), ('a', x'00', 11), "
        "(x'', 1, 12), ('b', 1, 13), ('de Souza', 1, 14), ('Dean', 1, 15)"_s);
    Open();
    const auto order = [this](const QString& what, const QString& by) {
        Query(u"SELECT "_s + what + u" FROM Mixed WHERE N > 0 ORDER BY "_s + by);
        QStringList numbers;
        for (; !rows.Eof(); rows.MoveNext())
            numbers.append(rows.Fields(u"N"_s).Value().As_Text());
        rows.Close();
        return numbers;
    };
    for (const QString& by : {u"A"_s, u"A,B"_s, u"b , a"_s, u"N"_s, u"A DESC"_s, u"rowid"_s})
        EXPECT_EQ(order(u"*"_s, by), order(u"N"_s, by)) << by.toStdString();
    EXPECT_EQ(Error_Number([&] { order(u"*"_s, u"A,Missing"_s); }), errors::Unknown_Name);
}

TEST_F(Database, ASizedTextRefusesWhatIsTooLong) {
    Open();
    connection.Execute(u"create table T (A TEXT(50), N NUMBER)"_s);
    const QString fifty(50, u'é');
    EXPECT_EQ(connection.Execute(u"INSERT INTO T (A) VALUES ('"_s + fifty + u"')"_s), 1);
    EXPECT_EQ(Error_Number([&] { connection.Execute(u"INSERT INTO T (A) VALUES ('"_s + fifty + u"x')"_s); }),
              errors::Value_Too_Long);
}

TEST_F(Database, RefusesWhatIsNoDatabase) {
    const std::pair<QByteArray, QString> cases[] = {
        {"", u"empty"_s},
        {"Surname,Forename\n", u"text"_s},
        {QByteArray("\0\1\0\0Standard Jet DB\0", 20) + QByteArray(4096, '\0'), u"Jet"_s},
        {QByteArray(100'000, '\0'), u"zeros"_s},
        {QByteArray("SQLite format 3\0", 16) + QByteArray(4096, '\x7f'), u"broken header"_s},
    };
    for (const auto& [content, name] : cases) {
        SCOPED_TRACE(name.toStdString());
        test_support::Write_Bytes(sample.Path(), content);
        EXPECT_EQ(Open_Error(), errors::Engine_Failure);
        EXPECT_EQ(test_support::Bytes_Of(sample.Path()), content); // looked at and left alone
    }
}

TEST_F(Database, ATruncatedFileIsAnErrorAndNotARow) {
    ASSERT_TRUE(QFile::resize(sample.Path(), 9000));
    EXPECT_EQ(Error_Number([this] {
                  Open();
                  Query(u"SELECT * FROM Yoon_Norms"_s);
              }),
              errors::Engine_Failure);
}

TEST_F(Database, NeverMakesAMissingFile) {
    sample.Move_Away();
    EXPECT_EQ(Open_Error(), errors::Engine_Failure);
    EXPECT_FALSE(QFile::exists(sample.Path()));
    connection.ConnectionString = foundation::Connection_String_For(sample.Folder());
    EXPECT_EQ(Error_Number([this] { connection.Open(); }), errors::Engine_Failure);
}

TEST_F(Database, AFileInUseIsAnErrorAfterTheWait) {
    test_support::Other_Workstation other(sample.Path());
    other.Hold_Exclusively();
    EXPECT_EQ(Open_Error(), errors::Engine_Failure);
    other.Run(u"COMMIT"_s);
    EXPECT_EQ(Open_Error(), 0);
}

TEST_F(Database, RunsNoSqlThatLiesInTheFile) {
    sample.Run(u"CREATE TRIGGER spoil AFTER UPDATE ON Mevo_Pupils BEGIN DELETE FROM Mevo_Groups; END"_s);
    sample.Run(u"CREATE VIEW sneak AS SELECT * FROM Mevo_Pupils"_s);
    Open();
    connection.Execute(u"UPDATE Mevo_Pupils SET Show_Name = 0"_s);
    EXPECT_NE(sample.Value(u"SELECT count(*) FROM Mevo_Groups"_s), u"0"_s);
    EXPECT_NE(Error_Number([this] { Query(u"SELECT * FROM sneak"_s); }), 0);
}

TEST_F(Database, StatementsCanNeitherAttachNorSetNorDrop) {
    Open();
    const QString refused[] = {u"ATTACH DATABASE 'other.mdb' AS o"_s,
                               u"PRAGMA journal_mode = WAL"_s,
                               u"DROP TABLE Mevo_Pupils"_s,
                               u"BEGIN"_s,
                               u"VACUUM"_s,
                               u"SELECT load_extension('x')"_s,
                               u"CREATE TRIGGER t AFTER DELETE ON Mevo_Pupils BEGIN SELECT 1; END"_s,
                               u"DELETE FROM sqlite_master"_s};
    for (const QString& statement : refused)
        EXPECT_NE(Error_Number([&] { connection.Execute(statement); }), 0) << statement.toStdString();
    EXPECT_EQ(sample.Value(u"PRAGMA journal_mode"_s), u"delete"_s);
    EXPECT_EQ(sample.Value(u"SELECT count(*) FROM Mevo_Pupils"_s), u"12"_s);
}

TEST_F(Database, AWriteAheadLogIsTurnedBackIntoOneFile) {
    sample.Run(u"PRAGMA journal_mode = WAL"_s);
    Open();
    connection.Execute(u"UPDATE Mevo_Pupils SET Show_Name = 0"_s);
    connection.Close();
    EXPECT_EQ(sample.Value(u"PRAGMA journal_mode"_s), u"delete"_s);
    EXPECT_FALSE(QFile::exists(sample.Path() + u"-wal"_s));
}

TEST_F(Database, WrongNamesHaveTheNumbersOfTheOldEngine) {
    Open();
    EXPECT_EQ(Error_Number([this] { Query(u"SELECT * FROM No_Such_Norms"_s); }), errors::Unknown_Table);
    EXPECT_EQ(Error_Number([this] { Query(u"SELECT Colour FROM Mevo_Pupils"_s); }), errors::Unknown_Name);
    EXPECT_EQ(Error_Number([this] { Query(u"SELECT FROM WHERE"_s); }), errors::Syntax);
    EXPECT_EQ(Error_Number([this] { Query(u"SELECT * FROM Mevo_Pupils WHERE Surname = 'O'Brien'"_s); }),
              errors::Syntax);
}
