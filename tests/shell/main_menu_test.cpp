#include "shell/main_menu.h"

#include "platform/basics/run_time_error.h"
#include "shell/whereabouts.h"
#include "support/narrow_places.h"
#include "support/page_fixture.h"

#include <QDir>

using namespace Qt::StringLiterals;
using namespace shell;
using namespace test_support;
using desktop::Answer;

namespace {

class Main_Menu : public Page_Fixture {
protected:
    Main_Menu() { installation.App_Path = u"C:\\Mevo"_s; }

    void Open() {
        menu = std::make_unique<Form77>(outside.platform, navigator, installation, counts);
        Show_On_Screen(*menu);
        menu->Load();
        menu->Timer1_Timer();
    }
    QStringList Greyed() const {
        QStringList greyed;
        for (const HotLabel* entry : menu->findChildren<HotLabel*>())
            if (!entry->isEnabled()) greyed.append(entry->Caption());
        greyed.sort();
        return greyed;
    }

    QString Foot() {
        menu->Tell_Whereabouts();
        return Control<QLabel>(*menu, u"Foot"_s).accessibleName();
    }

    Menu_Counts counts;
    std::unique_ptr<Form77> menu;
};

const QString No_Results =
    u"UPDATE Mevo_Pupils SET Tolvens=0, BliksFriends=0, Karrel=0, BliksLetters=0, BliksLetterNames=0, Drell=0, Mirvel=0, Yoon=0"_s;

} // namespace

TEST_F(Main_Menu, GreysByTheCountsAndTheModeOfUse) {
    sample.Run(No_Results + u", Pindo = 1"_s); // the colour test alone is no result
    Open();
    EXPECT_EQ(Greyed(), QStringList{u"Reports"_s});
    EXPECT_FALSE(Shown(*menu, u"Label4"_s));

    sample.Run(u"DELETE FROM Mevo_Pupils"_s);
    Open();
    EXPECT_EQ(Greyed().join(u'|'), u"Delete individuals|Fine tuning|Reports|Security"_s);
    EXPECT_EQ(Caption(*menu, u"Label4"_s),
              u"Because no pupils are registered some menu options are disabled."_s);

    installation.Viewing_Mode = true;
    Open();
    EXPECT_EQ(
        Greyed().join(u'|'),
        u"Delete individuals|Fine tuning|Import from file|Register individuals|Reports|Security|Settings"_s);
    EXPECT_TRUE(Shown(*menu, u"Label5"_s));
}

TEST_F(Main_Menu, AFailingResultCountIsSilentAndKeepsTheOldOne) {
    sample.Run(u"ALTER TABLE Mevo_Pupils DROP COLUMN Yoon"_s);
    counts.Number_With_Results = 5;
    Open();
    EXPECT_EQ(counts.Number_With_Results, 5);
    sample.Move_Away();
    outside.boxes.Expect_Abort_Ends([this] { Open(); }); // the count of all isn't
}

TEST_F(Main_Menu, AGreyedEntryTakesNoClickButStillTellsItsHelp) {
    sample.Run(No_Results);
    Open();
    Click(*menu, u"HotLabel1"_s);
    EXPECT_TRUE(navigator.went_to.isEmpty());
    Point_At(*menu, u"HotLabel1"_s);
    EXPECT_EQ(Caption(*menu, u"Label3"_s),
              u"There are currently no results to view in 'Reports' as no tests have been completed yet."_s);
    QMouseEvent bare(QEvent::MouseMove, QPointF(3, 3), menu->mapToGlobal(QPointF(3, 3)), Qt::NoButton,
                     Qt::NoButton, Qt::NoModifier);
    QApplication::sendEvent(menu.get(), &bare);
    EXPECT_EQ(Caption(*menu, u"Label3"_s), u""_s);
}

TEST_F(Main_Menu, QuitHandsOverToTheShellOrEndsInTheRunTimesError) {
    Open();
    const auto status = [this] {
        try {
            Guarded(outside.platform, [this] { menu->HotLabel13_Click(); });
        } catch (const Program_Ended& ended) {
            return ended.status;
        }
        return -1;
    };
    EXPECT_EQ(status(), 0);
    EXPECT_TRUE(navigator.unloaded);
    EXPECT_EQ(outside.processes.started, QStringList{u"C:\\Mevo\\MevoV51Shell.exe 417"_s});
    outside.processes.shell_is_missing = true;
    outside.boxes.Will_Answer(Answer::Ok);
    EXPECT_GT(status(), 0);
    EXPECT_EQ(outside.boxes.shown[0].text, u"Run-time error '53':\r\rFile not found"_s);
    EXPECT_EQ(outside.boxes.shown[0].style, desktop::Box_Style::Critical);
}

