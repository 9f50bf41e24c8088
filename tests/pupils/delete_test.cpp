#include "pupils/delete_page.h"

#include "platform/basics/run_time_error.h"
#include "pupils/record_page_fixture.h"

#include <QSignalSpy>

using namespace Qt::StringLiterals;
using namespace test_support;
using desktop::Answer;
using desktop::Box_Style;

namespace pupils {
namespace {

// The orders in which the tables lose their rows.
const QStringList Order_For_A_Pupil{u"Mevo_Pupils"_s,       u"mevo_pindo_data"_s,   u"mevo_friends_data"_s,
                                    u"mevo_letters_data"_s, u"mevo_tolvens_data"_s, u"mevo_drell_data"_s,
                                    u"mevo_mirvel_data"_s,  u"mevo_karrel_data"_s,  u"mevo_yoon_data"_s,
                                    u"mevo_bln_data"_s};
const QStringList Order_For_A_Group{u"mevo_tolvens_data"_s, u"mevo_friends_data"_s, u"mevo_letters_data"_s,
                                    u"mevo_bln_data"_s,     u"mevo_drell_data"_s,   u"mevo_mirvel_data"_s,
                                    u"mevo_karrel_data"_s,  u"mevo_yoon_data"_s,    u"mevo_pindo_data"_s,
                                    u"Mevo_Pupils"_s};
const QStringList Order_For_Everyone{u"mevo_tolvens_data"_s, u"mevo_friends_data"_s, u"mevo_letters_data"_s,
                                     u"mevo_pindo_data"_s,   u"mevo_karrel_data"_s,  u"mevo_drell_data"_s,
                                     u"mevo_mirvel_data"_s,  u"mevo_yoon_data"_s,    u"mevo_bln_data"_s,
                                     u"Mevo_Pupils"_s};

const QString Caution = u"Deleting Records from Database - CAUTION!"_s;
const QString One = u"Are you sure you wish to delete this individual? - (this is irreversible)"_s;
const QString Delete_Button = u"HotLabel2"_s;
const QString Group_Button = u"HotLabel5"_s;

class Delete_Page : public Record_Page {
protected:
    void Open() {
        form = std::make_unique<Form9>(outside.platform, navigator, Data(), counts);
        Show(*form);
        form->Load();
        Look();
    }
    List_View& List() { return Control<List_View>(*form, u"ListView1"_s); }
    QStringList Row(int item) {
        QStringList texts;
        for (int column = 0; column < List().columnCount(); ++column)
            texts.append(List().topLevelItem(item - 1)->text(column));
        return texts;
    }
    QString Code(int item) { return Row(item)[3]; }
    void Ctrl_Click(int item) {
        const QRect place = List().visualItemRect(List().topLevelItem(item - 1));
        QTest::mouseClick(List().viewport(), Qt::LeftButton, Qt::ControlModifier, place.center());
    }
    void Wants(Answer answer) { outside.boxes.Will_Answer(answer); }
    int Members(const QString& group) {
        return sample.Value(u"SELECT count(*) FROM Mevo_Pupils WHERE Group_Class = '%1'"_s.arg(group))
            .toInt();
    }
    // What a pupil's deletion leaves behind no trace of.
    static QStringList All_Gone(const QStringList& codes) {
        QStringList gone;
        for (const QString& code : codes)
            for (const QString& table :
                 {u"Mevo_BLN_data"_s, u"Mevo_Drell_data"_s, u"Mevo_Friends_data"_s, u"Mevo_Karrel_data"_s,
                  u"Mevo_Letters_data"_s, u"Mevo_Mirvel_data"_s, u"Mevo_Pindo_data"_s, u"Mevo_Pupils"_s,
                  u"Mevo_Tolvens_data"_s, u"Mevo_Yoon_data"_s})
                gone.append(table + u' ' + code + u": gone"_s);
        gone.sort();
        return gone;
    }

