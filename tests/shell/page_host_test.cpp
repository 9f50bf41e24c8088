#include "shell/conventions/page_host.h"

#include "platform/database/connection.h"
#include "support/controls.h"
#include "support/other_workstation.h"
#include "support/sample_file.h"
#include "support/scripted_platform.h"

#include <QAccessible>
#include <QCheckBox>
#include <QDialog>
#include <QWindow>
#include <gtest/gtest.h>
#include <stdexcept>

using namespace Qt::StringLiterals;
using namespace shell;
using namespace test_support;

namespace {

class Marked_Page final : public Page {
public:
    Marked_Page(desktop::Platform& platform, Navigator& navigator, Page_Id id, QStringList& diary)
        : Page(platform, navigator, {400, 300}), number(static_cast<int>(id)), diary(diary) {
        if (id == Page_Id::Register) setWindowTitle(u"Registering"_s);
        Make_HotLabel(u"HotLabel1"_s, u"Leave"_s, {0, 0, 400, 300}, [this] { Go_On(); });
        auto* box = new QCheckBox(Frame1);
        box->setObjectName(u"Check1"_s);
        On(box, &QCheckBox::clicked, this, platform,
           [this] { this->diary.append(u"check %1"_s.arg(number)); });
    }
    ~Marked_Page() override { diary.append(u"gone %1"_s.arg(number)); }
    void Load() override {
        diary.append(u"load %1"_s.arg(number));
        Once_Painted(u"Timer1"_s, [this] { diary.append(u"timer %1"_s.arg(number)); });
    }

    std::function<void()> working = [] {};

private:
    void Go_On() {
        diary.append(u"leave %1"_s.arg(number));
        navigator.Go_To(static_cast<Page_Id>(number + 1));
        working();
    }

    int number;
    QStringList& diary;
};

class Host : public testing::Test {
protected:
    void Show(Page_Id id) {
        host.resize(800, 600);
        host.show();
        host.Go_To(id);
        Wait_For(u"timer %1"_s.arg(static_cast<int>(id)));
    }
    void Wait_For(const QString& entry) {
        ASSERT_TRUE(Wait_Until([&] { return diary.contains(entry); })) << diary.join(u", "_s).toStdString();
    }
    static void Press_By_A_Screen_Reader(const QWidget& page, const QString& name) {
        auto* action = QAccessible::queryAccessibleInterface(&Control(page, name))->actionInterface();
        action->doAction(action->actionNames().constFirst());
    }
    QStringList diary;
    Scripted_Platform outside;
    Page_Host host{outside.platform,
                   [this](Page_Id id, Navigator& navigator) {
                       return std::make_unique<Marked_Page>(outside.platform, navigator, id, diary);
                   },
                   [] { return u"Hillside\nPrimary"_s; }};
};

} // namespace

TEST_F(Host, APageIsGoneBeforeTheNextIsMade) {
    host.Go_To(Page_Id::Main_Menu);
    EXPECT_EQ(host.Current(), nullptr); // only once the handler that asked has returned
    ASSERT_TRUE(Wait_Until([this] { return diary.contains(u"timer 0"_s); }));
    host.Go_To(Page_Id::Reports);
    ASSERT_TRUE(Wait_Until([this] { return diary.contains(u"timer 1"_s); }));
    EXPECT_EQ(diary, (QStringList{u"load 0"_s, u"timer 0"_s, u"gone 0"_s, u"load 1"_s, u"timer 1"_s}));
}

