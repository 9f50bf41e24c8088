#include "printing/batch_report.h"

#include "keeping/change_list.h"
#include "printing/full_reports.h"
#include "reports/scored_page.h"
#include "support/error_number.h"

#include <QDialog>
#include <QDir>
#include <QTemporaryDir>
#include <QTimer>
#include <algorithm>

using namespace printing;
using namespace test_support;
using desktop::Answer;

namespace {

const QString Has_A_Score =
    u"Tolvens + BliksFriends + Karrel + BliksLetters + BliksLetterNames + Drell + Mirvel + Yoon > 0"_s;

class Batch_Report_Page : public Scored_Page {
protected:
    void Make() {
        scoring::Load_All_Norms(scoring_holder, installation, scores.norms);
        scoring::Load_Pupil_Lists(scoring_holder, installation, outside.clock, scores.pupils);
        page = std::make_unique<Form92>(outside.platform, navigator, installation, state, scoring);
        page->resize(1366, 768);
    }
    void Open() {
        Make();
        page->Load();
    }
    void Fill_Lists_Only() { page->Load_Group_Filter(installation.Connection_String); }
    void Type_Name(const QString& text) { Control<QLineEdit>(*page, u"FindName"_s).setText(text); }
    QStringList Shared_Files() const {
        QStringList files =
            QDir(sample.Folder()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
        files.removeOne(u"Mevo05Changes.sqlite"_s); // what was done is noted there
        return files;
    }
    QListWidget& Pupils() { return Control<QListWidget>(*page, u"lstPupils"_s); }
    QListWidget& Pages() { return Control<QListWidget>(*page, u"List3"_s); }
    preview::Preview_Window& Preview() { return Control<preview::Preview_Window>(*page, u"ViewPro1"_s); }
    bool On_View(const QString& text) { return Preview().accessibleDescription().contains(text); }
    void Click_Entry(QListWidget& list, int row) {
        list.scrollToItem(list.item(row));
        QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, list.visualItemRect(list.item(row)).center());
    }
    void Create_From_First(int count) {
        for (int row = 0; row < count; ++row)
            Click_Entry(Pupils(), row);
        Click(*page, u"HotLabel9"_s);
    }
    void Choose_Group(const QString& group) {
        auto& filter = Control<shell::Click_Combo>(*page, u"cboGroupFilter"_s);
        const int index = filter.findText(group);
        ASSERT_GE(index, 0);
        filter.Set_ListIndex(index);
    }
    QString Count_Where(const QString& condition) {
        return sample.Value(u"SELECT count(*) FROM Mevo_Pupils WHERE "_s + condition);
    }

    std::unique_ptr<Form92> page;
};

} // namespace

TEST_F(Batch_Report_Page, OpensWithAllPupilsListedAndScored) {
    Set(Code_Where(u"Yoon = 1"_s),
        u"Tolvens = 0, BliksFriends = 0, Karrel = 0, BliksLetters = 0, BliksLetterNames = 0, Drell = 0, "
        "Mirvel = 0, Yoon = 0, Pindo = 1"_s); // Pindo has no score
    Open();
    EXPECT_EQ(Caption(*page, u"Label5"_s),
              u"There are %1 pupils who have scores."_s.arg(scores.pupils.Pupils_Listed));
    EXPECT_EQ(Caption(*page, u"Label10"_s), u"ALL pupils are currently listed."_s);
    QStringList listed;
    for (int row = 0; row < Pupils().count(); ++row)
        listed.append(Pupils().item(row)->text());
    listed.sort();
    EXPECT_EQ(listed, sample.Column(u"SELECT Surname || ', ' || Forename || ' - ' || StudentCode AS entry "
                                    "FROM Mevo_Pupils WHERE "_s +
                                    Has_A_Score + u" ORDER BY entry"_s));
    EXPECT_EQ(Control<QComboBox>(*page, u"cboGroupFilter"_s).itemText(0), u"ALL"_s);
    EXPECT_EQ(Control<QComboBox>(*page, u"cboGroupFilter"_s).count(), 6);
    EXPECT_EQ(outside.pointer.shapes.first(), desktop::Pointer_Shape::Hourglass);
    EXPECT_EQ(outside.pointer.shapes.last(), desktop::Pointer_Shape::Default);
    EXPECT_FALSE(Enabled(*page, u"HotLabel9"_s));
    EXPECT_EQ(Preview().ZoomPercent(), 40);
}

