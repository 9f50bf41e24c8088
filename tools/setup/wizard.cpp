#include "setup/wizard.h"

#include "setup/wizard_pages.h"

using namespace Qt::StringLiterals;

namespace set_up {

Wizard::Wizard(Wizard_State& state) {
    setObjectName(u"Wizard"_s);
    setWindowTitle(u"Set up Mevo"_s);
    setWizardStyle(QWizard::ModernStyle);
    setOption(QWizard::NoBackButtonOnStartPage);
    setOption(QWizard::NoCancelButtonOnLastPage);
    setOption(QWizard::NoBackButtonOnLastPage);
    setPage(Where_Number, new Where_Page(state));
    setPage(What_Number, new What_Page(state));
    setPage(Sheets_Number, new Sheets_Page(state));
    setPage(Check_Number, new Check_Page(state));
    setPage(Done_Number, new Done_Page(state));
    constexpr QSize inside{760, 530}; // on a laptop's screen that magnifies
    resize(inside);
}

} // namespace set_up
