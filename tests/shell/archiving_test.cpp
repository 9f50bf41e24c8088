#include "conversion/jet_samples.h"
#include "foundation/start_up.h"
#include "keeping/change_list.h"
#include "keeping/earlier_takings.h"
#include "shell/archiving_fixture.h"
#include "support/on_windows.h"
#include "support/other_workstation.h"

using namespace test_support;

// ---- the page

TEST_F(Archiving, OffersWhatTheCountAndTheModeAllow) {
    Open();
    EXPECT_EQ(Caption(*page, u"Label13"_s), u"12"_s);
    EXPECT_EQ(counts.Number_Of_Students.As_Integer(), 12);
    for (int number = 1; number <= 5; ++number)
        EXPECT_TRUE(Enabled(*page, u"HotLabel%1"_s.arg(number)));
    EXPECT_FALSE(Enabled(*page, u"HotLabel6"_s));
    EXPECT_FALSE(Shown(*page, u"pbrProgressBar"_s));

    Point_At(*page, u"HotLabel6"_s); // greyed, and still explained
    EXPECT_TRUE(Caption(*page, u"Label1"_s).startsWith(u"You can easily restore the current"_s));
    sample.Run(u"DELETE FROM Mevo_Pupils"_s);
    page->Refresh_Archive_Page();
    EXPECT_EQ(Caption(*page, u"Label1"_s), u""_s);
    installation.Viewing_Mode = true;
    Open();
    EXPECT_EQ(Caption(*page, u"Label13"_s), u"0"_s);
    EXPECT_FALSE(Enabled(*page, u"HotLabel2"_s));
    EXPECT_FALSE(Enabled(*page, u"HotLabel5"_s));
    EXPECT_TRUE(Enabled(*page, u"HotLabel4"_s));
    EXPECT_TRUE(Enabled(*page, u"HotLabel6"_s));
    sample.Move_Away();
    outside.boxes.Expect_Abort_Ends([this] { Open(); });
}

TEST_F(Archiving, TheDialogTellsWhatAFileIsAndTakesNoneOfAnotherProgram) {
    const QByteArray sound = Bytes_Of(archive.Path());
    const Sample_File older(3), foreign(3);
    older.Make_Older();
    foreign.Run(u"DROP TABLE Mevo_Pupils"_s);
    const std::tuple<QByteArray, QString, bool> cases[] = {
        {sound, u"Hillside Primary School: 30 pupils, 25 with results. Version 5.1."_s, true},
        {Bytes_Of(older.Path()),
         u"Hillside Primary School: 3 pupils, 1 with results. Older than version 5.1."_s, true},
        {sound.left(9000), u"Damaged, and may fail to open: "_s, true},
        {Bytes_Of(Test_Data(u"jet4-data.mdb"_s)), u"Saved in the older Access format."_s, true},
        {Bytes_Of(foreign.Path()), u"This is no database of Mevo."_s, false},
        {"", u"This is no database of Mevo."_s, false},
    };
    Open();
    View(u""_s, {});
    const auto tell = outside.file_dialogs.asked.last().tell;
    const QString file = In_Archives(u"chosen.mdb"_s);
    for (const auto& [bytes, words, is_taken] : cases) {
        Write_Bytes(file, bytes);
        const desktop::File_Words found = tell(file);
        EXPECT_TRUE(found.words.startsWith(words)) << found.words.toStdString();
        EXPECT_EQ(found.is_taken, is_taken);
        EXPECT_EQ(Archives(), QStringList{u"chosen.mdb"_s});
        EXPECT_TRUE(Bytes_Of(file) == bytes);
    }
    Other_Workstation other(archive.Path());
    other.Hold_Exclusively();
    EXPECT_TRUE(tell(archive.Path()).words.startsWith(u"What this is can't be read now: "_s));
    Load(file, {Answer::Yes});
    EXPECT_EQ(outside.file_dialogs.refusals, QStringList{u"This is no database of Mevo."_s});
}

// ---- saving

