#include "shell/testing_progress.h"

#include "foundation/schema.h"
#include "platform/recorded_page.h"
#include "support/page_fixture.h"

#include <QHeaderView>

using namespace Qt::StringLiterals;
using namespace shell;
using namespace test_support;
using desktop::Answer;

namespace {

class Testing_Progress : public Page_Fixture {
protected:
    Testing_Progress() {
        installation.Institution = u"St Mary's School"_s;
        sample.Run(u"DELETE FROM Mevo_Pupils"_s);
    }

    void Register(const QString& values, const QString& columns = u"StudentCode, Surname, Forename, DOB"_s) {
        sample.Run(u"INSERT INTO Mevo_Pupils ("_s + columns + u") VALUES ("_s + values + u')');
    }
    void Open() {
        page = std::make_unique<Form14>(outside.platform, navigator, installation, ticks);
        Show_On_Screen(*page);
        page->Timer1_Timer();
    }
    grid::fpSpread& Grid() { return Control<grid::fpSpread>(*page, u"Spread1"_s); }
    QStringList Row(int row) { return Grid_Row(Grid(), row); }

    Ticks ticks;
    std::unique_ptr<Form14> page;
};

} // namespace

TEST_F(Testing_Progress, ListsAllPupilsByNameUnderTheTwelveHeadings) {
    Register(u"'B', 'Öz', 'Bo', '2019-08-30'"_s);
    Register(u"'C', 'okafor', 'Chidi', '29/04/2020'"_s);
    Register(u"'D', 'Okafor', 'Ama', '12/02/18'"_s);
    Register(u"NULL, 'Adams', NULL, NULL"_s);
    Open();
    EXPECT_EQ(Row(0).join(u'|'),
              u"User ID|Names|DOB|Tolvens|Friends|Karrel|Letters|Names|Drell|Mirvel|Yoon|Pindo"_s);
    EXPECT_EQ(Row(1).mid(0, 3), (QStringList{u""_s, u"Adams "_s, u""_s}));
    EXPECT_EQ(Row(2).mid(0, 3), (QStringList{u"D"_s, u"Okafor Ama"_s, u"12/02/2018"_s}));
    EXPECT_EQ(Row(3).mid(0, 3), (QStringList{u"C"_s, u"okafor Chidi"_s, u"29/04/2020"_s}));
    EXPECT_EQ(Row(4).mid(0, 3), (QStringList{u"B"_s, u"Öz Bo"_s, u"30/08/2019"_s}));
    EXPECT_EQ(Grid().rowCount(), 4);
    EXPECT_LE(Grid().horizontalHeader()->length(), Grid().viewport()->width()); // nothing to scroll sideways
    EXPECT_EQ(Caption(*page, u"Label5"_s), u"4 individuals are registered"_s);
}

TEST_F(Testing_Progress, MarksEachTestByItsOwnStatus) {
    const QStringList columns = foundation::Status_Columns();
    for (int t = 0; t < 9; ++t)
        Register(u"'%1', 'Pupil %1', 1"_s.arg(t), u"StudentCode, Surname, "_s + columns[t]);
    Open();
    for (int t = 0; t < 9; ++t) {
        QStringList marks(9, u"-"_s);
        marks[t] = u"Yes"_s;
        EXPECT_EQ(Row(t + 1).mid(3), marks);
    }
}

