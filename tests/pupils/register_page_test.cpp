#include "pupils/register_page.h"

#include "pupils/record_page_fixture.h"

namespace pupils {
namespace {

class Register : public Record_Page {
protected:
    Register() {
        counts.Number_Of_Students = 12;
        Show(form);
        QApplication::setActiveWindow(&form);
        form.Load();
        Look();
        EXPECT_TRUE(Wait_Until([this] { return Combo(u"Combo3"_s).count() > 0; }));
    }

    void Enter_Names(const QString& surname, const QString& forename) {
        Type(u"Text3"_s, surname);
        Type(u"Text4"_s, forename);
    }
    void Save(Answer answer = Answer::Yes) {
        outside.boxes.Will_Answer(answer);
        Click(u"HotLabel2"_s);
    }

    shell::Menu_Counts counts;
    Form10 form{outside.platform, navigator, installation, counts};
};

} // namespace

TEST_F(Register, OpensReadyForTheFirstPupil) {
    EXPECT_EQ(Caption(u"Label13"_s), u"12"_s);
    EXPECT_EQ(Typed(u"Text2"_s) + Typed(u"Text5"_s), u"01/01/2005M"_s);
    EXPECT_EQ(Caption(u"txAgeY"_s) + u'/' + Caption(u"txAgeM"_s), u"21/5"_s);
    EXPECT_FALSE(Shown(u"Shape1"_s) || Shown(u"Shape2"_s));
    EXPECT_TRUE(Control(form, u"Text3"_s).hasFocus());
}

TEST_F(Register, SaveStoresThePupilInAllTables) {
    Enter_Names(u"O'Brien - Hall"_s, u"D'Arcy"_s);
    Combo(u"Combo4"_s).Set_ListIndex(2004 - 1980);
    Combo(u"Combo3"_s).Set_ListIndex(1);
    Combo(u"Combo2"_s).Set_ListIndex(28);
    Combo(u"Combo5"_s).Set_ListIndex(1);
    Save();

    const QString code = Code_Of(u"O'Brien-Hall"_s);
    Expect_Changed(
        Rows_Of_A_New_Pupil(code, u"'O''Brien-Hall'|'D''Arcy'|'F'|'29/02/2004'|'Universal'|''|1"_s));
    EXPECT_EQ(form.Current_StudentCode, code);
    EXPECT_EQ(form.Current_Forename + u' ' + form.Current_Surname, u"D'Arcy O'Brien - Hall"_s);
}

TEST_F(Register, AsksBeforeItSavesAndAnythingButYesLeavesTheBoxesFilled) {
    for (const Answer answer : {Answer::No, Answer::Cancel}) {
        Enter_Names(u"Grey"_s, u"Anna"_s);
        Save(answer);
        Expect_Box(Box_Style::Yes_No_Question, u"Saving"_s, u"Do you wish to save these details ?"_s);
        EXPECT_EQ(Typed(u"Text3"_s) + Typed(u"Text4"_s), u"GreyAnna"_s);
    }
    EXPECT_EQ(outside.random.seeds.size(), 2) << "a code is made before the question";
    EXPECT_EQ(Pupils(), u"12"_s);
    EXPECT_EQ(Caption(u"Label10"_s), u"0"_s);
    Click(u"HotLabel1"_s); // nor does leaving ask
    EXPECT_EQ(navigator.went_to, QList{shell::Page_Id::Main_Menu});
}

TEST_F(Register, AnIncompleteEntryIsRefused) {
    const struct {
        QString surname, forename, sex;
        QString focus; // after the box
    } cases[] = {{u""_s, u"Anna"_s, u"F"_s, u"Text3"_s},
                 {u"Grey"_s, u""_s, u"F"_s, u"Text3"_s},
                 {u"Grey"_s, u"Anna"_s, u""_s, u"Combo5"_s}}; // the list that fills Text5
    for (const auto& tried : cases) {
        Enter_Names(tried.surname, tried.forename);
        Type(u"Text5"_s, tried.sex);
        Control(form, u"Text3"_s).setFocus();
        outside.boxes.Will_Answer(Answer::Ok);
        form.HotLabel2_Click();
        Expect_Box(Box_Style::Critical, u"Personal details incomplete"_s,
                   u"All fields should be completed."_s);
        EXPECT_EQ(form.focusWidget()->objectName(), tried.focus);
    }
    EXPECT_EQ(Pupils(), u"12"_s);
    EXPECT_TRUE(outside.random.seeds.isEmpty()) << "no code is made";
}

TEST_F(Register, CountsTheSessionAndClearsForTheNext) {
    Enter_Names(u"Grey"_s, u"Anna"_s);
    Combo(u"Combo4"_s).Set_ListIndex(40);
    Combo(u"Combo5"_s).Set_ListIndex(1);
    Save();
    Enter_Names(u" "_s, u" "_s); // blanks are names
    Save();
    EXPECT_EQ(Caption(u"Label10"_s), u"2"_s);
    EXPECT_EQ(Caption(u"Label11"_s), u"   "_s);
    EXPECT_EQ(Caption(u"Label13"_s), u"14"_s);
    EXPECT_EQ(counts.Number_Of_Students.As_Long(), 14);
    EXPECT_EQ(Pupils(), u"14"_s);
    EXPECT_EQ(Typed(u"Text3"_s) + Typed(u"Text4"_s), u""_s);
    EXPECT_EQ(Typed(u"Text2"_s) + Typed(u"Text5"_s), u"01/01/2005M"_s);
    EXPECT_TRUE(Control(form, u"Text3"_s).hasFocus());
}

TEST_F(Register, AFailureToStoreIsSilentAndCountsAllTheSame) {
    sample.Move_Away();
    Enter_Names(u"Grey"_s, u"Anna"_s);
    Save();
    sample.Put_Back();
    EXPECT_EQ(Caption(u"Label10"_s), u"1"_s);
    EXPECT_EQ(Caption(u"Label11"_s), u"Anna Grey"_s);
    EXPECT_EQ(Typed(u"Text3"_s), u""_s);
    EXPECT_EQ(Pupils(), u"12"_s);
}

} // namespace pupils