TEST_F(Archiving, SuggestsTheDayAndTheTwelveHourTime) {
    Open();
    const std::pair<QTime, QString> cases[] = {{QTime(9, 32, 59), u"0932"_s}, {QTime(21, 32), u"0932"_s},
                                               {QTime(0, 5), u"1205"_s},      {QTime(12, 0), u"1200"_s},
                                               {QTime(13, 1), u"0101"_s},     {QTime(23, 59), u"1159"_s}};
    for (const auto& [time, told] : cases) {
        outside.clock.now = QDateTime(QDate(2011, 6, 15), time);
        EXPECT_EQ(page->Create_Unique_Filename(), u"Mevo05_150611_"_s + told + u".mdb"_s);
    }
}

TEST_F(Archiving, SavesTheWorkingDatabaseAndSaysWhere) {
    Open();
    Save(u""_s, {});
    Save(u"Mevo05_150626_1030.mdb"_s, {}); // a dialog that gives the suggestion back bare
    EXPECT_EQ(Archives(), QStringList());
    Save(In_Archives(u"mine.mdb"_s));
    const desktop::File_Question& asked = outside.file_dialogs.asked[0];
    EXPECT_EQ(asked.file_name, u"Mevo05_150626_1030.mdb"_s);
    EXPECT_EQ(asked.extension, u"mdb"_s);
    EXPECT_EQ(asked.filter, u"MS Access 2000 (*.mdb)"_s);
    EXPECT_EQ(asked.folder, installation.Archive_Folder);
    Expect_Told(u"Your database has been archived as "_s + In_Archives(u"mine.mdb"_s));
    EXPECT_EQ(Database_Beside(In_Archives(u"mine.mdb"_s)).Value(Count), u"12"_s);
}

TEST_F(Archiving, NamesOfOtherDatabasesArentTakenForAnArchive) {
    Open();
    const QStringList names = {sample.Path(), sample.Folder() + u"/mevo05DATA.mdb"_s,
                               sample.Folder() + u"/mevo05emptydatabase.mdb"_s,
                               In_Archives(u"mevo05_before_load_2026-06-15_10-30-00.mdb"_s)};
    outside.file_dialogs.answers = names;
    Click(*page, u"HotLabel2"_s);
    const QStringList& told = outside.file_dialogs.refusals;
    ASSERT_EQ(told.size(), names.size());
    for (const auto& [row, reason] : {std::pair(0, u"working database"_s),
                                      {1, u"working database"_s},
                                      {2, u"empty database"_s},
                                      {3, u"kept"_s}})
        EXPECT_TRUE(told[row].contains(reason)) << told[row].toStdString();
    EXPECT_EQ(Archives(), QStringList());
}

TEST_F(Archiving, SavesTheWorkingDatabaseWhileAnotherIsInViewUnderAnyName) {
    const QString file = In_Archives(u"a;b.mdb"_s);
    Open();
    View(archive.Path());
    Save(file);
    View(file);
    Load(file);
    EXPECT_EQ(copies.spared, QStringList{file}); // as it is in view
    EXPECT_EQ(Working(Count), u"12"_s);
}

TEST_F(Archiving, TellsWhyItCantSave) {
    Open();
    const QString read_only =
        u"Cannot save this archive because the folder shown below seems to be Read-Only under your User "
        u"Account.\r\r"_s +
        installation.Archive_Folder;
    const std::tuple<int, Box_Style, QString, QString> cases[] = {
        {70, Box_Style::Critical, u"Cannot save archive file"_s, read_only},
        {61, Box_Style::Plain, desktop::Default_Box_Title(),
         u"An error has occured (Archiving) Error # 61) Description (Disk full)"_s},
    };
    for (const auto& [number, style, title, text] : cases) {
        copies.fails_with = number;
        Save(In_Archives(u"mine.mdb"_s));
        outside.boxes.Expect_Last(style, title, text);
        EXPECT_EQ(outside.pointer.shapes.last(), desktop::Pointer_Shape::Default);
    }
    copies.fails_with = 0;
    if (On_Windows) return;                // no such path there, as its customary words say
    Save(In_Archives(QString(300, u'x'))); // the system's own words follow
    EXPECT_TRUE(Last_Box().text.contains(u"Error # 57) Description (Device I/O error: "_s));
}

