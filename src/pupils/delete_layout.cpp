#include "pupils/delete_page.h"
#include "pupils/page_parts.h"

using namespace Qt::StringLiterals;

namespace pupils {

using shell::Text_Role;

constexpr QSize Frame_Size{1080, 560};
constexpr int Left = 16;
constexpr int List_Width = 702;
constexpr int Right = 734;
constexpr int Right_Width = 330;
constexpr int Menu_Left = Right + Right_Width - 140;

Form9::Form9(desktop::Platform& platform, shell::Navigator& navigator, Record_Data data,
             shell::Menu_Counts& counts)
    : Page(platform, navigator, Frame_Size),
      installation(data.installation),
      pupils(data.pupils),
      records(data.records),
      counts(counts),
      holder(platform),
      Timer1(new QTimer(this)) {
    setObjectName(u"Form9"_s);
    Timer1->setObjectName(u"Timer1"_s);
    Timer1->setSingleShot(true);
    Lay_Out();
    Tell_Helps();
}

void Form9::Lay_Out() {
    Make_Label(u"Label3"_s, u"Delete individuals from the database"_s, Text_Role::Title, {Left, 16, 700, 40});
    Make_Label(u"Label2"_s, u"Individuals registered     (User ID)"_s, Text_Role::Heading,
               {Left, 62, List_Width, 24});
    QLabel* label4 = Make_Label(u"Label4"_s, u"Deletion is irreversible."_s, Text_Role::Notice,
                                {Right, 18, Right_Width, 36});
    label4->setAlignment(Qt::AlignCenter);
    ListView1 = new List_View(u"ListView1"_s, Frame1);
    ListView1->setGeometry(Left, 90, List_Width, 402);
    ListView1->setAccessibleName(u"Individuals registered"_s);
    Lay_Out_Individual_Deletion();
    Lay_Out_Group_Deletion();
    HotLabel1 =
        Make_HotLabel(u"HotLabel1"_s, u"Menu"_s, {Menu_Left, 504, 140, 40}, [this] { HotLabel1_Click(); });
    ProgressBar1 = new shell::Work_Bar(platform, u"ProgressBar1"_s, u"Progress of the deletion"_s,
                                       {Right, 472, Right_Width, 20}, Frame1);
    Label1 = Make_Help_Label(u"Label1"_s, {Left, 500, Menu_Left - 12 - Left, 44}, Frame1);
}

void Form9::Lay_Out_Individual_Deletion() {
    QGroupBox* frame4 =
        Make_Panel(u"Frame4"_s, u"Individual deletion"_s, {Right, 70, Right_Width, 184}, Frame1);
    HotLabel3 = Make_HotLabel(
        u"HotLabel3"_s, u"Select all"_s, {16, 34, 142, 38}, [this] { HotLabel3_Click(); },
        shell::HotLabel::Look::Command, frame4);
    HotLabel4 = Make_HotLabel(
        u"HotLabel4"_s, u"Clear all"_s, {172, 34, 142, 38}, [this] { HotLabel4_Click(); },
        shell::HotLabel::Look::Command, frame4);
    Make_Label(u"Label6"_s, u"Individuals selected"_s, Text_Role::Body, {16, 86, 220, 28}, frame4);
    Label5 = Make_Number(u"Label5"_s, {244, 86, 70, 28}, frame4);
    HotLabel2 = Make_HotLabel(
        u"HotLabel2"_s, u"Delete individuals"_s, {16, 128, 298, 40}, [this] { HotLabel2_Click(); },
        shell::HotLabel::Look::Command, frame4);
}

void Form9::Lay_Out_Group_Deletion() {
    QGroupBox* frame2 = Make_Panel(u"Frame2"_s, u"Group deletion"_s, {Right, 264, Right_Width, 196}, Frame1);
    Make_Label(u"Label20"_s, u"Choose a Group below:"_s, Text_Role::Body, {16, 30, 298, 24}, frame2);
    Combo1 = Make_Combo(u"Combo1"_s, u"Group"_s, {16, 58, 298, 36}, frame2);
    Combo1->setAccessibleDescription(u"Lists the pupils of one group only."_s);
    shell::On(Combo1, &shell::Click_Combo::Click, this, platform, [this] { Combo1_Click(); });
    Make_Label(u"Label9"_s, u"Number of individuals:"_s, Text_Role::Body, {16, 102, 220, 28}, frame2);
    Label7 = Make_Number(u"Label7"_s, {244, 102, 70, 28}, frame2);
    HotLabel5 = Make_HotLabel(
        u"HotLabel5"_s, u"Delete all from group"_s, {16, 140, 298, 40}, [this] { Delete_Group_Action(); },
        shell::HotLabel::Look::Command, frame2);
    for (shell::HotLabel* destructive : {HotLabel2, HotLabel5})
        destructive->Set_Weight(shell::HotLabel::Weight::Destructive);
    HotLabel5->setAccessibleDescription(u"Deletes the pupils of the chosen group, once you have agreed."_s);
}

void Form9::Tell_Helps() {
    auto* help = Help_In(Label1, this);
    shell::On(ListView1, &List_View::Click, this, platform, [this] { ListView1_Click(); });
    help->Tell(HotLabel1, u"Return to Main Menu"_s);
    help->Tell(HotLabel2,
               u"Select 'Delete individuals' to remove them from the database. Use with caution!"_s);
    help->Tell(HotLabel3, u"Select 'All' to highlight all individuals for deletion"_s);
    help->Tell(HotLabel4, u"Select 'Clear' to remove everyone from the deletion list"_s);
    const QString how_to_choose =
        u"Pless Ctrl key and click on unselected names to add them to the deletion list\r"
        "Press Ctrl key and click on a highlighted name to remove it from the deletion list"_s;
    for (QWidget* surface : {static_cast<QWidget*>(ListView1), ListView1->viewport()})
        help->Tell(surface, how_to_choose);
    help->Follow_Focus(*this);
}

} // namespace pupils
