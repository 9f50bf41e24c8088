#include "platform/database/files/safe_copy.h"

#include "platform/database/connection.h"
#include "platform/database/engine_errors.h"
#include "support/error_number.h"
#include "support/files.h"
#include "support/on_windows.h"
#include "support/other_workstation.h"
#include "support/printing.h"
#include "support/sample_file.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QSet>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace database;
using namespace test_support;

namespace {

const QString Count = u"SELECT count(*) FROM Mevo_Pupils"_s;
const QString Torn = u"SELECT count(*) FROM Mevo_Pupils WHERE Surname = 'Torn'"_s;
const QString Greatest = u"SELECT max(Surname) FROM Mevo_Pupils"_s;

class Safe_Copy : public testing::Test {
protected:
    Safe_Copy() {
        copies.timeout_seconds = 0;
        QDir(working.Folder()).mkdir(u"archives"_s);
    }

    QString Archive(const QString& name = u"archive.mdb"_s) const {
        return working.Folder() + u"/archives/"_s + name;
    }
    // What may lie in a folder once nothing is at work: no temporary file, no journal.
    QStringList Names(const QString& folder) const { return QDir(folder).entryList(QDir::Files); }
    QStringList Kept() const { return Names(working.Folder() + u"/archives"_s); }

    Replacement Order(const QString& source) const {
        return {source,
                working.Path(),
                {{u"Mevo_Pupils"_s, {}}, {u"Customer_Details"_s, {}}},
                u"load"_s,
                QDateTime(QDate(2026, 11, 21), QTime(10, 15, 30)),
                working.Folder() + u"\\archives"_s};
    }
    int Replace_Error(const QString& source) {
        return Error_Number([&] { copies.Replace(Order(source)); });
    }
    // A sound file in which that question has that answer.
    static void Expect_Sound(const QString& file, const QString& sql, const QString& answer) {
        const Database_Beside database(file);
        EXPECT_EQ(database.Value(u"PRAGMA integrity_check"_s), u"ok"_s);
        EXPECT_EQ(database.Value(sql), answer);
    }
    void Expect_Replaced() { Expect_Sound(working.Path(), Count, u"30"_s); }
    void Expect_Untouched(const QByteArray& before) {
        EXPECT_EQ(Bytes_Of(working.Path()), before);
        EXPECT_EQ(Names(working.Folder()), QStringList{u"Mevo05Data.mdb"_s});
        EXPECT_EQ(Kept(), QStringList());
    }

    Sample_File working{12};
    Sample_File other{30};
    Safe_Copies copies;
};

} // namespace

// ---- copying

TEST_F(Safe_Copy, CopiesByteForByteReplacesAnArchiveWholeAndLeavesNothingElse) {
    copies.Copy(working.Path(), Archive());
    EXPECT_EQ(Bytes_Of(Archive()), Bytes_Of(working.Path()));
    copies.Copy(other.Path(), Archive());
    Expect_Sound(Archive(), Count, u"30"_s);
    EXPECT_EQ(Kept(), QStringList{u"archive.mdb"_s});
}

// Its pages are half written in the file; only with its journal is it whole.
TEST_F(Safe_Copy, ATransactionThatACrashLeftIsTakenBackFirst) {
    Crash_In_A_Transaction(working.Path());
    ASSERT_TRUE(QFile::exists(working.Path() + u"-journal"_s));
    copies.Copy(working.Path(), Archive());
    Expect_Sound(Archive(), Torn, u"0"_s);
}

TEST_F(Safe_Copy, AnArchiveWhoseNameDiffersInCaseAloneStays) {
    Write_Bytes(Archive(u"Mine.mdb"_s), "another's");
    if (QFile::exists(Archive(u"mine.mdb"_s))) GTEST_SKIP() << "no file system that tells case apart";
    copies.Copy(working.Path(), working.Folder() + u"\\ARCHIVES\\mine.mdb"_s);
    EXPECT_EQ(Bytes_Of(Archive(u"Mine.mdb"_s)), "another's");
    EXPECT_EQ(Bytes_Of(Archive(u"mine.mdb"_s)), Bytes_Of(working.Path()));
}

