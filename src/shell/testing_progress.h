#pragma once

#include "foundation/access_holder.h"
#include "foundation/installation.h"
#include "platform/grid/spread.h"
#include "shell/conventions/click_combo.h"
#include "shell/conventions/page.h"
#include "shell/tick_list.h"

#include <QCheckBox>

namespace shell {

// The Testing-progress chart: all registered pupils, and which tests each has completed. It stands on top of
// the Main menu. The list may be narrowed down to a group, and to those who haven't done all.
class Form14 final : public Page {
    Q_OBJECT
public:
    // What is to be ticked lives longer than the page.
    Form14(desktop::Platform& platform, Navigator& navigator, const foundation::Installation& installation,
           Ticks& ticks);

    void Load() override;
    void Timer1_Timer(); // fills the grid, once the page has been painted

    void HotLabel1_Click(); // back to the menu
    void SaveAsPdf_Click();
    void HotLabel2_Click(); // prints; a cancelled dialog and a faulty printer end it without a word
    void TickList_Click();  // those listed, with boxes to tick

private:
    struct Progress {
        QString code, name, born, group;
        QList<bool> done; // of each test

        bool Is_Finished() const { return !done.contains(false); }
    };

    void Lay_Out();
    void Lay_Out_Filter();
    void Tell_Helps();
    void Write_Headings();
    Progress Read_Pupil();
    void Write_Pupil(int row, const Progress& pupil);
    void Offer_Groups();
    bool Passes(const Progress& pupil) const;
    void Show_Pupils();

    const foundation::Installation& installation;
    Ticks& ticks;
    foundation::Access_Holder holder;
    QList<Progress> pupils; // all who are registered
    QList<Progress> listed; // those that the filter lets pass

    grid::fpSpread* Spread1;
    QLabel* Label5;
    Click_Combo* GroupFilter;
    QCheckBox* UnfinishedOnly;
    HotLabel* TickList;
};

} // namespace shell