TEST_F(Main_Menu, ManualsOpenInTheirOwnFolderOrFailAsTold) {
    Open();
    menu->HotLabel11_Click();
    menu->HotLabel12_Click();
    EXPECT_EQ(outside.documents.opened,
              (QStringList{u"C:\\Mevo\\Manuals\\Quend Mevo Teachers Manual Mar2010 4th Edn.htm"_s,
                           u"C:\\Mevo\\Manuals\\Quend Mevo Software Guide v5.1.htm"_s}));
    EXPECT_EQ(outside.documents.folders.first(), u"C:\\Mevo\\system\\"_s);

    const struct {
        int result, number;
        QString description;
    } cases[] = {
        {2, 53, u"File not found (trying to load Software User Guide)"_s},
        {31, 31 - 2147220456, u"No application is associated with this file type."_s},
        {32, 48, u"The specified dynamic-link library was not found."_s},
        {7, 7 - 2147220456, u"An error occurred occurred whilst trying to open the selected file."_s},
    };
    for (const auto& tried : cases) {
        SCOPED_TRACE(tried.result);
        outside.documents.result = tried.result;
        try {
            menu->HotLabel11_Click();
            FAIL() << "no error";
        } catch (const basics::Run_Time_Error& error) {
            EXPECT_EQ(error.Number, tried.number);
            EXPECT_EQ(error.Source, u"Quend Swith Shell"_s);
            EXPECT_EQ(error.Description, tried.description);
        }
    }
    outside.documents.result = -5; // negative is success
    EXPECT_NO_THROW(menu->HotLabel12_Click());
}

TEST_F(Main_Menu, TheFootTellsWhereOneIsAndWhatMayGoWrong) {
    Open();
    installation.Archive_Folder = sample.Folder();
    const QString where =
        u"Hillside Primary School \u00b7 %1 \u00b7 "_s + QDir::toNativeSeparators(sample.Folder());
    EXPECT_EQ(Foot(), where.arg(u"not archived yet"_s));
    EXPECT_TRUE(QFile::copy(sample.Path(), sample.Folder() + u"/Mevo05_100626_0932.mdb"_s));
    const QString told = where.arg(u"last archived 5 days ago"_s);
    EXPECT_EQ(Foot(), told) << "the day in its name, and not the copy's own";
    Remember_Archive(installation, outside.platform);
    EXPECT_EQ(Foot(), where.arg(u"last archived today"_s));
    outside.settings.kept.clear();

    const std::pair<int, QString> numbers[] = {
        {1900, u""_s},
        {1901, u"1901 pupils: the batch report ends at 2000 \u00b7 "_s},
        {2400, u"2400 pupils: the batch report ends at 2000 \u00b7 "_s},
        {2401, u"2401 pupils: the lists end at 2500, and the batch report at 2000 \u00b7 "_s}};
    for (const auto& [pupils, warning] : numbers) {
        counts.Number_Of_Students = pupils;
        EXPECT_EQ(Foot(), warning + told);
    }
    sample.Run(u"DELETE FROM Mevo_Groups"_s);
    const QString groups =
        u"INSERT INTO Mevo_Groups (Group_Name) WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < %1) SELECT 'Oak' FROM n"_s;
    sample.Run(groups.arg(95));
    counts.Number_Of_Students = 12;
    EXPECT_EQ(Foot(), told);
    sample.Run(groups.arg(1));
    installation.Share_Is_Away = true;
    installation.Current_Database_Path = sample.Folder() + u"/Mevo05_100626_0932.mdb"_s;
    installation.Connection_String = foundation::Connection_String_For(installation.Current_Database_Path);
    EXPECT_TRUE(Foot().startsWith(
        u"This is not the share named in the settings \u00b7 an archive is in view \u00b7 Hillside"_s));
    EXPECT_TRUE(Foot().endsWith(QDir::toNativeSeparators(installation.Current_Database_Path)));
    installation = sample.Installed();
    EXPECT_TRUE(Foot().startsWith(u"96 groups: the lists end at 100 \u00b7 "_s));
    sample.Move_Away();
    EXPECT_EQ(Foot(), u""_s);
}

TEST_F(Main_Menu, TheFootWarnsWhereNothingCanBeStored) {
    QFile::setPermissions(sample.Folder(), QFileDevice::Permissions(0x5555));
    QString told;
    {
        const Plain_Account account;
        if (!account.Is_There()) GTEST_SKIP() << "no account that files' rights bind";
        Open();
        told = Foot();
    }
    QFile::setPermissions(sample.Folder(), QFileDevice::Permissions(0x7777));
    EXPECT_TRUE(told.startsWith(u"Can't be written here: nothing that you enter will be stored \u00b7 "_s));
}

TEST(Whereabouts, AnArchivesAgeIsToldInWords) {
    const QDate today(2026, 6, 15);
    const std::pair<int, QString> cases[] = {
        {-3, u"today"_s},        {0, u"today"_s},           {1, u"yesterday"_s},
        {13, u"13 days ago"_s},  {14, u"2 weeks ago"_s},    {59, u"8 weeks ago"_s},
        {60, u"2 months ago"_s}, {364, u"12 months ago"_s}, {365, u"more than a year ago"_s}};
    for (const auto& [days, words] : cases)
        EXPECT_EQ(Age_In_Words(today.addDays(-days), today), u"last archived "_s + words);
}