TEST_F(Batch_Report_Page, TheFilterListsAGroupAndAnEmptyOneOffersNothing) {
    sample.Run(u"INSERT INTO Mevo_Groups (Group_Name) VALUES ('Nobody')"_s);
    Open();
    Click(*page, u"HotLabel7"_s);
    EXPECT_TRUE(Enabled(*page, u"HotLabel9"_s));
    Choose_Group(u"Reception"_s);
    EXPECT_EQ(Pupils().count(), Count_Where(Has_A_Score + u" AND Group_Class = 'Reception'"_s).toInt());
    Choose_Group(u"Mrs O'Hara's class"_s); // the query can't take it, and nothing is said
    EXPECT_EQ(Pupils().count(), 0);
    EXPECT_TRUE(Enabled(*page, u"HotLabel9"_s)); // as it stood
    Choose_Group(u"Nobody"_s);
    EXPECT_EQ(Pupils().count(), 0);
    EXPECT_FALSE(Enabled(*page, u"HotLabel9"_s));
}

TEST_F(Batch_Report_Page, NinePupilsMakeTwoPagesThatCanBeTurned) {
    Open();
    Create_From_First(9);
    EXPECT_EQ(Caption(*page, u"Label5"_s), u"There are 9 pupils on 2 pages."_s);
    ASSERT_EQ(Pages().count(), 2);
    EXPECT_EQ(Pages().item(1)->text(), u"Page 2"_s);
    const QString first = Pupils().item(0)->text().section(u',', 0, 0);
    const QString ninth = Pupils().item(8)->text().section(u',', 0, 0);
    EXPECT_TRUE(On_View(first));
    EXPECT_FALSE(On_View(ninth));
    Click_Entry(Pages(), 1);
    EXPECT_EQ(Preview().ShownPage(), 2);
    EXPECT_TRUE(On_View(ninth));
    Click(*page, u"HotLabel2"_s); // all pages, whichever is on view
    EXPECT_EQ(outside.printers.pages.size(), 2);
    Click(*page, u"HotLabel3"_s);
    ASSERT_EQ(outside.clipboard.copied.size(), 1);
    EXPECT_TRUE(outside.clipboard.copied[0].svg.contains("Page 2"));
}

TEST_F(Batch_Report_Page, AnOptionRebuildsAReportThatIsThereAndNoOther) {
    Open();
    Click(*page, u"Option6"_s);
    EXPECT_EQ(Pages().count(), 0);
    EXPECT_EQ(Preview().accessibleDescription(), u""_s);
    Create_From_First(9);
    EXPECT_TRUE(On_View(u"Mevo ID: "_s));
    Click(*page, u"HotLabel5"_s);
    Click_Entry(Pages(), 1);
    Click(*page, u"Option5"_s);
    EXPECT_FALSE(On_View(u"Mevo ID: "_s));
    EXPECT_EQ(Preview().ShownPage(), 2);
    EXPECT_EQ(Preview().ZoomPercent(), 67);
}

