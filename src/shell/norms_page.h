#pragma once

#include "foundation/installation.h"
#include "platform/grid/spread.h"
#include "shell/conventions/page.h"

namespace shell {

// The norm tables in force: what each holds, what is wrong with it, and the digest by which two schools can
// tell whether they go by the same norms. It stands on top of the Settings page.
class Norms_Page final : public Page {
    Q_OBJECT
public:
    Norms_Page(desktop::Platform& platform, Navigator& navigator,
               const foundation::Installation& installation);

    void Load() override;

private:
    void Lay_Out();
    void Show_Check(); // once the page is painted

    const foundation::Installation& installation;
    QLabel *digest, *result;
    grid::fpSpread* tables;
};

} // namespace shell
