#include "pupils/fine_tuning_page.h"

using namespace Qt::StringLiterals;

namespace pupils {

using shell::HotLabel;
using shell::Text_Role;

constexpr QSize Frame_Size{1080, 560};
constexpr int Left = 16;
constexpr int Whole_Width = 1048;
constexpr int Panels_Top = 98;
constexpr int Panels_Height = 372;
constexpr int Menu_Left = 924;
constexpr int Caption_Height = 20; // of a panel, above its frame
constexpr int Row_Height = 34;
constexpr QSize Button_Size{130, 38};
constexpr int Button_Step = 139; // from one button of a row to the next

Form15::Form15(desktop::Platform& platform, shell::Navigator& navigator, Record_Data data)
    : Page(platform, navigator, Frame_Size),
      installation(data.installation),
      pupils(data.pupils),
      records(data.records),
      holder(platform) {
    setObjectName(u"Form15"_s);
    Lay_Out();
    Order_By_Enter();
    Tell_Helps();
}

void Form15::Lay_Out() {
    Make_Label(u"Label4"_s, u"Fine Tuning an individual's personal and assessment details"_s,
               Text_Role::Title, {Left, 16, Whole_Width, 38});
    QLabel* label12 =
        Make_Label(u"Label12"_s, u"Select individual"_s, Text_Role::Heading, {Left, 60, 140, Row_Height});
    Combo1 = Make_Combo(u"Combo1"_s, label12->text(), {Left + 146, 60, 394, Row_Height}, Frame1);
    Combo1->setAccessibleDescription(u"The pupil whose details and tests the page shows."_s);
    shell::On(Combo1, &shell::Click_Combo::Click, this, platform, [this] { Combo1_Click(); });
    AllData = Make_HotLabel(u"AllData"_s, u"All data of this pupil..."_s, {Left + 552, 60, 220, Row_Height},
                            [this] { AllData_Click(); });
    Lay_Out_Personal_Details();
    Lay_Out_Retesting();
    Lay_Out_Legend();
    Set_Personal_Enabled(false);
    Set_Retest_Buttons_Enabled(false);
    HotLabel1 =
        Make_HotLabel(u"HotLabel1"_s, u"Menu"_s, {Menu_Left, 504, 140, 40}, [this] { HotLabel1_Click(); });
    Label5 = Make_Help_Label(u"Label5"_s, {Left, 478, Menu_Left - 12 - Left, 66}, Frame1);
}

void Form15::Lay_Out_Personal_Details() {
    constexpr int entry_left = 116;
    constexpr int entry_width = 308;
    Frame3 = Make_Panel(u"Frame3"_s, u"Personal details"_s, {Left, Panels_Top, 440, Panels_Height}, Frame1);
    const auto row = [](int i) { return 32 + 46 * i; };
    const auto caption = [&](const QString& name, const QString& text, int i) {
        return Make_Label(name, text, Text_Role::Body, {16, row(i), 98, Row_Height}, Frame3);
    };
    const auto place = [&](int i, int left, int width) {
        return QRect(entry_left + left, row(i), width, Row_Height);
    };
    Label6 = caption(u"Label6"_s, u"User ID:"_s, 0);
    Text1 = Make_Entry(u"Text1"_s, u"User ID"_s, place(0, 0, entry_width), Frame3);
    Text1->setEnabled(false);

    Label2 = caption(u"Label2"_s, u"Surname:"_s, 1);
    Text3 = new Name_Box(u"Text3"_s, Surname_Selection, Frame3);
    Text3->setAccessibleName(u"Surname"_s);
    Text3->setGeometry(place(1, 0, entry_width));

    Label3 = caption(u"Label3"_s, u"Forename(s):"_s, 2);
    Text4 = new Name_Box(u"Text4"_s, Forename_Selection, Frame3);
    Text4->setAccessibleName(u"Forename(s)"_s);
    Text4->setGeometry(place(2, 0, entry_width));

    Label8 = caption(u"Label8"_s, u"Date of birth:"_s, 3);
    birth = new Date_Lists(this, Frame3, platform);
    birth->Combo2->setGeometry(place(3, 0, 74));
    birth->Combo3->setGeometry(place(3, 80, 134));
    birth->Combo4->setGeometry(place(3, 220, 88));

    Label1 = caption(u"Label1"_s, u"Gender:"_s, 4);
    sex = new Sex_List(this, Frame3, platform);
    sex->Combo5->setGeometry(place(4, 0, 180));

    caption(u"Label15"_s, u"Age:"_s, 5);
    birth->txAgeY->setGeometry(place(5, 0, 26));
    Make_Label(u"Label16"_s, u"years"_s, Text_Role::Quiet, place(5, 30, 50), Frame3);
    birth->txAgeM->setGeometry(place(5, 88, 26));
    Make_Label(u"Label17"_s, u"months"_s, Text_Role::Quiet, place(5, 118, 80), Frame3);

    const auto button = [&](const QString& name, const QString& text, int i, std::function<void()> click) {
        return Make_HotLabel(name, text, {QPoint(16 + Button_Step * i, 322), Button_Size}, std::move(click),
                             HotLabel::Look::Command, Frame3);
    };
    HotLabel4 = button(u"HotLabel4"_s, u"Edit details"_s, 0, [this] { Enable_Personal_Edit(); });
    HotLabel2 =
        button(u"HotLabel2"_s, u"Save changes"_s, 1, For_Current_Pupil(&Form15::Save_Personal_Details));
    HotLabel2->Set_Weight(HotLabel::Weight::Primary);
    HotLabel3 =
        button(u"HotLabel3"_s, u"Undo changes"_s, 2, For_Current_Pupil(&Form15::Undo_Personal_Details));
}

void Form15::Lay_Out_Retesting() {
    const QRect box(468, Panels_Top, 596, Panels_Height);
    Shape1 = new QFrame(Frame1);
    Shape1->setObjectName(u"Shape1"_s);
    Shape1->setGeometry(box.adjusted(0, Caption_Height, 0, 0)); // level with the frame of the other panel
    Shape1->setProperty("panel", true);

    Frame4 = Make_Panel(u"Frame4"_s, u"Allow selective retesting"_s,
                        {box.x() + 16, box.y() + 22, box.width() - 32, 252}, Frame1);
    const QString captions[Tests] = {
        u"Tolvens"_s, u"Blik's Friends"_s, u"Karrel"_s, u"Blik's Letters"_s, u"Blik's Letter Names"_s,
        u"Drell"_s,   u"Mirvel"_s,         u"Yoon"_s,   u"Pindo"_s};
    for (std::size_t i = 0; i < Tests; ++i) {
        constexpr int across = 3;
        const int number = static_cast<int>(i);
        const QPoint corner(12 + 182 * (number % across), 28 + 56 * (number / across));
        const QString index = u"(%1)"_s.arg(number);
        Image1[i] = new Test_Ball(u"Image1"_s + index, captions[i], Frame4);
        Image1[i]->setGeometry(QRect(corner, QSize(48, 48)));
        shell::On(Image1[i], &Test_Ball::clicked, this, platform, [this, number] { Image1_Click(number); });
        Make_Label(u"Label14"_s + index, captions[i], Text_Role::Body,
                   {corner + QPoint(56, 0), QSize(126, 48)}, Frame4);
    }
    const auto button = [&](const QString& name, const QString& text, int i, std::function<void()> click) {
        return Make_HotLabel(name, text, {QPoint(12 + 181 * i, 204), QSize(172, 38)}, std::move(click),
                             HotLabel::Look::Command, Frame4);
    };
    HotLabel5 = button(u"HotLabel5"_s, u"Edit details"_s, 0, For_Current_Pupil(&Form15::Begin_Retest_Edit));
    HotLabel7 = button(u"HotLabel7"_s, u"Save changes"_s, 1, For_Current_Pupil(&Form15::Save_Retest_Flags));
    HotLabel6 = button(u"HotLabel6"_s, u"Undo changes"_s, 2, [this] { HotLabel6_Click(); });
}

void Form15::Lay_Out_Legend() {
    constexpr int side = 32;
    constexpr int step = 184;
    Frame5 = Make_Panel(u"Frame5"_s, u"Legend"_s, {484, Panels_Top + 278, 564, 84}, Frame1);
    const auto entry = [&](const QString& picture_name, const QString& label_name, Test_State state, int i) {
        auto* picture = new QLabel(Frame5);
        picture->setObjectName(picture_name);
        picture->setPixmap(Picture_Of(state, side, devicePixelRatioF()));
        picture->setGeometry(20 + step * i, 36, side, side);
        return Make_Label(label_name, Words_Of(state), Text_Role::Body, {58 + step * i, 36, step - 42, side},
                          Frame5);
    };
    Label7 = entry(u"Image2"_s, u"Label7"_s, Test_State::Not_Attempted, 0);
    entry(u"Image3"_s, u"Label9"_s, Test_State::Completed, 1);
    entry(u"Image4"_s, u"Label10"_s, Test_State::Allow_Retest, 2);
}

void Form15::Order_By_Enter() {
    shell::On(Text3, &QLineEdit::returnPressed, this, platform, [this] { Text4->setFocus(); });
    shell::On(Text4, &QLineEdit::returnPressed, this, platform, [this] { birth->Combo2->setFocus(); });
}

void Form15::Tell_Helps() {
    auto* help = Help_In(Label5, this);
    help->Tell(
        Frame3,
        u"You may alter an individual's personal details by selecting 'Edit details'. Then choose either 'Save changes' or 'Undo changes' as desired."_s);
    help->Tell(
        Frame4,
        u"Assessments marked with a red ball can be repeated if necessary, but be aware that a retest will cause the original assessment results in the database to be lost. It is strongly recommended, therefore, that you either print out the original results or archive the database before you retest. Click on the 'Edit details' button and on the red ball to mark it as a green 'Retest' disc."_s);
    help->Tell(
        AllData,
        u"Show all that is kept of the pupil: details, scores, comment, earlier results and every answer, to be printed or saved."_s);
    help->Tell(HotLabel1, u"Go back to the Main Admin Menu."_s);
    for (HotLabel* edit : {HotLabel4, HotLabel5})
        help->Tell(
            edit,
            u"Select 'Edit details' to change something. Select 'Save changes' to submit these to the database."_s);
    help->Tell(Label1, u"Enter the individual's gender by clicking on the appropriate tick box."_s);
    help->Tell(Label2, u"Enter the individual's last name(s) in the first box."_s);
    help->Tell(Label3, u"Enter the individual's first name(s) in the second box."_s);
    help->Tell(Label6,
               u"This unique identifier cannot be changed as it is created and used by the program."_s);
    help->Tell(Label8, u"Edit the date of birth using the three drop down lists"_s);
    help->Tell(Text3, u"Enter your last name(s) in the upper box"_s);
    help->Tell(Text4, u"Enter your first name(s) in the second box down"_s);
    help->Stands_For(Label1, {sex->Combo5});
    help->Stands_For(Label8, {birth->Combo2, birth->Combo3, birth->Combo4});
    help->Follow_Focus(*this);
}

} // namespace pupils