TEST_F(Testing_Progress, ListsAGroupOrThoseWhoHaveTestsLeftAndHandsThemOver) {
    const QString all = foundation::Status_Columns().join(u", "_s);
    Register(u"'A', 'Adams', 'Ann', 'oak'"_s, u"StudentCode, Surname, Forename, Group_Class"_s);
    Register(u"'B', 'Bell', 'Bo', 'Oak', 1, 1, 1, 1, 1, 1, 1, 1, 2"_s,
             u"StudentCode, Surname, Forename, Group_Class, "_s + all);
    Register(u"'C', 'Cole', 'Cy', 'Ash''s', 1, 1, 1, 1, 1, 1, 1, 1, 0"_s,
             u"StudentCode, Surname, Forename, Group_Class, "_s + all);
    Register(u"'D', 'Dean', 'Di'"_s, u"StudentCode, Surname, Forename"_s);
    Open();
    auto& groups = Control<Click_Combo>(*page, u"GroupFilter"_s);
    ASSERT_EQ(groups.count(), 3);
    const std::tuple<int, bool, QString, QString, QString> cases[] = {
        {0, false, u"ABCD"_s, u"4 individuals are registered"_s, u"All pupils"_s},
        {1, false, u"C"_s, u"4 individuals are registered, 1 shown"_s, u"Ash's"_s},
        {2, false, u"AB"_s, u"4 individuals are registered, 2 shown"_s, u"oak"_s},
        {2, true, u"A"_s, u"4 individuals are registered, 1 shown"_s, u"oak"_s},
        {0, true, u"ACD"_s, u"4 individuals are registered, 3 shown"_s, u"All pupils"_s}};
    for (const auto& [group, unfinished, codes, count, title] : cases) {
        SCOPED_TRACE(codes.toStdString());
        Control<QCheckBox>(*page, u"UnfinishedOnly"_s).setChecked(unfinished);
        groups.Set_ListIndex(group);
        QString listed;
        for (int row = 1; row <= Grid().rowCount(); ++row)
            listed += Row(row)[0];
        EXPECT_EQ(listed, codes);
        EXPECT_EQ(Caption(*page, u"Label5"_s), count);
        Click(*page, u"TickList"_s);
        EXPECT_EQ(ticks.title, title);
        EXPECT_EQ(ticks.rows.size(), codes.size());
    }
    EXPECT_EQ(ticks.rows.first().done.count(true), 0);
    EXPECT_EQ(ticks.rows[1].done.count(true), 8);
}

TEST_F(Testing_Progress, TheTickListHasABoxForEachTestOfEachPupilOnAsManySheets) {
    for (const int test : {1, 2, 3})
        ticks.tests.append(u"Test %1"_s.arg(test));
    for (int row = 1; row <= 65; ++row)
        ticks.rows.append(
            {u"Featherstonehaugh-Cholmondeley Maximilian %1"_s.arg(row), {true, false, row == 65}});
    preview::ViewPro sheet;
    Draw_Tick_List(ticks, installation, sheet);
    ASSERT_EQ(sheet.PageCount(), 3);
    int boxes = 0, tick_lines = 0;
    for (int number = 1; number <= 3; ++number) {
        const preview::Drawing& page = sheet.Page(number);
        EXPECT_EQ(Lines_Of(page, u"Test 3"_s).size(), 1);
        EXPECT_EQ(Overlaps(page), QStringList());
        for (const auto& rectangle : All_Of<preview::Rectangle_Operation>(page))
            boxes += rectangle.outline.has_value();
        for (const auto& line : All_Of<preview::Line_Operation>(page))
            tick_lines += line.pen.width == 60;
    }
    EXPECT_EQ(boxes, 65 * 3);
    EXPECT_EQ(tick_lines, 2 * (65 + 1));
}

TEST_F(Testing_Progress, PrintsEvenNobodyAndTellsNoFailure) {
    Open();
    EXPECT_EQ(Grid().rowCount(), 0);
    EXPECT_EQ(Caption(*page, u"Label5"_s), u"0 individuals are registered"_s);
    outside.Expect_Silent_Unless_Printed([this] { page->HotLabel2_Click(); });
    outside.boxes.Will_Answer(Answer::Ok);
    Click(*page, u"HotLabel2"_s);
    EXPECT_EQ(outside.printers.pages.size(), 1);
    EXPECT_TRUE(Grid().PrintHeader.endsWith(u"/n/cQuend Mevo - Testing Progress Record./n"_s));
    outside.boxes.Expect_Last(desktop::Box_Style::Information, u"Will be printed"_s,
                              u"Progress chart has been sent to your printer"_s);
}

TEST_F(Testing_Progress, FillsOnceThePageHasBeenSeen) {
    Register(u"'A', 'Adams', 'Ann', NULL"_s);
    page = std::make_unique<Form14>(outside.platform, navigator, installation, ticks);
    page->Load();
    EXPECT_EQ(Grid().rowCount(), 0);
    EXPECT_TRUE(Wait_Until([this] { return Grid().rowCount() == 1; }));
    sample.Move_Away();
    outside.boxes.Expect_Abort_Ends([this] { Open(); });
}
