#include "pupils/sex_list.h"

#include "shell/conventions/guard.h"

using namespace Qt::StringLiterals;

namespace pupils {

Sex_List::Sex_List(QWidget* page, QWidget* parent, desktop::Platform& platform)
    : QObject(page), Combo5(new shell::Click_Combo(u"Combo5"_s, parent)), Text5(new QLineEdit(parent)) {
    Combo5->setAccessibleName(u"Gender"_s);
    Combo5->setAccessibleDescription(u"Male or female."_s);
    Text5->setObjectName(u"Text5"_s);
    Text5->setFocusProxy(Combo5);
    Text5->hide();
    shell::On(Combo5, &shell::Click_Combo::Click, this, platform, [this] { Combo5_Click(); });
}

void Sex_List::Set_Sex_Combo() {
    Combo5->Clear();
    Combo5->AddItem(u"Male"_s);
    Combo5->AddItem(u"Female"_s);
    Combo5->Set_ListIndex(0);
}

void Sex_List::Combo5_Click() {
    Text5->setText(Combo5->ListIndex() == 0 ? u"M"_s : u"F"_s);
}

} // namespace pupils
