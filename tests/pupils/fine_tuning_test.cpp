#include "pupils/fine_tuning_page.h"

#include "pupils/record_page_fixture.h"

#include <QPainter>

using namespace Qt::StringLiterals;
using namespace test_support;

namespace pupils {
namespace {

const QString Edit = u"HotLabel4"_s; // personal details
const QString Save = u"HotLabel2"_s;
const QString Undo = u"HotLabel3"_s;
const QString Edit_Tests = u"HotLabel5"_s;
const QString Save_Tests = u"HotLabel7"_s;
const QString Undo_Tests = u"HotLabel6"_s;

class Fine_Tuning_Page : public Record_Page {
protected:
    void Load() {
        form = std::make_unique<Form15>(outside.platform, navigator, Data());
        Show(*form);
        form->Load();
    }
    void Open() {
        Load();
        form->Timer1_Timer();
        Look();
    }
    void Set(const QString& surname, const QString& what) {
        sample.Run(u"UPDATE Mevo_Pupils SET %1 WHERE Surname = '%2'"_s.arg(what, surname));
    }
    int Item_Of(const QString& code) {
        return Combo(u"Combo1"_s).findText(u'(' + code + u')', Qt::MatchContains);
    }
    void Choose_Code(const QString& code) { Combo(u"Combo1"_s).Set_ListIndex(Item_Of(code)); }
    void Choose_Pupil(const QString& surname) { Choose_Code(Code_Of(surname)); }
    QString Shown_Name() { return Typed(u"Text4"_s) + u' ' + Typed(u"Text3"_s); }
    QString Shown_Birth() {
        return Chosen(u"Combo2"_s).trimmed() + u' ' + Chosen(u"Combo3"_s) + Chosen(u"Combo4"_s);
    }
    QString Cell(const QString& code, const QString& column) {
        return u"Mevo_Pupils "_s + code + u' ' + column + u": "_s;
    }
    QStringList Disabled(const QStringList& names) {
        QStringList disabled;
        for (const QString& name : names)
            if (!Enabled(name)) disabled.append(name);
        return disabled;
    }
    // A letter a test: n not attempted, c completed, r open for a retest.
    QString Balls() {
        QString letters;
        for (int i = 0; i < 9; ++i) {
            const Test_State state = Ball(i).State();
            letters += state == Test_State::Not_Attempted ? u'n'
                       : state == Test_State::Completed   ? u'c'
                                                          : u'r';
        }
        return letters;
    }
    Test_Ball& Ball(int i) { return Control<Test_Ball>(*form, u"Image1(%1)"_s.arg(i)); }
    void Click_Ball(int i) { Click(u"Image1(%1)"_s.arg(i)); }

