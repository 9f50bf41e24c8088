#include "reports/reports_page_fixture.h"
#include "support/error_number.h"

#include <QAccessible>
#include <QPlainTextEdit>

using namespace Qt::StringLiterals;
using namespace reports;
using namespace test_support;
using desktop::Answer;
using shell::Page_Id;

const QString Tolvens_Ended = u"Level_52_holes_req = '-1', Level_52_holes_chosen = '-2'"_s;

TEST_F(Reports_Page, OpensOnTheFirstOfThePupilsWithResults) {
    Set(Code_Where(All_Normed), u"Surname = 'aardvark', Forename = 'Zoë'"_s);
    const QStringList listed = sample.Column(
        u"SELECT StudentCode FROM Mevo_Pupils WHERE Tolvens + BliksFriends + Karrel + BliksLetters "
        "+ BliksLetterNames + Drell + Mirvel + Yoon + Pindo > 0"_s);
    Load();
    EXPECT_EQ(Combo().count(), 0); // the page paints first
    page->Timer2_Timer();
    EXPECT_EQ(Combo().count(), listed.size());
    EXPECT_EQ(Combo().currentText(), u"aardvark Zoë (%1)"_s.arg(state.Current_Student_Code));
    EXPECT_EQ(state.Pupil_Name, u"aardvark Zoë"_s);
    EXPECT_TRUE(Shown(*page, u"Picture2"_s));
}

TEST_F(Reports_Page, WithoutAnyResultItSaysSo) {
    sample.Run(u"DELETE FROM Mevo_Pupils"_s);
    Open();
    EXPECT_EQ(Caption(*page, u"Label7"_s), u"No reports are available as yet"_s);
    EXPECT_EQ(Combo().count(), 0);
}

TEST_F(Reports_Page, AStrangeZScoreIsToldAndLeavesTheHeight) {
    Open();
    outside.boxes.Will_Answer(Answer::Ok);
    qint16 height = 77;
    Control<Profile_Chart>(*page, u"Picture2"_s).Convert_Z_Score_To_Bar_Height(0.5, height);
    EXPECT_EQ(height, 77);
    outside.boxes.Expect_Last(desktop::Box_Style::Information, u"Error"_s,
                              u"There has been an error calculating the bar height"_s);
}

TEST_F(Reports_Page, BarsStandAtTheScoresOfTheStoredAnswersAndOnlyOfTestsTaken) {
    const QString code = Code_Where(All_Normed);
    Set(code, u"Karrel = 0"_s);
    Open();
    page->HotLabel2_Click();
    Choose(code);
    for (int t = 1; t <= 8; ++t) {
        SCOPED_TRACE(t);
        const bool taken = t != 3;
        EXPECT_EQ(Shown(*page, u"Shape%1"_s.arg(t)), taken);
        EXPECT_EQ(Shown(*page, u"Shape12(%1)"_s.arg(t - 1)), taken);
        EXPECT_EQ(scores.scores.Raw_Centile[t] > 0, taken);
        EXPECT_EQ(Cell(3, t + 1), taken ? QString::number(scores.scores.Raw_Centile[t]) : u""_s);
        if (taken) {
            EXPECT_EQ(Place(u"Shape%1"_s.arg(t)).height(), 4 * scores.scores.Raw_Centile[t]);
        }
    }
    EXPECT_EQ(Cell(1, 4), u"Karrel"_s);
}

TEST_F(Reports_Page, TheTimePassRunsOnceForAPupil) {
    const QString code = Code_Where(All_Normed);
    Open_On(code);
    EXPECT_FALSE(state.Time_Scores_Ready);
    EXPECT_EQ(Cell(6, 2), u"0.00"_s);
    EXPECT_FALSE(Shown(*page, u"Shape12(0)"_s));
    page->HotLabel2_Click();
    EXPECT_TRUE(state.Time_Scores_Ready);
    EXPECT_TRUE(Shown(*page, u"Shape12(0)"_s));
    EXPECT_EQ(Place(u"Shape1"_s).width(), 32);
    EXPECT_EQ(Place(u"Shape12(0)"_s).height(), 4 * scores.scores.Time_Centile[1].As_Integer());
    const QString time = Cell(6, 2);
    EXPECT_NE(time, u"0.00"_s);

    // New answers show whether off and on again reads anew; choosing the pupil does.
    Set(code, u"Level_11_time = 1, Level_12_time = 1"_s, u"Mevo_Tolvens_data"_s);
    page->HotLabel2_Click();
    EXPECT_EQ(Place(u"Shape1"_s).width(), 64);
    EXPECT_FALSE(Shown(*page, u"Shape12(0)"_s));
    page->HotLabel2_Click();
    EXPECT_EQ(Cell(6, 2), time);
    Choose(code);
    EXPECT_NE(Cell(6, 2), time);
    EXPECT_TRUE(Shown(*page, u"Shape12(0)"_s));
}