TEST_F(Safe_Copy, AWriterIsWaitedForUntilTheTimeIsUp) {
    const QByteArray before = Bytes_Of(working.Path());
    Other_Workstation writer(working.Path());
    writer.Hold_Exclusively();
    EXPECT_EQ(Error_Number([this] { copies.Copy(working.Path(), Archive()); }), errors::Engine_Failure);
    EXPECT_EQ(Replace_Error(other.Path()), errors::Engine_Failure);
    EXPECT_EQ(Kept(), QStringList());
    EXPECT_EQ(Bytes_Of(working.Path()), before);
    copies.timeout_seconds = 15;
    writer.Commit_After(300);
    copies.Copy(working.Path(), Archive());
    EXPECT_EQ(Database_Beside(Archive()).Value(Greatest), u"Written"_s);
}

// Large enough that a transaction can begin and end between two pieces of the copy.
TEST_F(Safe_Copy, NoCopyIsTornWhileAWriterIsAtWork) {
    const Sample_File school(2500);
    Other_Workstation writer(school.Path());
    writer.Run(u"UPDATE Mevo_Pupils SET Surname = 'Round 0'"_s);
    writer.Rename_All_For_Ever();
    copies.timeout_seconds = 15;
    QSet<QString> rounds;
    const int times = On_Windows ? 5 : 12; // waits for its turn longer there
    for (int copy = 0; copy < times; ++copy) {
        copies.Copy(school.Path(), Archive(u"%1.mdb"_s.arg(copy)));
        const Database_Beside archive(Archive(u"%1.mdb"_s.arg(copy)));
        EXPECT_EQ(archive.Value(u"SELECT count(DISTINCT Surname) FROM Mevo_Pupils"_s), u"1"_s);
        EXPECT_EQ(archive.Value(u"PRAGMA quick_check"_s), u"ok"_s);
        rounds.insert(archive.Value(u"SELECT min(Surname) FROM Mevo_Pupils"_s));
    }
    EXPECT_GT(rounds.size(), 3); // it did write meanwhile
}

// A stray journal is taken for that of whatever file comes to stand under the name.
TEST_F(Safe_Copy, AJournalWithoutItsFileDoesNoHarmToTheNewOne) {
    QFile::copy(other.Path(), Archive());
    Crash_In_A_Transaction(Archive());
    QFile::remove(Archive());
    ASSERT_TRUE(QFile::exists(Archive() + u"-journal"_s));
    copies.Copy(working.Path(), Archive());
    Expect_Sound(Archive(), Count, u"12"_s);
}

TEST_F(Safe_Copy, WhatCantBeDoneHasItsNumber) {
    const struct {
        QString source, target;
        int number;
        const char* name;
    } cases[] = {
        {working.Folder() + u"/none.mdb"_s, Archive(), basics::errors::File_Not_Found, "no source"},
        {working.Path(), working.Folder() + u"\\Mevo05Data.mdb"_s, basics::errors::Permission_Denied,
         "onto itself"},
        {working.Path(), working.Folder() + u"/archives"_s, basics::errors::Permission_Denied, "a folder"},
        {working.Folder(), Archive(), errors::Engine_Failure, "from a folder"},
        {working.Path(), working.Folder() + u"/nowhere/a.mdb"_s, basics::errors::Path_Not_Found, "no folder"},
        {working.Path(), Archive(u"x/"_s.repeated(300)),
         On_Windows ? basics::errors::Path_Not_Found : basics::errors::Device_Error,
         "too long for the engine"},
    };
    const QByteArray before = Bytes_Of(working.Path());
    for (const auto& tried : cases) {
        SCOPED_TRACE(tried.name);
        EXPECT_EQ(Error_Number([&] { copies.Copy(tried.source, tried.target); }), tried.number);
        Expect_Untouched(before);
    }
}

TEST_F(Safe_Copy, ALogBesideTheSourceIsTakenIn) {
    Other_Workstation writer(working.Path());
    writer.Run(u"PRAGMA journal_mode = WAL"_s);
    writer.Run(u"UPDATE Mevo_Pupils SET Surname = 'Logged'"_s);
    writer.Leave_Abruptly();
    copies.Copy(working.Path(), Archive());
    EXPECT_EQ(Database_Beside(Archive()).Value(Greatest), u"Logged"_s);
}

// ---- replacing

