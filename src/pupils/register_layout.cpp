#include "pupils/page_parts.h"
#include "pupils/register_page.h"

using namespace Qt::StringLiterals;

namespace pupils {

using shell::Text_Role;

constexpr QSize Frame_Size{1000, 512};
constexpr int Left = 40;
constexpr int Whole_Width = 920;

Form10::Form10(desktop::Platform& platform, shell::Navigator& navigator,
               const foundation::Installation& installation, shell::Menu_Counts& counts)
    : Page(platform, navigator, Frame_Size),
      installation(installation),
      counts(counts),
      maker(platform, installation) {
    setObjectName(u"Form10"_s);
    setWindowTitle(u"Registering new pupils"_s);
    Lay_Out();
    Order_By_Tab();
    Tell_Helps();
}

void Form10::Lay_Out() {
    Make_Label(u"Label4"_s, windowTitle(), Text_Role::Title, {Left, 20, Whole_Width, 40});
    Make_Label(u"Label6"_s, u"Register a new individual"_s, Text_Role::Subtitle, {Left, 60, Whole_Width, 24});
    Lay_Out_Details();
    Lay_Out_Session();
    HotLabel2 = Make_HotLabel(u"HotLabel2"_s, u"Save"_s, {660, 362, 300, 46}, [this] { HotLabel2_Click(); });
    HotLabel1 = Make_HotLabel(u"HotLabel1"_s, u"Menu"_s, {820, 436, 140, 46}, [this] { HotLabel1_Click(); });
    HotLabel2->Set_Weight(shell::HotLabel::Weight::Primary);
    Label5 = Make_Help_Label(u"Label5"_s, {Left, 436, 768, 46}, Frame1);
}

static QFrame* Make_Shape(const QString& name, const QString& part, const QRect& place, QWidget* parent) {
    auto* shape = new QFrame(parent);
    shape->setObjectName(name);
    shape->setProperty("progress", part);
    shape->setGeometry(place);
    shape->hide();
    return shape;
}

void Form10::Lay_Out_Details() {
    constexpr int caption_left = 20;
    constexpr int entry_left = 150;
    constexpr int entry_width = 410;
    constexpr int height = 36;
    details = Make_Panel(u"Frame2"_s, u"Personal details"_s, {Left, 92, 590, 316}, Frame1);
    const auto caption = [this](const QString& name, const QString& text, int row) {
        return Make_Label(name, text, Text_Role::Body, {caption_left, row, 124, height}, details);
    };
    const int rows[] = {32, 80, 128, 176, 224};

    Label2 = caption(u"Label2"_s, u"Surname:"_s, rows[0]);
    Text3 = new Name_Box(u"Text3"_s, Surname_Selection, details);
    Text3->setAccessibleName(u"Surname"_s);
    Text3->setGeometry(entry_left, rows[0], entry_width, height);

    Label3 = caption(u"Label3"_s, u"Forename(s):"_s, rows[1]);
    Text4 = new Name_Box(u"Text4"_s, Forename_Selection, details);
    Text4->setAccessibleName(u"Forename(s)"_s);
    Text4->setGeometry(entry_left, rows[1], entry_width, height);

    Label8 = caption(u"Label8"_s, u"Date of birth:"_s, rows[2]);
    birth = new Date_Lists(this, details, platform);
    birth->Combo2->setGeometry(entry_left, rows[2], 84, height);
    birth->Combo3->setGeometry(entry_left + 96, rows[2], 188, height);
    birth->Combo4->setGeometry(entry_left + 296, rows[2], 114, height);

    Label1 = caption(u"Label1"_s, u"Gender:"_s, rows[3]);
    sex = new Sex_List(this, details, platform);
    sex->Combo5->setGeometry(entry_left, rows[3], 180, height);

    caption(u"Label15"_s, u"Age:"_s, rows[4]);
    Make_Label(u"Label16"_s, u"Years:"_s, Text_Role::Quiet, {entry_left, rows[4], 52, height}, details);
    birth->txAgeY->setGeometry(entry_left + 54, rows[4], 60, height);
    Make_Label(u"Label17"_s, u"Months:"_s, Text_Role::Quiet, {entry_left + 130, rows[4], 62, height},
               details);
    birth->txAgeM->setGeometry(entry_left + 194, rows[4], 60, height);

    // 4320 by 255 twips, and a fill that starts 15 wide.
    const QRect outline(entry_left, 278, 288, 17);
    Shape1 = Make_Shape(u"Shape1"_s, u"outline"_s, outline, details);
    Shape2 = Make_Shape(u"Shape2"_s, u"fill"_s, {outline.topLeft(), QSize(1, outline.height())}, details);
}

void Form10::Lay_Out_Session() {
    constexpr int margin = 18;
    constexpr int width = 300;
    QGroupBox* session = Make_Panel(u"Frame3"_s, u"Registration"_s, {660, 92, width, 256}, Frame1);
    const auto caption = [&](const QString& name, const QString& text, int row, int room) {
        Make_Label(name, text, Text_Role::Quiet, {margin, row, room, 28}, session);
    };
    constexpr int beside_a_number = 190;
    caption(u"Label7"_s, u"Registered this session:"_s, 36, beside_a_number);
    Label10 = Make_Number(u"Label10"_s, {margin + beside_a_number, 36, 74, 28}, session);
    caption(u"Label12"_s, u"Total number registered:"_s, 72, beside_a_number);
    Label13 = Make_Number(u"Label13"_s, {margin + beside_a_number, 72, 74, 28}, session);
    caption(u"Label9"_s, u"Last pupil registered:"_s, 116, width - 2 * margin);
    Label11 =
        Make_Label(u"Label11"_s, u""_s, Text_Role::Heading, {margin, 146, width - 2 * margin, 66}, session);
    Label11->setWordWrap(true);
    Label11->setAlignment(Qt::AlignLeft | Qt::AlignTop);
}

void Form10::Order_By_Tab() {
    QWidget* const order[] = {Text3,         Text4,       birth->Combo2, birth->Combo3,
                              birth->Combo4, sex->Combo5, HotLabel2,     HotLabel1};
    for (std::size_t i = 1; i < std::size(order); ++i)
        setTabOrder(order[i - 1], order[i]);
    shell::On(Text3, &QLineEdit::returnPressed, this, platform, [this] { Text4->setFocus(); });
    shell::On(Text4, &QLineEdit::returnPressed, this, platform, [this] { birth->Combo2->setFocus(); });
}

void Form10::Tell_Helps() {
    auto* help = Help_In(Label5, this);
    help->Tell(
        HotLabel1,
        u"Go back to the Main Menu. If you have registered a new pupil you should click on 'Save' first."_s);
    help->Tell(
        HotLabel2,
        u"Save the information you have entered. After saving the entry boxes will be cleared and you may either add another individual or exit."_s);
    help->Tell(Label2, u"Enter the pupil's last name(s) in the first box."_s);
    help->Tell(Label3, u"Enter the pupil's first name(s) in the second box."_s);
    help->Tell(Label8, u"Create the pupil's date of birth using the three drop down lists"_s);
    help->Tell(Text3, u"Enter your last name(s) in the upper box"_s);
    help->Tell(Text4, u"Enter your first name(s) in the second box down"_s);
    help->Stands_For(Label8, {birth->Combo2, birth->Combo3, birth->Combo4});
    help->Follow_Focus(*this);
}

} // namespace pupils
