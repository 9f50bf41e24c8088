// What the Reports page tells beside the chart: who, what each column means, what to be careful about, and
// why.

#include "platform/basics/number_text.h"
#include "printing/individual_report.h"
#include "printing/why_report.h"
#include "reports/reports_page_fixture.h"
#include "scoring/cohort.h"
#include "shell/conventions/guard.h"

#include <QHelpEvent>
#include <QPushButton>
#include <QRegularExpression>
#include <QTest>
#include <QToolTip>
#include <functional>
#include <gtest/gtest.h>
#include <variant>

using namespace Qt::StringLiterals;
using namespace reports;
using namespace test_support;

namespace {

class Why_Page : public Reports_Page {
protected:
    // The words at the column of test t; all of them if it has two.
    QString At_Column(int t) {
        QStringList words;
        const int left = Profile_Chart::Column_Left(t) - 5;
        for (const Column_Text& text : static_cast<Column_Values&>(Control(*page, u"Values"_s)).Texts())
            if (text.place.center().x() > left &&
                text.place.center().x() < left + Profile_Chart::Column_Pitch)
                words.append(text.text);
        return words.join(u' ');
    }
    QString On_The_Preview() {
        printing::Form94 preview(outside.platform, navigator, {installation, state, scores.scores});
        preview.Load();
        return Caption(preview, u"BatchNotice"_s);
    }
    QString Notices() { return Control(*page, u"Notices"_s).accessibleName(); }
    QString Panel_Text() { return Control<QTextBrowser>(*page, u"WhyText"_s).toPlainText(); }
    bool Is_Open() { return Shown(*page, u"Why"_s); }
    void Set_Norms(int t, const QString& assignment, const QString& where = u"1"_s) {
        sample.Run(u"UPDATE %1 SET %2 WHERE %3"_s.arg(scoring::Test_At(t).Norm_Table, assignment, where));
    }
    const QString code = Code_Where(All_Normed);
};

} // namespace

TEST_F(Why_Page, TwoOfOneNameAreToldApart) {
    const QString twin = Code_Where(u"Tolvens = 1 AND StudentCode <> '%1'"_s.arg(code));
    for (const auto& [pupil, details] : {std::pair{code, u"DOB = '05/02/2019', Group_Class = '2 Oak'"_s},
                                         std::pair{twin, u"DOB = '17/09/2018', Group_Class = '2 Ash'"_s}})
        Set(pupil, u"Surname = 'Smith', Forename = 'Jane', "_s + details);
    Open_On(code);
    const QString first = Caption(*page, u"Who"_s);
    EXPECT_TRUE(first.startsWith(u"Born 05/02/2019 \u00B7 2 Oak\nNow "_s)) << first.toStdString();
    EXPECT_TRUE(first.endsWith(u"At test "_s + state.Pupil_Age_Text.trimmed()));
    Choose(twin);
    EXPECT_TRUE(Caption(*page, u"Who"_s).startsWith(u"Born 17/09/2018 \u00B7 2 Ash\n"_s));
}

TEST_F(Why_Page, AColumnSaysItsValueOrWhyItHasNone) {
    Set(code, u"BliksFriends = 0, Karrel = 0, Karrel_date = NULL, BliksLetters = 2"_s);
    Set_Norms(6, u"\"Age 4 Centile\" = 0, \"Age 5 Centile\" = 0, \"Age 6 Centile\" = 0, "
                 "\"Age 7 Centile\" = 0, \"Age 8 Centile\" = 0"_s);
    Set_Norms(7,
              u"\"Age 4 Centile\" = 0, \"Age 5 Centile\" = 0, \"Age 6 Centile\" = 0, "
              "\"Age 7 Centile\" = 0, \"Age 8 Centile\" = 0"_s,
              u"rowid < 13"_s);
    Open_On(code);
    const QString words[] = {{},
                             Cell(3, 2),
                             u"retest allowed"_s,
                             u"not taken"_s,
                             u"not scored"_s,
                             Cell(3, 6),
                             u"no norms for this age"_s,
                             u"outside the norms"_s,
                             Cell(3, 9)};
    for (int t = 1; t <= 8; ++t)
        EXPECT_EQ(At_Column(t), words[t]) << t;
    const QRect bar = Place(u"Shape1"_s);
    Click(*page, u"ShowZScores"_s);
    EXPECT_EQ(At_Column(1), basics::Two_Decimals(Cell(5, 2).toDouble()));
    Click(*page, u"ShowCentiles"_s);
    page->HotLabel2_Click();
    EXPECT_EQ(At_Column(1), Cell(3, 2) + u' ' + Cell(7, 2));
    page->HotLabel2_Click();
    EXPECT_EQ(Place(u"Shape1"_s), bar);
    Click(*page, u"ShowValues"_s);
    EXPECT_FALSE(Shown(*page, u"Values"_s));
    Open();
    EXPECT_FALSE(Shown(*page, u"Values"_s)) << "the account's own settings keep it";
}

