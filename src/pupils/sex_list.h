#pragma once

#include "platform/desktop/ports.h"
#include "shell/conventions/click_combo.h"

#include <QLineEdit>

namespace pupils {

// The list of "Male" and "Female", and the letter that is stored for the choice. The controls are made on a
// page, which gives the list its place.
class Sex_List final : public QObject {
public:
    Sex_List(QWidget* page, QWidget* parent, desktop::Platform& platform);

    void Set_Sex_Combo(); // fills the list; "Male" is selected

    shell::Click_Combo* Combo5;
    QLineEdit* Text5; // "M" or "F"; not shown, so the focus that it is given goes to the list

private:
    void Combo5_Click();
};

} // namespace pupils