// What a bar's row says is what the summary has of that test, on the scale in force.
TEST_F(Reports_Page, TheChartIsAListInWordsOfTheBarsAndMarksItShows) {
    const QString code = Code_Where(
        All_Normed +
        u" AND StudentCode NOT IN (SELECT StudentCode FROM Mevo_Friends_data WHERE Lev54req = '-1')"_s);
    Set(code, Tolvens_Ended, u"Mevo_Tolvens_data"_s);
    Set(code, u"Karrel = 0, Drell_age = 87"_s);
    Open_On(code);
    QAccessibleInterface* chart = QAccessible::queryAccessibleInterface(&Control(*page, u"Picture2"_s));
    EXPECT_EQ(chart->role(), QAccessible::List);
    ASSERT_EQ(chart->childCount(), 8);
    const auto row = [&](int t) {
        EXPECT_EQ(chart->child(t - 1)->role(), QAccessible::ListItem);
        EXPECT_EQ(chart->indexOfChild(chart->child(t - 1)), t - 1);
        return chart->child(t - 1)->text(QAccessible::Name);
    };
    EXPECT_TRUE(row(1).startsWith(u"Tolvens: centile "_s + Cell(3, 2)) && row(1).endsWith(u", terminated"_s))
        << row(1).toStdString();
    EXPECT_TRUE(
        chart->child(0)->text(QAccessible::Description).startsWith(u"'T' signifies that 'Tolvens'"_s));
    EXPECT_EQ(row(3), u"Karrel: retest allowed"_s); // it has a date
    const QString age = u", age at test 7 y 3 m"_s;
    EXPECT_EQ(row(6), u"Drell: centile "_s + Cell(3, 7) + age);
    const auto expect_the_mark_above_its_bar = [this] {
        EXPECT_TRUE(Shown(*page, u"Image12"_s));
        EXPECT_EQ(Place(u"Image12"_s).top(), Place(u"Shape1"_s).top() - 18);
        EXPECT_FALSE(Shown(*page, u"Image13"_s));
    };
    expect_the_mark_above_its_bar();
    scores.scores.Tolvens_Terminated = false; // a batch report leaves the flags of its last pupil
    scores.scores.Friends_Terminated = true;
    page->HotLabel2_Click();
    EXPECT_EQ(row(6), u"Drell: centile "_s + Cell(3, 7) + age + u", time centile "_s + Cell(7, 7));
    Click(*page, u"ShowZScores"_s);
    EXPECT_EQ(row(6), u"Drell: z-score "_s + Cell(5, 7) + age + u", time z-score "_s + Cell(8, 7));
    EXPECT_TRUE(row(1).endsWith(u", terminated"_s));
    EXPECT_FALSE(row(2).endsWith(u", terminated"_s));
    expect_the_mark_above_its_bar();
    Choose(Code_Where(u"Tolvens = 0 AND BliksFriends = 0 AND Karrel + Pindo + Yoon > 0"_s));
    EXPECT_FALSE(Shown(*page, u"Image12"_s));
}

TEST_F(Reports_Page, AMissingGroundIsTheLoadsOwnError) {
    Open();
    installation.App_Path = sample.Folder();
    EXPECT_THROW(page->ShowWhite_Click(), basics::Run_Time_Error);
}

TEST_F(Reports_Page, ReportsStartFromTheChartOnly) {
    Open();
    page->HotLabel7_Click();
    page->HotLabel4_Click();
    page->HotLabel6_Click();
    EXPECT_TRUE(navigator.opened_on_top.isEmpty());
    page->HotLabel5_Click();
    page->HotLabel4_Click();
    page->HotLabel6_Click();
    EXPECT_EQ(navigator.opened_on_top, (QList{Page_Id::Individual_Report, Page_Id::Batch_Report}));
    page->HotLabel1_Click();
    EXPECT_EQ(navigator.went_to, QList{Page_Id::Main_Menu});
}

TEST_F(Reports_Page, ATestNotDoneIsToldSo) {
    const QString code = Code_Where(All_Normed);
    Set(code, u"Yoon = 0, Pindo = 0"_s);
    Open_On(code);
    outside.boxes.Will_Answer(Answer::Ok);
    outside.boxes.Will_Answer(Answer::Ok);
    page->Test_Button_Click(8);
    page->Test_Button_Click(9);
    EXPECT_EQ(outside.boxes.shown[0].text, u"Student has not completed this test"_s);
    EXPECT_EQ(outside.boxes.shown[1].text, u"Student has not completed Pindo"_s);
    EXPECT_EQ(outside.boxes.shown[1].title, u"Test information"_s);
    EXPECT_EQ(Caption(*page, u"Label3"_s), u"Test data for Pindo"_s);
    EXPECT_TRUE(Shown(*page, u"Shape10(8)"_s));
    EXPECT_FALSE(Shown(*page, u"Shape10(7)"_s));
    EXPECT_TRUE(Shown(*page, u"Picture2"_s));
}

