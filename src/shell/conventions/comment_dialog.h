#pragma once

#include "platform/desktop/ports.h"

#include <QDialog>
#include <QPlainTextEdit>

namespace shell {

// Edits the assessor's comment on a pupil. It only hands the text over: if Comment_Changed is true
// afterwards, the caller saves it.
class Form11 : public QDialog {
    Q_OBJECT
public:
    Form11(desktop::Platform& platform, QString& Pupil_Comment, qint16& Comment_Changed);

    void HotLabel1_Click();
    void HotLabel2_Click();
    void HotLabel3_Click();

protected:
    void showEvent(QShowEvent* event) override;

private:
    QString& Pupil_Comment;
    qint16& Comment_Changed;
    QPlainTextEdit* Text1;
    QString as_shown; // the comment as the entry field gives it back untouched
};

} // namespace shell
