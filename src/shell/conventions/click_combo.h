#pragma once

#include <QComboBox>

namespace shell {

// A drop-down list whose Click is raised by the user's choice and also when the program sets the list index.
class Click_Combo : public QComboBox {
    Q_OBJECT
public:
    Click_Combo(const QString& name, QWidget* parent);

    int ListIndex() const { return currentIndex(); } // from 0; -1 for none
    void Set_ListIndex(int index);
    void showPopup() override; // not behind a box, whoever asks for it
    void Clear() { clear(); }
    void AddItem(const QString& text) { addItem(text); }
    void Add_Items(const QStringList& texts); // at once, as a school's pupils are

Q_SIGNALS:
    void Click();
};

} // namespace shell
