#pragma once

#include "foundation/access_holder.h"
#include "pupils/list_view.h"
#include "pupils/pupil_records.h"
#include "shell/conventions/click_combo.h"
#include "shell/conventions/menu_counts.h"
#include "shell/conventions/page.h"
#include "shell/conventions/work_bar.h"

#include <optional>

namespace pupils {

// The Delete page: removes pupils with all their results, those selected or a whole group, and a group that
// has become empty. Nothing is archived first.
class Form9 final : public shell::Page {
    Q_OBJECT
public:
    Form9(desktop::Platform& platform, shell::Navigator& navigator, Record_Data data,
          shell::Menu_Counts& counts);

    void Load() override;
    void Fill_Group_Combos();
    void Load_Delete_List(int index); // item of Combo1; 0 is everyone
    void List_Names();

    // result: whether all its statements ran. Silent about a failure, as is DeletePupilsInGroup.
    void DeletePupil(const QString& code, bool& result);
    void DeleteGroup(const QString& name);
    int DeletePupilsInGroup(const QString& name); // the number of pupil rows removed
    void Erase_All_Pupil_Data_Tables();
    void Delete_Multiple_Test_Tables(const QString& name);

    // Takes the earlier results of those along who were there before and are gone.
    void Forget_Deleted(const QStringList& before);

    void Select_All_Rows(bool flag);
    void Selected_Count(int& count);
    void Delete_Group_Action();

    void Combo1_Click();
    void ListView1_Click();
    void HotLabel1_Click(); // the menu
    void HotLabel2_Click(); // deletes those selected
    void HotLabel3_Click(); // selects all
    void HotLabel4_Click(); // selects none

private:
    void Lay_Out();
    void Lay_Out_Individual_Deletion();
    void Lay_Out_Group_Deletion();
    void Tell_Helps();
    void Take_Pupils(int count);
    QStringList Selected_Codes() const;
    bool Confirmed(const QString& title, int individuals);
    int Removed_In_Group(const QString& name);
    void Select_Handed_Over();
    void Disband_If_Wished(const QString& name);
    std::optional<QStringList> Codes_In_Database();

    foundation::Installation& installation;
    scoring::Pupil_Lists& pupils;
    Pupil_Records& records;
    shell::Menu_Counts& counts;
    foundation::Access_Holder holder;
    database::Kept_Engine deleting; // for the deletions of one act; the list is read past it
    int Listed_Count = 0;           // pupils in the list
    bool everyone_is_listed = false;

    List_View* ListView1;
    shell::Work_Bar* ProgressBar1;
    shell::Click_Combo* Combo1;
    QLabel *Label1, *Label5, *Label7;
    shell::HotLabel *HotLabel1, *HotLabel2, *HotLabel3, *HotLabel4, *HotLabel5;
    QTimer* Timer1; // stopped before it has anything to do: the list is filled as the page loads
};

} // namespace pupils
