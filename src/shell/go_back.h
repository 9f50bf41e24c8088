#pragma once

#include "shell/archive_acts.h"
#include "shell/conventions/page.h"
#include "shell/kept_databases.h"

namespace shell {

// The "Go back to…" page: all that was kept of the working database, when and why. One of them can be viewed
// or loaded as any archive, or removed for good.
class Form61 final : public Page {
    Q_OBJECT
public:
    Form61(desktop::Platform& platform, Navigator& navigator, foundation::Installation& installation,
           const Menu_Counts& counts, database::File_Copies& copies);

    void Load() override;
    void Timer1_Timer(); // counts the pupils of one copy, the latest first

    void HotLabel1_Click(); // back to the Archiving page
    void HotLabel2_Click(); // looks inside
    void HotLabel3_Click(); // goes back
    void HotLabel4_Click(); // removes it
    void HotLabel5_Click(); // to the removal of a pupil from all of them

private:
    void Lay_Out();
    void Tell_Helps();
    void List_Copies();
    void Tell_Of_Choice();
    int Chosen() const; // its place in the list, from 0; -1 for none

    foundation::Installation& installation;
    foundation::Access_Holder holder;
    Archive_Acts acts;
    QList<database::Kept_File> kept;
    int counted = 0; // of the list, from its top

    QTimer* counting = nullptr;
    QTreeWidget* Copies;
    QLabel *Label1, *Place;
    HotLabel *HotLabel1, *HotLabel2, *HotLabel3, *HotLabel4, *HotLabel5;
};

} // namespace shell