TEST_F(Host, APressByAScreenReaderBeginsNothingInsideAHandlerOrBehindABox) {
    constexpr int until_let_go = 200; // a button goes up again in whatever event loop runs then
    Show(Page_Id::Main_Menu);
    auto& menu = static_cast<Marked_Page&>(*host.Current());
    const auto press_all = [&](const QWidget& page) {
        Press_By_A_Screen_Reader(page, u"HotLabel1"_s);
        Press_By_A_Screen_Reader(page, u"Check1"_s);
        QTest::qWait(until_let_go);
        EXPECT_FALSE(Control<QCheckBox>(page, u"Check1"_s).isChecked());
    };
    menu.working = [&] {
        press_all(menu);
        diary.append(u"worked"_s);
    };
    Click(menu, u"HotLabel1"_s);
    Wait_For(u"timer 1"_s);
    Press_By_A_Screen_Reader(*host.Current(), u"Check1"_s);
    Wait_For(u"check 1"_s);
    host.Open_On_Top(Page_Id::Settings);
    Wait_For(u"timer 11"_s);
    Press_By_A_Screen_Reader(*host.findChildren<Page*>().constFirst(), u"HotLabel1"_s);
    QDialog box(&host);
    box.setModal(true);
    box.show();
    press_all(*host.Current());
    EXPECT_EQ(diary, (QStringList{u"load 0"_s, u"timer 0"_s, u"leave 0"_s, u"worked"_s, u"gone 0"_s,
                                  u"load 1"_s, u"timer 1"_s, u"check 1"_s, u"load 11"_s, u"timer 11"_s}));
}

TEST_F(Host, TheSecondHalfOfADoubleClickIsForThePageOfItsFirst) {
    Show(Page_Id::Main_Menu);
    QWindow* window = host.windowHandle();
    const QPoint middle = host.rect().center();
    QTest::mouseClick(window, Qt::LeftButton, {}, middle);
    Wait_For(u"timer 1"_s);
    QTest::lastMouseTimestamp -= QTest::mouseDoubleClickInterval;
    QTest::mouseClick(window, Qt::LeftButton, {}, middle);
    EXPECT_FALSE(diary.contains(u"leave 1"_s));
    QTest::mouseClick(window, Qt::LeftButton, {}, middle);
    EXPECT_TRUE(diary.contains(u"leave 1"_s));
}

TEST_F(Host, TheWindowBearsThePagesCaptionAndItsCloseMarkLeavesThePage) {
    Show(Page_Id::Batch_Report);
    EXPECT_EQ(host.windowTitle(), u"Mevo - Hillside Primary"_s);
    EXPECT_FALSE(host.close());
    Wait_For(u"timer 4"_s);
    EXPECT_EQ(host.windowTitle(), u"Registering"_s);
}

namespace {

// What is painted of the notice while no event loop runs.
class Painted_Notices final : public QObject {
public:
    Painted_Notices() { qApp->installEventFilter(this); }
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::Paint && watched->objectName() == "Waiting_Notice"_L1)
            texts.append(static_cast<QLabel*>(watched)->text().section(u'\n', 1));
        return false;
    }
    QStringList texts;
};

} // namespace

TEST_F(Host, AWaitForAnotherWorkstationIsCountedDownAndNothingGetsThrough) {
    const Sample_File sample;
    Show(Page_Id::Main_Menu);
    const Painted_Notices seen;
    bool got_through = false;
    QTimer::singleShot(0, &host, [&] { got_through = true; });
    Other_Workstation other(sample.Path());
    other.Hold_Exclusively();
    other.Commit_After(2300);
    database::Connection connection;
    connection.ConnectionString = sample.Installed().Connection_String;
    connection.ConnectionTimeout = 9;
    connection.Open();
    EXPECT_EQ(connection.Execute(u"UPDATE Mevo_Pupils SET Forename = 'Isla'"_s), 12);
    EXPECT_FALSE(got_through);
    EXPECT_EQ(seen.texts.first(2), (QStringList{u"Waiting for it, 8 seconds more at most."_s,
                                                u"Waiting for it, 7 seconds more at most."_s}));
    EXPECT_EQ(host.findChild<QLabel*>(u"Waiting_Notice"_s), nullptr) << "the wait is over";
}

// The errors of the program itself are met at the Main menu's Quit.
TEST(Guard, LetsNoErrorThrough) {
    Scripted_Platform outside;
    outside.boxes.Will_Answer(desktop::Answer::Ok);
    EXPECT_THROW(Guarded(outside.platform, [] { throw std::out_of_range("no such place"); }), Program_Ended);
    EXPECT_EQ(outside.boxes.shown[0].text, u"no such place"_s);
    EXPECT_EQ(outside.pointer.shapes, QList{desktop::Pointer_Shape::Default});
}
