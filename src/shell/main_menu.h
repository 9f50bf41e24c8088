#pragma once

#include "foundation/access_holder.h"
#include "foundation/installation.h"
#include "shell/conventions/menu_counts.h"
#include "shell/conventions/page.h"

namespace shell {

class Foot_Line;

// The Main menu, to which every page returns. It counts the pupils anew at each load and offers only what
// makes sense with these counts and in this mode of use.
class Form77 final : public Page {
    Q_OBJECT
public:
    Form77(desktop::Platform& platform, Navigator& navigator, foundation::Installation& installation,
           Menu_Counts& counts);

    void Load() override;
    void Timer1_Timer(); // the greying, once the page has been painted
    void Tell_Whereabouts();
    void Get_Student_Count();
    void Count_Pupils_With_Results(); // leaves the count as it was if it fails
    void Show_Mode_Of_Use();

    void HotLabel11_Click(); // the teacher's manual
    void HotLabel12_Click(); // the software guide
    void HotLabel13_Click(); // Quit

protected:
    QString Leaving_Button() const override { return QStringLiteral("HotLabel13"); }

private:
    void Lay_Out();
    void Tell_Helps();
    void Disable(std::initializer_list<HotLabel*> entries);

    foundation::Installation& installation;
    Menu_Counts& counts;
    foundation::Counting_Access_Holder holder;

    HotLabel *HotLabel1, *HotLabel2, *HotLabel3, *HotLabel4, *HotLabel5, *HotLabel6, *HotLabel7, *HotLabel8,
        *HotLabel11, *HotLabel12, *HotLabel13, *HotLabel14;
    QLabel *Label3, *Label4, *Label5, *Label6;
    Foot_Line* Foot;
};

} // namespace shell
