#include "platform/desktop/qt_platform.h"

#include <QApplication>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <functional>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace desktop {
namespace {

// Puts a box up, looks at it while it is on screen, and presses its first button.
Answer Ask(Box_Style style, const QString& text, const std::function<void(QMessageBox&)>& look) {
    Qt_Platform platform;
    bool looked = false;
    QTimer::singleShot(0, [&] {
        auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        ASSERT_NE(box, nullptr);
        QApplication::processEvents();
        look(*box);
        looked = true;
        box->buttons().constFirst()->click();
    });
    const Answer answer = platform.Ports().boxes.Ask(style, u"A title"_s, text);
    EXPECT_TRUE(looked);
    return answer;
}

} // namespace

TEST(Message_Boxes, EachStyleHasItsIconAndButtons) {
    const std::tuple<Box_Style, QMessageBox::Icon, qsizetype, Answer> cases[] = {
        {Box_Style::Plain, QMessageBox::NoIcon, 1, Answer::Ok},
        {Box_Style::Yes_No, QMessageBox::NoIcon, 2, Answer::Yes},
        {Box_Style::Critical, QMessageBox::Critical, 1, Answer::Ok},
        {Box_Style::Yes_No_Question, QMessageBox::Question, 2, Answer::Yes},
        {Box_Style::Exclamation, QMessageBox::Warning, 1, Answer::Ok},
        {Box_Style::Information, QMessageBox::Information, 1, Answer::Ok},
        {Box_Style::Yes_No_Information, QMessageBox::Information, 2, Answer::Yes},
    };
    for (const auto& [style, icon, buttons, first] : cases) {
        SCOPED_TRACE(static_cast<int>(style));
        const Answer answer = Ask(style, u"<b>Some</b>\rwords"_s, [&](const QMessageBox& box) {
            EXPECT_EQ(box.icon(), icon);
            EXPECT_EQ(box.buttons().size(), buttons);
            EXPECT_EQ(box.windowTitle(), u"A title"_s);
            EXPECT_EQ(box.text(), u"<b>Some</b>\nwords"_s);
            EXPECT_EQ(box.textFormat(), Qt::PlainText);
        });
        EXPECT_EQ(answer, first);
    }
}

TEST(Message_Boxes, ThreeAnswersHaveNoWayRoundThem) {
    Ask(Box_Style::Abort_Retry_Ignore_Critical, u"Some words"_s, [](QMessageBox& box) {
        QTest::keyClick(&box, Qt::Key_Escape);
        box.close();
        EXPECT_TRUE(box.isVisible());
    });
}

// Also where that file is there already: nobody is asked whether to replace what isn't taken.
TEST(File_Dialogs, WhatIsntTakenIsToldAndTheDialogStays) {
    Qt_Platform platform;
    const QTemporaryDir folder;
    QFile taken(folder.filePath(u"taken.mdb"_s));
    ASSERT_TRUE(taken.open(QIODevice::WriteOnly));
    const auto why_not = [&taken](const QString& file) {
        return file == QDir::toNativeSeparators(taken.fileName()) ? u"It is taken."_s : QString();
    };
    QStringList told;
    const auto saved_as = [&](const QString& name) {
        QTimer::singleShot(0, [&] {
            auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
            QTimer::singleShot(0, dialog, [&] {
                auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
                if (!box) return;
                told.append(box->text());
                box->accept();
            });
            auto* typed = dialog->findChild<QLineEdit*>();
            EXPECT_EQ(typed->text(), u"suggested.mdb"_s);
            typed->setText(name);
            QMetaObject::invokeMethod(dialog, "accept");
            if (dialog->isVisible()) dialog->reject();
        });
        return platform.Ports().file_dialogs.Save_File(
            {u"Save"_s, u"All (*.mdb)"_s, folder.path(), u"suggested.mdb"_s, u"mdb"_s, why_not});
    };
    EXPECT_EQ(saved_as(u"taken"_s), QString());
    EXPECT_EQ(told, QStringList{u"It is taken."_s});
    EXPECT_EQ(saved_as(u"free"_s), QDir::toNativeSeparators(folder.filePath(u"free.mdb"_s)));
}

TEST(File_Dialogs, WhatTheChosenFileIsStandsInTheDialog) {
    Qt_Platform platform;
    const QTemporaryDir folder;
    const QStringList names{u"foreign.mdb"_s, u"ours.mdb"_s};
    for (const QString& name : names)
        ASSERT_TRUE(QFile(folder.filePath(name)).open(QIODevice::WriteOnly));
    File_Question question{u"Open"_s, u"All (*.mdb)"_s, folder.path(), u"*.mdb"_s, u"mdb"_s};
    question.tell = [](const QString& file) {
        return File_Words{u"It is "_s + QFileInfo(file).fileName(), !file.contains(u"foreign"_s)};
    };
    QStringList told;
    for (const QString& name : names) {
        QTimer::singleShot(0, [&] {
            auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
            dialog->findChild<QLineEdit*>()->setText(name);
            auto* words = dialog->findChild<QLabel*>(u"File_Words"_s);
            EXPECT_TRUE(QTest::qWaitFor([&] { return words->text() == u"It is "_s + name; }));
            QTimer::singleShot(0, dialog, [&told] {
                auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
                if (!box) return;
                told.append(box->text());
                box->accept();
            });
            QMetaObject::invokeMethod(dialog, "accept");
            if (dialog->isVisible()) dialog->reject();
        });
        const QString given = platform.Ports().file_dialogs.Open_File(question);
        EXPECT_EQ(given, name == names.last() ? QDir::toNativeSeparators(folder.filePath(name)) : QString());
    }
    EXPECT_EQ(told, QStringList{u"It is foreign.mdb"_s});
}

} // namespace desktop
