#pragma once

#include "foundation/access_holder.h"
#include "pupils/date_lists.h"
#include "pupils/name_box.h"
#include "pupils/page_parts.h"
#include "pupils/pupil_records.h"
#include "pupils/sex_list.h"
#include "pupils/test_ball.h"
#include "shell/conventions/click_combo.h"
#include "shell/conventions/page.h"

#include <array>

namespace pupils {

// The Fine tuning page: corrects one registered pupil at a time. It does two jobs apart, each with its own
// Edit, Save and Undo: the personal details, and opening completed tests again for a retest.
class Form15 final : public shell::Page {
    Q_OBJECT
public:
    Form15(desktop::Platform& platform, shell::Navigator& navigator, Record_Data data);

    void Load() override;
    void Timer1_Timer(); // the first load, once the page has been painted
    void Load_All_Students();

    // index: place in the pupil list, from 1
    void Show_Pupil_Details(int index);
    void Keep_Undo_Copy(int index);
    void Populate_Year_List();
    void Set_Date_Combos(int index);
    void Enable_Personal_Edit();
    void Save_Personal_Details(int index);
    void Undo_Personal_Details(int index);

    void Show_Test_Balls(int index, int& count); // count: tests completed
    void Begin_Retest_Edit(int index);
    void Save_Retest_Flags(int index);

    void Combo1_Click();
    void Image1_Click(int i); // 0 to 8
    void HotLabel1_Click();   // the menu
    void AllData_Click();     // of the pupil on show
    void HotLabel6_Click();   // undoes the marks for a retest

private:
    static constexpr std::size_t Tests = 9;

    // The pupil as they were when they were shown.
    struct Undo_Copy {
        QString code;
        QString date_of_birth;
        QString surname;
        QString forename;
        QString sex;
    };

    void Lay_Out();
    void Lay_Out_Personal_Details();
    void Lay_Out_Retesting();
    void Lay_Out_Legend();
    void Order_By_Enter();
    void Tell_Helps();
    void Take_Pupil(foundation::Row_Fields& field, int p);
    // Does nothing before a pupil is shown, as in the second in which the list is still to be loaded.
    std::function<void()> For_Current_Pupil(void (Form15::*work)(int index));
    void Set_Personal_Enabled(bool enabled);
    void Set_Retest_Buttons_Enabled(bool enabled);
    void Show_Retest_Panels(bool shown);
    void Note_Correction(const QString& born);
    QList<int> Marked_Tests() const; // t from 1
    void Keep_Marked_Takings(const QString& code);
    void Note_Retests(const QString& code);

    foundation::Installation& installation;
    scoring::Pupil_Lists& pupils;
    Pupil_Records& records;
    foundation::Access_Holder holder;
    int Current_Pupil = 0; // place in the pupil list, from 1
    int completed_count = 0;
    Undo_Copy undo;
    std::array<int, Tests> Retest_Flags{}; // statuses while editing; 2 is open for a retest

    shell::Click_Combo* Combo1;
    shell::HotLabel* AllData;
    QGroupBox *Frame3, *Frame4, *Frame5;
    QFrame* Shape1;
    QLineEdit* Text1;
    Name_Box *Text3, *Text4;
    Date_Lists* birth;
    Sex_List* sex;
    std::array<Test_Ball*, Tests> Image1;
    QLabel *Label1, *Label2, *Label3, *Label5, *Label6, *Label7, *Label8;
    shell::HotLabel *HotLabel1, *HotLabel2, *HotLabel3, *HotLabel4, *HotLabel5, *HotLabel6, *HotLabel7;
};

} // namespace pupils
