#include "pupils/import/told_losses.h"
#include "pupils/page_parts.h"
#include "pupils/prepare_page.h"

using namespace Qt::StringLiterals;

namespace pupils {

using shell::Text_Role;

constexpr QSize Frame_Size{1080, 560};
constexpr int Left = 16;
constexpr int Whole_Width = 1048;
constexpr int Longest_Class = 50;

Form43::Form43(desktop::Platform& platform, shell::Navigator& navigator,
               const foundation::Installation& installation, List_To_Import& shared)
    : Page(platform, navigator, Frame_Size), installation(installation), shared(shared), list(shared.list) {
    setObjectName(u"Form43"_s);
    setWindowTitle(u"Prepare a list of pupils for the import"_s);
    Lay_Out();
    Tell_Helps();
}

void Form43::Lay_Out() {
    Make_Label(u"Label1"_s, u"Prepare a file for the import"_s, Text_Role::Title, {Left, 16, 600, 34});
    Lay_Out_Source();
    Lay_Out_Columns();
    Lay_Out_Rows();
}

void Form43::Lay_Out_Source() {
    constexpr int top = 56;
    constexpr int height = 34;
    HotLabel2 = Make_HotLabel(u"HotLabel2"_s, u"Open a file..."_s, {Left, top, 130, height},
                              [this] { HotLabel2_Click(); });
    HotLabel3 = Make_HotLabel(u"HotLabel3"_s, u"Paste"_s, {Left + 138, top, 90, height},
                              [this] { HotLabel3_Click(); });
    Text1 = Make_Entry(u"Text1"_s, u"The list"_s, {Left + 236, top, 500, height}, Frame1);
    Text1->setReadOnly(true);
    Label2 = Make_Label(u"Label2"_s, u"Encoding:"_s, Text_Role::Body, {Left + 748, top, 80, height});
    Combo1 = Make_Combo(u"Combo1"_s, u"Encoding or sheet"_s, {Left + 828, top, 220, height}, Frame1);
    shell::On(Combo1, &shell::Click_Combo::Click, this, platform, [this] { Combo1_Click(); });
}

void Form43::Lay_Out_Columns() {
    constexpr int width = 168;
    constexpr int step = 176;
    const QString captions[] = {u"Surname:"_s,       u"Forename(s):"_s, u"Gender:"_s,
                                u"Date of birth:"_s, u"Class:"_s,       u"Password:"_s};
    for (int field = 0; field < 6; ++field) {
        const int left = Left + field * step;
        QLabel* caption =
            Make_Label(u"Label%1"_s.arg(4 + field), captions[field], Text_Role::Body, {left, 92, width, 20});
        Fields[field] = Make_Combo(u"Combo%1"_s.arg(2 + field), u"Column of the "_s + Field_Name(field),
                                   {left, 112, width, 32}, Frame1);
        caption->setBuddy(Fields[field]);
        shell::On(Fields[field], &shell::Click_Combo::Click, this, platform, [this] { Mapping_Click(); });
    }
    constexpr int top = 150;
    const auto label = [&](const QString& name, const QString& text, int left, int wide) {
        Make_Label(name, text, Text_Role::Body, {left, top, wide, 32});
    };
    label(u"Label10"_s, u"Dates:"_s, Left, 56);
    Combo8 = Make_Combo(u"Combo8"_s, u"What comes first in dates"_s, {Left + 56, top, 264, 32}, Frame1);
    label(u"Label11"_s, u"Class where none is given:"_s, Left + 352, 190);
    Text2 = Make_Entry(u"Text2"_s, u"Class where none is given"_s, {Left + 546, top, 158, 32}, Frame1);
    Text2->setMaxLength(Longest_Class);
    label(u"Label14"_s, u"Show:"_s, Left + 736, 52);
    Combo9 = Make_Combo(u"Combo9"_s, u"Which rows to show"_s, {Left + 788, top, 260, 32}, Frame1);
    shell::On(Combo8, &shell::Click_Combo::Click, this, platform, [this] { Combo8_Click(); });
    shell::On(Text2, &QLineEdit::editingFinished, this, platform, [this] { Text2_Change(); });
    shell::On(Combo9, &shell::Click_Combo::Click, this, platform, [this] { Show_Rehearsal(); });
}

void Form43::Lay_Out_Rows() {
    Label12 = Make_Label(u"Label12"_s, u""_s, Text_Role::Body, {Left, 186, Whole_Width, 22});
    Label13 = Make_Label(u"Label13"_s, u""_s, Text_Role::Quiet, {Left, 208, Whole_Width, 40});
    Label13->setWordWrap(true);
    Label13->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    Spread1 = new Rehearsal_View(u"Spread1"_s, Frame1);
    Spread1->setGeometry(Left, 252, Whole_Width, 208);
    Spread1->setAccessibleName(u"The rows of the list"_s);
    shell::On(&Spread1->Rows(), &Rehearsal_Model::Changed, this, platform, [this] { Take_Change(); });
    shell::On(Spread1->selectionModel(), &QItemSelectionModel::currentChanged, this, platform,
              [this] { Tell_Row(); });
    Check1 = new QCheckBox(Frame1);
    Check1->setObjectName(u"Check1"_s);
    Check1->setGeometry(Left, 466, Whole_Width, 28);
    shell::On(Check1, &QCheckBox::clicked, this, platform, [this] { Check1_Click(); });
    constexpr int top = 504;
    constexpr int height = 40;
    Label3 = Make_Help_Label(u"Label3"_s, {Left, 498, 500, 46}, Frame1);
    HotLabel4 =
        Make_HotLabel(u"HotLabel4"_s, u"Cure"_s, {528, top, 80, height}, [this] { HotLabel4_Click(); });
    HotLabel5 = Make_HotLabel(u"HotLabel5"_s, u"Save as..."_s, {620, top, 108, height},
                              [this] { HotLabel5_Click(); });
    HotLabel6 =
        Make_HotLabel(u"HotLabel6"_s, u"Accept"_s, {740, top, 150, height}, [this] { HotLabel6_Click(); });
    HotLabel6->Set_Weight(shell::HotLabel::Weight::Primary);
    HotLabel1 =
        Make_HotLabel(u"HotLabel1"_s, u"Back"_s, {924, top, 140, height}, [this] { HotLabel1_Click(); });
}

void Form43::Tell_Helps() {
    auto* help = Help_In(Label3, this);
    const std::pair<QWidget*, QString> helps[] = {
        {HotLabel1, u"Go back to the Import page. Nothing is written."_s},
        {HotLabel2,
         u"Open a list as a school's system writes it: a CSV or text file, or a workbook (.xlsx)."_s},
        {HotLabel3, u"Take the rows that you have copied in a spreadsheet."_s},
        {HotLabel4, u"Mend what can be mended in the rows shown: commas, apostrophes, characters of other "
                    u"scripts, names in "
                    u"one column without a comma."_s},
        {HotLabel5, u"Keep the prepared list as a file that the Import page can preview."_s},
        {HotLabel6,
         u"Hand the prepared list to the Import page, which previews it. Nothing is stored yet."_s},
        {Text1, u"The list that is being prepared."_s},
        {Combo1,
         u"If letters look wrong, choose another encoding. Of a workbook, choose the sheet with the pupils."_s},
        {Fields[0],
         u"The column of surnames. If it is that of the forenames too, names are parted at their comma."_s},
        {Fields[1], u"The column of forenames."_s},
        {Fields[2], u"The column of genders, in words or letters."_s},
        {Fields[3], u"The column of dates of birth."_s},
        {Fields[4], u"The column of classes. Without one, all come into the class that you give below."_s},
        {Fields[5], u"The column of passwords. Without one, each pupil's date of birth is the password."_s},
        {Combo8, u"Whether the day or the month comes first, for all rows alike."_s},
        {Text2, u"The class of all rows that have none. If it stays empty they come into Universal."_s},
        {Combo9, u"Show all rows, or those of one kind."_s},
        {Spread1, u"Type to correct a field. The space bar takes a row or leaves it out."_s},
        {Check1,
         u"A class that isn't there yet is made by the import. Tick this if all of them are meant."_s},
    };
    for (const auto& [control, text] : helps)
        help->Tell(control, text);
    help->Follow_Focus(*this);
}

} // namespace pupils
