#include "platform/database/engine_errors.h"
#include "shell/archiving_fixture.h"
#include "support/hostile_files.h"
#include "support/narrow_places.h"

using namespace test_support;

// ---- what other hands may have put into a file

namespace {

// They open, and only a look at the whole file finds the fault.
QList<Hostile_File> What_A_Load_Must_Find(const QByteArray& sound, int page_of_norms) {
    return {
        {"a page of zeros",
         QByteArray(sound).replace((page_of_norms - 1) * 4096, 4096, QByteArray(4096, '\0')),
         {}},
        {"pages that nothing owns",
         sound,
         {u"PRAGMA writable_schema = ON"_s, u"DELETE FROM sqlite_master WHERE name = 'Yoon_TimeNorms'"_s}},
        {"without a customer", sound, {u"DROP TABLE Customer_Details"_s}},
        {"without norms", sound, {u"DROP TABLE Karrel_Norms"_s}},
        {"answers of nobody", sound, {u"ALTER TABLE Mevo_Yoon_data RENAME StudentCode TO Code"_s}},
    };
}

class Hostile_Files : public Archiving {
protected:
    Hostile_Files() { outside.file_dialogs.changes_what_was_chosen = true; }
    // Named after what is wrong with them; with two that no database program has made.
    QStringList Made(const QList<Hostile_File>& hostile_files) {
        const QString place = archive.Folder() + u"/hostile, %1.mdb"_s;
        QStringList files{place.arg(u"a folder"_s), place.arg(u"2 GB of zeros"_s)};
        QFile zeros(files[1]);
        EXPECT_TRUE(zeros.open(QIODevice::WriteOnly) && zeros.resize(qint64(2) << 30));
        QDir().mkpath(files[0]);
        for (const Hostile_File& hostile : hostile_files) {
            files.append(place.arg(QString::fromLatin1(hostile.name)));
            hostile.Write_To(files.last());
        }
        return files;
    }
    void Expect_Refused_By_Load(const QString& file) {
        SCOPED_TRACE(file.toStdString());
        const QByteArray before = Bytes_Of(sample.Path());
        Open();
        EXPECT_NE(Error_Of_Loading(file), 0);
        EXPECT_EQ(Bytes_Of(sample.Path()), before);
        EXPECT_EQ(Archives(), QStringList());
    }
    void Expect_Refused_By_View(const QString& file) {
        SCOPED_TRACE(file.toStdString());
        Open();
        outside.file_dialogs.answers = {file};
        EXPECT_NE(Error_Number([this] { page->HotLabel3_Click(); }), 0);
        EXPECT_FALSE(installation.Viewing_Mode);
        installation = sample.Installed();
    }

    const QByteArray sound = Bytes_Of(archive.Path());
};

} // namespace

TEST_F(Hostile_Files, ALoadRefusesThemAndKeepsTheWorkingDatabase) {
    const QString page = u"SELECT rootpage FROM sqlite_master WHERE name = 'Yoon_TimeNorms'"_s;
    const int page_of_norms = archive.Value(page).toInt();
    for (const QString& file :
         Made(What_Nothing_Can_Be_Made_Of(sound) + What_A_Load_Must_Find(sound, page_of_norms)))
        Expect_Refused_By_Load(file);
}

TEST_F(Hostile_Files, AViewRefusesWhatItCantRead) {
    for (const QString& file : Made(What_Nothing_Can_Be_Made_Of(sound)))
        Expect_Refused_By_View(file);
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
        QStringList names = QDir(sample.Folder()).entryList(QDir::Files);
        names.removeOne(u"Mevo05Changes.sqlite"_s); // what the program remembers besides
        names.removeOne(u"Mevo05Data.mdb"_s);
        names.removeOne(u"Mevo05EmptyDatabase.mdb"_s);
        return names;
    }
};

