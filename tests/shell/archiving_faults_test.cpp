#include "platform/database/engine_errors.h"
#include "shell/archiving_fixture.h"
#include "support/narrow_places.h"

using namespace test_support;

// ---- what other hands may have put into a file

namespace {

struct Hostile {
    const char* name;
    std::function<void(const QString&)> make; // at that path
};

QByteArray Sample_Bytes() {
    static const QByteArray bytes = Bytes_Of(Sample_File(30).Path());
    return bytes;
}

void Write_Changed(const QString& file, const QString& change) {
    Write_Bytes(file, Sample_Bytes());
    Database_Beside(file).Run({change});
}

void Write_Zeros(const QString& file) {
    QFile opened(file);
    ASSERT_TRUE(opened.open(QIODevice::WriteOnly));
    ASSERT_TRUE(opened.resize(qint64(2) * 1024 * 1024 * 1024));
}

const Hostile What_Nothing_Can_Be_Made_Of[] = {
    {"empty", [](const QString& file) { Write_Bytes(file, ""); }},
    {"a text", [](const QString& file) { Write_Bytes(file, "Surname,Forename\n"); }},
    {"a folder", [](const QString& file) { QDir().mkpath(file); }},
    {"2 GB of zeros", Write_Zeros},
    {"a header and nothing behind", [](const QString& file) { Write_Bytes(file, Sample_Bytes().left(100)); }},
    {"cut off in a page", [](const QString& file) { Write_Bytes(file, Sample_Bytes().left(9000)); }},
    {"its last page lost", [](const QString& file) { Write_Bytes(file, Sample_Bytes().chopped(4096)); }},
    {"without pupils", [](const QString& file) { Write_Changed(file, u"DROP TABLE Mevo_Pupils"_s); }},
    {"a view in the pupils' place",
     [](const QString& file) {
         Write_Bytes(file, Sample_Bytes());
         Database_Beside(file).Run({u"ALTER TABLE Mevo_Pupils RENAME TO Hidden"_s,
                                    u"CREATE VIEW Mevo_Pupils AS SELECT * FROM Hidden"_s,
                                    u"CREATE TRIGGER spoil INSTEAD OF UPDATE ON Mevo_Pupils BEGIN "
                                    "DELETE FROM Hidden; END"_s});
     }},
};

// They open, and only a look at the whole file finds the fault.
const Hostile What_A_Load_Must_Find[] = {
    {"a page of zeros",
     [](const QString& file) {
         QByteArray bytes = Sample_Bytes();
         Write_Bytes(file, bytes);
         const qsizetype page =
             Database_Beside(file)
                 .Value(u"SELECT rootpage FROM sqlite_master WHERE name = 'Yoon_TimeNorms'"_s)
                 .toInt();
         Write_Bytes(file, bytes.replace((page - 1) * 4096, 4096, QByteArray(4096, '\0')));
     }},
    {"pages that nothing owns",
     [](const QString& file) {
         Write_Bytes(file, Sample_Bytes());
         Database_Beside(file).Run({u"PRAGMA writable_schema = ON"_s,
                                    u"DELETE FROM sqlite_master WHERE name = 'Yoon_TimeNorms'"_s});
     }},
    {"without a customer",
     [](const QString& file) { Write_Changed(file, u"DROP TABLE Customer_Details"_s); }},
    {"without norms", [](const QString& file) { Write_Changed(file, u"DROP TABLE Karrel_Norms"_s); }},
    {"answers of nobody",
     [](const QString& file) {
         Write_Changed(file, u"ALTER TABLE Mevo_Yoon_data RENAME StudentCode TO Code"_s);
     }},
};

class Hostile_Files : public Archiving {
protected:
    void Expect_Refused_By_Load(const Hostile& hostile) {
        SCOPED_TRACE(hostile.name);
        const QString file = Made(hostile);
        const QByteArray before = Bytes_Of(working.Path());
        Open();
        EXPECT_NE(Error_Of_Loading(file), 0);
        EXPECT_EQ(Bytes_Of(working.Path()), before);
        EXPECT_EQ(Archives(), QStringList());
    }
    void Expect_Refused_By_View(const Hostile& hostile) {
        SCOPED_TRACE(hostile.name);
        Open();
        outside.file_dialogs.answers = {Made(hostile)};
        EXPECT_THROW(page->HotLabel3_Click(), basics::Run_Time_Error);
        EXPECT_FALSE(installation.Viewing_Mode);
        installation = working.Installed();
    }

private:
    QString Made(const Hostile& hostile) {
        const QString file = archive.Folder() + u"/hostile %1.mdb"_s.arg(++made);
        hostile.make(file);
        return file;
    }
    int made = 0;
};

} // namespace

