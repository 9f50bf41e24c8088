#include "keeping/earlier_takings.h"
#include "platform/database/files/page_copies.h"
#include "platform/database/files/safe_copy.h"
#include "shell/copy_before.h"
#include "shell/go_back.h"
#include "shell/pupil_removal.h"
#include "support/database_beside.h"
#include "support/error_number.h"
#include "support/files.h"
#include "support/other_workstation.h"
#include "support/page_fixture.h"
#include "support/table_changes.h"

#include <QDir>
#include <QElapsedTimer>
#include <QSet>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace test_support;
using shell::Page_Id;

namespace {

class Copies : public Page_Fixture {
protected:
    QString Folder() const { return database::Copies_Folder(sample.Path()); }
    QStringList Names() const { return QDir(Folder()).entryList(QDir::Files, QDir::Name); }
    void Open_Page(Page_Id page, int minutes_later = 1) {
        outside.clock.now = outside.clock.now.addSecs(60 * minutes_later);
        shell::Copy_Before(page, installation, outside.platform);
    }
    void Change() const { sample.Run(u"UPDATE Mevo_Pupils SET Forename = Forename || 'x'"_s); }
};

QList<database::Kept_File> Kept_At(const QStringList& moments) {
    QList<database::Kept_File> kept;
    for (const QString& moment : moments)
        kept.append({moment, u"delete"_s, QDateTime::fromString(moment, u"yyyy-MM-dd HH:mm"_s)});
    return kept;
}

} // namespace

TEST_F(Copies, OnePageOneCopyWhereTheFileHasChanged) {
    outside.clock.now = QDateTime(QDate(2026, 11, 22), QTime(8, 59, 30));
    const struct {
        Page_Id page;
        bool changed;
        QStringList names;
    } cases[] = {
        {Page_Id::Main_Menu, true, {}},
        {Page_Id::Archiving, true, {}},
        {Page_Id::Delete, true, {u"Mevo05_before_delete_2026-11-22_09-02-30.mdb"_s}},
        {Page_Id::Import, false, {u"Mevo05_before_delete_2026-11-22_09-02-30.mdb"_s}},
        {Page_Id::Fine_Tuning,
         true,
         {u"Mevo05_before_delete_2026-11-22_09-02-30.mdb"_s,
          u"Mevo05_before_fine_tuning_2026-11-22_09-04-30.mdb"_s}},
    };
    for (const auto& row : cases) {
        if (row.changed) Change();
        Open_Page(row.page);
        EXPECT_EQ(Names(), row.names);
    }
    EXPECT_EQ(Bytes_Of(Folder() + u'/' + Names().last()), Bytes_Of(sample.Path()));
    EXPECT_EQ(outside.boxes.shown.size(), 0);
}

TEST_F(Copies, TheCompanionGoesAlongAndAway) {
    keeping::Keep_Takings(sample.Path(), sample.Value(u"SELECT StudentCode FROM Mevo_Tolvens_data"_s), {1},
                          outside.clock.now);
    Open_Page(Page_Id::Security);
    ASSERT_EQ(Names().size(), 2);
    EXPECT_TRUE(Names().first().endsWith(u".kept.sqlite"_s));
    for (int hour = 0; hour < 25; ++hour) {
        Change();
        Open_Page(Page_Id::Security, 60);
    }
    EXPECT_EQ(Names().size(), 2 * database::Most_Page_Copies);
}

TEST_F(Copies, WhatCantBeCopiedIsWorkedOnWithoutAWord) {
    Other_Workstation other(sample.Path());
    other.Hold_Exclusively();
    QElapsedTimer waited;
    waited.start();
    Open_Page(Page_Id::Delete);
    EXPECT_LT(waited.elapsed(), 5000);
    other.Leave_Abruptly();
    EXPECT_EQ(Names(), QStringList());
    Write_Bytes(Folder(), "a file where the folder should be");
    Open_Page(Page_Id::Delete);
    QFile::remove(Folder());
    QByteArray torn = Bytes_Of(sample.Path());
    torn.replace(torn.size() / 2, 4096, QByteArray(4096, 'x'));
    Write_Bytes(sample.Path(), torn);
    Open_Page(Page_Id::Delete);
    EXPECT_EQ(Names(), QStringList());
    EXPECT_EQ(outside.boxes.shown.size(), 0);
}

