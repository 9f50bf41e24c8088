#include "practice/practice_school.h"
#include "practice/practice_window.h"
#include "sampledb/sample_data.h"
#include "shell/main_menu.h"
#include "support/controls.h"
#include "support/database_beside.h"
#include "support/files.h"
#include "support/scripted_platform.h"

#include <QLabel>
#include <QTemporaryDir>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace test_support;
using practice::If_There_Is_One;

namespace {

class Practice_School : public testing::Test {
protected:
    QString At(const QString& name) const { return computer.filePath(name); }
    QString Working() const { return At(u"Mevo05Data.mdb"_s); }
    void Provide(If_There_Is_One if_there_is_one = If_There_Is_One::Keep) const {
        practice::Provide_School(computer.path(), QDate(2031, 3, 9), if_there_is_one);
    }
    QString Value(const QString& sql) const { return Database_Beside(Working()).Value(sql); }

    QTemporaryDir computer;
};

const QString Pupils = u"SELECT count(*) FROM Mevo_Pupils"_s;

} // namespace

TEST_F(Practice_School, HasPupilsOfFourToEightWhoseTestsLieBehindThem) {
    Provide();
    EXPECT_EQ(Value(Pupils), u"24"_s);
    const QString day = u"substr(%1, 7) || '-' || substr(%1, 4, 2) || '-' || substr(%1, 1, 2)"_s;
    EXPECT_EQ(Value(u"SELECT count(*) FROM Mevo_Pupils WHERE DOB LIKE '__/__/____' AND "
                    "(%1 > '2027-03-09' OR %1 <= '2022-03-09')"_s.arg(day.arg(u"DOB"_s))),
              u"0"_s);
    EXPECT_EQ(
        Value(u"SELECT count(*) FROM Mevo_Pupils WHERE Tolvens_date LIKE '__/__/____' AND %1 > '2031-03-09'"_s
                  .arg(day.arg(u"Tolvens_date"_s))),
        u"0"_s);
    EXPECT_NE(Value(u"SELECT count(*) FROM Mevo_Pupils WHERE Tolvens = 1"_s), u"0"_s);
}

TEST_F(Practice_School, IsMadeAnewWhenThatIsWantedAndNeverInAnotherSchoolsPlace) {
    Provide();
    Database_Beside(Working()).Run({u"DELETE FROM Mevo_Pupils"_s});
    Provide();
    EXPECT_EQ(Value(Pupils), u"0"_s);
    Provide(If_There_Is_One::Replace);
    EXPECT_EQ(Value(Pupils), u"24"_s);
    sample_data::Write_Database(Working(), {.pupils = 3});
    const QByteArray before = Bytes_Of(Working());
    for (const If_There_Is_One wanted : {If_There_Is_One::Keep, If_There_Is_One::Replace})
        EXPECT_THROW(Provide(wanted), std::runtime_error);
    EXPECT_EQ(Bytes_Of(Working()), before);
}

TEST_F(Practice_School, TheBandStandsAboveEveryPageAndNothingIsStartedAtTheEnd) {
    Provide();
    Scripted_Platform outside;
    const QString empty = computer.path() + u"\\Mevo05EmptyDatabase.mdb"_s;
    outside.files.names[empty] = u"Mevo05EmptyDatabase.mdb"_s;
    practice::Practice_Ports ports(outside.platform, computer.path());
    app::Program program(ports.Ports());
    practice::Practice_Window window(program.Window());
    window.resize(1366, 768);
    window.show();
    program.Start(computer.path());
    const auto follow_to = [&](const QString& form) {
        EXPECT_TRUE(Wait_Until([&] {
            const shell::Page* page = program.Window().Current();
            return page && page->objectName() == form && page->isVisible();
        })) << form.toStdString();
        EXPECT_EQ(Caption(window, u"Practice_Band"_s), u"Practice school, made-up norms"_s);
        EXPECT_TRUE(Shown(window, u"Practice_Band"_s));
    };
    follow_to(u"Form77"_s);
    EXPECT_EQ(program.Installed().Institution, practice::School_Name());
    Click(*program.Window().Current(), u"HotLabel4"_s);
    follow_to(u"Form10"_s);
    window.close(); // as the page's own entry for leaving
    follow_to(u"Form77"_s);
    auto& menu = static_cast<shell::Form77&>(*program.Window().Current());
    EXPECT_THROW(menu.HotLabel13_Click(),
                 test_support::Program_Ended); // past the toolkit, which an error would leak in
    EXPECT_FALSE(window.isVisible());
    EXPECT_EQ(outside.processes.started, QStringList());
}
