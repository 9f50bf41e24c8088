#include "shell/conventions/click_combo.h"

#include "shell/conventions/guard.h"

namespace shell {

Click_Combo::Click_Combo(const QString& name, QWidget* parent) : QComboBox(parent) {
    setObjectName(name);
    connect(this, &QComboBox::activated, this, [this] { Q_EMIT Click(); });
}

void Click_Combo::showPopup() {
    if (!Behind_A_Box(*this)) QComboBox::showPopup();
}

void Click_Combo::Set_ListIndex(int index) {
    setCurrentIndex(index);
    Q_EMIT Click();
}

} // namespace shell
