#include "app/program.h"

#include "shell/conventions/click_combo.h"
#include "support/controls.h"
#include "support/sample_file.h"
#include "support/scripted_platform.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace test_support;

namespace {

// The whole program on a sample installation, driven as a teacher would.
class Whole_Program : public testing::Test {
protected:
    Whole_Program() {
        outside.ini.values[u"SETTINGS/database_sharepath"_s] = sample.Folder();
        outside.files.names[sample.Folder() + u"\\Mevo05EmptyDatabase.mdb"_s] = u"Mevo05EmptyDatabase.mdb"_s;
    }
    ~Whole_Program() override { outside.boxes.Expect_All_Asked(); }

    void Start() {
        program.Window().resize(1366, 768);
        program.Window().show();
        program.Start(QStringLiteral(MEVO_ASSETS));
        Follow_To(u"Form77"_s);
    }
    void Follow_To(const QString& page) {
        ASSERT_TRUE(Wait_Until([&] { return Page() && Page()->objectName() == page; })) << page.toStdString();
    }
    shell::Page* Page() { return program.Window().Current(); }

    Sample_File sample;
    Scripted_Platform outside;
    app::Program program{outside.platform};
};

} // namespace

TEST_F(Whole_Program, LeadsFromStartUpToAProfileAndBack) {
    Start();
    EXPECT_EQ(program.Installed().Database_Path, sample.Folder() + u"\\Mevo05Data.mdb"_s);
    Click(*Page(), u"HotLabel1"_s);
    Follow_To(u"Form30"_s);
    auto& pupils = Control<shell::Click_Combo>(*Page(), u"Combo1"_s);
    ASSERT_TRUE(Wait_Until([&] { return pupils.count() > 0; }));
    for (int index = 0; index < pupils.count(); ++index)
        pupils.Set_ListIndex(index);
    Click(*Page(), u"HotLabel1"_s);
    Follow_To(u"Form77"_s);
}

TEST_F(Whole_Program, ADayOfClickingLeavesOnePageLoaded) {
    Start();
    for (int round = 0; round < 20; ++round) {
        Click(*Page(), u"HotLabel1"_s);
        Follow_To(u"Form30"_s);
        Click(*Page(), u"HotLabel1"_s);
        Follow_To(u"Form77"_s);
    }
    EXPECT_EQ(program.Window().findChildren<shell::Page*>().size(), 1);
}