TEST(Column_Value, StandsByTheBarAndGivesWayToTheMark) {
    struct Case {
        QRect bar;
        bool hangs;
        int mark_bottom;
        int top;
    };
    const Case cases[] = {
        {{10, 264, 64, 136}, false, 0, 246}, // above
        {{10, 4, 64, 396}, false, 0, 6},     // no room above: inside
        {{10, 264, 64, 136}, false, 264, 266},
        {{10, 4, 64, 396}, false, 18, 20}, // behind a mark that stands in the bar
        {{10, 396, 64, 4}, false, 396, 360},
        {{10, 200, 64, 97}, true, 0, 299},
        {{10, 200, 64, 200}, true, 0, 382},
    };
    for (const Case& each : cases)
        EXPECT_EQ(Value_Place(each.bar, each.hangs, each.mark_bottom).top(), each.top) << each.bar.top();
}

TEST_F(Why_Page, ATipTellsTheRowAndTheHelpLineStays) {
    Open_On(code);
    page->show();
    const QString help = Caption(*page, u"Label7"_s);
    QHelpEvent tip(QEvent::ToolTip, QPoint(Profile_Chart::Column_Left(5) + 9, 99), QPoint());
    QApplication::sendEvent(&Control(*page, u"Picture2"_s), &tip);
    for (const QString& told : {u"Letter names"_s, u"Tested: "_s + Cell(9, 6), u"Raw score: "_s + Cell(2, 6),
                                u"Z-score: "_s + Cell(5, 6), u"Time: not read yet"_s})
        EXPECT_TRUE(QToolTip::text().contains(told)) << told.toStdString();
    EXPECT_EQ(Caption(*page, u"Label7"_s), help);
    QToolTip::hideText();
}

TEST_F(Why_Page, ThePanelExplainsAndLeavesThePageAsItWas) {
    Set(code, u"Tolvens_age = 71, Tolvens_date = '01/02/2026', DOB = '10/02/2020'"_s);
    Open_On(code);
    page->show();
    const auto raw = scores.scores.Raw_Score[1].As_Text();
    const int last_correct = scores.work.Last_Correct_Count;
    QTest::mouseDClick(&Control(*page, u"Picture2"_s), Qt::LeftButton, {},
                       {Profile_Chart::Column_Left(1) + 20, 100});
    ASSERT_TRUE(Is_Open());
    EXPECT_FALSE(state.Chart_Replaced || state.Time_Scores_Ready || Control(*page, u"Picture2"_s).isHidden());
    EXPECT_EQ(scores.work.Last_Correct_Count, last_correct);
    EXPECT_EQ(Cell(6, 2), u"0.00"_s);
    for (const QString& told : {u"Born 10/02/2020, tested 01/02/2026."_s, u"71 completed months"_s,
                                u"Norms of age 5 hold for it: 60 to 71 months."_s,
                                u"9 days before the norms of age 6, which give centile "_s, u"this score"_s})
        EXPECT_TRUE(Panel_Text().contains(told)) << told.toStdString();
    Click(*page, u"WhyCopy"_s);
    EXPECT_TRUE(outside.clipboard.texts.value(0).contains(u"Raw score\t"_s + raw));
    Click(*page, u"WhyPrint"_s);
    EXPECT_EQ(navigator.opened_on_top.last(), shell::Page_Id::Why_Report);
    EXPECT_EQ(state.why.title, u"Why this score: Tolvens"_s);
}

TEST_F(Why_Page, ThePanelIsClosedByWhateverIsChosen) {
    Open_On(code);
    const std::function<void()> choices[] = {[&] { Choose(Code_Where(u"Yoon = 1"_s)); },
                                             [&] { page->ShowZScores_Click(); },
                                             [&] { page->Test_Button_Click(2); },
                                             [&] { page->HotLabel7_Click(); },
                                             [&] { page->HotLabel4_Click(); },
                                             [&] { page->HotLabel6_Click(); },
                                             [&] { page->Close_Why(); }};
    for (const auto& choose : choices) {
        page->HotLabel5_Click();
        page->Open_Why(8);
        ASSERT_TRUE(Is_Open());
        choose();
        EXPECT_FALSE(Is_Open());
    }
    EXPECT_EQ(navigator.opened_on_top,
              (QList{shell::Page_Id::Individual_Report, shell::Page_Id::Batch_Report}));
}

TEST_F(Why_Page, WhatCannotBeWorkedOutIsToldInThePanel) {
    Open_On(code);
    sample.Run(u"DROP TABLE Mevo_Drell_data"_s);
    page->Open_Why(8); // the answers of all tests are read
    EXPECT_TRUE(Panel_Text().contains(u"Not all could be worked out: "_s)) << Panel_Text().toStdString();
}