TEST_F(Safe_Copy, TheNewDatabaseStandsAndTheOldOneIsKept) {
    const QByteArray before = Bytes_Of(working.Path());
    copies.Replace(Order(other.Path()));
    Expect_Replaced();
    EXPECT_EQ(Kept(), QStringList{u"Mevo05_before_load_2026-11-21_10-15-30.mdb"_s});
    EXPECT_EQ(Bytes_Of(Archive(Kept().first())), before);
    EXPECT_EQ(Names(working.Folder()), QStringList{u"Mevo05Data.mdb"_s});
}

// A rename would leave it writing into a file that nobody finds any more.
TEST_F(Safe_Copy, AWorkstationThatHasTheOldFileOpenGoesOnInTheNewOne) {
    Other_Workstation module(working.Path());
    module.Run(u"UPDATE Mevo_Pupils SET Yoon = 1"_s);
    copies.Replace(Order(other.Path()));
    module.Run(u"UPDATE Mevo_Pupils SET Surname = 'Late'"_s);
    Expect_Sound(working.Path(), u"SELECT count(*) FROM Mevo_Pupils WHERE Surname = 'Late'"_s, u"30"_s);
}

// What a test module stores up to the last moment is in the kept copy, and it waits while we are at it.
TEST_F(Safe_Copy, AnAnswerCommittedWhileWeWaitIsInTheKeptCopy) {
    Other_Workstation module(working.Path());
    module.Hold_Exclusively();
    module.Commit_After(300);
    copies.timeout_seconds = 15;
    copies.Replace(Order(other.Path()));
    Expect_Replaced();
    Expect_Sound(Archive(Kept().first()), Greatest, u"Written"_s);
}

TEST_F(Safe_Copy, ATransactionThatCrashedInTheOldFileDoesntReachTheNewOne) {
    Crash_In_A_Transaction(working.Path());
    copies.Replace(Order(other.Path()));
    Expect_Replaced();
    Expect_Sound(Archive(Kept().first()), Torn, u"0"_s);
}

TEST_F(Safe_Copy, PageSizesNeedntAgree) {
    for (const QString& size : {u"1024"_s, u"16384"_s, u"65536"_s, u"512"_s}) {
        SCOPED_TRACE(size.toStdString());
        const Sample_File odd(30);
        Database_Beside(odd.Path()).Run({u"PRAGMA page_size = "_s + size, u"VACUUM"_s});
        ASSERT_EQ(odd.Value(u"PRAGMA page_size"_s), size);
        copies.Replace(Order(odd.Path()));
        Expect_Replaced();
    }
}

TEST_F(Safe_Copy, ADamagedOrMissingTargetIsReplacedToo) {
    const std::pair<QByteArray, const char*> cases[] = {
        {Bytes_Of(working.Path()).left(9000), "cut off"},
        {QByteArray("SQLite format 3\0", 16) + QByteArray(4096, '\x7f'), "broken header"},
        {QByteArray(), "empty"},
        {"no database", "a text"},
    };
    int kept = 0;
    for (const auto& [content, name] : cases) {
        SCOPED_TRACE(name);
        Write_Bytes(working.Path(), content);
        copies.Replace(Order(other.Path()));
        Expect_Replaced();
        EXPECT_EQ(Bytes_Of(Archive(Kept().value(kept++))), content);
    }
    QFile::remove(working.Path());
    copies.Replace(Order(other.Path()));
    Expect_Replaced();
    EXPECT_EQ(Kept().size(), kept); // there was nothing to keep
}

TEST_F(Safe_Copy, TenReplacedDatabasesAreKeptAndNothingElseIsTouched) {
    const QStringList own = {u"Mevo05_151126_0932.mdb"_s, u"Mevo05_before_the_move.mdb"_s,
                             u"Mevo05_before_load_2020-01-01_10-00-00.bak"_s};
    for (const QString& name : own)
        Write_Bytes(Archive(name), "a school's own");
    Replacement order = Order(other.Path());
    for (int day = 1; day <= 12; ++day) {
        order.when = QDateTime(QDate(2026, 9, day), QTime(9, 0));
        order.reason = day % 2 ? u"load"_s : u"clean_start"_s;
        copies.Replace(order);
    }
    copies.Replace(order); // in the same second
    QStringList kept = Kept();
    for (const QString& name : own)
        EXPECT_TRUE(kept.removeOne(name)) << name.toStdString();
    EXPECT_EQ(kept.size(), 10);
    EXPECT_FALSE(kept.contains(u"Mevo05_before_load_2026-09-03_09-00-00.mdb"_s));
    EXPECT_TRUE(kept.contains(u"Mevo05_before_clean_start_2026-09-04_09-00-00.mdb"_s));
    EXPECT_TRUE(kept.contains(u"Mevo05_before_clean_start_2026-09-12_09-00-00_2.mdb"_s));
}

