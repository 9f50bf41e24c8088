#include "pupils/delete_page.h"

#include "platform/basics/run_time_error.h"
#include "pupils/record_page_fixture.h"

#include <QSignalSpy>

namespace pupils {
namespace {

// The orders in which the tables lose their rows.
const QString Order_For_A_Pupil = u"pupils pindo friends letters tolvens drell mirvel karrel yoon bln"_s;
const QString Order_For_A_Group = u"tolvens friends letters bln drell mirvel karrel yoon pindo pupils"_s;
const QString Order_For_Everyone = u"tolvens friends letters pindo karrel drell mirvel yoon bln pupils"_s;

QString Table(const QString& word) {
    return word == "pupils"_L1 ? u"mevo_pupils"_s : u"mevo_%1_data"_s.arg(word);
}

const QString Caution = u"Deleting Records from Database - CAUTION!"_s;
const QString One = u"Are you sure you wish to delete this individual? - (this is irreversible)"_s;
const QString Delete_Button = u"HotLabel2"_s;
const QString Group_Button = u"HotLabel5"_s;
const QStringList Of_The_List{Delete_Button, u"HotLabel3"_s, u"HotLabel4"_s};

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
    // What the deletion of these pupils changes.
    QStringList All_Gone(const QStringList& codes) const {
        QStringList gone;
        for (const QString& code : codes)
            for (const QString& table :
                 sample.Column(u"SELECT name FROM sqlite_master WHERE sql LIKE '%StudentCode%'"_s))
                gone.append(table + u' ' + code + u": gone"_s);
        return gone;
    }
    QStringList Codes() {
        QStringList codes;
        for (int item = 1; item <= List().Count(); ++item)
            codes.append(Code(item));
        return codes;
    }

    shell::Menu_Counts counts;
    std::unique_ptr<Form9> form;
};

QString Many(qsizetype number) {
    return u"Are you sure you wish to delete these %1 individuals? - (this is irreversible)"_s.arg(number);
}

} // namespace

// ---- opening and choosing

TEST_F(Delete_Page, ListsEveryoneBySurnameAsItLoads) {
    Set(u"Khan"_s, u"Surname = 'aardvark', Group_Class = NULL"_s);
    Open();
    ASSERT_EQ(List().Count(), 12);
    EXPECT_EQ(Row(1), (QStringList{u"aardvark"_s, u"Aisha"_s, u""_s, Code_Of(u"aardvark"_s)}));
    EXPECT_EQ(Row(2)[0], u"D'Souza"_s);
    EXPECT_EQ(Chosen(u"Combo1"_s), u"ALL GROUPS"_s);
    EXPECT_EQ(Combo(u"Combo1"_s).count(), 6);
    EXPECT_EQ(Caption(u"Label5"_s), u"12"_s); // the total, until the first click
    EXPECT_EQ(Caption(u"Label7"_s), u"12"_s);
    EXPECT_EQ(Caption(Group_Button), u"Delete all from Group"_s);
    EXPECT_EQ(counts.Number_Of_Students.As_Integer(), 12);
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

TEST_F(Delete_Page, AnEmptyGroupOffersToDisbandItAndNobodyAtAllNothing) {
    sample.Run(u"UPDATE Mevo_Pupils SET Group_Class = 'Universal'"_s);
    Open();
    Point_At(*form, Delete_Button);
    Choose(u"Combo1"_s, u"Reception"_s);
    EXPECT_EQ(Caption(Group_Button), u"Disband Group"_s);
    EXPECT_EQ(Disabled(Of_The_List), Of_The_List);
    EXPECT_EQ(Caption(u"Label1"_s), u""_s);
    Choose(u"Combo1"_s, u"Universal"_s);
    EXPECT_EQ(Caption(Group_Button), u"Delete all from Group"_s);
    EXPECT_EQ(Disabled(Of_The_List), QStringList{});

    Choose(u"Combo1"_s, u"ALL GROUPS"_s);
    const QStringList everyone = Codes();
    Wants(Answer::Yes);
    Click(Group_Button);
    Expect_Box(Box_Style::Yes_No_Question, u"Delete Pupils in Group"_s, Many(12));
    Expect_Changed(All_Gone(everyone)); // and the groups stay
    EXPECT_EQ(counts.Number_Of_Students.As_Integer(), 0);
    Open();
    EXPECT_EQ(Caption(u"Label5"_s), u"0"_s);
    EXPECT_EQ(Caption(Group_Button), u"Delete all from Group"_s);
    EXPECT_EQ(Disabled(Of_The_List), Of_The_List);
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
    Click(Delete_Button); // does nothing, without a word
    Ctrl_Click(2);
    Ctrl_Click(5);
    EXPECT_EQ(Caption(u"Label5"_s), u"2"_s);
    QTest::keyClick(&List(), Qt::Key_Down, Qt::ShiftModifier); // the keyboard selects as well
    EXPECT_EQ(Caption(u"Label5"_s), QString::number(List().Selected_Count()));
    EXPECT_NE(Caption(u"Label5"_s), u"0"_s);
    Wants(Answer::Yes);
    sample.Move_Away();
    EXPECT_NE(Error_Number([this] { form->HotLabel2_Click(); }), 0);
}

// ---- those selected

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
    Expect_Box(Box_Style::Yes_No_Question, Caution, Many(2));
    Expect_Changed(All_Gone(chosen));
    EXPECT_EQ(Caption(u"Label7"_s), u"10"_s);
    EXPECT_EQ(counts.Number_Of_Students.As_Integer(), 10);

    Ctrl_Click(1);
    Look();
    Wants(Answer::No);
    Click(Delete_Button);
    Expect_Box(Box_Style::Yes_No_Question, Caution, One);
    EXPECT_EQ(Changed(), QStringList{});
    EXPECT_EQ(List().Selected_Count(), 1);
    EXPECT_EQ(outside.pointer.shapes.last(), desktop::Pointer_Shape::Default);
}

