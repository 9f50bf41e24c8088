#include "conversion/jet_samples.h"
#include "conversion/plain_database.h"
#include "convert/command_line.h"
#include "support/command_line.h"
#include "support/database_beside.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTest>
#include <csignal>

using namespace Qt::StringLiterals;
using namespace test_support;

namespace {

const QString Tool = u"mevo-convert"_s;

class Convert_Command : public testing::Test {
protected:
    Outcome Run(const QStringList& arguments) {
        return Outcome_Of([&](QIODevice& output, QTextStream& errors) {
            return convert_command::Run_Command(QStringList{Tool} + arguments,
                                                {output, errors, false, [this] { return interrupted; },
                                                 conversion::Reader_Beside_This_Program()});
        });
    }

    Conversion_Folder folder;
    QString source = folder.Put(u"school.mdb"_s, Bytes_Of(Test_Data(u"jet4-data.mdb"_s)));
    QString target = folder.Place(u"new.mdb"_s);
    bool interrupted = false;
};

} // namespace

TEST_F(Convert_Command, TellsTheRowsOfEachTable) {
    const Outcome outcome = Run({source, target});
    EXPECT_EQ(outcome.status, 0);
    const QStringList lines = outcome.output.split(u'\n');
    ASSERT_EQ(lines.size(), 1 + 1 + 29 + 1 + 1);
    EXPECT_EQ(lines[1].simplified(), u"Table Rows read Rows written"_s);
    EXPECT_TRUE(lines.filter(u"Mevo_Pupils"_s).value(0).simplified().endsWith(u" 40 40"_s));
    EXPECT_EQ(lines[31].simplified(), u"All 29 tables 1524 1524"_s);
}

TEST_F(Convert_Command, ReplacesOnlyWhenTold) {
    folder.Put(u"new.mdb"_s, "something of the user's");
    Run({source, target}).Expect_Refusal(Tool, u"there already"_s);
    EXPECT_EQ(Bytes_Of(target), "something of the user's");

    EXPECT_EQ(Run({source, target, u"--force"_s}).status, 0);
    EXPECT_EQ(Tables_That_Differ(Test_Data(u"expected-data.sqlite"_s), target), QStringList());
    EXPECT_EQ(folder.Names(), (QStringList{u"new.mdb"_s, u"school.mdb"_s}));
    // Not even then a source over itself, or over what a failure would leave lost.
    EXPECT_EQ(Run({source, source, u"--force"_s}).status, 2);
    const QString damaged = folder.Put(u"damaged.mdb"_s, Bytes_Of(source).left(100 * 4096));
    EXPECT_EQ(Run({damaged, target, u"--force"_s}).status, 2);
    EXPECT_EQ(Tables_That_Differ(Test_Data(u"expected-data.sqlite"_s), target), QStringList());
}

TEST_F(Convert_Command, ChecksValueByValue) {
    EXPECT_EQ(Run({source, target, u"--check"_s}).status, 2);
    ASSERT_EQ(Run({source, target}).status, 0);
    const Outcome equal = Run({source, target, u"--check"_s});
    EXPECT_EQ(equal.status, 0);
    EXPECT_TRUE(equal.output.contains(u"All values are equal."_s));

    const QByteArray converted = Bytes_Of(target);
    const std::pair<QString, QString> changes[] = {
        {u"UPDATE Mevo_Pupils SET Comment = '' WHERE StudentCode = 'GREREN288IXR'"_s,
         u"Mevo_Pupils: StudentCode 'GREREN288IXR', Comment: NULL in the source, '' in the database"_s},
        {u"UPDATE Mevo_Pupils SET DOB = '12/01/2004' WHERE StudentCode = 'GREREN288IXR'"_s,
         u"DOB: 01/11/2004 in the source, '12/01/2004' in the database"_s},
        {u"UPDATE Mevo_Pupils SET Tolvens_age = 77 WHERE StudentCode = 'ROBMIA187MZX'"_s,
         u"Tolvens_age: 76 in the source, 77 in the database"_s},
        {u"UPDATE Yoon_TimeNorms SET \"Raw score 4\" = 1 WHERE rowid = 7"_s,
         u"Yoon_TimeNorms: row 7, Raw score 4"_s},
        {u"DELETE FROM Mevo_Yoon_data WHERE StudentCode = 'ROBMIA187MZX'"_s,
         u"Mevo_Yoon_data: StudentCode 'ROBMIA187MZX' isn't in the database"_s},
        {u"INSERT INTO Mevo_Groups (ID) VALUES (77)"_s,
         u"Mevo_Groups: 5 rows in the source, 6 in the database"_s},
        {u"DROP TABLE Mevo_Groups"_s, u"Mevo_Groups: the database has no such table"_s},
        {u"CREATE TABLE Other (a)"_s, u"Other: the source has no such table"_s},
        {u"ALTER TABLE Mevo_Pupils DROP COLUMN Password"_s,
         u"Mevo_Pupils: the database has no column Password"_s},
        {u"ALTER TABLE Mevo_Pupils ADD Extra TEXT"_s, u"Mevo_Pupils: the source has no column Extra"_s},
        {u"UPDATE Karrel_Norms SET rowid = 99 WHERE rowid = 1"_s,
         u"Karrel_Norms: row 1, Raw Score: 0 in the source, 1 in the database"_s},
    };
    for (const auto& [change, told] : changes) {
        SCOPED_TRACE(change.toStdString());
        Write_Bytes(target, converted);
        Database_Beside(target).Run({change});
        const Outcome different = Run({source, target, u"--check"_s});
        EXPECT_EQ(different.status, 1);
        EXPECT_TRUE(different.output.contains(told)) << different.output.toStdString();
    }
    folder.Put(u"new.mdb"_s, "no database");
    EXPECT_EQ(Run({source, target, u"--check"_s}).status, 2);
}

