#include "platform/desktop/qt_platform.h"

#include <QApplication>
#include <QMessageBox>
#include <QPushButton>
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
    struct Case {
        Box_Style style;
        QMessageBox::Icon icon;
        qsizetype buttons;
        Answer first;
    };
    const Case cases[] = {
        {Box_Style::Plain, QMessageBox::NoIcon, 1, Answer::Ok},
        {Box_Style::Yes_No, QMessageBox::NoIcon, 2, Answer::Yes},
        {Box_Style::Critical, QMessageBox::Critical, 1, Answer::Ok},
        {Box_Style::Yes_No_Question, QMessageBox::Question, 2, Answer::Yes},
        {Box_Style::Exclamation, QMessageBox::Warning, 1, Answer::Ok},
        {Box_Style::Information, QMessageBox::Information, 1, Answer::Ok},
        {Box_Style::Yes_No_Information, QMessageBox::Information, 2, Answer::Yes},
    };
    for (const Case& tried : cases) {
        SCOPED_TRACE(static_cast<int>(tried.style));
        const Answer answer = Ask(tried.style, u"<b>Some</b>\rwords"_s, [&](const QMessageBox& box) {
            EXPECT_EQ(box.icon(), tried.icon);
            EXPECT_EQ(box.buttons().size(), tried.buttons);
            EXPECT_EQ(box.windowTitle(), u"A title"_s);
            EXPECT_EQ(box.text(), u"<b>Some</b>\nwords"_s);
            EXPECT_EQ(box.textFormat(), Qt::PlainText);
        });
        EXPECT_EQ(answer, tried.first);
    }
}

} // namespace desktop