// ---- the question before the two destructive acts

TEST_F(Archiving, WarnsBeforeItReplacesPupils) {
    Open();
    const QString text =
        u"Current database contains 12 pupils.\r"
        "It is strongly advised that you archive (save) your current pupil database before proceeding.\r"
        "Please only choose 'Yes' if you have recently archived the current database (or, if you have not "
        "recently archived the current database but are still happy to lose the current database).\r"
        "Select 'No' if in doubt or wish to cancel this task."_s;
    const std::pair<QString, QString> acts[] = {
        {u"HotLabel4"_s, u"Load an archived database - CAUTION!"_s},
        {u"HotLabel5"_s, u"Clear current database and start afresh - CAUTION!"_s}};
    for (const auto& [button, title] : acts) {
        Press(button, {Answer::No});
        outside.boxes.Expect_Last(Box_Style::Yes_No, title, text);
        EXPECT_TRUE(outside.input_box.asked.isEmpty());
    }
    EXPECT_TRUE(outside.file_dialogs.asked.isEmpty());
}

TEST_F(Archiving, OnlyThePasswordInForcePasses) {
    Open();
    const struct {
        QString password, typed;
        bool told; // by a clean start
    } cases[] = {
        {u"secret"_s, u""_s, false}, {u"secret"_s, u"SECRET"_s, true}, {u"secret"_s, u" secret"_s, true},
        {u""_s, u""_s, false}, // once an empty one is set, nothing passes
        {u""_s, u"x"_s, true},
    };
    for (const auto& tried : cases) {
        SCOPED_TRACE(tried.typed.toStdString());
        installation.Admin_Password = tried.password;
        Press(u"HotLabel4"_s, {Answer::Yes}, {tried.typed}); // silent whatever was typed
        EXPECT_EQ(outside.boxes.shown.size(), 1);
        Press(u"HotLabel5"_s, tried.told ? QList{Answer::Yes, Answer::Ok} : QList{Answer::Yes},
              {tried.typed});
        EXPECT_EQ(outside.input_box.asked.last(), u"Security check: Please enter your password"_s);
        if (tried.told)
            outside.boxes.Expect_Last(Box_Style::Critical, u"Incorrect password"_s,
                                      u"Password not accepted"_s);
    }
    installation.Admin_Password = basics::Value(); // no row of this product at start-up
    Press(u"HotLabel4"_s, {Answer::Yes}, {u"secret"_s});
    EXPECT_TRUE(outside.file_dialogs.asked.isEmpty());
    EXPECT_EQ(Working(Count), u"12"_s);
}

// ---- loading

TEST_F(Archiving, LoadsAnArchiveAndKeepsTheOldDatabase) {
    archive.Run(u"UPDATE Customer_Details SET Admin_Password = 'of old'"_s);
    Open();
    Load(archive.Path());
    EXPECT_EQ(outside.file_dialogs.asked[0].file_name, u"*.mdb"_s);
    EXPECT_EQ(outside.file_dialogs.asked[0].folder, installation.Archive_Folder);
    Expect_Told(u"The database: \r"_s + archive.Path() +
                u"\r has now been loaded and becomes the working database."_s);
    EXPECT_EQ(Working(Count), u"30"_s);
    EXPECT_EQ(Caption(*page, u"Label13"_s), u"30"_s);
    EXPECT_EQ(Archives(), QStringList{u"Mevo05_before_load_2026-06-15_10-30-00.mdb"_s});
    EXPECT_EQ(Database_Beside(In_Archives(Archives().first())).Value(Count), u"12"_s);
    // The password in force goes to the archive, and not to its copy.
    EXPECT_EQ(Working_Password(), u"of old"_s);
    EXPECT_EQ(Password_In(archive.Path()), u"secret"_s);
    EXPECT_EQ(archive.Value(u"SELECT Admin_Password FROM Customer_Details WHERE Product_Name <> 'MEVO'"_s),
              u"of old"_s);
    EXPECT_EQ(installation.Admin_Password.As_Text(), u"secret"_s); // until the next start
}

