#include "pupils/date_lists.h"

#include "support/controls.h"
#include "support/scripted_platform.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace test_support;

namespace pupils {
namespace {

// The lists on a bare page, on the 15th of June 2026.
class Lists : public testing::Test {
protected:
    void Fill() {
        lists.Populate_Date_List(31, 1);
        lists.Populate_Months_List();
        lists.Populate_Year_List(1980, 25);
    }
    Scripted_Platform outside;
    QWidget page;
    Date_Lists lists{&page, &page, outside.platform};
};

} // namespace

TEST_F(Lists, TheDayFollowsTheLengthOfTheMonth) {
    const struct {
        int day, month, year; // chosen; 0 leaves a list alone
        int days, selected;   // the day list after it
    } steps[] = {
        {31, 5, 2004, 31, 31}, // 31 May
        {0, 4, 0, 30, 30},     // April: shrinks, the last day is selected
        {0, 5, 0, 31, 30},     // May again: grows, the day stays
        {0, 2, 0, 29, 29},     // February of a leap year
        {0, 0, 2005, 28, 28},  // of a common one
        {0, 0, 2000, 29, 28},  // the century's
        {0, 3, 0, 31, 28},     {12, 6, 0, 30, 12}, {0, 9, 0, 30, 12},
        {0, 11, 1999, 30, 12}, {0, 12, 0, 31, 12},
    };
    Fill();
    EXPECT_EQ(lists.Combo4->itemText(lists.Combo4->count() - 1), u" 2025"_s); // a blank before numbers
    EXPECT_EQ(lists.Text2->text(), u"01/01/2005"_s);
    for (const auto& step : steps) {
        SCOPED_TRACE(&step - steps);
        if (step.year) lists.Combo4->Set_ListIndex(step.year - 1980);
        if (step.month) lists.Combo3->Set_ListIndex(step.month - 1);
        if (step.day) lists.Combo2->Set_ListIndex(step.day - 1);
        EXPECT_EQ(lists.Combo2->count(), step.days);
        EXPECT_EQ(lists.Combo2->ListIndex() + 1, step.selected);
        EXPECT_TRUE(QDate::fromString(lists.Text2->text(), u"dd/MM/yyyy"_s).isValid())
            << lists.Text2->text().toStdString();
    }
    EXPECT_EQ(lists.Text2->text(), u"12/12/1999"_s);
    EXPECT_EQ(lists.txAgeY->text() + u'/' + lists.txAgeM->text(), u"26/6"_s);
}

TEST_F(Lists, TheKeyboardChoosesAsThePointerDoes) {
    Fill();
    QTest::keyClick(lists.Combo3, Qt::Key_Down);
    EXPECT_EQ(lists.Combo2->count(), 28);
    EXPECT_EQ(lists.Text2->text(), u"01/02/2005"_s);
    QTest::keyClick(lists.Combo2, Qt::Key_End);
    EXPECT_EQ(lists.Text2->text(), u"28/02/2005"_s);
    QTest::keyClicks(lists.Combo4, u"2016"_s); // behind the blank, to the last digit
    QTest::keyClicks(lists.Combo3, u"j"_s);
    QTest::keyClicks(lists.Combo2, u"1"_s); // and not the 10th
    EXPECT_EQ(lists.Text2->text(), u"01/06/2016"_s);
    QTest::keyClicks(lists.Combo2, u"74"_s); // there is no 74th
    EXPECT_EQ(lists.Text2->text(), u"04/06/2016"_s);
}

} // namespace pupils