TEST(Page_Copies, OfAPastHourTheLastStaysAndTwentyInAll) {
    QStringList of_many_hours;
    for (int hour = 23; hour >= 0; --hour)
        of_many_hours.append(u"2026-11-21 %1:15"_s.arg(hour, 2, 10, QChar(u'0')));
    const struct {
        const char* name;
        QStringList kept; // the latest first
        QString made;
        QStringList superfluous;
    } cases[] = {
        {"this hour",
         {u"2026-11-22 09:30"_s, u"2026-11-22 09:20"_s, u"2026-11-22 09:10"_s},
         u"2026-11-22 09:30"_s,
         {}},
        {"an hour that is over",
         {u"2026-11-22 10:05"_s, u"2026-11-22 09:59"_s, u"2026-11-22 09:00"_s, u"2026-11-22 08:59"_s},
         u"2026-11-22 10:05"_s,
         {u"2026-11-22 09:00"_s}},
        {"the same hour of another day",
         {u"2026-11-22 09:30"_s, u"2026-11-21 09:40"_s, u"2026-11-21 09:20"_s},
         u"2026-11-22 09:30"_s,
         {u"2026-11-21 09:20"_s}},
        {"too many", QStringList{u"2026-11-22 09:30"_s} + of_many_hours, u"2026-11-22 09:30"_s,
         of_many_hours.last(5)},
        {"the clock fell back", of_many_hours + QStringList{u"2020-01-01 00:00"_s}, u"2020-01-01 00:00"_s,
         of_many_hours.last(5)},
    };
    for (const auto& row : cases) {
        SCOPED_TRACE(row.name);
        QStringList superfluous;
        for (const auto& copy : database::Superfluous(Kept_At(row.kept), Kept_At({row.made}).first()))
            superfluous.append(copy.path);
        EXPECT_EQ(superfluous, row.superfluous);
    }
}

// ---- removing for good

TEST_F(Copies, ARewriteLeavesNoByteOfARowAndEveryOtherRowItsNumber) {
    sample.Run(u"DELETE FROM Mevo_Groups WHERE rowid = 1"_s); // the others keep their numbers beyond it
    Database_Beside(sample.Path())
        .Run({u"PRAGMA secure_delete = OFF"_s,
              u"UPDATE Mevo_Pupils SET Surname = 'Zzyzxian' WHERE rowid = 3"_s,
              u"DELETE FROM Mevo_Pupils WHERE rowid = 3"_s});
    const QStringList numbers = sample.Column(u"SELECT rowid || Group_Name FROM Mevo_Groups"_s);
    const auto nothing = [](database::File_Engine&) {};
    const auto meanwhile = [this](database::File_Engine&) {
        sample.Run(u"UPDATE Mevo_Groups SET XtraField = 'x'"_s);
    };
    EXPECT_THROW(database::Rewrite(sample.Path(), meanwhile, 0), database::File_In_Use);
    {
        Other_Workstation other(sample.Path());
        other.Hold_Exclusively();
        EXPECT_THROW(database::Rewrite(sample.Path(), nothing, 0), database::File_In_Use);
    }
    const Table_Rows before = Read_Tables(sample);
    ASSERT_TRUE(Bytes_Of(sample.Path()).contains("Zzyzxian")) << "other programs leave it there";
    database::Rewrite(sample.Path(), nothing, 0);
    EXPECT_FALSE(Bytes_Of(sample.Path()).contains("Zzyzxian"));
    EXPECT_EQ(Changes(before, Read_Tables(sample)), QStringList());
    EXPECT_EQ(sample.Column(u"SELECT rowid || Group_Name FROM Mevo_Groups"_s), numbers);
    EXPECT_EQ(sample.Value(u"PRAGMA integrity_check"_s), u"ok"_s);
    EXPECT_EQ(QDir(sample.Folder()).entryList(QDir::Files), QStringList{u"Mevo05Data.mdb"_s});
}

