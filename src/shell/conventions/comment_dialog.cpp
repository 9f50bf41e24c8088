#include "shell/conventions/comment_dialog.h"

#include "shell/conventions/dialog_layout.h"
#include "shell/conventions/guard.h"
#include "shell/conventions/hot_label.h"
#include "shell/conventions/theme.h"
#include "shell/conventions/utilities.h"

#include <QLabel>
#include <QTextDocument>
#include <utility>

using namespace Qt::StringLiterals;

namespace shell {

// The entry's text with the line ends of the program, but with no-break spaces as they are: the entry's own
// plain text has blanks in their place.
static QString Text_In(const QPlainTextEdit& entry) {
    QString text = entry.document()->toRawText();
    for (QChar& character : text)
        if (character == QChar::ParagraphSeparator || character == QChar::LineSeparator) character = u'\n';
    return text;
}

QString In_Words(const Comment_Lines& lines) {
    const QString used = u"On the report: %1 of %2 lines used"_s.arg(lines.used).arg(lines.room);
    if (lines.used > lines.paper) return used + u". It runs over the foot and off the paper."_s;
    return lines.Over() > 0 ? used + u". It runs over the sheet's foot."_s : used;
}

Form11::Form11(desktop::Platform& platform, QString& Pupil_Comment, qint16& Comment_Changed,
               Count_Comment_Lines count_lines)
    : Pupil_Comment(Pupil_Comment),
      Comment_Changed(Comment_Changed),
      count_lines(std::move(count_lines)),
      Text1(new QPlainTextEdit),
      CommentPlace(new QProgressBar) {
    setObjectName(u"Form11"_s);
    setWindowTitle(u"Administrator's Optional Comment Field"_s);
    resize(640, 420);
    Comment_Changed = false;

    auto* label1 = Make_Label(
        u"Label1"_s,
        u"Please enter your comment below. This will be printed in the lower half of this person's individual report."_s,
        Text_Role::Body, this);
    label1->setWordWrap(true);
    Text1->setObjectName(u"Text1"_s);
    Text1->setAccessibleName(u"Comment"_s);
    Text1->setAccessibleDescription(label1->text());
    Text1->setTabChangesFocus(true);
    HotLabel2_Click();
    as_shown = Text_In(*Text1);
    CommentPlace->setObjectName(u"CommentPlace"_s);
    CommentPlace->setAccessibleName(u"Place on the individual report"_s);
    CommentPlace->setToolTip(u"How much of the comment's place on the individual report is used."_s);
    On(Text1, &QPlainTextEdit::textChanged, this, platform, [this] { Show_Place(); });
    Show_Place();

    auto* ok = new HotLabel(u"HotLabel1"_s, u"OK"_s, this);
    auto* undo = new HotLabel(u"HotLabel2"_s, u"Undo"_s, this);
    auto* clear = new HotLabel(u"HotLabel3"_s, u"Clear"_s, this);
    On(ok, &HotLabel::clicked, this, platform, [this] { HotLabel1_Click(); });
    On(undo, &HotLabel::clicked, this, platform, [this] { HotLabel2_Click(); });
    On(clear, &HotLabel::clicked, this, platform, [this] { HotLabel3_Click(); });

    ok->setAccessibleDescription(u"Takes the comment over."_s);
    undo->setAccessibleDescription(u"Brings back the comment as it was."_s);
    clear->setAccessibleDescription(u"Empties the field."_s);
    ok->Set_Weight(HotLabel::Weight::Primary);
    Give_Mnemonics(*this);
    Lay_Out_Dialog(*this, {label1, Text1, CommentPlace}, {ok, undo, clear});
}

void Form11::Show_Place() {
    const Comment_Lines lines = count_lines(Text_In(*Text1));
    CommentPlace->setMaximum(lines.room);
    CommentPlace->setValue(std::min(lines.used, lines.room));
    CommentPlace->setFormat(In_Words(lines));
    CommentPlace->setAccessibleDescription(CommentPlace->format());
}

void Form11::showEvent(QShowEvent* event) {
    QDialog::showEvent(event);
    Center_Control(*this);
    Text1->setFocus();
}

void Form11::HotLabel1_Click() {
    // The field turns the line ends of older files into its own; a comment that nobody touched stays as
    // stored.
    if (const QString text = Text_In(*Text1); text != as_shown) {
        Comment_Changed = true;
        Pupil_Comment = text;
    }
    accept();
}

void Form11::HotLabel2_Click() {
    Text1->setPlainText(Pupil_Comment);
}

void Form11::HotLabel3_Click() {
    Text1->clear();
}

} // namespace shell
