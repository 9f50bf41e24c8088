#include "pupils/register_page.h"

#include "keeping/change_list.h"
#include "platform/basics/number_text.h"

using namespace Qt::StringLiterals;

namespace pupils {

using desktop::Answer;
using desktop::Box_Style;

// The list's first year and the item that stands selected, which is 2005. Neither moves with the clock.
constexpr int First_Year = 1980;
constexpr int Chosen_Year_Item = 25;

constexpr int Longest_Month = 31;
constexpr double Twips_A_Step = 432;
constexpr double Twips_To_Pixels = 15;

void Form10::Load() {
    Once_Painted(u"Timer1"_s, [this] { Timer1_Timer(); });
}

void Form10::Timer1_Timer() {
    Session_Registered = 0;
    Label10->setText(basics::Plain_Number(Session_Registered));
    Label11->setText(u""_s);
    Label13->setText(counts.Number_Of_Students.Text_Or_Empty());
    Clear_For_New_Student();
    Hide_ProgBar();
    Text3->setFocus();
}

bool Form10::Invalid_Name_Entered() {
    const auto blank = [](const QLineEdit* entry) { return entry->text().isEmpty(); };
    if (!blank(Text3) && !blank(Text4) && !blank(sex->Text5)) return false;
    platform.boxes.Ask(Box_Style::Critical, u"Personal details incomplete"_s,
                       u"All fields should be completed."_s);
    if (!blank(Text3) && !blank(Text4)) sex->Text5->setFocus();
    return true;
}

void Form10::Populate_Year_List() {
    birth->Populate_Year_List(First_Year, Chosen_Year_Item);
}

void Form10::CreateNewTestPerson() {
    New_Person_Pending = true;
    for (QLineEdit* entry : {static_cast<QLineEdit*>(Text3), static_cast<QLineEdit*>(Text4), sex->Text5})
        entry->setEnabled(true);
    Text3->setText(u""_s);
    Text4->setText(u""_s);
    birth->Blank_Age();
    sex->Set_Sex_Combo();
    HotLabel2->setEnabled(true);
    HotLabel1->setEnabled(true);
}

void Form10::Clear_For_New_Student() {
    CreateNewTestPerson();
    birth->Populate_Date_List(Longest_Month, 1);
    birth->Populate_Months_List();
    Populate_Year_List();
}

void Form10::HotLabel2_Click() {
    if (Invalid_Name_Entered()) return;
    // Never stored: the pupil gets the code that is made as their row is.
    maker.Generate_StudentCode(Text3->text(), Text4->text());
    if (platform.boxes.Ask(Box_Style::Yes_No_Question, u"Saving"_s,
                           u"Do you wish to save these details ?"_s) != Answer::Yes)
        return;
    if (New_Person_Pending) Store_New_Person();
    Count_New_Person();
    Clear_For_New_Student();
    WaitProgressBar(0);
    Text3->setFocus();
}

void Form10::Store_New_Person() {
    Show_ProgBar();
    QStringList fields{Text3->text(), Text4->text(), sex->Text5->text(), birth->Text2->text(), u"Universal"_s,
                       u""_s,         u""_s};
    // Whether it worked isn't told: the page goes on as if it had.
    if (maker.Insert_New_Pupil(fields))
        keeping::Note(installation, platform.clock, keeping::Act::Registered, {maker.New_StudentCode});
    WaitProgressBar(5);
    WaitProgressBar(10);
    New_Person_Pending = false;
}

void Form10::Count_New_Person() {
    Current_StudentCode = maker.New_StudentCode;
    Current_Surname = Text3->text();
    Current_Forename = Text4->text();
    const basics::Value& so_far = counts.Number_Of_Students;
    counts.Number_Of_Students = (so_far.Is_Empty() ? 0 : so_far.As_Long()) + 1;
    ++Session_Registered;
    Label10->setText(basics::Plain_Number(Session_Registered));
    Label11->setText(Current_Forename + u' ' + Current_Surname);
    Label13->setText(counts.Number_Of_Students.Text_Or_Empty());
}

void Form10::HotLabel1_Click() {
    navigator.Go_To(shell::Page_Id::Main_Menu);
}

void Form10::Show_ProgBar() {
    Shape1->show();
    Shape2->show();
}

void Form10::Hide_ProgBar() {
    Shape1->hide();
    Shape2->hide();
}

void Form10::WaitProgressBar(int step) {
    if (step == 0) Hide_ProgBar();
    Shape2->resize(static_cast<int>(Twips_A_Step * step / Twips_To_Pixels), Shape2->height());
    Shape2->repaint(); // nobody else paints while the page is busy
}

} // namespace pupils
