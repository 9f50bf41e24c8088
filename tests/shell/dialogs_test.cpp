#include "reports/state/report_state.h"
#include "shell/conventions/comment_dialog.h"
#include "support/controls.h"
#include "support/scripted_platform.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace shell;
using namespace test_support;

namespace {

class Comment_Dialog : public testing::Test {
protected:
    QPlainTextEdit& Entry() { return Control<QPlainTextEdit>(dialog, u"Text1"_s); }
    Scripted_Platform outside;
    reports::Comment_In_Hand comment{u"Works\r\nwell"_s, 1};
    Form11 dialog{outside.platform, comment.Pupil_Comment, comment.Comment_Changed, [](const QString& text) {
                      return Comment_Lines{.used = static_cast<int>(text.size()), .room = 20, .paper = 30};
                  }};
};

} // namespace

TEST_F(Comment_Dialog, UndoBringsTheCommentBackAndClearIsAChange) {
    QTest::keyClicks(&Entry(), u"typed over"_s);
    Click(dialog, u"HotLabel2"_s);
    Click(dialog, u"HotLabel1"_s);
    EXPECT_EQ(comment.Comment_Changed, 0);
    EXPECT_EQ(comment.Pupil_Comment, u"Works\r\nwell"_s); // its line ends too
    Click(dialog, u"HotLabel3"_s);
    Click(dialog, u"HotLabel1"_s);
    EXPECT_NE(comment.Comment_Changed, 0);
    EXPECT_EQ(comment.Pupil_Comment, u""_s);
}

TEST_F(Comment_Dialog, TheMarkFollowsWhatIsWrittenAndLimitsNothing) {
    const std::tuple<int, int, QString> cases[] = {
        {20, 20, u"On the report: 20 of 20 lines used"_s},
        {30, 20, u"On the report: 30 of 20 lines used. It runs over the sheet's foot."_s},
        {31, 20, u"On the report: 31 of 20 lines used. It runs over the foot and off the paper."_s}};
    const auto& mark = Control<QProgressBar>(dialog, u"CommentPlace"_s);
    EXPECT_EQ(mark.text(), u"On the report: 10 of 20 lines used"_s);
    for (const auto& [length, value, told] : cases) {
        Entry().setPlainText(QString(length, u'x'));
        EXPECT_EQ(mark.text(), told);
        EXPECT_EQ(mark.value(), value);
    }
    Click(dialog, u"HotLabel1"_s);
    EXPECT_EQ(comment.Pupil_Comment.size(), 31);
}

TEST_F(Comment_Dialog, ReturnWritesALineAndStays) {
    dialog.show();
    QTest::keyClick(&Entry(), Qt::Key_Return);
    EXPECT_TRUE(dialog.isVisible());
    EXPECT_TRUE(Entry().toPlainText().startsWith(u"\n"_s));
}