TEST_F(Hostile_Files, ALoadRefusesThemAndKeepsTheWorkingDatabase) {
    for (const Hostile& hostile : What_Nothing_Can_Be_Made_Of)
        Expect_Refused_By_Load(hostile);
    for (const Hostile& hostile : What_A_Load_Must_Find)
        Expect_Refused_By_Load(hostile);
}

TEST_F(Hostile_Files, AViewRefusesWhatItCantRead) {
    for (const Hostile& hostile : What_Nothing_Can_Be_Made_Of)
        Expect_Refused_By_View(hostile);
}

// The program runs none of it: in the archive, in the copy, and in what it writes to either.
TEST_F(Hostile_Files, StatementsInAFileNeverRun) {
    for (const QString& table : {u"Customer_Details"_s, u"Mevo_Pupils"_s})
        archive.Run(
            u"CREATE TRIGGER spoil_%1 AFTER UPDATE ON %1 BEGIN DELETE FROM Mevo_Pupils; END"_s.arg(table));
    archive.Run(u"CREATE VIEW Mevo_Sneak AS SELECT * FROM Mevo_Pupils"_s);
    Open();
    View(archive.Path());
    Press(u"HotLabel6"_s, {Answer::Ok});
    Load(archive.Path());
    EXPECT_EQ(Password_In(archive.Path()), u"secret"_s);
    EXPECT_EQ(archive.Value(Count), u"30"_s);
    EXPECT_EQ(Working(Count), u"30"_s);
}

// ---- places that can't be written

namespace {

class Narrow_Places : public Archiving {
protected:
    // The rights of everybody to a folder or file.
    static constexpr auto Reading = QFileDevice::Permissions(0x5555);
    static constexpr auto Everything = QFileDevice::Permissions(0x7777);
    static void Give_Everybody(const QString& file, QFileDevice::Permissions rights) {
        QFile::setPermissions(file, rights);
    }
    QStringList Beside_The_Working_Database() const {
        QStringList names = QDir(working.Folder()).entryList(QDir::Files);
        names.removeOne(u"Mevo05Data.mdb"_s);
        names.removeOne(u"Mevo05EmptyDatabase.mdb"_s);
        return names;
    }
    void Expect_Whole(const QString& file, const QString& pupils) const {
        const Database_Beside database(file);
        EXPECT_EQ(database.Value(u"PRAGMA integrity_check"_s), u"ok"_s);
        EXPECT_EQ(database.Value(Count), pupils);
    }
};

// Where all may write but to what a case names.
class Read_Only_Places : public Narrow_Places {
protected:
    void SetUp() override {
        for (const QString& file : {working.Folder(), working.Path(), archive.Folder(), archive.Path(),
                                    installation.Archive_Folder})
            Give_Everybody(file, Everything);
        if (!Plain_Account().Is_There()) GTEST_SKIP() << "no account that files' rights bind";
    }
};

} // namespace

TEST_F(Read_Only_Places, AnArchiveIsNeitherMadeNorReplacedThere) {
    const QByteArray before = Bytes_Of(archive.Path());
    for (const QString& place : {installation.Archive_Folder, archive.Path()})
        Give_Everybody(place, Reading);
    const Plain_Account account;
    Open();
    for (const QString& file : {In_Archives(u"mine.mdb"_s), archive.Path()}) {
        Save(file);
        EXPECT_EQ(Last_Box().title, u"Cannot save archive file"_s);
    }
    EXPECT_EQ(Archives(), QStringList());
    EXPECT_EQ(Bytes_Of(archive.Path()), before);
}

