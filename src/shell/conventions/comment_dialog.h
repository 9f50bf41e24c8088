#pragma once

#include "platform/desktop/ports.h"
#include "shell/conventions/comment_lines.h"

#include <QDialog>
#include <QPlainTextEdit>
#include <QProgressBar>

namespace shell {

// Edits the assessor's comment on a pupil. It only hands the text over: if Comment_Changed is true
// afterwards, the caller saves it.
class Form11 : public QDialog {
    Q_OBJECT
public:
    // Shows how much of the report's place the text takes, by the report's own count.
    Form11(desktop::Platform& platform, QString& Pupil_Comment, qint16& Comment_Changed,
           Count_Comment_Lines count_lines);

    void HotLabel1_Click();
    void HotLabel2_Click();
    void HotLabel3_Click();

protected:
    void showEvent(QShowEvent* event) override;

private:
    void Show_Place();

    QString& Pupil_Comment;
    qint16& Comment_Changed;
    Count_Comment_Lines count_lines;
    QPlainTextEdit* Text1;
    QProgressBar* CommentPlace;
    QString as_shown; // the comment as the entry field gives it back untouched
};

} // namespace shell
