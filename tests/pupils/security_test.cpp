#include "pupils/security_page.h"

#include "pupils/record_page_fixture.h"

#include <QScrollBar>

namespace pupils {
namespace {

const QString Oak = u"Class 1 Oak"_s; // the sample's second group: Núñez, Patel and D'Souza
const QString Hara = u"Mrs O'Hara's class"_s;

class Security_Page : public Page_Filled_Later<Form2> {
protected:
    grid::fpSpread& Grid() { return Control<grid::fpSpread>(*form, u"Spread1"_s); }
    // The place of a pupil in the page's lists.
    int Place_Of(const QString& surname) {
        const int item = Combo(u"Combo1"_s).findText(surname + u' ', Qt::MatchStartsWith);
        EXPECT_GE(item, 0) << surname.toStdString();
        return item + 1;
    }
    QStringList Row_Of(const QString& surname) { return Grid_Row(Grid(), Place_Of(surname)); }
    void Choose_Pupil(const QString& surname) { Combo(u"Combo1"_s).Set_ListIndex(Place_Of(surname) - 1); }
    void Check(const QStringList& options) {
        for (const QString& option : options)
            Click(option);
    }
    bool Checked(const QString& option) { return Control<QRadioButton>(*form, option).isChecked(); }
    QString Pupil_Cell(const QString& surname, const QString& column) {
        return u"Mevo_Pupils "_s + Code_Of(surname) + u' ' + column + u": "_s;
    }
    // A change of each member of a group.
    QStringList Of_Members(const QString& group, const QString& change) {
        QStringList changes;
        for (const QString& code :
             sample.Column(u"SELECT StudentCode FROM Mevo_Pupils WHERE Group_Class = '%1'"_s.arg(group)))
            changes.append(u"Mevo_Pupils "_s + code + u' ' + change);
        return changes;
    }
    void Told() { outside.boxes.Will_Answer(Answer::Ok); }
};

} // namespace

// ---- opening

TEST_F(Security_Page, PaintsFirstAndFillsAfterwards) {
    Load();
    form->Combo3_Click(); // the first click on a pupil's group only wakes the page
    EXPECT_EQ(records.Pupil_Group[0], u""_s);
    for (const QString& entry :
         {u"HotLabel3"_s, u"HotLabel4"_s, u"HotLabel5"_s, u"HotLabel6"_s, u"HotLabel7"_s})
        Click(entry); // nothing comes of it, and no box
    EXPECT_EQ(Combo(u"Combo1"_s).count(), 0);
    EXPECT_TRUE(Wait_Until([this] { return Combo(u"Combo1"_s).count() == 12; }));
    EXPECT_EQ(Combo(u"Combo3"_s).count(), 5);
    EXPECT_EQ(Caption(u"Label3"_s), u"12"_s);
    Load();
    sample.Move_Away();
    outside.boxes.Expect_Abort_Ends([this] { form->Timer1_Timer(); });
}

TEST_F(Security_Page, TheGridShowsHowEachPupilLogsIn) {
    Set(u"Khan"_s, u"DOB = '03/02/19', Password = 'o''k', Dob_as_pw = 0, Show_Name = 0"_s);
    Set(u"Patel"_s, u"DOB = '2018-11-30', Password = 'hidden', Dob_as_pw = 1, Show_Name = 1"_s);
    Set(u"Okafor"_s, u"Password = NULL, Dob_as_pw = NULL, Show_Name = 2, Group_Class = NULL"_s);
    Open();
    EXPECT_EQ(Row_Of(u"Khan"_s), (QStringList{Code_Of(u"Khan"_s), u"Khan Aisha"_s, u"03/02/2019"_s, u"o'k"_s,
                                              u"Reception"_s, u"No"_s}));
    EXPECT_EQ(Row_Of(u"Patel"_s), (QStringList{Code_Of(u"Patel"_s), u"Patel Aarav"_s, u"30/11/2018"_s,
                                               u"[Use date of birth]"_s, Oak, u"Yes"_s}));
    EXPECT_EQ(Row_Of(u"Okafor"_s).mid(3), (QStringList{u""_s, u""_s, u"No"_s}));
    EXPECT_EQ(Grid_Row(Grid(), 1)[1], u"D'Souza Mia"_s); // by surname
}

// ---- one pupil

TEST_F(Security_Page, ChoosingAPupilShowsTheirSettingsAndTheirRowAndStoresNothing) {
    Set(u"Patel"_s, u"Password = 'fox', Dob_as_pw = 0, Show_Name = 0"_s);
    Set(u"Žižek"_s, u"Dob_as_pw = 1, Show_Name = 1, Group_Class = 'RECEPTION'"_s);
    Set(u"D''Souza"_s, u"Group_Class = 'Gone'"_s);
    Open();
    ASSERT_TRUE(Wait_Until([this] { return Grid().verticalScrollBar()->maximum() > 0; }));
    Choose_Pupil(u"Patel"_s);
    EXPECT_EQ(Typed(u"Text2"_s), u"fox"_s);
    EXPECT_EQ(Chosen(u"Combo3"_s), Oak);
    EXPECT_TRUE(Checked(u"Option2"_s) && Checked(u"Option8"_s));
    EXPECT_GT(Grid().verticalScrollBar()->value(), 0);
    Choose_Pupil(u"Žižek"_s);
    EXPECT_EQ(Chosen(u"Combo3"_s), u"Reception"_s); // to the database one name
    EXPECT_TRUE(Checked(u"Option1"_s) && Checked(u"Option7"_s));
    Choose_Pupil(u"D'Souza"_s); // the first
    EXPECT_EQ(Chosen(u"Combo3"_s), u"Universal"_s);
    EXPECT_EQ(Grid().verticalScrollBar()->value(), 0);
    Choose(u"Combo3"_s, Hara); // without an Update it stays in the list alone
    Choose_Pupil(u"Patel"_s);
    Choose_Pupil(u"D'Souza"_s);
    EXPECT_EQ(Chosen(u"Combo3"_s) + Row_Of(u"D'Souza"_s)[4], Hara + u"Gone"_s);
    EXPECT_EQ(Changed(), QStringList{});
    Open();
    EXPECT_EQ(Chosen(u"Combo3"_s), u"Universal"_s);
}

TEST_F(Security_Page, UpdateWritesFourColumnsOfOnePupil) {
    Set(u"Khan"_s, u"Password = NULL, Dob_as_pw = 1, Show_Name = 1"_s);
    Open();
    Choose_Pupil(u"Khan"_s);
    Type(u"Text2"_s, u"Ed's; --\"fox\""_s);
    Choose(u"Combo3"_s, Hara);
    Check({u"Option2"_s, u"Option8"_s});
    EXPECT_EQ(Changed(), QStringList{}); // until the Update
    Click(u"HotLabel7"_s);
    Expect_Changed({Pupil_Cell(u"Khan"_s, u"Dob_as_pw"_s) + u"1 -> 0"_s,
                    Pupil_Cell(u"Khan"_s, u"Group_Class"_s) + u"'Reception' -> 'Mrs O''Hara''s class'"_s,
                    Pupil_Cell(u"Khan"_s, u"Password"_s) + u"NULL -> 'Ed''s; --\"fox\"'"_s,
                    Pupil_Cell(u"Khan"_s, u"Show_Name"_s) + u"1 -> 0"_s});
    EXPECT_EQ(Row_Of(u"Khan"_s).mid(3), (QStringList{u"Ed's; --\"fox\""_s, Hara, u"No"_s}));
    sample.Run(u"DELETE FROM Mevo_Pupils WHERE Surname = 'Khan'"_s);
    EXPECT_EQ(Error_Number([this] { form->Update_Pupil_Settings(); }), 3021);
}

TEST_F(Security_Page, APasswordOrTheDateOfBirthIsNeeded) {
    Set(u"Khan"_s, u"Password = 'fox', Dob_as_pw = 0"_s);
    const QString stored = u"SELECT quote(Password) || Dob_as_pw FROM Mevo_Pupils WHERE Surname = 'Khan'"_s;
    Open();
    Choose_Pupil(u"Khan"_s);
    Check({u"Option1"_s, u"HotLabel7"_s});
    EXPECT_EQ(sample.Value(stored), u"'fox'1"_s) << "kept behind the date of birth";
    EXPECT_EQ(Row_Of(u"Khan"_s)[3], u"[Use date of birth]"_s);
    EXPECT_EQ(Typed(u"Text2"_s), u"fox"_s);

    Type(u"Text2"_s, u""_s);
    Told();
    Check({u"Option2"_s, u"HotLabel7"_s});
    Expect_Box(Box_Style::Critical, u"Warning"_s,
               u"You must enter a password for this pupil or choose D.O.B. as the password."_s);
    EXPECT_EQ(sample.Value(stored), u"'fox'1"_s);
    Check({u"Option1"_s, u"HotLabel7"_s});
    EXPECT_EQ(sample.Value(stored), u"''1"_s);
}

// ---- groups

TEST_F(Security_Page, AGroupsUpdateOverwritesItsMembersAndNobodyElse) {
    sample.Run(u"UPDATE Mevo_Pupils SET Show_Name = 1, Dob_as_pw = 0, Password = 'own'"_s);
    QStringList expected{u"Mevo_Groups 2 Dob_as_pw: 0 -> 1"_s, u"Mevo_Groups 2 Show_On_List: 1 -> 0"_s};
    expected += Of_Members(Oak, u"Show_Name: 1 -> 0"_s);
    Set(u"Patel"_s, u"Dob_as_pw = 1"_s); // their own choice
    Set(u"Khan"_s, u"Group_Class = 'class 1 OAK'"_s);
    for (const QString& member : {u"D'Souza"_s, u"Khan"_s, u"Núñez"_s})
        expected.append(Pupil_Cell(member, u"Dob_as_pw"_s) + u"0 -> 1"_s);
    expected.append(Pupil_Cell(u"Khan"_s, u"Show_Name"_s) + u"1 -> 0"_s);
    sample.Run(u"INSERT INTO Mevo_Groups (Group_Name, Show_On_List) VALUES ('Imported', 1)"_s);
    Open();
    Choose(u"Combo2"_s, u"Imported"_s); // an import leaves the password setting out
    EXPECT_TRUE(Checked(u"Option6"_s) && Checked(u"Option3"_s));
    Choose(u"Combo2"_s, Oak);
    Type(u"Text3"_s, u"left over"_s);
    Check({u"Option5"_s, u"Option4"_s, u"HotLabel6"_s});
    Expect_Changed(expected);
    EXPECT_EQ(Chosen(u"Combo2"_s), u"Universal"_s);
    EXPECT_EQ(Typed(u"Text3"_s), u""_s);
    EXPECT_EQ(Row_Of(u"Núñez"_s).mid(3), (QStringList{u"[Use date of birth]"_s, Oak, u"No"_s}));
    EXPECT_NE(Chosen(u"Combo3"_s), u""_s); // the pupil's panel is filled again
    Choose(u"Combo2"_s, Oak);
    EXPECT_TRUE(Checked(u"Option5"_s) && Checked(u"Option4"_s));
}

TEST_F(Security_Page, AGroupIsAddedOrRenamedUnderANameOfItsOwn) {
    const QString in_use = u"The Group name Reception is already in use!"_s;
    const QString new_row = u"Mevo_Groups %1: new, Dob_as_pw 0, Group_Name '%2', Show_On_List 0"_s;
    const QString to_beech = u": 'Class 1 Oak' -> 'Beech; DROP'"_s;
    const QString to_nothing = u": 'Class 2 Ash' -> ''"_s;
    const struct {
        QString renamed; // nothing: one is added
        QString typed, told;
        QStringList changed;
    } cases[] = {
        {{}, u"Recep'tion"_s, in_use, {}},
        {{}, u"reception"_s, u"New Group reception has been added"_s, {new_row.arg(u"6"_s, u"reception"_s)}},
        {{}, u"Year '1'"_s, u"New Group Year 1 has been added"_s, {new_row.arg(u"7"_s, u"Year 1"_s)}},
        {{}, u"''"_s, u"New Group  has been added"_s, {new_row.arg(u"8"_s, u""_s)}},
        {Oak, u"'Reception"_s, in_use, {}},
        {Oak, u"Beech; 'DROP'"_s, u"The group Class 1 Oak has been renamed as Beech; DROP"_s,
         Of_Members(Oak, u"Group_Class"_s + to_beech) +
             QStringList{u"Mevo_Groups 2 Group_Name"_s + to_beech}},
        {Hara, u"Beech"_s, u"The group Mrs OHaras class has been renamed as Beech"_s, {}}, // and isn't
        {u"Class 2 Ash"_s, u""_s, u"The group Class 2 Ash has been renamed as "_s,
         Of_Members(u"Class 2 Ash"_s, u"Group_Class"_s + to_nothing) +
             QStringList{u"Mevo_Groups 3 Group_Name"_s + to_nothing}},
    };
    for (const auto& tried : cases) {
        SCOPED_TRACE(tried.told.toStdString());
        const bool adding = tried.renamed.isEmpty();
        sample.Run(u"DELETE FROM Mevo_Groups WHERE Group_Name = ''"_s);
        Open();
        if (!adding) Choose(u"Combo4"_s, tried.renamed);
        Type(adding ? u"Text4"_s : u"Text3"_s, tried.typed);
        Told();
        Click(adding ? u"HotLabel3"_s : u"HotLabel4"_s);
        if (tried.told == in_use)
            Expect_Box(Box_Style::Critical, u"Error"_s, in_use);
        else
            Expect_Box(Box_Style::Information, adding ? u"New Group"_s : u"Renamed a group"_s, tried.told);
        Expect_Changed(tried.changed);
        EXPECT_EQ(Typed(u"Text4"_s) + Typed(u"Text3"_s), u""_s);
        EXPECT_FALSE(Enabled(u"HotLabel3"_s));
        EXPECT_NE(Chosen(u"Combo3"_s), u""_s); // the pupil's panel is filled again
        for (const QString& list : {u"Combo2"_s, u"Combo3"_s, u"Combo4"_s, u"Combo5"_s})
            EXPECT_EQ(QString::number(Combo(list).count()),
                      sample.Value(u"SELECT count(*) FROM Mevo_Groups"_s));
    }
}

TEST_F(Security_Page, WhatTheColumnsCannotHoldCannotBeTyped) {
    Open();
    for (const QString& entry : {u"Text2"_s, u"Text4"_s}) {
        Type(entry, QString(60, u'x'));
        EXPECT_EQ(Typed(entry), QString(50, u'x'));
    }
}

TEST_F(Security_Page, MembersOfADisbandedGroupGoToUniversalAsTheyAre) {
    Open();
    const QStringList moved = Of_Members(Oak, u"Group_Class: 'Class 1 Oak' -> 'Universal'"_s);
    Choose(u"Combo5"_s, Oak);
    Click(u"HotLabel5"_s);
    Expect_Changed(moved + QStringList{u"Mevo_Groups 2: gone"_s});
    EXPECT_EQ(Combo(u"Combo2"_s).findText(Oak), -1);
    EXPECT_NE(Chosen(u"Combo3"_s), u""_s);
}

TEST_F(Security_Page, AnApostropheOrAnAttackBreaksTheStatementAndNothingElse) {
    const QString attack = u"x'; DROP TABLE Mevo_Pupils; --"_s;
    sample.Run(u"INSERT INTO Mevo_Groups (Group_Name) VALUES ('x''; DROP TABLE Mevo_Pupils; --')"_s);
    Open();
    for (const QString& name : {Hara, attack}) {
        Choose(u"Combo5"_s, name);
        outside.boxes.Will_Answer(Answer::Ignore);
        outside.boxes.Will_Answer(Answer::Ignore);
        Click(u"HotLabel5"_s);
        Choose(u"Combo2"_s, name);
        outside.boxes.Will_Answer(Answer::Ignore);
        EXPECT_NE(Error_Number([this] { form->Update_Group_Settings(); }), 0);
    }
    EXPECT_EQ(outside.boxes.Titles(), QStringList(6, u"Error Information: ado_Open"_s));
    EXPECT_EQ(Changed(), QStringList{});
}

TEST_F(Security_Page, TheDefaultGroupKeepsItsNameAndItsRow) {
    Open();
    const QString add = u"HotLabel3"_s;
    const QString rename = u"HotLabel4"_s;
    const QString disband = u"HotLabel5"_s;
    const QString name = u"Text3"_s;
    const auto disabled = [&] { return Disabled({add, rename, disband, name}); };
    EXPECT_EQ(disabled(), (QStringList{add, rename, disband, name}));
    Combo(u"Combo4"_s).Set_ListIndex(1);
    EXPECT_EQ(disabled(), (QStringList{add, disband}));
    Type(name, u"x"_s);
    Type(name, u""_s);
    EXPECT_EQ(disabled(), (QStringList{add, rename, disband}));
    Type(name, u"y"_s);
    EXPECT_EQ(disabled(), (QStringList{add, disband}));
    Combo(u"Combo4"_s).Set_ListIndex(0);
    Combo(u"Combo5"_s).Set_ListIndex(4);
    Type(u"Text4"_s, u"z"_s);
    EXPECT_EQ(disabled(), (QStringList{rename, name}));
    Combo(u"Combo5"_s).Set_ListIndex(0);
    Type(u"Text4"_s, u""_s);
    EXPECT_EQ(disabled(), (QStringList{add, rename, disband, name}));
}

TEST_F(Security_Page, ACancelledDialogOrABrokenPrinterIsSilent) {
    Open();
    outside.Expect_Silent_Unless_Printed([this] { Click(u"HotLabel2"_s); });
}

} // namespace pupils
