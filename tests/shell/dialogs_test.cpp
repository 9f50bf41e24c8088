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
    Form11 dialog{outside.platform, comment.Pupil_Comment, comment.Comment_Changed};
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

TEST_F(Comment_Dialog, ReturnWritesALineAndStays) {
    dialog.show();
    QTest::keyClick(&Entry(), Qt::Key_Return);
    EXPECT_TRUE(dialog.isVisible());
    EXPECT_TRUE(Entry().toPlainText().startsWith(u"\n"_s));
}
