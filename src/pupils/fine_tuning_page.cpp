#include "pupils/fine_tuning_page.h"

#include "keeping/change_list.h"
#include "keeping/earlier_takings.h"
#include "platform/basics/run_time_error.h"
#include "pupils/new_pupil.h"
#include "shell/conventions/utilities.h"

#include <optional>

using namespace Qt::StringLiterals;

namespace pupils {

constexpr int First_Year = 1930;
constexpr int Usual_Age = 11; // the year that stands selected lies so many years back
constexpr int Longest_Month = 31;
constexpr int Not_Attempted = 0;
constexpr int Completed = 1;
constexpr int Marked_For_Retest = 2;

static int Test_Index(std::size_t i) {
    return static_cast<int>(i) + 1; // balls count from 0, tests from 1
}

void Form15::Load() {
    Show_Retest_Panels(false);
    sex->Set_Sex_Combo();
    Once_Painted(u"Timer1"_s, [this] { Timer1_Timer(); });
}

void Form15::Timer1_Timer() {
    Load_All_Students();
}

void Form15::Load_All_Students() {
    static const QStringList columns = QStringList{u"Sex"_s, u"DOB"_s} + scoring::Test_Columns();
    List_All_Pupils(holder, {installation, pupils, records}, *Combo1, columns,
                    [this](foundation::Row_Fields& field, int p) { Take_Pupil(field, p); });
    if (pupils.Pupils_Listed == 0)
        Label7->setText(u"No reports are available as yet"_s);
    else
        Combo1->Set_ListIndex(0);
}

void Form15::Take_Pupil(foundation::Row_Fields& field, int p) {
    Take_Names(field, p, {installation, pupils, records});
    records.Pupil_Sex[p] = field.Text(u"Sex"_s);
    pupils.Pupil_DOB_List[p] = field.Text(u"DOB"_s);
    for (int t = 1; t <= scoring::All_Tests; ++t) {
        const scoring::Test_Entry& test = scoring::Test_At(t);
        pupils.Test_Status[t][p] = Number_Or_Zero(field(test.Status_Column));
        pupils.Test_Age[t][p] = Number_Or_Zero(field(test.Age_Column));
        field.Keep(test.Date_Column, pupils.Test_Date[t][p]);
    }
}

void Form15::Combo1_Click() {
    Current_Pupil = Combo1->ListIndex() + 1;
    Show_Pupil_Details(Current_Pupil);
    Show_Test_Balls(Current_Pupil, completed_count);
    Show_Retest_Panels(completed_count != 0);
}

void Form15::Show_Retest_Panels(bool shown) {
    for (QWidget* panel : std::initializer_list<QWidget*>{Frame4, Frame5, Shape1})
        panel->setVisible(shown);
}

void Form15::Show_Pupil_Details(int index) {
    Keep_Undo_Copy(index);
    Text1->setText(pupils.Student_Code[index]);
    Text3->setText(records.Pupil_Surname[index]);
    Text4->setText(records.Pupil_Forename[index]);
    sex->Text5->setText(records.Pupil_Sex[index]);
    Set_Date_Combos(index);
    if (records.Pupil_Sex[index] == "M"_L1) sex->Combo5->Set_ListIndex(0);
    if (records.Pupil_Sex[index] == "F"_L1) sex->Combo5->Set_ListIndex(1);
    Set_Personal_Enabled(false);
}

void Form15::Keep_Undo_Copy(int index) {
    undo = {pupils.Student_Code[index], pupils.Pupil_DOB_List[index], records.Pupil_Surname[index],
            records.Pupil_Forename[index], records.Pupil_Sex[index]};
}

void Form15::Populate_Year_List() {
    birth->Populate_Year_List(First_Year, birth->Current_Year() - Usual_Age - First_Year);
}

// The list refuses an item that it doesn't have, such as the present year.
static void Choose_Item(shell::Click_Combo* list, int index) {
    if (index < -1 || index >= list->count()) basics::Raise(basics::errors::Invalid_Property_Value);
    list->Set_ListIndex(index);
}

// The numbers by position in dd/mm/yy or dd/mm/yyyy: the year has two digits either way.
struct Birth_Numbers {
    int day, month, year;
};

static std::optional<Birth_Numbers> Read_By_Position(const QString& date) {
    bool all_read = true;
    const auto number = [&all_read](const QString& digits) {
        bool read = false;
        const int value = digits.toInt(&read);
        all_read = all_read && read;
        return value;
    };
    const Birth_Numbers numbers{number(date.left(2)), number(date.mid(3, 2)), number(date.right(2))};
    return all_read ? std::optional(numbers) : std::nullopt;
}

// A pupil without a date of birth, or with a text that is none, leaves the lists where they start, so that a
// date can be chosen. Until one is, the stored text stays theirs.
void Form15::Set_Date_Combos(int index) {
    constexpr int pivot = 30; // years from 30 on are of the 1900s, whatever the clock says
    birth->Populate_Date_List(Longest_Month, 1);
    birth->Populate_Months_List();
    Populate_Year_List();
    const auto date = Read_By_Position(pupils.Pupil_DOB_List[index]);
    if (!date) {
        birth->Text2->setText(pupils.Pupil_DOB_List[index]);
        return;
    }
    Choose_Item(birth->Combo2, date->day - 1);
    Choose_Item(birth->Combo3, date->month - 1);
    Choose_Item(birth->Combo4, date->year + (date->year < pivot ? 2000 : 1900) - First_Year);
    // February was chosen in the usual year, which took the 29th away.
    if (date->day == 29 && date->month == 2 && birth->Combo2->count() == 29) birth->Combo2->Set_ListIndex(28);
}

std::function<void()> Form15::For_Current_Pupil(void (Form15::*work)(int index)) {
    return [this, work] {
        if (Current_Pupil > 0) (this->*work)(Current_Pupil);
    };
}

void Form15::Set_Personal_Enabled(bool enabled) {
    for (QWidget* control : std::initializer_list<QWidget*>{Text3, Text4, sex->Combo5, HotLabel3, HotLabel2})
        control->setEnabled(enabled);
    birth->Set_Enabled(enabled);
}

void Form15::Enable_Personal_Edit() {
    if (Current_Pupil == 0) return;
    Set_Personal_Enabled(true);
    Text3->setFocus();
}

void Form15::Note_Correction(const QString& born) {
    QStringList fields;
    const auto compare = [&fields](const QString& field, const QString& before, const QString& after) {
        if (before != after) fields.append(field);
    };
    compare(u"surname"_s, undo.surname, Normalise_Hyphen(Text3->text()));
    compare(u"forename"_s, undo.forename, Text4->text());
    compare(u"date of birth"_s, undo.date_of_birth, born);
    compare(u"gender"_s, undo.sex, sex->Text5->text());
    if (!fields.isEmpty())
        keeping::Note(installation, platform.clock, keeping::Act::Corrected, {undo.code},
                      fields.join(u", "_s));
}

// Nothing is asked and nothing is checked: a blank name is stored.
void Form15::Save_Personal_Details(int index) {
    const int kept_index = Combo1->ListIndex();
    holder.ado_Open(installation.Connection_String, Row_Of_Pupil(pupils.Student_Code[index]),
                    u"Optimistic"_s);
    database::Recordset& row = holder.Rows();
    row.Fields(u"Surname"_s).Set_Value(Normalise_Hyphen(Text3->text()));
    row.Fields(u"Forename"_s).Set_Value(Text4->text());
    const QString born = birth->Text2->text();
    if (!born.isEmpty()) row.Fields(u"DOB"_s).Set_Value(born); // none stored and none chosen: stays as it is
    row.Fields(u"Sex"_s).Set_Value(sex->Text5->text());
    row.Update();
    holder.ado_Close();
    Note_Correction(born);
    records.Pupil_Surname[index] = Text3->text();
    records.Pupil_Forename[index] = Text4->text();
    pupils.Pupil_DOB_List[index] = birth->Text2->text();
    records.Pupil_Sex[index] = sex->Text5->text();
    Load_All_Students();
    // Whoever stands at this place now: a changed surname can have moved the pupil.
    if (kept_index < Combo1->count()) Combo1->Set_ListIndex(kept_index);
}

void Form15::Undo_Personal_Details(int index) {
    Text1->setText(undo.code);
    pupils.Pupil_DOB_List[index] = undo.date_of_birth;
    Set_Date_Combos(index);
    Text3->setText(undo.surname);
    Text4->setText(undo.forename);
    sex->Combo5->Set_ListIndex(undo.sex == "M"_L1 ? 0 : 1);
}

void Form15::Set_Retest_Buttons_Enabled(bool enabled) {
    HotLabel6->setEnabled(enabled);
    HotLabel7->setEnabled(enabled);
}

void Form15::Show_Test_Balls(int index, int& count) {
    count = 0;
    for (std::size_t i = 0; i < Tests; ++i) {
        const bool completed = pupils.Test_Status[Test_Index(i)][index] == Completed;
        if (completed) ++count;
        Image1[i]->Set_State(completed ? Test_State::Completed : Test_State::Not_Attempted);
    }
    Set_Retest_Buttons_Enabled(false);
}

// A status that is neither 0 nor 1 counts as not attempted here too: a stored 2 is nobody's mark.
void Form15::Begin_Retest_Edit(int index) {
    for (std::size_t i = 0; i < Tests; ++i)
        Retest_Flags[i] = pupils.Test_Status[Test_Index(i)][index] == Completed ? Completed : Not_Attempted;
    Set_Retest_Buttons_Enabled(true);
}

void Form15::Image1_Click(int i) {
    int& flag = Retest_Flags[static_cast<std::size_t>(i)];
    if (!HotLabel7->isEnabled() || flag != Completed) return;
    Image1[static_cast<std::size_t>(i)]->Set_State(Test_State::Allow_Retest);
    flag = Marked_For_Retest;
    shell::Play_Click(installation, platform);
}

void Form15::HotLabel6_Click() {
    int unused = 0;
    Show_Test_Balls(Current_Pupil, unused);
}

QList<int> Form15::Marked_Tests() const {
    QList<int> tests;
    for (std::size_t i = 0; i < Tests; ++i)
        if (Retest_Flags[i] == Marked_For_Retest) tests.append(Test_Index(i));
    return tests;
}

// Before anything is changed: the test modules overwrite the answers. A retest is allowed all the same where
// they can't be kept.
void Form15::Keep_Marked_Takings(const QString& code) {
    const QList<int> tests = Marked_Tests();
    if (tests.isEmpty()) return;
    holder.Let_Go();
    keeping::Quietly([&] {
        keeping::Keep_Takings(foundation::Database_Named_In(installation.Connection_String), code, tests,
                              platform.clock.Now());
    });
}

void Form15::Note_Retests(const QString& code) {
    QStringList names;
    for (const int t : Marked_Tests())
        names.append(scoring::Test_At(t).Test_Name);
    if (!names.isEmpty())
        keeping::Note(installation, platform.clock, keeping::Act::Retest_Allowed, {code},
                      names.join(u", "_s));
}

// The status alone is taken back. Ages, dates and answers stay until the test is taken again, and the page
// goes on showing the test as completed until the list is loaded anew.
void Form15::Save_Retest_Flags(int index) {
    const int kept_index = Combo1->ListIndex();
    Keep_Marked_Takings(pupils.Student_Code[index]);
    holder.ado_Open(installation.Connection_String, Row_Of_Pupil(pupils.Student_Code[index]),
                    u"Optimistic"_s);
    for (std::size_t i = 0; i < Tests; ++i)
        if (Retest_Flags[i] == Marked_For_Retest)
            holder.Rows().Fields(scoring::Test_At(Test_Index(i)).Status_Column).Set_Value(Not_Attempted);
    holder.Rows().Update();
    holder.ado_Close();
    Note_Retests(pupils.Student_Code[index]);
    Combo1->Set_ListIndex(kept_index);
}

void Form15::AllData_Click() {
    if (Current_Pupil == 0) return;
    records.To_Be_Shown = pupils.Student_Code[Current_Pupil];
    holder.Let_Go();
    navigator.Open_On_Top(shell::Page_Id::Pupil_Data);
}

void Form15::HotLabel1_Click() {
    navigator.Go_To(shell::Page_Id::Main_Menu);
}

} // namespace pupils
