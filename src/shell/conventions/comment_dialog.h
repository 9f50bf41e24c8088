#pragma once

#include "platform/desktop/ports.h"

#include <QDialog>
#include <QPlainTextEdit>

namespace shell {

// What the comment dialog and its caller tell each other.
struct Comment_In_Hand {
    QString Pupil_Comment;
    qint16 Comment_Changed = 0; // true if the dialog changed the comment; the caller saves it
};

// Edits the assessor's comment on a pupil. It only hands the text over.
class Form11 : public QDialog {
    Q_OBJECT
public:
    Form11(desktop::Platform& platform, Comment_In_Hand& comment);

    void HotLabel1_Click();
    void HotLabel2_Click();
    void HotLabel3_Click();

protected:
    void showEvent(QShowEvent* event) override;

private:
    Comment_In_Hand& comment;
    QPlainTextEdit* Text1;
    QString as_shown; // the comment as the entry field gives it back untouched
};

} // namespace shell