    shell::Menu_Counts counts;
    std::unique_ptr<Form9> form;
};

QString Many(int number) {
    return u"Are you sure you wish to delete these %1 individuals? - (this is irreversible)"_s.arg(number);
}

} // namespace

// ---- opening and choosing

TEST_F(Delete_Page, ListsEveryoneBySurnameAsItLoads) {
    sample.Run(u"UPDATE Mevo_Pupils SET Surname = 'aardvark', Group_Class = NULL WHERE Surname = 'Khan'"_s);
    Open();
    ASSERT_EQ(List().Count(), 12);
    EXPECT_EQ(Row(1), (QStringList{u"aardvark"_s, u"Aisha"_s, u""_s, Code_Of(u"aardvark"_s)}));
    EXPECT_EQ(Row(2)[0], u"D'Souza"_s);
    QStringList headings;
    for (int column = 0; column < 4; ++column)
        headings.append(List().headerItem()->text(column));
    EXPECT_EQ(headings, (QStringList{u"Surname"_s, u"Forename"_s, u"Group/Class"_s, u"User ID"_s}));
    EXPECT_EQ(Chosen(u"Combo1"_s), u"ALL GROUPS"_s);
    EXPECT_EQ(Combo(u"Combo1"_s).count(), 6);
    EXPECT_EQ(Caption(u"Label5"_s), u"12"_s); // the total, until the first click
    EXPECT_EQ(Caption(u"Label7"_s), u"12"_s);
    EXPECT_EQ(Caption(Group_Button), u"Delete all from Group"_s);
    EXPECT_EQ(counts.Number_Of_Students.As_Integer(), 12);
    EXPECT_FALSE(Control<QTimer>(*form, u"Timer1"_s).isActive());
}

TEST_F(Delete_Page, AGroupShowsItsMembersAndLeavesItsCountBehind) {
    Open();
    Ctrl_Click(1);
    EXPECT_EQ(Caption(u"Label5"_s), u"1"_s);
    Choose(u"Combo1"_s, u"Class 1 Oak"_s);
    const int members = Members(u"Class 1 Oak"_s);
    ASSERT_GT(members, 1);
    EXPECT_EQ(List().Count(), members);
    for (int item = 1; item <= members; ++item)
        EXPECT_EQ(Row(item)[2], u"Class 1 Oak"_s);
    EXPECT_EQ(Caption(u"Label7"_s), QString::number(members));
    EXPECT_EQ(Caption(u"Label5"_s), u"1"_s); // a group's total isn't taken for a selection
    EXPECT_EQ(counts.Number_Of_Students.As_Integer(), members);
}

TEST_F(Delete_Page, AnEmptyGroupOffersToDisbandItAndNothingElse) {
    sample.Run(u"UPDATE Mevo_Pupils SET Group_Class = 'Universal'"_s);
    Open();
    Point_At(*form, Delete_Button);
    Choose(u"Combo1"_s, u"Reception"_s);
    EXPECT_EQ(Caption(Group_Button), u"Disband Group"_s);
    for (const QString& button : {u"HotLabel2"_s, u"HotLabel3"_s, u"HotLabel4"_s})
        EXPECT_FALSE(Enabled(button)) << button.toStdString();
    EXPECT_EQ(Caption(u"Label1"_s), u""_s);
    Choose(u"Combo1"_s, u"Universal"_s);
    EXPECT_EQ(Caption(Group_Button), u"Delete all from Group"_s);
    for (const QString& button : {u"HotLabel2"_s, u"HotLabel3"_s, u"HotLabel4"_s})
        EXPECT_TRUE(Enabled(button)) << button.toStdString();
}

TEST_F(Delete_Page, ADatabaseWithoutPupilsOffersNothing) {
    sample.Run(u"DELETE FROM Mevo_Pupils"_s);
    Open();
    EXPECT_EQ(List().Count(), 0);
    EXPECT_EQ(Caption(u"Label5"_s), u"0"_s);
    EXPECT_EQ(Caption(Group_Button), u"Delete all from Group"_s);
    for (const QString& button : {u"HotLabel2"_s, u"HotLabel3"_s, u"HotLabel4"_s})
        EXPECT_FALSE(Enabled(button)) << button.toStdString();
    Click(Group_Button); // everyone is nobody: it does nothing, without a word
    EXPECT_EQ(Changed(), QStringList{});
}

TEST_F(Delete_Page, SelectingCountsWhatIsSelected) {
    Open();
    Click(u"HotLabel3"_s);
    EXPECT_EQ(Caption(u"Label5"_s), u"12"_s);
    Ctrl_Click(4);
    EXPECT_EQ(Caption(u"Label5"_s), u"11"_s);
    Click(u"HotLabel4"_s);
    EXPECT_EQ(Caption(u"Label5"_s), u"0"_s);
    Ctrl_Click(2);
    Ctrl_Click(5);
    EXPECT_EQ(Caption(u"Label5"_s), u"2"_s);
    QTest::keyClick(&List(), Qt::Key_Down, Qt::ShiftModifier); // the keyboard selects as well
    EXPECT_EQ(Caption(u"Label5"_s), QString::number(List().Selected_Count()));
    EXPECT_NE(Caption(u"Label5"_s), u"0"_s);
}

// ---- those selected

TEST_F(Delete_Page, WithNobodySelectedTheButtonDoesNothingWithoutAWord) {
    Open();
    Click(Delete_Button);
    EXPECT_EQ(Changed(), QStringList{});
}

TEST_F(Delete_Page, OnePupilGoesFromAllTenTables) {
    Open();
    const QString code = Code_Of(u"O'Brien"_s);
    Ctrl_Click(List().indexOfTopLevelItem(List().findItems(code, Qt::MatchExactly, 3).constFirst()) + 1);
    Wants(Answer::No);
    Click(Delete_Button);
    Expect_Box(0, Box_Style::Yes_No_Question, Caution, One);
    EXPECT_EQ(Changed(), QStringList{});
    EXPECT_EQ(List().Selected_Count(), 1);

    Wants(Answer::Yes);
    Click(Delete_Button);
    EXPECT_EQ(Changed(), All_Gone({code}));
    EXPECT_EQ(List().Count(), 11);
    EXPECT_EQ(Caption(u"Label7"_s), u"11"_s);
    EXPECT_EQ(counts.Number_Of_Students.As_Integer(), 11);
    EXPECT_EQ(outside.pointer.shapes.last(), desktop::Pointer_Shape::Default);
}

TEST_F(Delete_Page, OneOfThreeIsDeselectedAndTwoGo) {
    Open();
    for (const int item : {2, 7, 12})
        Ctrl_Click(item);
    Ctrl_Click(7);
    const QStringList chosen{Code(2), Code(12)};
    QSignalSpy told(&Control<QProgressBar>(*form, u"ProgressBar1"_s), &QProgressBar::valueChanged);
    outside.boxes.Will_Answer(Answer::Yes, [this] { Ctrl_Click(3); }); // not asked about
    Click(Delete_Button);
    EXPECT_EQ(told.count(), 3); // none, one and both
    EXPECT_FALSE(Shown(u"ProgressBar1"_s));
    Expect_Box(0, Box_Style::Yes_No_Question, Caution, Many(2));
    EXPECT_EQ(Changed(), All_Gone(chosen));
}

TEST_F(Delete_Page, ADatabaseOutOfReachIsARunTimeError) {
    Open();
    Click(u"HotLabel3"_s);
    Wants(Answer::Yes);
    sample.Move_Away();
    EXPECT_NE(test_support::Error_Number([this] { form->HotLabel2_Click(); }), 0);
}

// ---- the orders of the statements: a table that is missing ends the work there, without a word

namespace {

// Rows left in each table, in the given order; the missing one is "-".
QString Left(const Sample_File& sample, const QStringList& order, const QString& missing,
             const QString& code) {
    QStringList left;
    for (const QString& table : order)
        left.append(table == missing ? u"-"_s
                                     : sample.Value(u"SELECT count(*) FROM %1 WHERE StudentCode = '%2'"_s.arg(
                                           table, code)));
    return left.join(u' ');
}

QString Expected_Left(qsizetype missing, qsizetype tables) {
    QStringList left;
    for (qsizetype i = 0; i < tables; ++i)
        left.append(i < missing ? u"0"_s : i == missing ? u"-"_s : u"1"_s);
    return left.join(u' ');
}

// Runs the work on a database that lacks one table after the other; the pupils' own table stays.
void Expect_Order(const QStringList& order, const std::function<void(Form9&, const QString& code)>& work) {
    for (qsizetype missing = 0; missing < order.size(); ++missing) {
        if (order[missing] == "Mevo_Pupils"_L1) continue;
        SCOPED_TRACE(order[missing].toStdString());
        const Sample_File sample;
        Scripted_Platform outside;
        Recording_Navigator navigator;
        foundation::Installation installation = sample.Installed();
        scoring::Pupil_Lists lists;
        Pupil_Records records;
        shell::Menu_Counts counts;
        Form9 form(outside.platform, navigator, {installation, lists, records}, counts);
        form.Load();
        const QString code =
            sample.Value(u"SELECT StudentCode FROM Mevo_Pupils WHERE Group_Class = 'Reception'"_s);
        sample.Run(u"DROP TABLE "_s + order[missing]);
        work(form, code);
        EXPECT_EQ(Left(sample, order, order[missing], code), Expected_Left(missing, order.size()));
        EXPECT_TRUE(outside.boxes.shown.isEmpty());
    }
}

} // namespace

TEST(Delete_Order, ThePupilsOwnRowGoesFirst) {
    Expect_Order(Order_For_A_Pupil, [](Form9& form, const QString& code) {
        bool result = true;
        form.DeletePupil(code, result);
        EXPECT_FALSE(result);
    });
}

TEST(Delete_Order, AGroupLosesItsDataFirst) {
    Expect_Order(Order_For_A_Group,
                 [](Form9& form, const QString&) { EXPECT_EQ(form.DeletePupilsInGroup(u"Reception"_s), 0); });
}

TEST(Delete_Order, EveryoneLosesTheDataFirstInAnOrderOfItsOwn) {
    Expect_Order(Order_For_Everyone, [](Form9& form, const QString&) {
        EXPECT_EQ(form.DeletePupilsInGroup(u"ALL GROUPS"_s), 0);
    });
}

TEST_F(Delete_Page, AFailureAmongSeveralIsSilentAndTheRestGoesOn) {
    Open();
    const QStringList codes{Code(1), Code(2)};
    sample.Run(u"DROP TABLE Mevo_Friends_data"_s);
    Look();
    Ctrl_Click(1);
    Ctrl_Click(2);
    Wants(Answer::Yes);
    Click(Delete_Button);
    QStringList gone;
    for (const QString& code : codes)
        gone += {u"Mevo_Pindo_data "_s + code + u": gone"_s, u"Mevo_Pupils "_s + code + u": gone"_s};
    gone.sort();
    EXPECT_EQ(Changed(), gone);
    EXPECT_EQ(List().Count(), 10);
}

// ---- a group

TEST_F(Delete_Page, AGroupGoesWithItsResultsAndKeepsItsOwnRow) {
    Open();
    Choose(u"Combo1"_s, u"Class 2 Ash"_s);
    const int members = List().Count();
    ASSERT_GT(members, 1);
    QStringList codes;
    for (int item = 1; item <= members; ++item)
        codes.append(Code(item));
    Wants(Answer::No);
    Click(Group_Button);
    Expect_Box(0, Box_Style::Yes_No_Question, u"Delete Pupils in Group"_s, Many(members));
    EXPECT_EQ(Changed(), QStringList{});

    Wants(Answer::Yes);
    Click(Group_Button);
    EXPECT_EQ(Changed(), All_Gone(codes));
    EXPECT_EQ(List().Count(), 0);
    EXPECT_EQ(Chosen(u"Combo1"_s), u"Class 2 Ash"_s);
    EXPECT_EQ(Caption(Group_Button), u"Delete all from Group"_s); // until the list is clicked again
    EXPECT_FALSE(Enabled(Delete_Button));
}

TEST_F(Delete_Page, TheSecondClickDisbandsTheEmptiedGroup) {
    Open();
    Choose(u"Combo1"_s, u"Class 2 Ash"_s);
    Wants(Answer::Yes);
    Click(Group_Button);
    Choose(u"Combo1"_s, u"Class 2 Ash"_s);
    EXPECT_EQ(Caption(Group_Button), u"Disband Group"_s);
    Look();
    Wants(Answer::No);
    Click(Group_Button);
    Expect_Box(1, Box_Style::Yes_No_Question, u"Empty Group"_s,
               u"The group chosen is empty. Do you wish to disband the group?"_s);
    EXPECT_EQ(Changed(), QStringList{});

    Wants(Answer::Yes);
    Click(Group_Button);
    EXPECT_EQ(Changed(), QStringList{u"Mevo_Groups 3: gone"_s});
    EXPECT_EQ(Chosen(u"Combo1"_s), u"ALL GROUPS"_s);
    EXPECT_EQ(Combo(u"Combo1"_s).findText(u"Class 2 Ash"_s), -1);
    EXPECT_GT(List().Count(), 0);
}

TEST_F(Delete_Page, EveryoneGoesAndTheGroupsStay) {
    Open();
    QStringList codes;
    for (int item = 1; item <= 12; ++item)
        codes.append(Code(item));
    Wants(Answer::Yes);
    Click(Group_Button);
    Expect_Box(0, Box_Style::Yes_No_Question, u"Delete Pupils in Group"_s, Many(12));
    EXPECT_EQ(Changed(), All_Gone(codes));
    EXPECT_EQ(counts.Number_Of_Students.As_Integer(), 0);
}

TEST_F(Delete_Page, TheDefaultGroupIsNeverDisbandedHoweverItIsSpelt) {
    sample.Run(u"UPDATE Mevo_Pupils SET Group_Class = 'Reception'"_s);
    sample.Run(u"INSERT INTO Mevo_Groups (Group_Name) VALUES ('uniVERSAL'), ('All Groups')"_s);
    Open();
    for (const QString& name : {u"Universal"_s, u"uniVERSAL"_s, u"All Groups"_s}) {
        Combo(u"Combo1"_s).Set_ListIndex(Combo(u"Combo1"_s).findText(name, Qt::MatchCaseSensitive));
        EXPECT_EQ(Caption(Group_Button), u"Disband Group"_s);
        Click(Group_Button);
    }
    EXPECT_EQ(Changed(), QStringList{});
}

TEST_F(Delete_Page, AnApostropheInAGroupBreaksItsStatements) {
    const QString ohara = u"Mrs O'Hara's class"_s;
    ASSERT_GT(Members(u"Mrs O''Hara''s class"_s), 0);
    Open();
    Wants(Answer::Ignore);
    Choose(u"Combo1"_s, ohara);
    EXPECT_EQ(outside.boxes.Titles(), QStringList{u"Error Information: ado_Open"_s});
    EXPECT_EQ(outside.boxes.shown[0].style, Box_Style::Abort_Retry_Ignore_Critical);
    EXPECT_EQ(List().Count(), 0);
    EXPECT_EQ(Caption(Group_Button), u"Disband Group"_s);
    EXPECT_EQ(form->DeletePupilsInGroup(ohara), 0); // silent
    Wants(Answer::Yes);
    EXPECT_NE(test_support::Error_Number([this] { form->Delete_Group_Action(); }),
              0); // not silent: nothing handles it
    EXPECT_EQ(Changed(), QStringList{});
}

TEST_F(Delete_Page, NoNameOfAGroupCarriesASecondStatement) {
    const QString hostile = u"x'; DROP TABLE Mevo_Pupils; --"_s;
    Open();
    EXPECT_EQ(form->DeletePupilsInGroup(hostile), 0);
    EXPECT_NE(test_support::Error_Number([&] { form->DeleteGroup(hostile); }), 0);
    bool result = true;
    form->DeletePupil(hostile, result);
    EXPECT_FALSE(result);
    EXPECT_EQ(Changed(), QStringList{});
}

TEST_F(Delete_Page, MoreGroupsThanTheListHoldsAreAnError) {
    sample.Run(u"WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 96) "
               "INSERT INTO Mevo_Groups (Group_Name) SELECT 'G' || i FROM n"_s);
    form = std::make_unique<Form9>(outside.platform, navigator, Data(), counts);
    EXPECT_EQ(test_support::Error_Number([this] { form->Load(); }), basics::errors::Subscript_Out_Of_Range);
}

} // namespace pupils