// Other programs of the suite's file may write it so; the password must still pass, at once and at the next
// start.
TEST_F(Archiving, AnArchiveWhoseTextsAreInUTF16IsLoadedLikeAnyOther) {
    archive.Run(u"UPDATE Customer_Details SET Admin_Password = 'Zoë', Institution = 'Élan'"_s);
    archive.Make_UTF_16();
    EXPECT_EQ(archive.Value(u"PRAGMA encoding"_s), u"UTF-16le"_s);
    Open();
    Load(archive.Path());
    EXPECT_EQ(Working_Password(), u"Zoë"_s);
    EXPECT_EQ(Password_In(archive.Path()), u"secret"_s);
    ASSERT_TRUE(foundation::Read_Customer_Details(outside.platform, installation));
    EXPECT_EQ(installation.Institution, u"Élan"_s);
    Press(u"HotLabel5"_s, {Answer::Yes, Answer::Ok}, {u"Zoë"_s});
    EXPECT_EQ(Working(Count), u"0"_s);
}

TEST_F(Archiving, ACancelledLoadOrViewChangesNothing) {
    Open();
    View(u""_s, {});
    View(u"*.mdb"_s, {});
    EXPECT_FALSE(installation.Viewing_Mode);
    EXPECT_EQ(installation.Connection_String, Names_File(sample.Path()));
    Press(u"HotLabel4"_s, {Answer::Yes}, {u"secret"_s}, {u""_s});
    Press(u"HotLabel4"_s, {Answer::Yes}, {u"secret"_s}, {u"*.mdb"_s});
    EXPECT_EQ(Working(Count), u"12"_s);
    EXPECT_EQ(Archives(), QStringList());
}

TEST_F(Archiving, WithNobodyRegisteredItLoadsUnasked) {
    sample.Run(u"DELETE FROM Mevo_Pupils"_s);
    Open();
    Press(u"HotLabel4"_s, {Answer::Ok}, {}, {archive.Path()});
    EXPECT_TRUE(outside.input_box.asked.isEmpty());
    EXPECT_EQ(Caption(*page, u"Label13"_s), u"30"_s);
    EXPECT_TRUE(Enabled(*page, u"HotLabel2"_s));
    EXPECT_TRUE(Enabled(*page, u"HotLabel5"_s));
}

TEST_F(Archiving, AnOlderArchiveIsBroughtUpInTheCopyWithoutAQuestion) {
    archive.Make_Older();
    Open();
    Load(archive.Path(), {Answer::Yes, Answer::Ok, Answer::Ok});
    EXPECT_EQ(outside.boxes.shown[1].text, u"Will now convert your database to the new version 5.1"_s);
    EXPECT_EQ(Working(u"SELECT count(*) FROM Mevo_Groups"_s), u"1"_s);
    EXPECT_EQ(archive.Value(u"SELECT count(*) FROM sqlite_master WHERE name = 'Mevo_Groups'"_s), u"0"_s);
}

TEST_F(Archiving, AFailedConversionOfTheLoadedFileHasNoMessageOfSuccess) {
    archive.Run(u"ALTER TABLE Mevo_Pupils DROP COLUMN Dob_as_pw"_s); // half converted
    Open();
    Load(archive.Path(), {Answer::Yes, Answer::Ok, Answer::Ok});
    EXPECT_TRUE(Last_Box().text.startsWith(u"Error with updating to v5.1 database: "_s));
    EXPECT_EQ(Caption(*page, u"Label13"_s), u"30"_s);
}

TEST_F(Archiving, AFailingLoadEndsInTheRunTimesErrorAndTouchesNothing) {
    archive.Run(u"UPDATE Customer_Details SET Admin_Password = 'of old'"_s);
    Open();
    copies.fails_with = 61;
    EXPECT_EQ(Error_Of_Loading(archive.Path()), 61);
    EXPECT_EQ(Password_In(archive.Path()), u"of old"_s);
    copies.fails_with = 0;
    EXPECT_NE(Error_Of_Loading(sample.Path()), 0) << "over itself";
    EXPECT_EQ(Working(Count), u"12"_s);
}

// ---- starting afresh

