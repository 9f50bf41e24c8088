#pragma once

#include "foundation/access_holder.h"
#include "keeping/change_list.h"
#include "platform/grid/spread.h"
#include "pupils/page_parts.h"
#include "pupils/pupil_records.h"
#include "shell/conventions/click_combo.h"
#include "shell/conventions/page.h"

namespace pupils {

// The Security page: arranges pupils in groups and sets how each logs in to the tests. A group's settings are
// pushed to its members at the moment of its Update and at no other; what stands in the pupil's own row
// counts, so the last write wins.
class Form2 final : public shell::Page {
    Q_OBJECT
public:
    Form2(desktop::Platform& platform, shell::Navigator& navigator, Record_Data data);

    void Load() override;
    void Timer1_Timer(); // the first filling, once the page has been painted

    void Load_Everyone_Afresh();
    void Populate_SpreadSheet(int count);
    void SpreadSheet_Headings();
    void Fill_Student_Settings(int index); // place in the pupil list, from 1
    void Fill_Group_Combos();              // reads the groups anew
    void Fill_Groups(int index);           // place in the group list, from 1

    void Update_Pupil_Settings();
    void Update_Group_Settings();
    void Update_Group_Row();
    void Update_Groups_For_All_Students();
    void Add_Group();
    void Rename_Group();
    void Disband_Group();
    void Change_Group_In_Pupil_Table(const QString& table, const QString& old_name, const QString& new_name);
    void Change_Group_In_Group_Table(const QString& table, const QString& old_name, const QString& new_name);
    void Delete_Group_From_GroupTable(const QString& table, const QString& name);

    void Combo1_Click();
    void Combo2_Click();
    void Combo3_Click();
    void Combo4_Click();
    void Combo5_Click();
    void Text3_Change();
    void Text4_Change();
    void HotLabel1_Click();  // the menu
    void HotLabel2_Click();  // prints the grid
    void SaveAsPdf_Click();  // the grid
    void HotLabel3_Click();  // adds a group
    void LoginCards_Click(); // logins of the group in the panel of settings, on paper

private:
    void Lay_Out();
    void Lay_Out_Individual();
    void Lay_Out_Group_Settings();
    void Lay_Out_Group_Names();
    void Tell_Helps();
    void Take_Pupil(foundation::Row_Fields& field, int p);
    // Does nothing in the second in which the lists are still to be loaded.
    std::function<void()> With_Lists(void (Form2::*work)());
    void Bring_Into_View(int row);
    void Run(const QString& statement);
    void Note(keeping::Act act, const QString& subject, const QString& detail);
    QStringList Corrected_Settings(database::Recordset& row, int p) const;
    void Refuse_Name_In_Use(const QString& name, QLineEdit* entry);

    foundation::Installation& installation;
    scoring::Pupil_Lists& pupils;
    Pupil_Records& records;
    foundation::Access_Holder holder;
    int Current_Pupil = 1;
    bool lists_are_there = false;
    bool live = false; // Combo3 has been clicked since the page was loaded

    grid::fpSpread* Spread1;
    shell::Click_Combo *Combo1, *Combo2, *Combo3, *Combo4, *Combo5;
    QLineEdit *Text2, *Text3, *Text4;
    Yes_No Use_Dob, Show_Pupil, Group_Uses_Dob, Show_Group; // Option1/2, 7/8, 5/6, 3/4
    QLabel *Label3, *Label8;
    shell::HotLabel *HotLabel3, *HotLabel4, *HotLabel5, *HotLabel6, *HotLabel7, *LoginCards;
};

} // namespace pupils