// It takes the password in force behind its copy, so that it could fail when the working database has gone.
TEST_F(Read_Only_Places, AReadOnlyArchiveIsLoadedOnlyIfItHasThePasswordInForce) {
    const QByteArray before = Bytes_Of(working.Path());
    const QString in_force = archive.Folder() + u"/in force.mdb"_s;
    Write_Changed(in_force, u"UPDATE Customer_Details SET Admin_Password = 'secret'"_s);
    for (const QString& file : {archive.Path(), in_force})
        Give_Everybody(file, Reading);
    const Plain_Account account;
    Open();
    EXPECT_EQ(Error_Of_Loading(archive.Path()), database::errors::Refused);
    EXPECT_EQ(Bytes_Of(working.Path()), before);
    EXPECT_EQ(Archives(), QStringList());
    EXPECT_EQ(Error_Of_Loading(in_force), 0);
}

TEST_F(Read_Only_Places, AReadOnlyArchiveInWriteAheadModeIsntTakenForABrokenDevice) {
    archive.Run(u"PRAGMA journal_mode = WAL"_s);
    Give_Everybody(archive.Path(), Reading);
    const Plain_Account account;
    Open();
    EXPECT_EQ(Error_Of_Loading(archive.Path()), database::errors::Engine_Failure);
}

TEST_F(Read_Only_Places, AWorkingDatabaseThatMayNotBeWrittenStays) {
    const QByteArray before = Bytes_Of(working.Path());
    for (const QString& locked : {working.Path(), working.Folder()}) {
        SCOPED_TRACE(locked.toStdString());
        Give_Everybody(locked, Reading);
        {
            const Plain_Account account;
            Open();
            EXPECT_EQ(Error_Of_Loading(archive.Path()), basics::errors::Permission_Denied);
        }
        Give_Everybody(locked, Everything);
        EXPECT_EQ(Bytes_Of(working.Path()), before);
        EXPECT_EQ(Beside_The_Working_Database(), QStringList());
        EXPECT_EQ(Archives(), QStringList());
    }
}

TEST_F(Read_Only_Places, WhatAReadOnlyArchiveFolderCantKeepIsKeptBesideTheDatabase) {
    Give_Everybody(installation.Archive_Folder, Reading);
    const Plain_Account account;
    Open();
    EXPECT_EQ(Error_Of_Loading(archive.Path()), 0);
    Expect_Whole(working.Path(), u"30"_s);
    ASSERT_EQ(Beside_The_Working_Database(), QStringList{u"Mevo05_before_load_2026-06-15_10-30-00.mdb"_s});
    Expect_Whole(working.Folder() + u'/' + Beside_The_Working_Database().first(), u"12"_s);
}

// There is room for every file but the journal of the database that is to be replaced.
TEST_F(Narrow_Places, ATransactionThatFindsNoRoomIsTakenBack) {
    const Sample_File as_large(12);
    as_large.Run(u"UPDATE Mevo_Pupils SET Surname = 'Other'"_s);
    const QByteArray before = Bytes_Of(working.Path());
    Open();
    {
        const Bounded_Files quota(before.size() + 100);
        if (!quota.Is_There()) GTEST_SKIP() << "no bound for the size of files";
        EXPECT_EQ(Error_Of_Loading(as_large.Path()), basics::errors::Disk_Full);
    }
    EXPECT_TRUE(Bytes_Of(working.Path()) == before);
    EXPECT_EQ(Beside_The_Working_Database(), QStringList());
    EXPECT_EQ(Archives(), QStringList());
}

TEST_F(Narrow_Places, AFullDiskIsToldAndTakesNothing) {
    const Small_Disk disk(4096);
    if (!disk.Is_There()) GTEST_SKIP() << "no right to mount a small disk";
    installation.Archive_Folder = disk.Folder();
    const QByteArray before = Bytes_Of(working.Path());
    disk.Fill_Up_To(100);
    Open();
    Save(In_Archives(u"mine.mdb"_s));
    Expect_Told(u"An error has occured (Archiving) Error # 61) Description (Disk full)"_s);
    EXPECT_EQ(Archives(), QStringList{u"ballast"_s});
    EXPECT_EQ(Bytes_Of(working.Path()), before);

    disk.Fill_Up_To(4000);
    disk.Allow_Reading_Only();
    Save(In_Archives(u"mine.mdb"_s));
    EXPECT_EQ(Last_Box().title, u"Cannot save archive file"_s);
}
