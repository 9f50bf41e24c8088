#include "pupils/fine_tuning_page.h"

#include "pupils/record_page_fixture.h"

namespace pupils {
namespace {

const QString Edit = u"HotLabel4"_s; // personal details
const QString Save = u"HotLabel2"_s;
const QString Undo = u"HotLabel3"_s;
const QString Edit_Tests = u"HotLabel5"_s;
const QString Save_Tests = u"HotLabel7"_s;
const QString Undo_Tests = u"HotLabel6"_s;

class Fine_Tuning_Page : public Page_Filled_Later<Form15> {
protected:
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
};

} // namespace

// ---- opening and choosing

TEST_F(Fine_Tuning_Page, PaintsFirstAndShowsTheFirstPupilAfterwards) {
    Load();
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

TEST_F(Fine_Tuning_Page, TheYearIsReadFromTwoDigitsTurnsAt30AndMustBeListed) {
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
    for (const QString& outside_the_lists : {u"01/03/2026"_s, u"01/13/2018"_s, u"32/01/2018"_s}) {
        constexpr int invalid_property_value = 380;
        Set(u"Khan"_s, u"DOB = '"_s + outside_the_lists + u'\'');
        Open();
        Combo(u"Combo1"_s).setCurrentIndex(Item_Of(Code_Of(u"Khan"_s)));
        EXPECT_EQ(Error_Number([this] { form->Combo1_Click(); }), invalid_property_value);
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
    const struct {
        QString surname, balls;
        bool panel;
    } cases[] = {
        {u"O'Brien"_s, u"nnnnnnnnn"_s, false},  // registered, never tested
        {u"Núñez"_s, u"nnnnnnnnc"_s, true},     // the colour test alone
        {u"Whitfield"_s, u"cccccccnc"_s, true}, // a status that was never written
        {u"Patel"_s, u"ccccccncc"_s, true},     // a 2 is no completed test
    };
    Open();
    for (const auto& tried : cases) {
        SCOPED_TRACE(tried.surname.toStdString());
        Choose_Pupil(tried.surname);
        EXPECT_EQ(Balls(), tried.balls);
        for (const QString& panel : {u"Frame4"_s, u"Frame5"_s, u"Shape1"_s})
            EXPECT_EQ(Shown(panel), tried.panel) << panel.toStdString();
    }
}

// ---- personal details

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
    sample.Run(u"DELETE FROM Mevo_Pupils"_s);
    EXPECT_EQ(Error_Number([&] { form->Save_Personal_Details(place + 1); }), 3021);
    EXPECT_EQ(Error_Number([&] { form->Save_Retest_Flags(place + 1); }),
              0); // nothing marked, nothing written
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
        EXPECT_EQ(Shown_Name() + u' ' + Shown_Birth(), u"Aisha Khan 13 January 2018"_s);
        EXPECT_EQ(Typed(u"Text2"_s) + Typed(u"Text5"_s) + Chosen(u"Combo5"_s), u"13/01/2018FFemale"_s);
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
    Set(u"Patel"_s, u"Sex = 'f'"_s);
    Open();
    Choose_Pupil(u"Khan"_s);
    Choose_Pupil(u"Patel"_s);
    EXPECT_EQ(Chosen(u"Combo5"_s) + Typed(u"Text5"_s), u"Femalef"_s) << "another letter leaves the list";
    Click(Edit); // blank names are saved
    Type(u"Text3"_s, u""_s);
    Type(u"Text4"_s, u""_s);
    Click(Save);
    EXPECT_EQ(sample.Value(u"SELECT count(*) FROM Mevo_Pupils WHERE Surname || Forename = ''"_s), u"1"_s);
}

// ---- retesting

TEST_F(Fine_Tuning_Page, ARetestTakesBackTheStatusOfACompletedTestAlone) {
    const struct {
        QString surname;
        QList<int> clicked;
        QString balls;
        QStringList taken_back;
    } cases[] = {
        {u"Žižek"_s, {1, 2, 2, 8}, u"cnrnncnnr"_s, {u"Karrel"_s, u"Pindo"_s}},
        {u"Patel"_s, {6, 0}, u"rcccccncc"_s, {u"Tolvens"_s}}, // a stored 2 is no mark
        {u"Smith-Jones"_s, {1, 3}, u"crcrccccc"_s, {u"BliksFriends"_s, u"BliksLetters"_s}},
    };
    for (const auto& tried : cases) {
        SCOPED_TRACE(tried.surname.toStdString());
        Open();
        Choose_Pupil(tried.surname);
        const QString before = Balls();
        EXPECT_EQ(Disabled({Save_Tests, Undo_Tests}), (QStringList{Save_Tests, Undo_Tests}));
        Click_Ball(5); // does nothing before the editing
        Click(Edit_Tests);
        for (const int i : tried.clicked)
            Click_Ball(i);
        EXPECT_EQ(Balls(), tried.balls);
        Set(tried.surname, u"Yoon = 1, Yoon_age = 85"_s); // finished at another workstation meanwhile
        Look();
        Click(Save_Tests);
        QStringList changes;
        for (const QString& test : tried.taken_back)
            changes.append(Cell(Code_Of(tried.surname), test) + u"1 -> 0"_s);
        EXPECT_EQ(Changed(), changes);
        EXPECT_EQ(Disabled({Save_Tests, Undo_Tests}), (QStringList{Save_Tests, Undo_Tests}));
        EXPECT_EQ(Balls(), before); // the list is older than the save
    }
    EXPECT_EQ(outside.sound.played,
              QStringList(5, installation.App_Path + u"\\Sounds\\system\\miniklik.wav"_s));
    Open();
    Choose_Pupil(u"Smith-Jones"_s);
    EXPECT_EQ(Balls(), u"cncnccccc"_s);
}

TEST_F(Fine_Tuning_Page, EachBallStandsForItsOwnTest) {
    const QStringList tests = foundation::Status_Columns();
    const QString code = Code_Of(u"Smith-Jones"_s);
    Open();
    for (int i = 0; i < 9; ++i) {
        Choose_Code(code);
        Click(Edit_Tests);
        Click_Ball(i);
        Look();
        Click(Save_Tests);
        EXPECT_EQ(Changed(), QStringList{Cell(code, tests[i]) + u"1 -> 0"_s});
    }
}

} // namespace pupils
