#pragma once

#include "platform/desktop/ports.h"

#include <QDialog>
#include <QLineEdit>

namespace shell {

// What the password dialog and its caller tell each other.
struct Password_Question {
    QString Password_Prompt; // the two lines that it shows
    QString Password_Hint;
    QString Password_Entered; // keeps what it held when the dialog is left by Quit
    qint32 Password_Cancelled = 0;
};

// Asks for one line of text. Nothing checks what was typed; an empty entry is accepted.
class Form3 : public QDialog {
    Q_OBJECT
public:
    Form3(desktop::Platform& platform, Password_Question& question);

    void HotLabel1_Click();
    void HotLabel3_Click();

protected:
    void showEvent(QShowEvent* event) override;

private:
    Password_Question& question;
    QLineEdit* Text1;
};

} // namespace shell