TEST_F(Reports_Page, NothingIsDoneBeforeThePupilsAreThere) {
    state.Current_Pupil = 1; // of an earlier visit
    scores.pupils.Student_Code[1] = u"GONE"_s;
    Load();
    for (const QString& entry : {u"BtnEnh11"_s, u"BtnEnh19"_s, u"HotLabel2"_s, u"HotLabel3"_s, u"HotLabel4"_s,
                                 u"HotLabel6"_s, u"HotLabel7"_s})
        Click(*page, entry);
    EXPECT_TRUE(Shown(*page, u"Picture2"_s));
    EXPECT_FALSE(state.Chart_Replaced || state.Show_Time_Bars);
    EXPECT_TRUE(navigator.opened_on_top.isEmpty());
}

TEST_F(Reports_Page, ATestDoneWithoutANormOpensItsTable) {
    sample.Run(u"DELETE FROM Mevo_Pupils WHERE StudentCode <> '"_s + Code_Where(All_Normed) + u'\'');
    sample.Run(u"UPDATE Mevo_Pupils SET Drell_age = 50"_s);
    sample.Run(u"UPDATE Drell_Norms SET \"Age 4 Centile\" = NULL"_s);
    Open();
    Click(*page, u"BtnEnh16"_s);
    EXPECT_TRUE(Shown(*page, u"fpSpread2"_s));
}

TEST_F(Reports_Page, TheCommentIsSavedOnlyIfItChanged) {
    const QString code = Code_Where(All_Normed);
    const QString stored = u"SELECT Comment FROM Mevo_Pupils WHERE StudentCode = '"_s + code + u'\'';
    Set(code, u"Comment = NULL"_s);
    Open_On(code);
    outside.dialogs.Will_Do([](QDialog& dialog) { Click(dialog, u"HotLabel1"_s); });
    page->HotLabel3_Click();
    EXPECT_EQ(sample.Value(stored), u"NULL"_s);

    outside.dialogs.Will_Do([](QDialog& dialog) {
        Control<QPlainTextEdit>(dialog, u"Text1"_s).setPlainText(u"O'Brien's \"best\" – Élan 5\u00A0%"_s);
        Click(dialog, u"HotLabel1"_s);
    });
    page->HotLabel3_Click();
    EXPECT_EQ(sample.Value(stored), u"O'Brien's \"best\" – Élan 5\u00A0%"_s);

    Combo().Set_ListIndex(0);
    Choose(code);
    EXPECT_EQ(state.comment.Pupil_Comment, u"O'Brien's \"best\" – Élan 5\u00A0%"_s);
    installation.Viewing_Mode = true;
    Open();
    EXPECT_FALSE(Enabled(*page, u"HotLabel3"_s)); // nobody edits what is in view
}

TEST_F(Reports_Page, AMissingNormTableMeetsTheBox) {
    sample.Run(u"DROP TABLE Drell_Norms"_s);
    outside.boxes.Will_Answer(Answer::Abort);
    EXPECT_THROW(Load(), Program_Ended);
    EXPECT_TRUE(outside.boxes.shown[0].text.contains(u"Drell_Norms"_s));
}

TEST_F(Reports_Page, ANullWhereNoneMayBeIsARunTimeError) {
    const QString code = Code_Where(All_Normed);
    Open();
    Set(code, u"Level_11_holes_req = NULL"_s, u"Mevo_Tolvens_data"_s);
    Combo().setCurrentIndex(Combo().findText(code, Qt::MatchContains));
    EXPECT_EQ(Error_Number([&] { page->Combo1_Click(); }), basics::errors::Invalid_Use_Of_Null);
    sample.Run(u"UPDATE Yoon_Norms SET \"Age 7 Centile\" = NULL WHERE \"Raw Score\" = 3"_s);
    EXPECT_EQ(Error_Number([&] { Load(); }), basics::errors::Invalid_Use_Of_Null);
}

TEST_F(Reports_Page, OnlyATableOnScreenIsPrinted) {
    Open();
    page->PrintIcon_Click();
    EXPECT_TRUE(outside.printers.printed.isEmpty());

    page->HotLabel7_Click();
    outside.printers.cancelled = true;
    page->PrintIcon_Click();
    EXPECT_TRUE(outside.printers.printed.isEmpty());
    outside.printers.cancelled = false;
    page->PrintIcon_Click();
    EXPECT_EQ(outside.printers.pages.size(), 1);

    // A printer's fault is told and the page goes on.
    outside.printers.broken = true;
    outside.boxes.Will_Answer(Answer::Ok);
    page->PrintIcon_Click();
    EXPECT_EQ(outside.boxes.shown[0].text, u"The printer is stopped."_s);
    EXPECT_TRUE(Shown(*page, u"fpSpread1"_s));
}