TEST_F(Batch_Report_Page, SurnamesWithADividerStopTheBatchAndLeaveTheEarlierReport) {
    Open();
    Create_From_First(3);
    const QString before = Preview().accessibleDescription();
    sample.Run(u"UPDATE Mevo_Pupils SET Surname = 'Aaron - ' || Surname WHERE StudentCode IN "
               "(SELECT StudentCode FROM Mevo_Pupils WHERE Yoon = 1 LIMIT 2)"_s);
    Choose_Group(u"ALL"_s);
    outside.boxes.Will_Answer(Answer::Ok);
    Create_From_First(10);
    ASSERT_EQ(outside.boxes.shown.size(), 1);
    EXPECT_EQ(outside.boxes.shown[0].style, desktop::Box_Style::Critical);
    EXPECT_EQ(outside.boxes.shown[0].title, u"Error needs attention"_s);
    const QStringList lines = outside.boxes.shown[0].text.split(u'\r');
    ASSERT_EQ(lines.size(), 10);
    EXPECT_TRUE(lines[0].startsWith(u"There are 2 surnames in the database"_s));
    EXPECT_EQ(lines[2], u"Example: Thompson - Ellis"_s);
    EXPECT_EQ(lines[7], u"Example: Thompson-Ellis"_s);
    EXPECT_EQ(Preview().accessibleDescription(), before);
    EXPECT_EQ(Caption(*page, u"Label5"_s), u"There are 3 pupils on 1 pages."_s);
    Click(*page, u"Option2"_s); // draws the three of the earlier report again
    EXPECT_EQ(Preview().accessibleDescription(), before);
}

// A name is looked for in the batch, whatever stands over the profiles.
TEST_F(Batch_Report_Page, ANameLeadsToItsPageAndIsFramedThere) {
    Set(Code_Where(u"Yoon = 1"_s), u"Surname = 'Žižek', Forename = 'Zoë'"_s);
    Open();
    Type_Name(u"zizek zoe"_s);
    EXPECT_EQ(Caption(*page, u"Found"_s), u"No report as yet"_s);
    Click(*page, u"HotLabel7"_s);
    Click(*page, u"HotLabel9"_s);
    EXPECT_EQ(Caption(*page, u"Found"_s), u""_s);
    const int pages = Pages().count();
    ASSERT_GT(pages, 1);
    const QImage before = Preview().viewport()->grab().toImage();
    for (const QString& label : {u"Option5"_s, u"Option6"_s}) {
        Click(*page, label);
        Type_Name(u"zizek zoe"_s); // the list is in the order of names
        EXPECT_EQ(Caption(*page, u"Found"_s), u"1 of 1, page %1\nŽižek Zoë"_s.arg(pages));
        EXPECT_EQ(Preview().ShownPage(), pages);
        EXPECT_EQ(Pages().currentRow(), pages - 1);
        Type_Name(u"nobody"_s);
        EXPECT_EQ(Caption(*page, u"Found"_s), u"Not in this report"_s);
    }
    Click(*page, u"Option5"_s);
    Type_Name(Pupils().item(0)->text().section(u',', 0, 0).left(1));
    EXPECT_TRUE(Caption(*page, u"Found"_s).contains(u"page 1\n"_s));
    EXPECT_NE(Preview().viewport()->grab().toImage(), before);
    Click(*page, u"HotLabel2"_s);
    const QImage marked_print = outside.printers.pages.first();
    Type_Name(u""_s);
    EXPECT_EQ(Preview().viewport()->grab().toImage(), before);
    Click(*page, u"HotLabel2"_s);
    EXPECT_EQ(outside.printers.pages[pages], marked_print) << "the frame is on screen only";
    QTest::keyClick(&Preview(), Qt::Key_PageDown);
    EXPECT_EQ(Pages().currentRow(), 1);
}

