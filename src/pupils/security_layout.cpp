#include "pupils/security_page.h"

#include <QHeaderView>

using namespace Qt::StringLiterals;

namespace pupils {

using shell::HotLabel;
using shell::Text_Role;

constexpr QSize Frame_Size{1080, 560};
constexpr int Left = 16;
constexpr int Left_Width = 684;
constexpr int Right = 712;
constexpr int Right_Width = 352;
constexpr int Panels_Bottom = 494;
constexpr int Captions_Left = 12; // inside a panel
constexpr int Answers_Left = 196;
constexpr int Entries_Left = 120;
constexpr int Entry_Width = 220;
constexpr int Buttons_Left = 836;
constexpr int Longest_Text = 50; // what the columns of groups and passwords take

Form2::Form2(desktop::Platform& platform, shell::Navigator& navigator, Record_Data data)
    : Page(platform, navigator, Frame_Size),
      installation(data.installation),
      pupils(data.pupils),
      records(data.records),
      holder(platform) {
    setObjectName(u"Form2"_s);
    Lay_Out();
    Tell_Helps();
}

void Form2::Lay_Out() {
    const QString caption = u"Security settings for all individuals"_s;
    Make_Label(u"Label7"_s, u"Security"_s, Text_Role::Title, {Left, 16, 400, 36});
    Make_Label(u"Label9"_s, caption, Text_Role::Heading, {Left, 54, 420, 24});
    QLabel* label2 = Make_Label(u"Label2"_s, u"Number registered:"_s, Text_Role::Body,
                                {Left + Left_Width - 220, 54, 150, 24});
    label2->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    Label3 = Make_Number(u"Label3"_s, {Left + Left_Width - 66, 54, 64, 24}, Frame1);

    Spread1 = new grid::fpSpread(u"Spread1"_s, 6, grid::fpSpread::Rows_As_Written, Frame1);
    Spread1->setGeometry(Left, 82, Left_Width, 260);
    Spread1->verticalHeader()->setDefaultSectionSize(28);
    Spread1->setAccessibleName(caption);
    Spread1->setAccessibleDescription(u"One row for each pupil."_s);
    int column = 0;
    struct Width {
        int on_paper;
        int here;
    };
    for (const auto& [on_paper, here] :
         {Width{150, 124}, {174, 122}, {88, 84}, {126, 124}, {138, 134}, {82, 78}}) {
        Spread1->Set_ColWidth(++column, on_paper);
        Spread1->Narrow_On_Screen(column, here);
    }
    for (const int words : {2, 4, 5})
        Spread1->Set_Left_Aligned(words);

    Lay_Out_Individual();
    Lay_Out_Group_Settings();
    Lay_Out_Group_Names();
    HotLabel* print = Make_HotLabel(u"HotLabel2"_s, u"Print"_s, {Buttons_Left, 504, 108, 40},
                                    With_Lists(&Form2::HotLabel2_Click));
    Make_HotLabel(u"HotLabel1"_s, u"Menu"_s, {Buttons_Left + 120, 504, 108, 40},
                  [this] { HotLabel1_Click(); });
    const QRect place(Right, 504, Buttons_Left - 12 - Right, 40);
    HotLabel* save =
        Make_HotLabel(u"SaveAsPdf"_s, u"Save as PDF..."_s, place, With_Lists(&Form2::SaveAsPdf_Click));
    setTabOrder(print, save);
    Label8 = Make_Help_Label(u"Label8"_s, {Left, 500, Right - 12 - Left, 44}, Frame1);
}

// A question with its two option buttons in a line of a panel.
static Yes_No Make_Question(QLabel* label, const QString& yes_name, const QString& no_name, int top,
                            QWidget* parent) {
    return Make_Yes_No(yes_name, no_name, label->text(), {Answers_Left, top}, parent);
}

// The same in a panel of its own inside another, level with that one's questions.
static Yes_No Make_Login_List(const QString& panel_name, const QString& caption, const QString& label_name,
                              const QString& yes_name, const QString& no_name, int top, QWidget* parent) {
    constexpr int inset = 8;
    constexpr int row = 24;
    QGroupBox* panel = Make_Panel(panel_name, caption, {inset, top, Right_Width - 2 * inset, 56}, parent);
    QLabel* label = shell::Make_Label(label_name, u"Show in Login List"_s, Text_Role::Body, panel);
    label->setGeometry(Captions_Left - inset, row, 190, 28);
    return Make_Yes_No(yes_name, no_name, label->text(), {Answers_Left - inset, row}, panel);
}

void Form2::Lay_Out_Individual() {
    QGroupBox* frame5 =
        Make_Panel(u"Frame5"_s, u"Edit an individual's details"_s, {Right, 16, Right_Width, 272}, Frame1);
    const auto caption = [&](const char16_t* name, const QString& text, int top) {
        return Make_Label(QString::fromUtf16(name), text, Text_Role::Body, {Captions_Left, top, 180, 28},
                          frame5);
    };
    Combo1 = Make_Combo(u"Combo1"_s, u"Individual"_s, {12, 28, 328, 32}, frame5);
    QLabel* label5 = caption(u"Label5", u"Password"_s, 66);
    Text2 = Make_Entry(u"Text2"_s, label5->text(), {Entries_Left, 64, Entry_Width, 32}, frame5);
    QLabel* label4 = caption(u"Label4", u"Group/Class"_s, 102);
    Combo3 = Make_Combo(u"Combo3"_s, label4->text(), {Entries_Left, 100, Entry_Width, 32}, frame5);
    QLabel* label14 = caption(u"Label14", u"Use D.O.B. as password"_s, 136);
    Use_Dob = Make_Question(label14, u"Option1"_s, u"Option2"_s, 136, frame5);
    Show_Pupil = Make_Login_List(u"Frame4"_s, u"Show student in Login List"_s, u"Label12"_s, u"Option7"_s,
                                 u"Option8"_s, 166, frame5);
    HotLabel7 = Make_HotLabel(u"HotLabel7"_s, u"Update"_s, {232, 230, 108, 34},
                              With_Lists(&Form2::Update_Pupil_Settings), HotLabel::Look::Command, frame5);
    HotLabel7->Set_Weight(HotLabel::Weight::Primary);
    Text2->setMaxLength(Longest_Text);
    shell::On(Combo1, &shell::Click_Combo::Click, this, platform, [this] { Combo1_Click(); });
    shell::On(Combo3, &shell::Click_Combo::Click, this, platform, [this] { Combo3_Click(); });
}

void Form2::Lay_Out_Group_Settings() {
    QGroupBox* frame6 =
        Make_Panel(u"Frame6"_s, u"Edit settings for Group/Class"_s, {Right, 294, Right_Width, 200}, Frame1);
    Make_Label(u"Label10"_s, u"Group/Class"_s, Text_Role::Body, {Captions_Left, 30, 106, 28}, frame6);
    Combo2 = Make_Combo(u"Combo2"_s, u"Group/Class"_s, {Entries_Left, 28, Entry_Width, 32}, frame6);
    QLabel* label15 = Make_Label(u"Label15"_s, u"D.O.B. as password"_s, Text_Role::Body,
                                 {Captions_Left, 64, 180, 28}, frame6);
    Group_Uses_Dob = Make_Question(label15, u"Option5"_s, u"Option6"_s, 64, frame6);
    Show_Group = Make_Login_List(u"Frame2"_s, u"Show group in Login List"_s, u"Label1"_s, u"Option3"_s,
                                 u"Option4"_s, 94, frame6);
    HotLabel6 = Make_HotLabel(u"HotLabel6"_s, u"Update "_s, {232, 158, 108, 34},
                              With_Lists(&Form2::Update_Group_Settings), HotLabel::Look::Command, frame6);
    LoginCards = Make_HotLabel(u"LoginCards"_s, u"Login cards..."_s, {12, 158, 140, 34},
                               With_Lists(&Form2::LoginCards_Click), HotLabel::Look::Command, frame6);
    shell::On(Combo2, &shell::Click_Combo::Click, this, platform, [this] { Combo2_Click(); });
}

void Form2::Lay_Out_Group_Names() {
    constexpr int height = 144;
    constexpr int side = 204;
    constexpr int middle = 252;
    constexpr int rows[] = {28, 65, 102};
    constexpr int top = Panels_Bottom - height;
    QGroupBox* frame7 = Make_Panel(u"Frame7"_s, u"Add new Group/Class"_s, {Left, top, side, height}, Frame1);
    Text4 = Make_Entry(u"Text4"_s, u"Name of the new group"_s, {12, rows[0], side - 24, 32}, frame7);
    HotLabel3 = Make_HotLabel(u"HotLabel3"_s, u"Add "_s, {side - 112, rows[2], 100, 34},
                              With_Lists(&Form2::HotLabel3_Click), HotLabel::Look::Command, frame7);

    QGroupBox* frame8 = Make_Panel(u"Frame8"_s, u"Change the name of a Group/Class"_s,
                                   {Left + side + 12, top, middle, height}, Frame1);
    Combo4 = Make_Combo(u"Combo4"_s, u"Group to rename"_s, {12, rows[0], middle - 24, 32}, frame8);
    Make_Label(u"Label6"_s, u"New name"_s, Text_Role::Body, {12, rows[1], 76, 32}, frame8);
    Text3 = Make_Entry(u"Text3"_s, u"New name of the group"_s, {88, rows[1], middle - 100, 32}, frame8);
    HotLabel4 = Make_HotLabel(u"HotLabel4"_s, u"Change "_s, {middle - 112, rows[2], 100, 34},
                              With_Lists(&Form2::Rename_Group), HotLabel::Look::Command, frame8);

    QGroupBox* frame9 = Make_Panel(u"Frame9"_s, u"Disband a Group/Class"_s,
                                   {Left + side + middle + 24, top, side, height}, Frame1);
    Combo5 = Make_Combo(u"Combo5"_s, u"Group to disband"_s, {12, rows[0], side - 24, 32}, frame9);
    HotLabel5 = Make_HotLabel(u"HotLabel5"_s, u"Disband"_s, {side - 112, rows[2], 100, 34},
                              With_Lists(&Form2::Disband_Group), HotLabel::Look::Command, frame9);

    HotLabel5->Set_Weight(HotLabel::Weight::Destructive);
    Text3->setMaxLength(Longest_Text);
    Text4->setMaxLength(Longest_Text);
    shell::On(Combo4, &shell::Click_Combo::Click, this, platform, [this] { Combo4_Click(); });
    shell::On(Combo5, &shell::Click_Combo::Click, this, platform, [this] { Combo5_Click(); });
    shell::On(Text3, &QLineEdit::textChanged, this, platform, [this] { Text3_Change(); });
    shell::On(Text4, &QLineEdit::textChanged, this, platform, [this] { Text4_Change(); });
}

void Form2::Tell_Helps() {
    struct Help {
        const char16_t* control;
        QString text;
    };
    const Help helps[] = {
        {u"Frame2", u"Select whether pupils in Group/Class will appear on the 'Login List'."_s},
        {u"Frame4", u"Choose whether this pupil appears on the 'Login List' on workstations running Quend "
                    u"Swith (overrides Group/Class setting)."_s},
        {u"Frame5", u"An individual's own settings override any Group/Class global settings."_s},
        {u"Frame6", u"Select any group to view or edit the settings for all members of the group."_s},
        {u"Frame7", u"Add a new group by typing its name and then selecting 'Add' - allocate pupils to the "
                    u"new group as required."_s},
        {u"Frame8", u"Change the name of any group (but not 'Universal') - this will NOT affect pupils in "
                    u"that group!"_s},
        {u"Frame9",
         u"Disband any group (except 'Universal') - this action will NOT delete pupils in that group!"_s},
        {u"HotLabel1", u"Return to the Main Menu."_s},
        {u"HotLabel2", u"Print out the contents of the spreadsheet shown on this page."_s},
        {u"SaveAsPdf", u"Save the contents of the spreadsheet in a PDF file, where you choose."_s},
        {u"HotLabel7",
         u"Select 'Update' to commit any changes you make to the Swith database - take care!"_s},
        {u"Label1", u"Select whether individuals in Group/Class will appear on the 'Login List'."_s},
        {u"Label2", u"Add a new group by typing its name and then selecting 'Add' - allocate individuals to "
                    u"the new group as required."_s},
        {u"Label3",
         u"Disband any group (except 'Universal') - this action will NOT delete individuals in that group!"_s},
        {u"Label4", u"The Group/Class which this individuals is assigned to."_s},
        {u"Label5", u"Enter a unique password for this individuals (necessary)."_s},
        {u"Label6",
         u"Change the name of any group (except 'Universal') - this will NOT affect individuals in "
         u"that group!"_s},
        {u"Label10", u"Select a group to see or edit its global settings."_s},
        {u"Label15",
         u"Select whether individuals in Group/Class will use their dates of birth as their password."_s},
    };
    auto* help = Help_In(Label8, this);
    for (const Help& told : helps)
        help->Tell(findChild<QWidget*>(QString::fromUtf16(told.control)), told.text);
    help->Tell(HotLabel6, [this] {
        return u"By selecting 'Update' the 'Login List' and 'Date of Birth as password' settings will be "
               u"updated for ALL individuals who are allocated to the group "_s +
               Combo2->currentText() + u'.';
    });
    help->Tell(
        LoginCards,
        u"Print cards with the logins of this group's pupils, eight on a sheet to cut out, or a list of "
        u"them for the teacher."_s);
    const auto stands_for = [&](const char16_t* caption, std::initializer_list<QWidget*> controls) {
        help->Stands_For(findChild<QWidget*>(QString::fromUtf16(caption)), controls);
    };
    stands_for(u"Label1", {Show_Group.yes, Show_Group.no});
    stands_for(u"Label4", {Combo3});
    stands_for(u"Label5", {Text2});
    stands_for(u"Label6", {Text3});
    stands_for(u"Label10", {Combo2});
    stands_for(u"Label15", {Group_Uses_Dob.yes, Group_Uses_Dob.no});
    help->Follow_Focus(*this);
}

} // namespace pupils