TEST_F(Copies, ARemovalThatMeetsAFileInUseSaysSoAndCanBeRepeated) {
    const QString code = sample.Value(u"SELECT StudentCode FROM Mevo_Tolvens_data"_s);
    const QString theirs = u" WHERE StudentCode = '%1'"_s.arg(code);
    keeping::Keep_Takings(sample.Path(), code, {1}, outside.clock.now);
    Open_Page(Page_Id::Delete);
    sample.Run(u"DELETE FROM Mevo_Pupils"_s +
               theirs); // a row of answers stays, as when a deletion breaks off
    const QString copy = Folder() + u'/' + Names().last();
    const QString archive = sample.Folder() + u"/archive.mdb"_s;
    database::Safe_Copies().Copy(copy, archive);
    shell::Removal removal{code, sample.Path(), {copy, archive}, 0};
    const auto found = shell::Find_Gone_Pupils(sample.Path(), removal.files);
    ASSERT_EQ(found.size(), 1);
    EXPECT_EQ(found.first().code, code);
    EXPECT_EQ(found.first().files, 2);
    const auto holds = [&](const QString& file) { return Bytes_Of(file).contains(code.toUtf8()); };
    const QStringList all{sample.Path(), copy, archive, keeping::Companion_Of(sample.Path()),
                          keeping::Companion_Of(copy)};
    {
        Other_Workstation other(sample.Path());
        other.Hold_Exclusively();
        const QStringList told = shell::Remove_Everywhere(removal);
        ASSERT_EQ(told.size(), 1);
        EXPECT_TRUE(told.first().contains(u"Mevo05Data.mdb is in use by others"_s));
    }
    for (const QString& file : all)
        EXPECT_TRUE(holds(file)) << file.toStdString();
    EXPECT_EQ(shell::Remove_Everywhere(removal), QStringList());
    for (const QString& file : all)
        EXPECT_FALSE(holds(file)) << file.toStdString();
    EXPECT_EQ(Database_Beside(copy).Value(u"SELECT count(*) FROM Mevo_Pupils"_s), u"11"_s);
    removal.code = sample.Value(u"SELECT StudentCode FROM Mevo_Pupils"_s);
    EXPECT_EQ(shell::Remove_Everywhere(removal).size(), 1) << "they are registered";
    EXPECT_TRUE(Bytes_Of(copy).contains(removal.code.toUtf8()));
}

TEST_F(Copies, GoingBackAsksAsALoadDoes) {
    Open_Page(Page_Id::Delete);
    sample.Run(u"DELETE FROM Mevo_Pupils WHERE rowid > 5"_s);
    installation.Admin_Password = u"secret"_s;
    shell::Menu_Counts counts;
    counts.Number_Of_Students = 5;
    database::Safe_Copies copies;
    shell::Form61 page(outside.platform, navigator, installation, counts, copies);
    page.Load();
    Show_On_Screen(page);
    const struct {
        desktop::Answer answer;
        QStringList typed;
        QString pupils;
    } cases[] = {{desktop::Answer::No, {}, u"5"_s},
                 {desktop::Answer::Yes, {u""_s}, u"5"_s},
                 {desktop::Answer::Yes, {u"Secret"_s}, u"5"_s},
                 {desktop::Answer::Yes, {u"secret"_s}, u"12"_s}};
    for (const auto& row : cases) {
        outside.boxes.Will_Answer(row.answer);
        if (row.pupils == "12"_L1) outside.boxes.Will_Answer(desktop::Answer::Ok);
        outside.input_box.answers = row.typed;
        Click(page, u"HotLabel3"_s);
        EXPECT_EQ(sample.Value(u"SELECT count(*) FROM Mevo_Pupils"_s), row.pupils);
    }
    EXPECT_EQ(outside.boxes.shown.first().title, u"Load an archived database - CAUTION!"_s);
}