TEST_F(Archiving, ACleanStartTakesTheTemplateWithThePasswordInForce) {
    Open();
    QString at_the_copy;
    copies.meanwhile = [&] { at_the_copy = Password_In(installation.Empty_Database_Path); };
    Start_Afresh();
    Expect_Told(u"The database has now been cleared of all pupils and their data."_s);
    EXPECT_EQ(at_the_copy, u"secret"_s);
    EXPECT_EQ(Working_Password(), u"secret"_s);
    EXPECT_EQ(Working(Count), u"0"_s);
    EXPECT_EQ(counts.Number_Of_Students.As_Integer(), 0);
    EXPECT_EQ(Caption(*page, u"Label13"_s), u"0"_s);
    EXPECT_FALSE(Enabled(*page, u"HotLabel2"_s));
    EXPECT_FALSE(Enabled(*page, u"HotLabel5"_s));
    EXPECT_EQ(Archives(), QStringList{u"Mevo05_before_clean_start_2026-06-15_10-30-00.mdb"_s});
}

TEST_F(Archiving, ACleanStartWhoseConversionFailsStopsThere) {
    Database_Beside(installation.Empty_Database_Path)
        .Run({u"ALTER TABLE Mevo_Pupils DROP COLUMN Dob_as_pw"_s});
    Open();
    Start_Afresh({Answer::Yes, Answer::Ok, Answer::Ok});
    EXPECT_TRUE(Last_Box().text.startsWith(u"Error with updating to v5.1 database: "_s));
    EXPECT_EQ(Caption(*page, u"Label13"_s), u"12"_s); // nobody looked again
    EXPECT_TRUE(Enabled(*page, u"HotLabel5"_s));
}

TEST_F(Archiving, WithoutATemplateTheWorkingDatabaseStays) {
    QFile::remove(installation.Empty_Database_Path);
    Open();
    outside.boxes.Will_Answer(Answer::Yes);
    outside.input_box.answers = {u"secret"_s};
    outside.boxes.Expect_Abort_Ends([this] { page->HotLabel5_Click(); });
    EXPECT_EQ(Working(Count), u"12"_s);
}

// ---- viewing

TEST_F(Archiving, AnArchiveInViewIsWhatThePagesReadUntilTheViewingEnds) {
    Open();
    View(archive.Path());
    Expect_Told(u"The database "_s + archive.Path() +
                u" is now held in Viewing Mode (note that you cannot edit it)."_s);
    EXPECT_TRUE(installation.Viewing_Mode);
    EXPECT_EQ(installation.Current_Database_Path, archive.Path());
    EXPECT_EQ(installation.Connection_String, Names_File(archive.Path()));
    EXPECT_TRUE(Enabled(*page, u"HotLabel6"_s));
    EXPECT_EQ(Caption(*page, u"Label13"_s), u"12"_s); // not counted again here
    Open();
    EXPECT_EQ(Caption(*page, u"Label13"_s), u"30"_s);

    Press(u"HotLabel6"_s, {Answer::Ok});
    Expect_Told(
        u"The current database (Mevo05data.mdb) has now been restored and you are able to use Mevo as normal."_s);
    EXPECT_FALSE(installation.Viewing_Mode);
    EXPECT_EQ(installation.Connection_String, Names_File(sample.Path()));
    EXPECT_EQ(installation.Current_Database_Path, sample.Path());
    EXPECT_FALSE(Enabled(*page, u"HotLabel6"_s));
    EXPECT_EQ(Caption(*page, u"Label13"_s), u"30"_s); // nor here
}

