#include "pupils/delete_page.h"

#include "keeping/change_list.h"
#include "keeping/earlier_takings.h"
#include "platform/basics/run_time_error.h"
#include "platform/database/recordset.h"
#include "platform/desktop/wait_pointer.h"

#include <QSet>
#include <utility>

using namespace Qt::StringLiterals;

namespace pupils {

using basics::Run_Time_Error;
using desktop::Answer;

namespace {

const QString All_Groups = u"ALL GROUPS"_s;
const QString Default_Group = u"UNIVERSAL"_s; // compared with names in upper case

using Statements = QStringList;

// The pupil's own row goes first here, and last where a group is deleted.
const Statements& Deletes_Of_A_Pupil() {
    static const Statements deletes = {
        u"DELETE FROM Mevo_Pupils"_s,       u"DELETE FROM mevo_pindo_data"_s,
        u"DELETE FROM mevo_friends_data"_s, u"DELETE FROM mevo_letters_data"_s,
        u"DELETE FROM mevo_tolvens_data"_s, u"DELETE FROM mevo_drell_data"_s,
        u"DELETE FROM mevo_mirvel_data"_s,  u"DELETE FROM mevo_karrel_data"_s,
        u"DELETE FROM mevo_yoon_data"_s,    u"DELETE FROM mevo_bln_data"_s,
    };
    return deletes;
}

const Statements& Deletes_Of_All_Data() {
    static const Statements deletes = {
        u"DELETE FROM mevo_tolvens_data"_s, u"DELETE FROM mevo_friends_data"_s,
        u"DELETE FROM mevo_letters_data"_s, u"DELETE FROM mevo_pindo_data"_s,
        u"DELETE FROM mevo_karrel_data"_s,  u"DELETE FROM mevo_drell_data"_s,
        u"DELETE FROM mevo_mirvel_data"_s,  u"DELETE FROM mevo_yoon_data"_s,
        u"DELETE FROM mevo_bln_data"_s,
    };
    return deletes;
}

const Statements& Deletes_Of_A_Groups_Data() {
    static const Statements deletes = {
        u"DELETE FROM mevo_tolvens_data WHERE "_s, u"DELETE FROM mevo_friends_data WHERE "_s,
        u"DELETE FROM mevo_letters_data WHERE "_s, u"DELETE FROM mevo_bln_data WHERE "_s,
        u"DELETE FROM mevo_drell_data WHERE "_s,   u"DELETE FROM mevo_mirvel_data WHERE "_s,
        u"DELETE FROM mevo_karrel_data WHERE "_s,  u"DELETE FROM mevo_yoon_data WHERE "_s,
        u"DELETE FROM mevo_pindo_data WHERE "_s,
    };
    return deletes;
}

QString With(QString statement, const QString& place_holder, const QString& value) {
    return statement.replace(place_holder, value);
}

// The codes of a group's pupils, each between apostrophes, with commas between.
QString Codes_In_Group(database::Recordset& members) {
    QString list;
    for (; !members.Eof(); members.MoveNext())
        list += u'\'' + members.Fields(u"studentcode"_s).Value().Text_Or_Empty() + u"',"_s;
    list.chop(1);
    return list;
}

} // namespace

void Form9::Load() {
    Timer1->start(Deferred_Ms);
    Fill_Group_Combos();
    // Everyone has just been listed by the click on the first item, unless that went wrong; within one act a
    // second reading finds the same.
    if (!everyone_is_listed) Load_Delete_List(0);
    Select_Handed_Over();
}

// Nothing is deleted by that: it is for the user to look at and to confirm.
void Form9::Select_Handed_Over() {
    const QStringList codes = std::exchange(records.To_Be_Deleted, {});
    if (codes.isEmpty()) return;
    for (int i = 1; i <= ListView1->Count(); ++i)
        if (codes.contains(pupils.Student_Code[i])) ListView1->Select(i);
    ListView1_Click();
}

// Selecting the first item raises its click, which fills the list.
void Form9::Fill_Group_Combos() {
    Combo1->Clear();
    records.groups.Group_Names[0] = All_Groups;
    Combo1->AddItem(All_Groups);
    Load_Groups(holder, installation, records.groups);
    for (int i = 1; i <= records.groups.Group_Count; ++i)
        Combo1->AddItem(records.groups.Group_Names[i]);
    Combo1->Set_ListIndex(0);
}

void Form9::Take_Pupils(int count) {
    foundation::Row_Fields field(holder);
    for (int i = 1; i <= count; ++i) {
        Take_Names(field, i, {installation, pupils, records});
        pupils.Pupil_DOB_List[i] = field.Text(u"DOB"_s);
        records.Pupil_Group[i] = field.Text(u"Group_Class"_s);
        field.Next_Row();
    }
}

void Form9::Load_Delete_List(int index) {
    Timer1->stop();
    const QString condition =
        index == 0 ? QString() : u" WHERE Group_Class = '"_s + records.groups.Group_Names[index] + u'\'';
    holder.ado_Open(installation.Connection_String,
                    u"SELECT * FROM Mevo_Pupils"_s + condition + u" ORDER BY Surname,Forename"_s,
                    u"Optimistic"_s, Columns_Of_Names() + QStringList{u"DOB"_s, u"Group_Class"_s});
    qint16 count = 0;
    holder.ado_RSCount(count);
    everyone_is_listed = index == 0 && count > 0;
    if (count > 0) Take_Pupils(count);
    counts.Number_Of_Students = count;
    Listed_Count = count;
    holder.ado_Close();

    for (shell::HotLabel* button : {HotLabel3, HotLabel4, HotLabel2})
        button->setEnabled(count > 0);
    if (count == 0) Label1->setText(u""_s);
    Label7->setText(QString::number(count));
    if (index == 0) Label5->setText(QString::number(count)); // the total, until the first click
}

// Item i stands for place i of the lists: deletion relies on it.
void Form9::List_Names() {
    ListView1->Clear();
    ListView1->Add_Columns(
        {{u"Surname"_s, 170}, {u"Forename"_s, 170}, {u"Group/Class"_s, 180}, {u"User ID"_s, 150}});
    QList<QStringList> rows;
    for (int i = 1; i <= Listed_Count; ++i)
        rows.append({records.Pupil_Surname[i], records.Pupil_Forename[i], records.Pupil_Group[i],
                     pupils.Student_Code[i]});
    ListView1->Add_Items(rows);
}

void Form9::Combo1_Click() {
    Load_Delete_List(Combo1->ListIndex());
    List_Names();
    const bool empty_group = Combo1->ListIndex() != 0 && Listed_Count == 0;
    HotLabel5->Set_Caption(empty_group ? u"Disband Group"_s : u"Delete all from Group"_s);
}

void Form9::Selected_Count(int& count) {
    count = ListView1->Selected_Count();
}

void Form9::ListView1_Click() {
    int count = 0;
    Selected_Count(count);
    Label5->setText(QString::number(count));
}

void Form9::Select_All_Rows(bool flag) {
    ListView1->Set_All_Selected(flag);
    ListView1_Click();
}

void Form9::HotLabel3_Click() {
    Select_All_Rows(true);
}

void Form9::HotLabel4_Click() {
    Select_All_Rows(false);
}

bool Form9::Confirmed(const QString& title, int individuals) {
    const QString text = individuals > 1
                             ? u"Are you sure you wish to delete these "_s + QString::number(individuals) +
                                   u" individuals? - (this is irreversible)"_s
                             : u"Are you sure you wish to delete this individual? - (this is irreversible)"_s;
    return platform.boxes.Ask(desktop::Box_Style::Yes_No_Question, title, text) == Answer::Yes;
}

QStringList Form9::Selected_Codes() const {
    QStringList codes;
    for (int i = 1; i <= ListView1->Count(); ++i)
        if (ListView1->Is_Selected(i)) codes.append(pupils.Student_Code[i]);
    return codes;
}

void Form9::HotLabel2_Click() {
    int count = 0;
    Selected_Count(count);
    if (count == 0) return;
    const QStringList codes = Selected_Codes(); // those that the question is about
    if (!Confirmed(u"Deleting Records from Database - CAUTION!"_s, count)) return;
    const desktop::Wait_Pointer busy(platform.pointer);
    {
        const database::Whole_Act act(deleting);
        // Carries no statement, but shows a database that is out of reach before anything is deleted.
        Own_Connection(installation, deleting)->Close();
        ProgressBar1->Begin(count);
        for (const QString& code : codes) {
            bool result = false;
            DeletePupil(code, result);
            ProgressBar1->Step();
        }
        ProgressBar1->hide();
    }
    Forget_Deleted(codes);
    Load_Delete_List(Combo1->ListIndex());
    List_Names();
}

void Form9::DeletePupil(const QString& code, bool& result) {
    result = false;
    try {
        const auto connection = Own_Connection(installation, deleting);
        for (const QString& statement : Deletes_Of_A_Pupil())
            connection->Execute(
                With(statement + u" WHERE studentcode = '?studentcode'"_s, u"?studentcode"_s, code));
        result = true;
    } catch (const Run_Time_Error&) {
        // The first failure ends it without a word; what is gone by then stays gone.
    }
}

void Form9::Delete_Group_Action() {
    const QString name = Combo1->currentText();
    if (Listed_Count == 0) {
        Disband_If_Wished(name);
        return;
    }
    if (!Confirmed(u"Delete Pupils in Group"_s, Listed_Count)) return;
    const QStringList before = Codes_In_Database().value_or(QStringList());
    const int removed = DeletePupilsInGroup(name);
    Forget_Deleted(before);
    if (removed > 0) {
        // The group's own row stays: a second click, on an empty group, disbands it.
        Load_Delete_List(Combo1->ListIndex());
        List_Names();
    }
}

void Form9::Disband_If_Wished(const QString& name) {
    if (name.toUpper() == Default_Group || name.toUpper() == All_Groups) return;
    const Answer answer =
        platform.boxes.Ask(desktop::Box_Style::Yes_No_Question, u"Empty Group"_s,
                           u"The group chosen is empty. Do you wish to disband the group?"_s);
    if (answer != Answer::Yes) return;
    DeleteGroup(name);
    Fill_Group_Combos();
}

// Nothing where they can't be read.
std::optional<QStringList> Form9::Codes_In_Database() {
    QStringList codes;
    const bool read = keeping::Quietly([&] {
        const auto connection = Own_Connection(installation, deleting);
        database::Recordset all;
        all.Set_ActiveConnection(connection.get());
        all.Source = u"SELECT StudentCode FROM Mevo_Pupils"_s;
        for (all.Open(); !all.Eof(); all.MoveNext())
            codes.append(all.Fields(0).Value().Text_Or_Empty());
    });
    return read ? std::optional(codes) : std::nullopt;
}

// Of those who were there before: the earlier results of whoever is gone go with them. Nobody counts as gone
// while the database can't be read.
void Form9::Forget_Deleted(const QStringList& before) {
    const std::optional<QStringList> left = Codes_In_Database();
    if (!left) return;
    const QSet<QString> there(left->begin(), left->end());
    QStringList gone;
    for (const QString& code : before)
        if (!there.contains(code)) gone.append(code);
    const QString database = foundation::Database_Named_In(installation.Connection_String);
    keeping::Quietly([&] { keeping::Remove_Takings(keeping::Companion_Of(database), gone); });
    keeping::Note(installation, platform.clock, keeping::Act::Deleted, gone);
}

void Form9::DeleteGroup(const QString& name) {
    const auto connection = Own_Connection(installation, deleting);
    connection->Execute(With(u"DELETE FROM Mevo_Groups WHERE Group_Name = '?group'"_s, u"?group"_s, name));
}

int Form9::DeletePupilsInGroup(const QString& name) {
    try {
        return Removed_In_Group(name);
    } catch (const Run_Time_Error&) {
        return 0; // told nobody: the list stays as it was
    }
}

// The data rows go first here: without the pupils' rows nothing would tell whose they are.
int Form9::Removed_In_Group(const QString& name) {
    const database::Whole_Act act(deleting);
    const bool everyone = name == All_Groups;
    if (everyone)
        Erase_All_Pupil_Data_Tables();
    else
        Delete_Multiple_Test_Tables(name);
    const QString statement =
        everyone ? u"DELETE FROM Mevo_Pupils"_s : u"DELETE FROM Mevo_Pupils WHERE Group_Class = '?group'"_s;
    const auto connection = Own_Connection(installation, deleting);
    return connection->Execute(With(statement, u"?group"_s, name));
}

void Form9::Erase_All_Pupil_Data_Tables() {
    const auto connection = Own_Connection(installation, deleting);
    for (const QString& statement : Deletes_Of_All_Data())
        connection->Execute(statement);
}

void Form9::Delete_Multiple_Test_Tables(const QString& name) {
    const auto connection = Own_Connection(installation, deleting);
    database::Recordset members;
    members.Set_ActiveConnection(connection.get());
    members.Source = With(u"SELECT * from mevo_pupils where group_class = '?group'"_s, u"?group"_s, name);
    members.Open();
    const QString codes = Codes_In_Group(members);
    for (const QString& statement : Deletes_Of_A_Groups_Data())
        connection->Execute(
            With(statement + u"studentcode IN (?studentcode_list)"_s, u"?studentcode_list"_s, codes));
}

void Form9::HotLabel1_Click() {
    navigator.Go_To(shell::Page_Id::Main_Menu);
}

} // namespace pupils
