#include "printing/batch_report.h"

#include "reports/scored_page.h"
#include "support/error_number.h"

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
