#include "shell/conventions/password_dialog.h"

#include "shell/conventions/dialog_layout.h"
#include "shell/conventions/guard.h"
#include "shell/conventions/hot_label.h"
#include "shell/conventions/theme.h"
#include "shell/conventions/utilities.h"

#include <QLabel>

using namespace Qt::StringLiterals;

namespace shell {

Form3::Form3(desktop::Platform& platform, Password_Question& question)
    : question(question), Text1(new QLineEdit) {
    setObjectName(u"Form3"_s);
    setWindowTitle(u"Password"_s);
    setMinimumWidth(420);
    question.Password_Cancelled = false;

    auto* label1 = Make_Label(u"Label1"_s, question.Password_Prompt, Text_Role::Heading, this);
    auto* label2 = Make_Label(u"Label2"_s, question.Password_Hint, Text_Role::Quiet, this);
    for (QLabel* label : {label1, label2})
        label->setWordWrap(true);
    Text1->setObjectName(u"Text1"_s);
    Text1->setEchoMode(QLineEdit::Password);
    Text1->setAccessibleName(question.Password_Prompt);
    Text1->setAccessibleDescription(question.Password_Hint);
    auto* ok = new HotLabel(u"HotLabel1"_s, u"OK"_s, this);
    auto* quit = new HotLabel(u"HotLabel3"_s, u"Quit"_s, this);
    On(ok, &HotLabel::clicked, this, platform, [this] { HotLabel1_Click(); });
    On(quit, &HotLabel::clicked, this, platform, [this] { HotLabel3_Click(); });
    On(Text1, &QLineEdit::returnPressed, this, platform, [this] { HotLabel1_Click(); });
    // Closing the window or pressing Escape is leaving without an answer.
    On(this, &QDialog::rejected, this, platform, [this] { this->question.Password_Cancelled = true; });

    ok->setAccessibleDescription(u"Takes what was typed."_s);
    quit->setAccessibleDescription(u"Leaves without an answer."_s);
    ok->Set_Weight(HotLabel::Weight::Primary);
    Give_Mnemonics(*this);
    Lay_Out_Dialog(*this, {label1, label2, Text1}, {ok, quit});
}

void Form3::showEvent(QShowEvent* event) {
    QDialog::showEvent(event);
    Center_Control(*this);
    Text1->setFocus();
}

void Form3::HotLabel1_Click() {
    question.Password_Cancelled = false;
    question.Password_Entered = Text1->text();
    accept();
}

void Form3::HotLabel3_Click() {
    question.Password_Cancelled = true;
    reject();
}

} // namespace shell