TEST_F(Convert_Command, AFolderIsDoneToItsEnd) {
    QDir(folder.Place(u"."_s)).mkdir(u"in"_s);
    const QByteArray sound = Bytes_Of(Test_Data(u"jet4-template.mdb"_s));
    folder.Put(u"in/a.mdb"_s, sound);
    folder.Put(u"in/b.mdb"_s, With_Password(sound, u"secret"_s));
    folder.Put(u"in/C.MDB"_s, sound);
    folder.Put(u"in/notes.txt"_s, "no archive");
    const QString in = folder.Place(u"in"_s);
    const QString out = folder.Place(u"deep/out"_s);

    const Outcome first = Run({u"--folder"_s, in, out});
    EXPECT_TRUE(first.output.endsWith(u"2 of 3 files converted.\n"_s));
    EXPECT_EQ(first.status, 2);
    ASSERT_EQ(first.errors.size(), 1);
    EXPECT_TRUE(first.errors[0].contains(u"b.mdb: It is protected by a database password"_s));
    EXPECT_EQ(QDir(out).entryList(QDir::Files), (QStringList{u"a.mdb"_s, u"C.MDB"_s}));
    EXPECT_EQ(Tables_That_Differ(Test_Data(u"expected-template.sqlite"_s), out + u"/a.mdb"_s), QStringList());

    QFile::remove(in + u"/b.mdb"_s);
    EXPECT_EQ(Run({u"--folder"_s, in, out}).status, 2); // they are there already
    EXPECT_EQ(Run({u"--folder"_s, in, out, u"--force"_s}).status, 0);
    EXPECT_EQ(Run({u"--folder"_s, in, out, u"--check"_s}).status, 0);
    for (const QStringList& wrong : {QStringList{in, in},
                                     {in, in + u"/../in"_s},
                                     {out + u"/none"_s, out},
                                     {folder.Place(u"deep"_s), out}})
        EXPECT_EQ(Run(QStringList{u"--folder"_s} + wrong).status, 2);
    EXPECT_EQ(Bytes_Of(in + u"/a.mdb"_s), sound);
}

TEST_F(Convert_Command, InterruptedItLeavesNothing) {
    interrupted = true;
    Run({source, target}).Expect_Refusal(Tool, u"Interrupted"_s);
    EXPECT_EQ(folder.Names(), QStringList{u"school.mdb"_s});
}

#ifndef _WIN32
TEST_F(Convert_Command, ASummaryThatNobodyTakesIsAFailure) {
    QProcess process;
    process.setStandardOutputFile(u"/dev/full"_s);
    process.start(QCoreApplication::applicationDirPath() + u"/mevo-convert"_s, {source, target});
    End_Of(process).Expect_Refusal(Tool, u"Can't write"_s);
}

// The real process, with a reader that never ends its file.
TEST_F(Convert_Command, SignalsEndItCleanly) {
    for (const int signal : {SIGINT, SIGTERM}) {
        QDir(folder.Place(u"."_s)).mkdir(u"bin"_s);
        const QString converter = folder.Place(u"bin/mevo-convert"_s);
        QFile::copy(QCoreApplication::applicationDirPath() + u"/mevo-convert"_s, converter);
        QFile::copy(QStringLiteral(MEVO_ODD_JET_READER), folder.Place(u"bin/mevo-jet-reader"_s));
        QProcess process;
        process.setEnvironment(QProcess::systemEnvironment() + QStringList{u"MEVO_ODD_READER=silent"_s});
        process.start(converter, {source, target});
        ASSERT_TRUE(process.waitForStarted());
        const auto has_begun = [&] { return folder.Names().filter(u".part"_s).size() == 1; };
        for (int wait = 0; wait < 100 && !has_begun(); ++wait)
            QTest::qWait(50);
        ASSERT_TRUE(has_begun());
        kill(static_cast<pid_t>(process.processId()), signal);
        End_Of(process).Expect_Refusal(Tool, u"Interrupted"_s);
        EXPECT_EQ(folder.Names(), (QStringList{u"bin"_s, u"school.mdb"_s}));
    }
}
#endif

TEST_F(Convert_Command, WrongUseIsOneLine) {
    for (const QStringList& arguments : {QStringList{},
                                         {source},
                                         {source, target, target},
                                         {source, u""_s},
                                         {source, target, u"--check"_s, u"--force"_s},
                                         {source, target, u"--fast"_s}}) {
        Run(arguments).Expect_Refusal(Tool, u""_s);
    }
    EXPECT_EQ(Run({u"--help"_s}).status, 0);
    EXPECT_EQ(folder.Names(), QStringList{u"school.mdb"_s});
}
