#include "shell/conventions/page_host.h"

#include "platform/basics/run_time_error.h"
#include "shell/conventions/click_combo.h"
#include "support/controls.h"
#include "support/scripted_platform.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace shell;
using namespace test_support;

namespace {

class Marked_Page final : public Page {
public:
    Marked_Page(desktop::Platform& platform, Navigator& navigator, Page_Id id, QStringList& diary)
        : Page(platform, navigator, {400, 300}), number(static_cast<int>(id)), diary(diary) {}
    ~Marked_Page() override { diary.append(u"gone %1"_s.arg(number)); }
    void Load() override {
        diary.append(u"load %1"_s.arg(number));
        Once_Painted(u"Timer1"_s, [this] { diary.append(u"timer %1"_s.arg(number)); });
    }

private:
    int number;
    QStringList& diary;
};

class Host : public testing::Test {
protected:
    QStringList diary;
    Scripted_Platform outside;
    Page_Host host{outside.platform, [this](Page_Id id, Navigator& navigator) {
                       return std::make_unique<Marked_Page>(outside.platform, navigator, id, diary);
                   }};
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

TEST_F(Host, APageOnTopLeavesTheOneBeneathAsItWas) {
    host.resize(800, 600);
    host.show();
    host.Go_To(Page_Id::Main_Menu);
    ASSERT_TRUE(Wait_Until([this] { return host.Current() != nullptr; }));
    Page* beneath = host.Current();
    host.Open_On_Top(Page_Id::Settings);
    ASSERT_TRUE(Wait_Until([&] { return host.Current() != beneath; }));
    EXPECT_FALSE(beneath->isVisible());
    host.Close_Page();
    ASSERT_TRUE(Wait_Until([&] { return host.Current() == beneath; }));
    EXPECT_TRUE(beneath->isVisible());
    EXPECT_EQ(diary.count(u"load 0"_s), 1);
}

TEST(ClickCombo, ASelectionByProgramRaisesClickEvenIfItIsTheSame) {
    Click_Combo combo(u"Combo1"_s, nullptr);
    combo.AddItem(u"one"_s);
    int clicks = 0;
    QObject::connect(&combo, &Click_Combo::Click, [&] { ++clicks; });
    combo.Set_ListIndex(0);
    combo.Set_ListIndex(0);
    EXPECT_EQ(clicks, 2);
}

TEST(Guard, LetsNoErrorThrough) {
    Scripted_Platform outside;
    outside.boxes.Will_Answer(desktop::Answer::Ok);
    EXPECT_THROW(Guarded(outside.platform, [] { basics::Raise(basics::errors::Division_By_Zero); }),
                 Program_Ended);
    EXPECT_EQ(outside.boxes.shown[0].text, u"Run-time error '11':\r\rDivision by zero"_s);
    EXPECT_EQ(outside.pointer.shapes, QList{desktop::Pointer_Shape::Default});
}
