#include "pupils/security_page.h"

#include "keeping/change_list.h"
#include "platform/basics/dates.h"
#include "platform/basics/run_time_error.h"
#include "printing/grid_print.h"

#include <QStringBuilder>
#include <vector>

using namespace Qt::StringLiterals;

namespace pupils {

using desktop::Box_Style;

const QString Groups_Table = u"mevo_groups"_s;
const QString Pupils_Table = u"mevo_pupils"_s;

static QString Digit(bool yes) {
    return yes ? u"1"_s : u"0"_s;
}

static QString Without_Apostrophes(QString text) {
    return text.remove(u'\'');
}

void Form2::Load() {
    records.groups.Group_Count = 1;
    Current_Pupil = 1;
    Combo3->AddItem(u""_s);
    live = false;
    Once_Painted(u"Timer1"_s, [this] { Timer1_Timer(); });
}

void Form2::Timer1_Timer() {
    Load_Everyone_Afresh();
}

void Form2::Load_Everyone_Afresh() {
    static const QStringList columns{u"DOB"_s, u"Group_Class"_s, u"Password"_s, u"Show_Name"_s,
                                     u"Dob_as_pw"_s};
    List_All_Pupils(holder, {installation, pupils, records}, *Combo1, columns,
                    [this](foundation::Row_Fields& field, int p) { Take_Pupil(field, p); });
    Label3->setText(QString::number(pupils.Pupils_Listed));
    Populate_SpreadSheet(pupils.Pupils_Listed);
    Fill_Group_Combos();
    Fill_Groups(1);
    Select_First(Combo1);
    lists_are_there = true;
}

std::function<void()> Form2::With_Lists(void (Form2::*work)()) {
    return [this, work] {
        if (lists_are_there) (this->*work)();
    };
}

// What stands as a date's text already needn't become a date first.
static QString Birthday_In(foundation::Row_Fields& field) {
    const QString date = field.Text(u"DOB"_s);
    return basics::Is_Date_Text(date) ? date : Day_First(field(u"DOB"_s));
}

void Form2::Take_Pupil(foundation::Row_Fields& field, int p) {
    Take_Names(field, p, {installation, pupils, records});
    pupils.Pupil_DOB_List[p] = Birthday_In(field);
    records.Pupil_Group[p] = field.Text(u"Group_Class"_s);
    records.Pupil_Password[p] = field.Text(u"Password"_s);
    records.Pupil_Show_Name[p] = Number_Or_Zero(field(u"Show_Name"_s));
    records.Pupil_Dob_As_Pw[p] = Number_Or_Zero(field(u"Dob_as_pw"_s));
}

void Form2::SpreadSheet_Headings() {
    const QString headings[] = {u"User ID"_s,  u"Student"_s,     u"D.O.B"_s,
                                u"Password"_s, u"Group/Class"_s, u"Login list"_s};
    int column = 0;
    for (const QString& heading : headings)
        Spread1->Set_Text(++column, 0, heading);
}

void Form2::Populate_SpreadSheet(int count) {
    SpreadSheet_Headings();
    std::vector<QString> texts;
    texts.reserve(static_cast<std::size_t>(count) * static_cast<std::size_t>(Spread1->columnCount()));
    for (int row = 1; row <= count; ++row) {
        texts.push_back(pupils.Student_Code[row]);
        texts.push_back(records.Pupil_Surname[row] % u' ' % records.Pupil_Forename[row]);
        texts.push_back(pupils.Pupil_DOB_List[row]);
        texts.push_back(records.Pupil_Dob_As_Pw[row] == 1 ? u"[Use date of birth]"_s
                                                          : records.Pupil_Password[row]);
        texts.push_back(records.Pupil_Group[row]);
        texts.push_back(records.Pupil_Show_Name[row] == 1 ? u"Yes"_s : u"No"_s);
    }
    Spread1->Set_All_Texts(std::move(texts));
}

void Form2::Bring_Into_View(int row) {
    if (row <= 1)
        Spread1->scrollToTop();
    else
        Spread1->scrollTo(Spread1->model()->index(row - 1, 0), QAbstractItemView::PositionAtTop);
}

void Form2::Combo1_Click() {
    const int p = Combo1->ListIndex() + 1;
    Fill_Student_Settings(p);
    Bring_Into_View(p);
}

// Names that differ only in case are one group to the database, though a group of its very name goes first.
static int Item_Of_Group(const shell::Click_Combo* list, const QString& group) {
    const int exact = list->findText(group, Qt::MatchExactly | Qt::MatchCaseSensitive);
    const int found = exact >= 0 ? exact : list->findText(group, Qt::MatchFixedString);
    return found >= 0 ? found : 0;
}

void Form2::Fill_Student_Settings(int index) {
    Text2->setText(records.Pupil_Password[index]);
    Show_Pupil.Set(records.Pupil_Show_Name[index] == 1);
    Use_Dob.Set(records.Pupil_Dob_As_Pw[index] == 1);
    if (Combo3->count() > 0) Combo3->Set_ListIndex(Item_Of_Group(Combo3, records.Pupil_Group[index]));
}

// The first click comes from filling the page and chooses nothing.
void Form2::Combo3_Click() {
    if (live) records.Pupil_Group[Combo1->ListIndex() + 1] = Combo3->currentText();
    live = true;
}

void Form2::Note(keeping::Act act, const QString& subject, const QString& detail) {
    keeping::Note(installation, platform.clock, act, {subject}, detail);
}

// Their names alone: what was entered stays out of the list of changes.
QStringList Form2::Corrected_Settings(database::Recordset& row, int p) const {
    QStringList corrected;
    if (row.Fields(u"Password"_s).Value().Text_Or_Empty() != records.Pupil_Password[p])
        corrected.append(u"password"_s);
    if (Number_Or_Zero(row.Fields(u"Show_Name"_s).Value()) != records.Pupil_Show_Name[p])
        corrected.append(u"login list"_s);
    if (Number_Or_Zero(row.Fields(u"Dob_as_pw"_s).Value()) != records.Pupil_Dob_As_Pw[p])
        corrected.append(u"date of birth as password"_s);
    return corrected;
}

void Form2::Update_Pupil_Settings() {
    if (Text2->text().isEmpty() && !Use_Dob.Is_Yes()) {
        platform.boxes.Ask(Box_Style::Critical, u"Warning"_s,
                           u"You must enter a password for this pupil or choose D.O.B. as the password."_s);
        return;
    }
    const int p = Combo1->ListIndex() + 1;
    holder.ado_Open(installation.Connection_String, Row_Of_Pupil(pupils.Student_Code[p]), u"Optimistic"_s);
    records.Pupil_Dob_As_Pw[p] = Use_Dob.Is_Yes();
    records.Pupil_Show_Name[p] = Show_Pupil.Is_Yes();
    records.Pupil_Group[p] = Combo3->currentText();
    records.Pupil_Password[p] = Text2->text();
    database::Recordset& row = holder.Rows();
    const QString group_before = row.Fields(u"Group_Class"_s).Value().Text_Or_Empty();
    const QStringList corrected = Corrected_Settings(row, p);
    row.Fields(u"Password"_s).Set_Value(records.Pupil_Password[p]);
    row.Fields(u"Group_Class"_s).Set_Value(records.Pupil_Group[p]);
    row.Fields(u"Show_Name"_s).Set_Value(int(records.Pupil_Show_Name[p]));
    row.Fields(u"Dob_as_pw"_s).Set_Value(int(records.Pupil_Dob_As_Pw[p]));
    row.Update();
    holder.ado_Close();
    if (group_before != records.Pupil_Group[p])
        Note(keeping::Act::Moved, pupils.Student_Code[p],
             u"from %1 to %2"_s.arg(group_before, records.Pupil_Group[p]));
    if (!corrected.isEmpty()) Note(keeping::Act::Corrected, pupils.Student_Code[p], corrected.join(u", "_s));
    Populate_SpreadSheet(pupils.Pupils_Listed);
}

void Form2::Fill_Group_Combos() {
    for (shell::Click_Combo* list : {Combo2, Combo3, Combo4, Combo5})
        list->Clear();
    Load_Groups(holder, installation, records.groups);
    for (int i = 1; i <= records.groups.Group_Count; ++i)
        for (shell::Click_Combo* list : {Combo2, Combo3, Combo4, Combo5})
            list->AddItem(records.groups.Group_Names[i]);
    for (shell::Click_Combo* list : {Combo2, Combo4, Combo5})
        Select_First(list);
    for (QWidget* control : std::initializer_list<QWidget*>{HotLabel5, HotLabel4, Text3, HotLabel3})
        control->setEnabled(false);
}

void Form2::Fill_Groups(int index) {
    Show_Group.Set(records.groups.Group_Show_On_List[index] == 1);
    Group_Uses_Dob.Set(records.groups.Group_Dob_As_Pw[index] == 1);
}

void Form2::Combo2_Click() {
    Fill_Groups(Combo2->ListIndex() + 1);
}

// Loading everyone afresh chooses the first group, before the choice is kept: so the panel goes back to that
// group.
void Form2::Update_Group_Settings() {
    Update_Group_Row();
    Update_Groups_For_All_Students();
    const int chosen = Combo2->ListIndex();
    Fill_Group_Combos();
    if (chosen >= 0) Combo2->Set_ListIndex(chosen);
    Fill_Student_Settings(Current_Pupil);
    Text3->setText(u""_s);
}

void Form2::Update_Group_Row() {
    holder.ado_Open(installation.Connection_String,
                    u"SELECT * FROM Mevo_Groups WHERE group_name = '"_s + Combo2->currentText() + u'\'',
                    u"Optimistic"_s);
    database::Recordset& row = holder.Rows();
    row.Fields(u"Show_On_List"_s).Set_Value(int(Show_Group.Is_Yes()));
    row.Fields(u"Dob_as_pw"_s).Set_Value(int(Group_Uses_Dob.Is_Yes()));
    row.Update();
    holder.ado_Close();
    Note(keeping::Act::Corrected, Combo2->currentText(), u"the group's login list and passwords"_s);
}

void Form2::Update_Groups_For_All_Students() {
    QString statement =
        u"UPDATE Mevo_Pupils SET show_name = ?sol, dob_as_pw=?dpw WHERE group_class = '?gpcls'"_s;
    statement.replace(u"?gpcls"_s, Combo2->currentText());
    statement.replace(u"?sol"_s, Digit(Show_Group.Is_Yes()));
    statement.replace(u"?dpw"_s, Digit(Group_Uses_Dob.Is_Yes()));
    Run(statement);
    Load_Everyone_Afresh();
}

void Form2::Run(const QString& statement) {
    holder.ado_Open(installation.Connection_String, statement, u"Optimistic"_s);
    holder.ado_Close();
}

void Form2::Change_Group_In_Pupil_Table(const QString& table, const QString& old_name,
                                        const QString& new_name) {
    Run(u"UPDATE "_s + table + u" SET group_class = '"_s + new_name + u"' WHERE group_class = '"_s +
        old_name + u'\'');
}

void Form2::Change_Group_In_Group_Table(const QString& table, const QString& old_name,
                                        const QString& new_name) {
    Run(u"UPDATE "_s + table + u" SET group_name = '"_s + new_name + u"' WHERE group_name = '"_s + old_name +
        u'\'');
}

void Form2::Delete_Group_From_GroupTable(const QString& table, const QString& name) {
    Run(u"DELETE FROM "_s + table + u" WHERE group_name = '"_s + name + u'\'');
}

void Form2::Refuse_Name_In_Use(const QString& name, QLineEdit* entry) {
    platform.boxes.Ask(Box_Style::Critical, u"Error"_s,
                       u"The Group name "_s + name + u" is already in use!"_s);
    entry->setText(u""_s);
}

void Form2::Add_Group() {
    const QString name = Without_Apostrophes(Text4->text());
    Text4->setText(name);
    if (Is_Group_Name(records.groups, name)) {
        Refuse_Name_In_Use(name, Text4);
        return;
    }
    holder.ado_Open(installation.Connection_String, u"SELECT * FROM mevo_groups"_s, u"Optimistic"_s);
    database::Recordset& groups = holder.Rows();
    groups.AddNew();
    groups.Fields(u"Group_Name"_s).Set_Value(name);
    groups.Fields(u"Show_On_List"_s).Set_Value(0);
    groups.Fields(u"Dob_as_pw"_s).Set_Value(0);
    groups.Update();
    holder.ado_Close();
    Fill_Group_Combos();
    platform.boxes.Ask(Box_Style::Information, u"New Group"_s, u"New Group "_s + name + u" has been added"_s);
    Text4->setText(u""_s);
}

// A group whose own name has an apostrophe is looked for without it, so that no row is found.
void Form2::Rename_Group() {
    const QString old_name = Without_Apostrophes(Combo4->currentText());
    const QString new_name = Without_Apostrophes(Text3->text());
    if (Is_Group_Name(records.groups, new_name)) {
        Refuse_Name_In_Use(new_name, Text3);
        return;
    }
    Change_Group_In_Group_Table(Groups_Table, old_name, new_name);
    Change_Group_In_Pupil_Table(Pupils_Table, old_name, new_name);
    platform.boxes.Ask(Box_Style::Information, u"Renamed a group"_s,
                       u"The group "_s + old_name + u" has been renamed as "_s + new_name);
    Load_Everyone_Afresh();
    // An error that the user ignored left the old name.
    if (Is_Group_Name(records.groups, new_name))
        Note(keeping::Act::Moved, old_name, u"the whole group to "_s + new_name);
    Text3->setText(u""_s);
}

void Form2::Disband_Group() {
    const QString name = Combo5->currentText();
    Delete_Group_From_GroupTable(Groups_Table, name);
    Change_Group_In_Pupil_Table(Pupils_Table, name, u"Universal"_s);
    Load_Everyone_Afresh();
    Fill_Group_Combos();
    if (!Is_Group_Name(records.groups, name))
        Note(keeping::Act::Moved, name, u"the whole group to Universal"_s);
    Fill_Student_Settings(Current_Pupil);
}

// Item 0 is the default group, which keeps its name and its row.
void Form2::Combo4_Click() {
    const bool may_change = Combo4->ListIndex() >= 1;
    Text3->setEnabled(may_change);
    HotLabel4->setEnabled(may_change);
}

void Form2::Combo5_Click() {
    HotLabel5->setEnabled(Combo5->ListIndex() >= 1);
}

void Form2::Text3_Change() {
    HotLabel4->setEnabled(!Text3->text().isEmpty());
}

void Form2::Text4_Change() {
    HotLabel3->setEnabled(!Text4->text().isEmpty());
}

void Form2::HotLabel1_Click() {
    navigator.Go_To(shell::Page_Id::Main_Menu);
}

void Form2::HotLabel2_Click() {
    try {
        if (!platform.printers.Choose()) return;
        if (!printing::Grid_Print(printing::Grid_Kind::Security_Settings, *this, installation, platform))
            return;
        platform.boxes.Ask(Box_Style::Information, u"Will be printed"_s,
                           u"The Security settings sheet has been sent to your printer"_s);
    } catch (const basics::Run_Time_Error&) {
        // A printer that fails ends it without a word, as a cancelled dialog does.
    }
}

void Form2::SaveAsPdf_Click() {
    printing::Grid_Print(printing::Grid_Kind::Security_Settings, *this, installation, platform,
                         printing::Outlet::Pdf_File);
}

void Form2::LoginCards_Click() {
    records.Group_For_Cards = Combo2->currentText();
    navigator.Open_On_Top(shell::Page_Id::Login_Cards);
}

void Form2::HotLabel3_Click() {
    Add_Group();
    Combo1_Click();
}

} // namespace pupils