// A table that is missing ends the work there, without a word.
TEST_F(Delete_Page, TheTablesLoseTheirRowsInOrder) {
    const std::pair<QString, std::function<bool(const QString&)>> works[] = {
        {Order_For_A_Pupil,
         [this](const QString& code) {
             bool result = true;
             form->DeletePupil(code, result);
             return result;
         }},
        {Order_For_A_Group,
         [this](const QString&) { return form->DeletePupilsInGroup(u"Reception"_s) != 0; }},
        {Order_For_Everyone,
         [this](const QString&) { return form->DeletePupilsInGroup(u"ALL GROUPS"_s) != 0; }},
    };
    for (const auto& [order, work] : works) {
        const QStringList words = order.split(u' ');
        for (const QString& missing : words) {
            if (missing == "pupils"_L1) continue; // without that table the page doesn't open
            SCOPED_TRACE((order + u" without "_s + missing).toStdString());
            const Sample_File school;
            installation = school.Installed();
            Open();
            const QString code =
                school.Value(u"SELECT StudentCode FROM Mevo_Pupils WHERE Group_Class = 'Reception'"_s);
            school.Run(u"DROP TABLE "_s + Table(missing));
            EXPECT_FALSE(work(code));
            const QString rows = u"SELECT count(*) FROM %1 WHERE StudentCode = '%2'"_s;
            QString left;
            for (const QString& word : words)
                left += word == missing ? u"-"_s : school.Value(rows.arg(Table(word), code));
            const qsizetype reached = words.indexOf(missing);
            EXPECT_EQ(left, QString(reached, u'0') + u'-' + QString(words.size() - reached - 1, u'1'));
        }
    }
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
    Expect_Changed(gone);
    EXPECT_EQ(List().Count(), 10);
}

// ---- a group

TEST_F(Delete_Page, AGroupGoesWithItsResultsAndItsOwnRowByASecondClick) {
    Open();
    Choose(u"Combo1"_s, u"Class 2 Ash"_s);
    const QStringList codes = Codes();
    ASSERT_GT(codes.size(), 1);
    Wants(Answer::No);
    Click(Group_Button);
    Expect_Box(Box_Style::Yes_No_Question, u"Delete Pupils in Group"_s, Many(codes.size()));
    EXPECT_EQ(Changed(), QStringList{});

    Wants(Answer::Yes);
    Click(Group_Button);
    Expect_Changed(All_Gone(codes));
    EXPECT_EQ(List().Count(), 0);
    EXPECT_EQ(Caption(Group_Button), u"Delete all from Group"_s); // until the list is clicked again
    EXPECT_FALSE(Enabled(Delete_Button));

    Choose(u"Combo1"_s, u"Class 2 Ash"_s);
    EXPECT_EQ(Caption(Group_Button), u"Disband Group"_s);
    Look();
    Wants(Answer::No);
    Click(Group_Button);
    Expect_Box(Box_Style::Yes_No_Question, u"Empty Group"_s,
               u"The group chosen is empty. Do you wish to disband the group?"_s);
    EXPECT_EQ(Changed(), QStringList{});

    Wants(Answer::Yes);
    Click(Group_Button);
    EXPECT_EQ(Changed(), QStringList{u"Mevo_Groups 3: gone"_s});
    EXPECT_EQ(Chosen(u"Combo1"_s), u"ALL GROUPS"_s);
    EXPECT_EQ(Combo(u"Combo1"_s).findText(u"Class 2 Ash"_s), -1);
    EXPECT_GT(List().Count(), 0);
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

TEST_F(Delete_Page, AnApostropheOrAnAttackBreaksItsStatements) {
    const QString ohara = u"Mrs O'Hara's class"_s;
    ASSERT_GT(Members(u"Mrs O''Hara''s class"_s), 0);
    Open();
    Wants(Answer::Ignore);
    Choose(u"Combo1"_s, ohara);
    EXPECT_EQ(outside.boxes.Titles(), QStringList{u"Error Information: ado_Open"_s});
    EXPECT_EQ(outside.boxes.shown[0].style, Box_Style::Abort_Retry_Ignore_Critical);
    EXPECT_EQ(List().Count(), 0);
    EXPECT_EQ(Caption(Group_Button), u"Disband Group"_s);
    const QString attack = u"x'; DROP TABLE Mevo_Pupils; --"_s;
    for (const QString& name : {ohara, attack}) {
        EXPECT_EQ(form->DeletePupilsInGroup(name), 0);                // silent
        EXPECT_NE(Error_Number([&] { form->DeleteGroup(name); }), 0); // nothing handles it
    }
    Wants(Answer::Yes);
    EXPECT_NE(Error_Number([this] { form->Delete_Group_Action(); }), 0);
    bool result = true;
    form->DeletePupil(attack, result);
    EXPECT_FALSE(result);
    EXPECT_EQ(Changed(), QStringList{});
}

TEST_F(Delete_Page, MoreGroupsThanTheListHoldsAreAnError) {
    sample.Run(u"WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 96) "
               "INSERT INTO Mevo_Groups (Group_Name) SELECT 'G' || i FROM n"_s);
    EXPECT_EQ(Error_Number([this] { Open(); }), basics::errors::Subscript_Out_Of_Range);
}

} // namespace pupils