TEST_F(Why_Page, NoticesTellWhatToBeCarefulAbout) {
    const struct {
        QString assignments, table, told;
    } cases[] = {
        {u"Karrel_age = 47"_s, {}, u"Age at test outside the norms' ages of 4 to 8 years: Karrel"_s},
        {u"Karrel_age = 48"_s, {}, {}},
        {u"DOB = '31/12/2999'"_s, {}, u"The birthday can't be right"_s},
        {u"Yoon_date = '01/01/1990'"_s, {}, u"Birthday or test date can't be right: Yoon"_s},
        {u"Drell_age = 83, Drell_date = '20/03/2026', DOB = '03/04/2019'"_s,
         {},
         u"14 days before the norms of age 7"_s},
        {u"Drell_age = 83, Drell_date = '19/03/2026', DOB = '03/04/2019'"_s, {}, {}},
        {u"Level_11_target = 'a', Level_11_chosen = 'b'"_s, u"Mevo_Mirvel_data"_s, {}},
        {u"Level_52_holes_req = '-1', Level_52_holes_chosen = '-2'"_s, u"Mevo_Tolvens_data"_s,
         u"Ended early: Tolvens"_s},
    };
    const QString kinds = u"outside the norms' ages|can't be right|before the norms|Ended early: Tolvens"_s;
    for (const auto& [assignments, table, told] : cases) {
        SCOPED_TRACE(assignments.toStdString());
        Set(code, u"DOB = '05/02/2019'"_s);
        for (int t = 1; t <= 9; ++t)
            Set(code, u"%1_age = 62, %1_date = '05/05/2024'"_s.arg(scoring::Test_At(t).Status_Column));
        Set(code, assignments, table.isEmpty() ? u"Mevo_Pupils"_s : table);
        Open_On(code);
        if (told.isEmpty())
            EXPECT_FALSE(Notices().contains(QRegularExpression(kinds))) << Notices().toStdString();
        else
            EXPECT_TRUE(Notices().contains(told)) << Notices().toStdString();
        EXPECT_TRUE(Notices().contains(u"Times not read yet"_s) && Notices().contains(u"Made-up norms"_s));
    }
}

TEST_F(Why_Page, AnExplanationGoesOnFromSheetToSheet) {
    Open_On(code);
    page->Open_Why(8);
    Click(*page, u"WhyPrint"_s);
    scoring::Why_Words words = state.why;
    words.sections.last().rows += words.sections.last().rows;
    preview::ViewPro sheets;
    printing::Draw_Why(words, installation, outside.clock, state.Norms_Digest, sheets);
    ASSERT_EQ(sheets.PageCount(), 2);
    QStringList texts;
    for (int number = 1; number <= 2; ++number)
        for (const preview::Operation& operation : sheets.Page(number).operations)
            if (const auto* text = std::get_if<preview::Text_Operation>(&operation)) {
                texts.append(text->text);
                const bool foot = text->text.startsWith(u"Mevo for Networks"_s);
                EXPECT_TRUE(foot || text->y <= 16838 - 720) << text->text.toStdString();
            }
    for (const QString& told :
         {u"Why this score: Yoon"_s, scoring::Pupil_List_Entry(scores.pupils, state.Current_Pupil)})
        EXPECT_TRUE(texts.contains(told));
    EXPECT_EQ(texts.count(u"25"_s), 2) << "each row comes once";
    EXPECT_TRUE(sheets.About.endsWith(state.Norms_Digest));
}

TEST_F(Why_Page, AfterABatchANoticeStandsUntilAPupilIsChosen) {
    Open_On(code);
    scoring::Cohort_Tables cohort;
    cohort.Cohort_Pupil[1] = static_cast<qint16>(scores.pupils.Pupils_Listed);
    scoring::Score_Cohort(
        1, [](const QString&) {}, cohort, scoring);
    page->show(); // as when the batch report is left
    EXPECT_TRUE(Notices().startsWith(u"After a batch report"_s));
    EXPECT_FALSE(On_The_Preview().isEmpty());
    Choose(code);
    EXPECT_TRUE(On_The_Preview().isEmpty());
    EXPECT_FALSE(Notices().contains(u"After a batch report"_s));
}

TEST_F(Why_Page, ABadRowNamesItsPupilBehindTheDescription) {
    Open();
    Set(code, u"Level_11_holes_req = NULL"_s, u"Mevo_Tolvens_data"_s);
    const int index = Combo().findText(u'(' + code + u')', Qt::MatchContains);
    Combo().setCurrentIndex(index);
    outside.boxes.Will_Answer(desktop::Answer::Ok);
    EXPECT_THROW(shell::Guarded(outside.platform, [&] { page->Combo1_Click(); }), Program_Ended);
    outside.boxes.Expect_Last(
        desktop::Box_Style::Critical, u"Mevo"_s,
        u"Run-time error '94':\r\rInvalid use of Null\r\rPupil: %1, test: Tolvens"_s.arg(
            Combo().itemText(index)));
}
