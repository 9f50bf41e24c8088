#pragma once

#include "foundation/access_holder.h"
#include "foundation/installation.h"
#include "platform/grid/spread.h"
#include "shell/conventions/page.h"

namespace shell {

// The Testing-progress chart: all registered pupils, and which tests each has completed. It stands on top of
// the Main menu.
class Form14 final : public Page {
    Q_OBJECT
public:
    Form14(desktop::Platform& platform, Navigator& navigator, const foundation::Installation& installation);

    void Load() override;
    void Timer1_Timer(); // fills the grid, once the page has been painted

    void HotLabel1_Click(); // back to the menu
    void SaveAsPdf_Click();
    void HotLabel2_Click(); // prints; a cancelled dialog and a faulty printer end it without a word

private:
    void Lay_Out();
    void Write_Headings();
    void Write_Pupil(int row);

    const foundation::Installation& installation;
    foundation::Access_Holder holder;

    grid::fpSpread* Spread1;
    QLabel* Label5;
};

} // namespace shell