// The clock fell back, so that the copy just made bears the earliest moment.
TEST_F(Safe_Copy, TheOldestStaysThatWasJustMadeOrChosenOrIsInView) {
    Replacement order = Order(other.Path());
    for (int day = 1; day <= 10; ++day) {
        order.when = QDateTime(QDate(2026, 9, day), QTime(9, 0));
        copies.Replace(order);
    }
    order.when = order.when.addYears(-1);
    order.source = Archive(Kept()[0]);
    order.spared = {Archive(Kept()[1])};
    QStringList left = Kept();
    left.removeAt(2);
    left.prepend(u"Mevo05_before_load_2025-09-10_09-00-00.mdb"_s);
    copies.Replace(order);
    EXPECT_EQ(Kept(), left);
}

TEST_F(Safe_Copy, TheDatabasesFolderKeepsWhatTheArchiveFolderCant) {
    Replacement order = Order(other.Path());
    order.keep_in = working.Folder() + u"/a/b"_s; // is made
    copies.Replace(order);
    EXPECT_EQ(Names(working.Folder() + u"/a/b"_s).size(), 1);
    order.keep_in = working.Path() + u"/no folder"_s;
    copies.Replace(order);
    EXPECT_EQ(Names(working.Folder()).size(), 2);
}

TEST_F(Safe_Copy, WhatAnEndedProcessLeftIsRemovedAfterADay) {
    const QString old = Archive(u"mine.mdb.77-1.part"_s); // never to be saved under that name again
    const QString old_unnamed = Archive(u"mine.77-1.part"_s);
    const QStringList stay = {u"film.77-1.part"_s, u"mine.mdb.78-1.part"_s}; // no database's, and a new one
    for (const QString& part : {old, Archive(stay[0]), Archive(stay[1])})
        Write_Bytes(part, "half");
    QFile::copy(other.Path(), old_unnamed);
    for (const QString& part : {old, old_unnamed, Archive(stay[0])}) {
        QFile aged(part);
        ASSERT_TRUE(aged.open(QIODevice::ReadWrite));
        aged.setFileTime(QDateTime::currentDateTime().addDays(-2), QFileDevice::FileModificationTime);
    }
    copies.Copy(working.Path(), Archive());
    EXPECT_EQ(Kept(), QStringList{u"archive.mdb"_s} + stay);
}

// ---- who may use what is made

TEST_F(Safe_Copy, WhatReplacesOrIsMadeBesideIsForTheSamePeople) {
    if (On_Windows) GTEST_SKIP() << "a file has its rights from its folder";
    constexpr auto theirs =
        QFileDevice::Permissions(0x6660); // an account's new files are for itself and to read
    for (const QString& place : {working.Path(), working.Folder() + u"/archives"_s})
        QProcess::execute(u"chgrp"_s, {u"users"_s, place}); // where the account may
    QFile::setPermissions(working.Path(), theirs);
    const uint group = QFileInfo(working.Path()).groupId();
    const auto expect_theirs = [&](const QString& file, const char* name) {
        EXPECT_EQ(QFileInfo(file).permissions(), theirs) << name;
        EXPECT_EQ(QFileInfo(file).groupId(), group) << name;
    };
    copies.Copy(working.Path(), Archive());
    expect_theirs(Archive(), "the first archive");
    Write_Bytes(working.Path(), "damaged");
    copies.Replace(Order(other.Path()));
    expect_theirs(working.Path(), "in a damaged one's place");
    expect_theirs(Archive(u"Mevo05_before_load_2026-11-21_10-15-30.mdb"_s), "kept");
    QFile::rename(working.Path(), working.Folder() + u"/Mevo05EmptyDatabase.mdb"_s);
    copies.Replace(Order(other.Path()));
    expect_theirs(working.Path(), "in a missing one's place");
    copies.Copy(other.Path(), Archive(u"second.mdb"_s));
    expect_theirs(Archive(u"second.mdb"_s), "beside other archives");
}