TEST_F(Batch_Report_Page, FullReportsGoWhereItIsChosenAndChangeNothingOnView) {
    const QString spoilt = Code_Where(u"Tolvens = 1"_s);
    Set(spoilt, u"Level_11_holes_req = NULL"_s, u"Mevo_Tolvens_data"_s);
    Make();
    Fill_Lists_Only();
    EXPECT_FALSE(Enabled(*page, u"FullReports"_s));
    Click(*page, u"HotLabel7"_s);
    const int chosen = Pupils().count();
    const QTemporaryDir own;
    outside.folders.own_documents = own.path();
    const QStringList shared = Shared_Files();
    const QDir folder(own.path());
    const auto save = [&](bool a_file_each, const QString& where, Answer last, bool stop = false) {
        outside.file_dialogs.answers = {where};
        outside.boxes.Will_Answer(last);
        outside.dialogs.Will_Do([=](QDialog& dialog) {
            dialog.show();
            if (a_file_each) Click(dialog, u"Option2"_s);
            if (stop) QTimer::singleShot(0, &dialog, [&dialog] { Click(dialog, u"HotLabel2"_s); });
            Click(dialog, u"HotLabel1"_s);
            dialog.hide();
        });
        Click(*page, u"FullReports"_s);
        EXPECT_EQ(outside.file_dialogs.asked.last().folder, own.path());
        return outside.boxes.shown.last().text;
    };
    const QString made = u"%1 full reports are in this "_s.arg(chosen - 1);
    const QString left_out = u"can't be scored (1 pupil):\r"_s;
    EXPECT_EQ(save(false, folder.filePath(u"all.pdf"_s), Answer::Ok, true),
              u"Stopped. No report was saved."_s);
    EXPECT_FALSE(folder.exists(u"all.pdf"_s));
    QString told = save(false, folder.filePath(u"all.pdf"_s), Answer::Ok);
    EXPECT_TRUE(told.startsWith(made + u"file:\r\r"_s) && told.contains(left_out) && told.contains(spoilt));
    EXPECT_TRUE(folder.exists(u"all.pdf"_s));
    told = save(true, own.path(), Answer::Ok);
    EXPECT_TRUE(told.startsWith(made + u"folder:\r\r"_s) && told.contains(left_out));
    EXPECT_EQ(folder.entryList(QDir::Files).size(), chosen);
    EXPECT_TRUE(save(true, own.path(), Answer::No).startsWith(u"%1 of these files are"_s.arg(chosen - 1)));
    EXPECT_EQ(Shared_Files(), shared);
    EXPECT_EQ(Pages().count(), 0);
    EXPECT_EQ(Caption(*page, u"Label5"_s), u""_s);
    EXPECT_EQ(scores.scores.Raw_Centile[1], 0);
    const auto changes = keeping::Changes_In(sample.Path());
    ASSERT_EQ(changes.size(), 2);
    EXPECT_EQ(changes[0].detail, u"%1 full reports saved"_s.arg(chosen - 1));
}

// What has been made by then stays.
TEST_F(Batch_Report_Page, FullReportsEndWhereTheyAreStopped) {
    Make();
    Full_Reports full({installation, scores.pupils, scores.norms, state}, false, outside.platform);
    const QTemporaryDir folder;
    for (const bool each : {true, false}) {
        for (const int steps : {0, 2, 4, 7}) {
            int left = steps;
            Full_Reports_Made made;
            const auto go_on = [&left](const QString&) { return left-- > 0; };
            const QString target = folder.filePath(u"%1 %2"_s.arg(each).arg(steps));
            if (each) {
                QDir().mkpath(target);
                full.Write_A_File_Each({1, 2, 3, 4}, target, go_on, made);
            } else {
                full.Write_One_File({1, 2, 3, 4}, target, go_on, made);
            }
            EXPECT_EQ(made.stopped, !each || steps < 4) << steps;
            EXPECT_EQ(made.sheets, each ? std::min(steps, 4) : 0);
            EXPECT_EQ(QDir(target).entryList(QDir::Files).size(), made.sheets);
            EXPECT_EQ(QFile::exists(target), each);
        }
    }
}

TEST_F(Batch_Report_Page, NothingIsPrintedOrCopiedBeforeAReport) {
    Open();
    Click(*page, u"HotLabel2"_s);
    Click(*page, u"HotLabel3"_s);
    EXPECT_TRUE(outside.printers.printed.isEmpty());
    EXPECT_TRUE(outside.clipboard.copied.isEmpty());
    Click(*page, u"HotLabel1"_s);
    EXPECT_EQ(navigator.closed, 1);
}

TEST_F(Batch_Report_Page, MoreThanTwoThousandPupilsAreABoundsError) {
    Make();
    scores.pupils.Pupils_Listed = 2001;
    EXPECT_EQ(Error_Number([this] { page->Load(); }), basics::errors::Subscript_Out_Of_Range);
    EXPECT_EQ(outside.pointer.shapes.last(), desktop::Pointer_Shape::Default);
}
