#include "app/running_program.h"
#include "shell/conventions/click_combo.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace test_support;

namespace {

// The whole program, driven as a teacher would.
class Whole_Program : public testing::Test, public Running_Program {
protected:
    ~Whole_Program() override { outside.boxes.Expect_All_Asked(); }
};

} // namespace

TEST_F(Whole_Program, LeadsFromStartUpToAProfileAndBack) {
    Start();
    EXPECT_EQ(program.Installed().Database_Path, sample.Folder() + u"\\Mevo05Data.mdb"_s);
    Click(Page(), u"HotLabel1"_s);
    Follow_To(u"Form30"_s);
    auto& pupils = Control<shell::Click_Combo>(Page(), u"Combo1"_s);
    ASSERT_TRUE(Wait_Until([&] { return pupils.count() > 0; }));
    for (int index = 0; index < pupils.count(); ++index)
        pupils.Set_ListIndex(index);
    Click(Page(), u"HotLabel1"_s);
    Follow_To(u"Form77"_s);
}

TEST_F(Whole_Program, SettingsStandOnTheMenu) {
    Start();
    const shell::Page* menu = &Page();
    Click(Page(), u"HotLabel6"_s);
    Follow_To(u"Form20"_s);
    Click(Page(), u"HotLabel1"_s);
    Follow_To(u"Form77"_s);
    EXPECT_EQ(&Page(), menu);
}

TEST_F(Whole_Program, ADayOfClickingLeavesOnePageLoaded) {
    Start();
    for (int round = 0; round < 20; ++round) {
        Click(Page(), u"HotLabel1"_s);
        Follow_To(u"Form30"_s);
        Click(Page(), u"HotLabel1"_s);
        Follow_To(u"Form77"_s);
    }
    EXPECT_EQ(program.Window().findChildren<shell::Page*>().size(), 1);
}
