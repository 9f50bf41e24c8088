#pragma once

#include "foundation/access_holder.h"
#include "foundation/installation.h"
#include "shell/conventions/page.h"
#include "shell/conventions/password_dialog.h"

namespace shell {

// The Settings page: the version, whether the Flash Player that some games need is there, and the change of
// the Administrator's password. It stands on top of the Main menu.
class Form20 final : public Page {
    Q_OBJECT
public:
    Form20(desktop::Platform& platform, Navigator& navigator, foundation::Installation& installation);

    void Load() override;

    void HotLabel1_Click(); // back to the menu
    void HotLabel2_Click(); // asks, then Change_Password
    // Asks twice for the new password; two entries that differ change nothing.
    void Change_Password();
    void Save_New_Password();

private:
    void Lay_Out();
    void Tell_Helps();
    bool Entered(const QString& prompt); // false if the dialog was left by Quit

    foundation::Installation& installation;
    foundation::Access_Holder holder;
    Password_Question question;
    bool Flash_Installed = false;

    QLabel *lblVersion, *lblFlashVersion;
    HotLabel *HotLabel1, *HotLabel2, *NormTables, *ChangesEntry;
};

} // namespace shell
