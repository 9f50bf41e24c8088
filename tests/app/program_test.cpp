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

TEST_F(Whole_Program, AnArchiveInViewGreysTheMenuUntilTheViewingEnds) {
    const Sample_File archive(3);
    const QStringList greyed = {u"HotLabel2"_s, u"HotLabel3"_s, u"HotLabel4"_s,
                                u"HotLabel5"_s, u"HotLabel6"_s, u"HotLabel14"_s};
    Start();
    for (const bool viewing : {true, false}) {
        Click(Page(), u"HotLabel8"_s);
        Follow_To(u"Form60"_s);
        outside.boxes.Will_Answer(desktop::Answer::Ok);
        if (viewing) outside.file_dialogs.answers = {archive.Path()};
        Click(Page(), viewing ? u"HotLabel3"_s : u"HotLabel6"_s);
        Click(Page(), u"HotLabel1"_s);
        Follow_To(u"Form77"_s);
        EXPECT_EQ(Shown(Page(), u"Label5"_s), viewing);
        for (const QString& entry : greyed)
            EXPECT_EQ(Enabled(Page(), entry), !viewing) << entry.toStdString();
        Point_At(Page(), u"Label3"_s);
        EXPECT_EQ(Caption(Page(), u"Label3"_s),
                  viewing ? u"Number of pupils registered: 3"_s : u"Number of pupils registered: 12"_s);
    }
}

TEST_F(Whole_Program, ALoadedArchiveIsTheDatabaseOfTheNextStart) {
    const Sample_File archive(3);
    archive.Run(u"UPDATE Customer_Details SET Admin_Password = 'of old'"_s);
    Start();
    Click(Page(), u"HotLabel8"_s);
    Follow_To(u"Form60"_s);
    outside.boxes.Will_Answer(desktop::Answer::Yes);
    outside.boxes.Will_Answer(desktop::Answer::Ok);
    outside.input_box.answers = {u"admin"_s};
    outside.file_dialogs.answers = {archive.Path()};
    Click(Page(), u"HotLabel4"_s);
    EXPECT_EQ(program.Installed().Admin_Password.As_Text(), u"admin"_s);

    app::Program next(outside.platform);
    next.Window().resize(1366, 768);
    next.Window().show();
    next.Start(QStringLiteral(MEVO_ASSETS));
    ASSERT_TRUE(Wait_Until([&] { return next.Window().Current() != nullptr; }));
    EXPECT_EQ(next.Installed().Admin_Password.As_Text(), u"of old"_s);
    Point_At(*next.Window().Current(), u"Label3"_s);
    EXPECT_EQ(Caption(*next.Window().Current(), u"Label3"_s), u"Number of pupils registered: 3"_s);
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
