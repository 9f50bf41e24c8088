#include "reports/state/report_state.h"
#include "shell/conventions/comment_dialog.h"
#include "shell/conventions/password_dialog.h"
#include "shell/conventions/utilities.h"
#include "support/controls.h"
#include "support/scripted_platform.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace shell;
using namespace test_support;

TEST(PasswordDialog, HandsOverWhatWasTypedByButtonOrReturn) {
    Scripted_Platform outside;
    for (const bool by_return : {false, true}) {
        Password_Question question{u"New password"_s, u"up to 20 letters"_s, u"before"_s, 7};
        Form3 dialog(outside.platform, question);
        EXPECT_EQ(question.Password_Cancelled, 0);
        EXPECT_EQ(Caption(dialog, u"Label1"_s), u"New password"_s);
        EXPECT_EQ(Caption(dialog, u"Label2"_s), u"up to 20 letters"_s);
        auto& entry = Control<QLineEdit>(dialog, u"Text1"_s);
        QTest::keyClicks(&entry, u"o'k"_s);
        if (by_return)
            QTest::keyClick(&entry, Qt::Key_Return);
        else
            Click(dialog, u"HotLabel1"_s);
        EXPECT_EQ(question.Password_Entered, u"o'k"_s);
        EXPECT_EQ(question.Password_Cancelled, 0);
    }
}

TEST(PasswordDialog, QuitKeepsWhatWasHeld) {
    Scripted_Platform outside;
    Password_Question question{u""_s, u""_s, u"before"_s, 0};
    Form3 dialog(outside.platform, question);
    QTest::keyClicks(&Control<QLineEdit>(dialog, u"Text1"_s), u"typed"_s);
    Click(dialog, u"HotLabel3"_s);
    EXPECT_NE(question.Password_Cancelled, 0);
    EXPECT_EQ(question.Password_Entered, u"before"_s);
}

namespace {

class Comment_Dialog : public testing::Test {
protected:
    QPlainTextEdit& Entry() { return Control<QPlainTextEdit>(dialog, u"Text1"_s); }
    Scripted_Platform outside;
    reports::Comment_In_Hand comment{u"Works\r\nwell"_s, 1};
    Form11 dialog{outside.platform, comment.Pupil_Comment, comment.Comment_Changed};
};

} // namespace

TEST_F(Comment_Dialog, OkWithoutAChangeChangesNothing) {
    EXPECT_EQ(comment.Comment_Changed, 0);
    Click(dialog, u"HotLabel1"_s);
    EXPECT_EQ(comment.Comment_Changed, 0);
    EXPECT_EQ(comment.Pupil_Comment, u"Works\r\nwell"_s); // its line ends too
}

TEST_F(Comment_Dialog, ClearAndOkHandOverEmptyText) {
    Click(dialog, u"HotLabel3"_s);
    Click(dialog, u"HotLabel1"_s);
    EXPECT_NE(comment.Comment_Changed, 0);
    EXPECT_EQ(comment.Pupil_Comment, u""_s);
}

TEST_F(Comment_Dialog, UndoBringsTheCommentBack) {
    QTest::keyClicks(&Entry(), u"typed over"_s);
    Click(dialog, u"HotLabel2"_s);
    Click(dialog, u"HotLabel1"_s);
    EXPECT_EQ(comment.Comment_Changed, 0);
}

TEST_F(Comment_Dialog, ReturnWritesALineAndStays) {
    dialog.show();
    QTest::keyClick(&Entry(), Qt::Key_Return);
    EXPECT_TRUE(dialog.isVisible());
    EXPECT_TRUE(Entry().toPlainText().startsWith(u"\n"_s));
}

TEST(ClickSound, IsLookedForBesideTheProgram) {
    Scripted_Platform outside;
    foundation::Installation installation;
    installation.App_Path = u"C:\\Mevo"_s;
    Play_Click(installation, outside.platform);
    EXPECT_EQ(outside.sound.played, QStringList{u"C:\\Mevo\\Sounds\\system\\miniklik.wav"_s});
}
