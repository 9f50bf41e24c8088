#pragma once

#include "pupils/date_lists.h"
#include "pupils/name_box.h"
#include "pupils/new_pupil.h"
#include "pupils/sex_list.h"
#include "shell/conventions/menu_counts.h"
#include "shell/conventions/page.h"

#include <QGroupBox>

namespace pupils {

// The Register page: enters pupils one at a time. A pupil starts in the group "Universal" with their date
// of birth as password, and appears on the Login List.
class Form10 final : public shell::Page {
    Q_OBJECT
public:
    Form10(desktop::Platform& platform, shell::Navigator& navigator,
           const foundation::Installation& installation, shell::Menu_Counts& counts);

    void Load() override;
    void Timer1_Timer(); // the first filling, once the page has been painted

    bool Invalid_Name_Entered(); // true, and said so, when the entry is incomplete
    void Populate_Year_List();
    void CreateNewTestPerson();
    void Clear_For_New_Student();

    void Show_ProgBar();
    void Hide_ProgBar();
    void WaitProgressBar(int step); // in tenths; 0 hides it

    void HotLabel1_Click(); // the menu
    void HotLabel2_Click(); // saves

    // The pupil last saved here.
    QString Current_StudentCode;
    QString Current_Surname;
    QString Current_Forename;

private:
    void Lay_Out();
    void Lay_Out_Details();
    void Lay_Out_Session();
    void Order_By_Tab();
    void Tell_Helps();
    void Store_New_Person();
    void Count_New_Person();

    const foundation::Installation& installation;
    shell::Menu_Counts& counts;
    Pupil_Maker maker;
    int Session_Registered = 0;      // pupils saved since the page opened
    bool New_Person_Pending = false; // the page holds a person not yet saved

    QGroupBox* details;
    QLabel *Label1, *Label2, *Label3, *Label8;
    Name_Box *Text3, *Text4;
    Date_Lists* birth;
    Sex_List* sex;
    QLabel *Label10, *Label11, *Label13; // the session's counts and last name
    QLabel* Label5;                      // the help line
    QFrame *Shape1, *Shape2;             // the progress bar's outline and the fill inside it
    shell::HotLabel *HotLabel1, *HotLabel2;
};

} // namespace pupils