    const QStringList details{u"Text1"_s,  u"Text3"_s,  u"Text4"_s,     u"Combo5"_s,   u"Combo2"_s,
                              u"Combo3"_s, u"Combo4"_s, u"HotLabel3"_s, u"HotLabel2"_s};
    std::unique_ptr<Form15> form;
};

} // namespace

// ---- opening and choosing

TEST_F(Fine_Tuning_Page, PaintsFirstAndShowsTheFirstPupilAfterwards) {
    Load();
    for (const QString& panel : {u"Frame4"_s, u"Frame5"_s, u"Shape1"_s})
        EXPECT_FALSE(Shown(panel)) << panel.toStdString();
    EXPECT_EQ(Combo(u"Combo1"_s).count(), 0);
    Click(Edit);
    EXPECT_EQ(Disabled(details), details);
    EXPECT_TRUE(Wait_Until([this] { return Combo(u"Combo1"_s).count() == 12; }));
    EXPECT_EQ(Chosen(u"Combo1"_s), u"D'Souza Mia (%1)"_s.arg(Code_Of(u"D'Souza"_s)));
    EXPECT_EQ(Typed(u"Text1"_s), Code_Of(u"D'Souza"_s));
    EXPECT_EQ(Shown_Name(), u"Mia D'Souza"_s);
    EXPECT_EQ(Chosen(u"Combo5"_s), u"Female"_s);
    EXPECT_EQ(Disabled(details), details);
    EXPECT_EQ(Combo(u"Combo4"_s).itemText(0), u" 1930"_s);
    EXPECT_EQ(Combo(u"Combo4"_s).itemText(Combo(u"Combo4"_s).count() - 1), u" 2025"_s);
}

TEST_F(Fine_Tuning_Page, TheYearIsReadFromTwoDigitsAndTurnsAt30) {
    const std::pair<QString, QString> cases[] = {
        {u"17/04/99"_s, u"17 April 1999"_s},      {u"01/12/05"_s, u"1 December 2005"_s},
        {u"31/01/1930"_s, u"31 January 1930"_s},  {u"28/02/2025"_s, u"28 February 2025"_s},
        {u"29/02/2016"_s, u"29 February 2016"_s}, {u"29/02/2017"_s, u"28 February 2017"_s},
        {u"2018-06-30"_s, u"30 June 2018"_s},
    };
    for (const auto& [stored, shown] : cases) {
        SCOPED_TRACE(stored.toStdString());
        Set(u"Khan"_s, u"DOB = '"_s + stored + u'\'');
        Open();
        Choose_Pupil(u"Khan"_s);
        EXPECT_EQ(Shown_Birth(), shown);
    }
    EXPECT_EQ(Typed(u"Text2"_s), u"30/06/2018"_s);
    EXPECT_EQ(Caption(u"txAgeY"_s), u"8"_s); // by months begun, on 15 June 2026
    EXPECT_EQ(Caption(u"txAgeM"_s), u"0"_s);
}

TEST_F(Fine_Tuning_Page, ADateOfBirthOutsideTheListsIsARunTimeError) {
    constexpr int invalid_property_value = 380;
    const std::pair<QString, int> cases[] = {{u"'01/03/2026'"_s, invalid_property_value},
                                             {u"'01/13/2018'"_s, invalid_property_value},
                                             {u"'32/01/2018'"_s, invalid_property_value}};
    for (const auto& [stored, number] : cases) {
        SCOPED_TRACE(stored.toStdString());
        Set(u"Khan"_s, u"DOB = "_s + stored);
        Open();
        Combo(u"Combo1"_s).setCurrentIndex(Item_Of(Code_Of(u"Khan"_s)));
        EXPECT_EQ(test_support::Error_Number([this] { form->Combo1_Click(); }), number);
    }
}

TEST_F(Fine_Tuning_Page, APupilWithoutADateOfBirthCanBeGivenOne) {
    for (const QString& stored : {u"NULL"_s, u"''"_s, u"'unknown'"_s, u"'May 2018'"_s}) {
        SCOPED_TRACE(stored.toStdString());
        Set(u"Khan"_s, u"DOB = "_s + stored);
        Open();
        Choose_Pupil(u"Khan"_s);
        EXPECT_EQ(Shown_Name(), u"Aisha Khan"_s);
        EXPECT_EQ(Shown_Birth(), u"1 January 2015"_s); // where the lists start
        Click(Edit);
        Click(Save);
        EXPECT_EQ(Changed(), QStringList{}) << "what nobody touched stays as it was stored";
        Click(Edit);
        Choose(u"Combo4"_s, u" 2018"_s);
        Click(Save);
        EXPECT_EQ(sample.Value(u"SELECT DOB FROM Mevo_Pupils WHERE Surname = 'Khan'"_s), u"01/01/2018"_s);
    }
}

TEST_F(Fine_Tuning_Page, OnlyAPupilWithACompletedTestHasTheRetestPanel) {
    Open();
    Choose_Pupil(u"O'Brien"_s); // registered, never tested
    EXPECT_EQ(Balls(), u"nnnnnnnnn"_s);
    for (const QString& panel : {u"Frame4"_s, u"Frame5"_s, u"Shape1"_s})
        EXPECT_FALSE(Shown(panel)) << panel.toStdString();
    Choose_Pupil(u"Núñez"_s); // the colour test alone
    EXPECT_EQ(Balls(), u"nnnnnnnnc"_s);
    for (const QString& panel : {u"Frame4"_s, u"Frame5"_s, u"Shape1"_s})
        EXPECT_TRUE(Shown(panel)) << panel.toStdString();
    Choose_Pupil(u"Whitfield"_s); // a status that was never written
    EXPECT_EQ(Balls(), u"cccccccnc"_s);
    Choose_Pupil(u"Patel"_s); // a 2 is no completed test
    EXPECT_EQ(Balls(), u"ccccccncc"_s);
}

TEST_F(Fine_Tuning_Page, AnotherLetterThanMOrFLeavesTheListAsItWas) {
    Set(u"Khan"_s, u"Sex = 'f'"_s);
    Open();
    Choose_Pupil(u"Patel"_s);
    ASSERT_EQ(Chosen(u"Combo5"_s), u"Male"_s);
    Choose_Pupil(u"Khan"_s);
    EXPECT_EQ(Chosen(u"Combo5"_s), u"Male"_s);
    EXPECT_EQ(Typed(u"Text5"_s), u"f"_s);
}

TEST_F(Fine_Tuning_Page, WithoutPupilsOnlyTheLegendsWordsChange) {
    sample.Run(u"DELETE FROM Mevo_Pupils"_s);
    Open();
    EXPECT_EQ(Caption(u"Label7"_s), u"No reports are available as yet"_s);
    EXPECT_FALSE(Shown(u"Frame4"_s));
    EXPECT_EQ(Typed(u"Text1"_s), u""_s);
    EXPECT_EQ(Disabled(details), details);
}

TEST_F(Fine_Tuning_Page, MorePupilsThanTheListHoldsAreAnError) {
    sample.Run(
        u"WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 2489) "
        "INSERT INTO Mevo_Pupils (StudentCode, Surname, DOB) SELECT 'P' || i, 'Pupil', '01/01/2018' FROM n"_s);
    Load();
    EXPECT_EQ(test_support::Error_Number([this] { form->Timer1_Timer(); }),
              basics::errors::Subscript_Out_Of_Range);
    sample.Run(u"DELETE FROM Mevo_Pupils WHERE StudentCode = 'P1'"_s);
    EXPECT_EQ(test_support::Error_Number([this] { form->Timer1_Timer(); }), 0);
    EXPECT_EQ(Combo(u"Combo1"_s).count(), 2500);
}

// ---- personal details

TEST_F(Fine_Tuning_Page, EditingOpensAllButTheUserId) {
    Open();
    Click(Edit);
    EXPECT_EQ(Disabled(details), QStringList{u"Text1"_s});
    EXPECT_EQ(form->focusWidget()->objectName(), u"Text3"_s);
    QTest::keyClick(&Control<QLineEdit>(*form, u"Text3"_s), Qt::Key_Return);
    EXPECT_EQ(form->focusWidget()->objectName(), u"Text4"_s);
    QTest::keyClick(&Control<QLineEdit>(*form, u"Text4"_s), Qt::Key_Enter);
    EXPECT_EQ(form->focusWidget()->objectName(), u"Combo2"_s);
}

TEST_F(Fine_Tuning_Page, SaveWritesFourColumnsOfOnePupil) {
    Set(u"Khan"_s, u"DOB = '13/01/2018', Sex = 'F'"_s);
    Open();
    const QString code = Code_Of(u"Khan"_s);
    Choose_Code(code);
    Click(Edit);
    Type(u"Text3"_s, u"K'han - Al - Rashid"_s);
    Type(u"Text4"_s, u"Zo\"ë'; --"_s);
    Combo(u"Combo2"_s).Set_ListIndex(30);
    Choose(u"Combo3"_s, u"June"_s); // 30 days
    Choose(u"Combo4"_s, u" 2017"_s);
    Choose(u"Combo5"_s, u"Male"_s);
    EXPECT_EQ(Changed(), QStringList{});
    Click(Save);
    EXPECT_EQ(Changed(), (QStringList{Cell(code, u"DOB"_s) + u"'13/01/2018' -> '30/06/2017'"_s,
                                      Cell(code, u"Forename"_s) + u"'Aisha' -> 'Zo\"ë''; --'"_s,
                                      Cell(code, u"Sex"_s) + u"'F' -> 'M'"_s,
                                      Cell(code, u"Surname"_s) + u"'Khan' -> 'K''han-Al - Rashid'"_s}));
    EXPECT_TRUE(outside.boxes.shown.isEmpty()); // nothing is asked
    EXPECT_EQ(Shown_Name(), u"Zo\"ë'; -- K'han-Al - Rashid"_s);
    EXPECT_EQ(Disabled(details), details);
}

TEST_F(Fine_Tuning_Page, AfterSavingThePlaceStaysAndThePupilMayHaveMoved) {
    Open();
    Choose_Pupil(u"Khan"_s);
    const int place = Combo(u"Combo1"_s).ListIndex();
    const QString next = Combo(u"Combo1"_s).itemText(place + 1);
    Click(Edit);
    Type(u"Text3"_s, u"Zzz"_s);
    Click(Save);
    EXPECT_EQ(Combo(u"Combo1"_s).ListIndex(), place);
    EXPECT_EQ(Chosen(u"Combo1"_s), next);
    EXPECT_TRUE(next.startsWith(Typed(u"Text3"_s)));
}

TEST_F(Fine_Tuning_Page, UndoOrAnotherPupilDropsWhatWasTyped) {
    Set(u"Khan"_s, u"DOB = '13/01/2018', Sex = 'F'"_s);
    Open();
    Choose_Pupil(u"Khan"_s);
    const auto change_all = [this] {
        Type(u"Text3"_s, u"Other"_s);
        Type(u"Text4"_s, u"Name"_s);
        Choose(u"Combo3"_s, u"June"_s);
        Choose(u"Combo4"_s, u" 2001"_s);
        Choose(u"Combo5"_s, u"Male"_s);
    };
    const auto expect_all_back = [this] {
        EXPECT_EQ(Shown_Name(), u"Aisha Khan"_s);
        EXPECT_EQ(Shown_Birth(), u"13 January 2018"_s);
        EXPECT_EQ(Typed(u"Text2"_s) + Typed(u"Text5"_s), u"13/01/2018F"_s);
        EXPECT_EQ(Chosen(u"Combo5"_s), u"Female"_s);
        EXPECT_EQ(Changed(), QStringList{});
    };
    Click(Edit);
    change_all();
    Click(Undo);
    expect_all_back();
    EXPECT_EQ(Disabled(details), QStringList{u"Text1"_s}) << "editing goes on";
    change_all();
    Choose_Pupil(u"Patel"_s);
    EXPECT_EQ(Disabled(details), details);
    Choose_Pupil(u"Khan"_s);
    expect_all_back();
    Click(Edit); // blank names are saved
    Type(u"Text3"_s, u""_s);
    Type(u"Text4"_s, u""_s);
    Click(Save);
    EXPECT_EQ(sample.Value(u"SELECT count(*) FROM Mevo_Pupils WHERE Surname || Forename = ''"_s), u"1"_s);
}

TEST_F(Fine_Tuning_Page, APupilWhoHasGoneIsARunTimeError) {
    Open();
    Choose_Pupil(u"Khan"_s);
    sample.Run(u"DELETE FROM Mevo_Pupils WHERE Surname = 'Khan'"_s);
    const int place = Combo(u"Combo1"_s).ListIndex() + 1;
    EXPECT_EQ(test_support::Error_Number([&] { form->Save_Personal_Details(place); }), 3021);
    EXPECT_EQ(test_support::Error_Number([&] { form->Save_Retest_Flags(place); }),
              0); // nothing marked, nothing written
}

// ---- retesting

TEST_F(Fine_Tuning_Page, WithoutEditingABallDoesNothing) {
    Open();
    Choose_Pupil(u"Smith-Jones"_s);
    EXPECT_EQ(Disabled({Save_Tests, Undo_Tests}), (QStringList{Save_Tests, Undo_Tests}));
    Click_Ball(0);
    EXPECT_EQ(Balls(), u"ccccccccc"_s);
    EXPECT_TRUE(outside.sound.played.isEmpty());
}

TEST_F(Fine_Tuning_Page, OnlyACompletedTestTurnsGreenAndOnlyOnce) {
    Open();
    Choose_Pupil(u"Žižek"_s); // Tolvens, Karrel, Drell and Pindo
    ASSERT_EQ(Balls(), u"cncnncnnc"_s);
    Click(Edit_Tests);
    for (const int i : {1, 2, 2, 8})
        Click_Ball(i);
    EXPECT_EQ(Balls(), u"cnrnncnnr"_s);
    EXPECT_EQ(outside.sound.played,
              QStringList(2, installation.App_Path + u"\\Sounds\\system\\miniklik.wav"_s));
}

TEST_F(Fine_Tuning_Page, UndoneMarksWriteNothing) {
    Open();
    Choose_Pupil(u"Smith-Jones"_s);
    Click(Edit_Tests);
    for (const int i : {0, 4, 8})
        Click_Ball(i);
    Click(Undo_Tests);
    EXPECT_EQ(Balls(), u"ccccccccc"_s);
    EXPECT_EQ(Disabled({Save_Tests, Undo_Tests}), (QStringList{Save_Tests, Undo_Tests}));
    Click(Edit_Tests); // the marks are forgotten
    Click(Save_Tests);
    EXPECT_EQ(Changed(), QStringList{});
}

TEST_F(Fine_Tuning_Page, ARetestTakesBackTheStatusAlone) {
    Open();
    const QString code = Code_Of(u"Smith-Jones"_s);
    Choose_Code(code);
    Click(Edit_Tests);
    for (const int i : {1, 3, 4})
        Click_Ball(i);
    Click(Save_Tests);
    EXPECT_EQ(Changed(), (QStringList{Cell(code, u"BliksFriends"_s) + u"1 -> 0"_s,
                                      Cell(code, u"BliksLetterNames"_s) + u"1 -> 0"_s,
                                      Cell(code, u"BliksLetters"_s) + u"1 -> 0"_s}));
    EXPECT_EQ(Disabled({Save_Tests, Undo_Tests}), (QStringList{Save_Tests, Undo_Tests}));
    EXPECT_EQ(Balls(), u"ccccccccc"_s); // the list is older than the save
    Open();
    Choose_Code(code);
    EXPECT_EQ(Balls(), u"cncnncccc"_s);
}

TEST_F(Fine_Tuning_Page, AStored2IsNoMark) {
    Open();
    const QString code = Code_Of(u"Patel"_s); // their Mirvel holds one
    Choose_Code(code);
    Click(Edit_Tests);
    Click_Ball(6);
    Click_Ball(0);
    Click(Save_Tests);
    EXPECT_EQ(Changed(), QStringList{Cell(code, u"Tolvens"_s) + u"1 -> 0"_s});
}

TEST_F(Fine_Tuning_Page, EachBallStandsForItsOwnTest) {
    const QStringList columns{
        u"Tolvens"_s, u"BliksFriends"_s, u"Karrel"_s, u"BliksLetters"_s, u"BliksLetterNames"_s,
        u"Drell"_s,   u"Mirvel"_s,       u"Yoon"_s,   u"Pindo"_s};
    const QStringList captions{
        u"Tolvens"_s, u"Blik's Friends"_s, u"Karrel"_s, u"Blik's Letters"_s, u"Blik's Letter Names"_s,
        u"Drell"_s,   u"Mirvel"_s,         u"Yoon"_s,   u"Pindo"_s};
    const QString code = Code_Of(u"Smith-Jones"_s);
    Open();
    for (int i = 0; i < 9; ++i) {
        SCOPED_TRACE(columns[i].toStdString());
        EXPECT_EQ(Caption(u"Label14(%1)"_s.arg(i)), captions[i]);
        Choose_Code(code);
        Click(Edit_Tests);
        Click_Ball(i);
        Look();
        Click(Save_Tests);
        EXPECT_EQ(Changed(), QStringList{Cell(code, columns[i]) + u"1 -> 0"_s});
    }
}

TEST_F(Fine_Tuning_Page, ASaveLeavesWhatAnotherWorkstationFinishedMeanwhile) {
    Open();
    const QString code = Code_Of(u"Žižek"_s);
    Choose_Code(code);
    Click(Edit_Tests);
    Click_Ball(0);
    Set(u"Žižek"_s, u"Yoon = 1, Yoon_age = 85"_s);
    Look();
    Click(Save_Tests);
    EXPECT_EQ(Changed(), QStringList{Cell(code, u"Tolvens"_s) + u"1 -> 0"_s});
}

// ---- pictures

TEST_F(Fine_Tuning_Page, TheThreeStatesDifferByShapeAsWellAsByColour) {
    const auto grey = [](Test_State state) {
        QImage picture(40, 40, QImage::Format_ARGB32_Premultiplied);
        picture.fill(Qt::white);
        QPainter painter(&picture);
        painter.drawPixmap(0, 0, Picture_Of(state, 40, 1));
        painter.end();
        return picture.convertToFormat(QImage::Format_Grayscale8);
    };
    // Reduced to black and white, so that no mere shade counts.
    const auto dark_share_that_differs = [&](Test_State one, Test_State other) {
        const QImage left = grey(one);
        const QImage right = grey(other);
        int differing = 0;
        for (int y = 0; y < 40; ++y)
            for (int x = 0; x < 40; ++x)
                if ((qGray(left.pixel(x, y)) < 160) != (qGray(right.pixel(x, y)) < 160)) ++differing;
        return differing / 1600.0;
    };
    using enum Test_State;
    EXPECT_GT(dark_share_that_differs(Not_Attempted, Completed), 0.3);
    EXPECT_GT(dark_share_that_differs(Not_Attempted, Allow_Retest), 0.2);
    EXPECT_GT(dark_share_that_differs(Completed, Allow_Retest), 0.08);
}

TEST_F(Fine_Tuning_Page, ABallTellsItsTestAndStateInWords) {
    Open();
    Choose_Pupil(u"Žižek"_s);
    EXPECT_EQ(Ball(1).accessibleName(), u"Blik's Friends: Test not attempted"_s);
    EXPECT_EQ(Ball(2).accessibleName(), u"Karrel: Test completed"_s);
    Click(Edit_Tests);
    QTest::keyClick(&Ball(2), Qt::Key_Space);
    EXPECT_EQ(Ball(2).accessibleName(), u"Karrel: Allow retest"_s);
}

// ---- around it

TEST_F(Fine_Tuning_Page, HelpFollowsThePointer) {
    Open();
    Choose_Pupil(u"Smith-Jones"_s);
    const std::pair<QString, QString> helps[] = {
        {u"Label1"_s, u"Enter the individual's gender by clicking on the appropriate tick box."_s},
        {u"Label6"_s,
         u"This unique identifier cannot be changed as it is created and used by the program."_s},
        {u"HotLabel4"_s,
         u"Select 'Edit details' to change something. Select 'Save changes' to submit these to the database."_s},
        {u"HotLabel1"_s, u"Go back to the Main Admin Menu."_s},
        {u"Image1(4)"_s, u"Go back to the Main Admin Menu."_s}, // has none of its own
        {u"Text4"_s, u"Enter your first name(s) in the second box down"_s},
    };
    for (const auto& [control, help] : helps)
        EXPECT_EQ(Help_At(control, u"Label5"_s), help) << control.toStdString();
    Click(u"HotLabel1"_s); // the way back
    EXPECT_EQ(navigator.went_to, QList{shell::Page_Id::Main_Menu});
}

} // namespace pupils