TEST_F(Archiving, AnOlderArchiveIsUpgradedOnlyIfWished) {
    archive.Make_Older();
    for (const Answer answer : {Answer::No, Answer::Cancel}) {
        installation = sample.Installed();
        Open();
        View(archive.Path(), {answer});
        EXPECT_EQ(archive.Value(u"SELECT count(*) FROM sqlite_master WHERE name = 'Mevo_Groups'"_s), u"0"_s);
        // Odd, and so by design: pages read the archive, and the mode doesn't say so.
        EXPECT_EQ(installation.Connection_String, Names_File(archive.Path()));
        EXPECT_FALSE(installation.Viewing_Mode || Enabled(*page, u"HotLabel6"_s));
    }
    View(archive.Path(), {Answer::Yes, Answer::Ok, Answer::Ok});
    EXPECT_EQ(outside.boxes.shown[0].style, Box_Style::Yes_No_Cancel_Information);
    EXPECT_EQ(outside.boxes.shown[0].title, u"Older archive type"_s);
    EXPECT_TRUE(outside.boxes.shown[0].text.endsWith(u"Do you wish to upgrade it to version 5.1 ?"_s));
    EXPECT_TRUE(installation.Viewing_Mode);
    EXPECT_EQ(archive.Value(u"SELECT count(*) FROM Mevo_Groups"_s), u"1"_s); // the archive itself
}

TEST_F(Archiving, AFailedUpgradeGoesBackToTheWorkingDatabase) {
    archive.Run(u"ALTER TABLE Mevo_Pupils DROP COLUMN Dob_as_pw"_s);
    Open();
    View(archive.Path(), {Answer::Yes, Answer::Ok, Answer::Ok});
    EXPECT_TRUE(Last_Box().text.startsWith(u"Error with updating to v5.1 database: "_s));
    EXPECT_FALSE(installation.Viewing_Mode);
    EXPECT_EQ(installation.Connection_String, Names_File(sample.Path()));
    EXPECT_EQ(installation.Current_Database_Path, archive.Path());
    EXPECT_FALSE(Enabled(*page, u"HotLabel6"_s));
}

TEST_F(Archiving, WhatIsLoadedOrClearedInViewingModeIsTheWorkingDatabase) {
    const Sample_File loaded(5);
    loaded.Make_Older();
    Open();
    View(archive.Path());
    Load(loaded.Path(), {Answer::Yes, Answer::Ok, Answer::Ok});
    EXPECT_EQ(Working(Count), u"5"_s);
    EXPECT_EQ(Working(u"SELECT count(*) FROM Mevo_Groups"_s), u"1"_s); // brought up, though not in view
    EXPECT_EQ(installation.Connection_String, Names_File(archive.Path()));
    EXPECT_TRUE(installation.Viewing_Mode);
    EXPECT_EQ(Caption(*page, u"Label13"_s), u"30"_s); // the count is the archive's
    Start_Afresh();
    EXPECT_EQ(Working(Count), u"0"_s);
    EXPECT_EQ(archive.Value(Count), u"30"_s);
    EXPECT_EQ(Caption(*page, u"Label13"_s), u"0"_s);
}

TEST_F(Archiving, EarlierResultsGoWithTheDatabaseTheyBelongTo) {
    const QString code = sample.Value(u"SELECT StudentCode FROM Mevo_Pupils WHERE Karrel = 1"_s);
    const auto kept = [&](const QString& database) { return keeping::Takings_Of(database, code).size(); };
    keeping::Keep_Takings(sample.Path(), code, {3}, outside.clock.now);
    Open();
    Save(In_Archives(u"first.mdb"_s));
    EXPECT_TRUE(Archives().contains(u"first.kept.sqlite"_s));
    keeping::Keep_Takings(sample.Path(), code, {6}, outside.clock.now);
    Load(In_Archives(u"first.mdb"_s));
    EXPECT_EQ(kept(sample.Path()), 1) << "the archive's";
    const QStringList aside = Archives().filter(u"before_load"_s);
    ASSERT_EQ(aside.size(), 2);
    EXPECT_EQ(kept(In_Archives(aside[1])), 2) << "today's, beside the kept copy";
    Start_Afresh();
    EXPECT_FALSE(QFile::exists(keeping::Companion_Of(sample.Path())));
    EXPECT_EQ(kept(In_Archives(Archives().filter(u"clean_start"_s).value(1))), 1);
    QStringList acts;
    for (const keeping::Change& change : keeping::Changes_In(sample.Path()))
        acts.append(change.act + u' ' + change.subject);
    EXPECT_EQ(acts, (QStringList{u"Cleared "_s + QFileInfo(sample.Path()).fileName(), u"Loaded first.mdb"_s,
                                 u"Archived first.mdb"_s}));
}