// Where all may write but to what a case names.
class Read_Only_Places : public Narrow_Places {
protected:
    void SetUp() override {
        for (const QString& file :
             {sample.Folder(), sample.Path(), archive.Folder(), archive.Path(), installation.Archive_Folder})
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
    const QByteArray before = Bytes_Of(sample.Path());
    const QString in_force = archive.Folder() + u"/in force.mdb"_s;
    ASSERT_TRUE(QFile::copy(archive.Path(), in_force));
    Database_Beside(in_force).Run({u"UPDATE Customer_Details SET Admin_Password = 'secret'"_s});
    for (const QString& file : {archive.Path(), in_force})
        Give_Everybody(file, Reading);
    const Plain_Account account;
    Open();
    EXPECT_EQ(Error_Of_Loading(archive.Path()), database::errors::Refused);
    EXPECT_EQ(Bytes_Of(sample.Path()), before);
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
    const QByteArray before = Bytes_Of(sample.Path());
    for (const QString& locked : {sample.Path(), sample.Folder()}) {
        SCOPED_TRACE(locked.toStdString());
        Give_Everybody(locked, Reading);
        {
            const Plain_Account account;
            Open();
            EXPECT_EQ(Error_Of_Loading(archive.Path()), basics::errors::Permission_Denied);
        }
        Give_Everybody(locked, Everything);
        EXPECT_EQ(Bytes_Of(sample.Path()), before);
        EXPECT_EQ(Beside_The_Working_Database(), QStringList());
        EXPECT_EQ(Archives(), QStringList());
    }
}

TEST_F(Read_Only_Places, WhatAReadOnlyArchiveFolderCantKeepIsKeptBesideTheDatabase) {
    Give_Everybody(installation.Archive_Folder, Reading);
    const Plain_Account account;
    Open();
    EXPECT_EQ(Error_Of_Loading(archive.Path()), 0);
    Expect_Whole(sample.Path(), u"30"_s);
    ASSERT_EQ(Beside_The_Working_Database(), QStringList{u"Mevo05_before_load_2026-06-15_10-30-00.mdb"_s});
    Expect_Whole(sample.Folder() + u'/' + Beside_The_Working_Database().first(), u"12"_s);
}

// There is room for every file but the journal of the database that is to be replaced.
TEST_F(Narrow_Places, ATransactionThatFindsNoRoomIsTakenBack) {
    const Sample_File as_large(12);
    as_large.Run(u"UPDATE Mevo_Pupils SET Surname = 'Other'"_s);
    const QByteArray before = Bytes_Of(sample.Path());
    Open();
    {
        const Bounded_Files quota(before.size() + 100);
        if (!quota.Is_There()) GTEST_SKIP() << "no bound for the size of files";
        EXPECT_EQ(Error_Of_Loading(as_large.Path()), basics::errors::Disk_Full);
    }
    EXPECT_TRUE(Bytes_Of(sample.Path()) == before);
    EXPECT_EQ(Beside_The_Working_Database(), QStringList());
    EXPECT_EQ(Archives(), QStringList());
}

TEST_F(Narrow_Places, AFullDiskIsToldAndTakesNothing) {
    const Small_Disk disk(4096);
    if (!disk.Is_There()) GTEST_SKIP() << "no right to mount a small disk";
    installation.Archive_Folder = disk.Folder();
    const QByteArray before = Bytes_Of(sample.Path());
    disk.Fill_Up_To(100);
    Open();
    Save(In_Archives(u"mine.mdb"_s));
    Expect_Told(u"An error has occured (Archiving) Error # 61) Description (Disk full)"_s);
    EXPECT_EQ(Archives(), QStringList{u"ballast"_s});
    EXPECT_EQ(Bytes_Of(sample.Path()), before);

    disk.Fill_Up_To(4000);
    disk.Allow_Reading_Only();
    Save(In_Archives(u"mine.mdb"_s));
    EXPECT_EQ(Last_Box().title, u"Cannot save archive file"_s);
}
