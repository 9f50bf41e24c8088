#include "scoring/item_arithmetic.h"

#include "support/error_number.h"
#include "support/printing.h"

#include <QStringList>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace scoring;
using basics::Value;
using test_support::Error_Number;

namespace {

// What one of the three counts makes of an item; -1 where it leaves the result alone.
template<class Count>
int Counted(Count count, const QString& requested, const QString& chosen, Work_Lists& work) {
    int result = -1;
    count(requested, chosen, result, Item_Form::List, work);
    return result;
}
int Correct(const QString& requested, const QString& chosen, Work_Lists& work) {
    return Counted(Score_Item, requested, chosen, work);
}
int Direct(const QString& requested, const QString& chosen, Work_Lists& work) {
    return Counted(Seq_Errors_Direct, requested, chosen, work);
}
int Misplaced(const QString& requested, const QString& chosen, Work_Lists& work) {
    return Counted(Seq_Errors_Misplaced, requested, chosen, work);
}

// "1,2,3" and so on, or the same backwards.
QString Counted_List(int count, bool backwards = false) {
    QStringList elements;
    for (int i = 1; i <= count; ++i)
        elements.append(QString::number(backwards ? count + 1 - i : i));
    return elements.join(u',');
}

} // namespace

TEST(SplittingALine, ElementsEndAtCommasAndKeepTheirBlanks) {
    const std::pair<QString, QStringList> cases[] = {
        {u"3,1,2"_s, {u"3"_s, u"1"_s, u"2"_s}}, {u"3,1,"_s, {u"3"_s, u"1"_s}},
        {u"a,,b"_s, {u"a"_s, u""_s, u"b"_s}},   {u",,"_s, {u""_s, u""_s}},
        {u" 3, 1 "_s, {u" 3"_s, u" 1 "_s}},     {u""_s, {}},
    };
    for (const auto& [text, elements] : cases) {
        SCOPED_TRACE(text.toStdString());
        Work_Lists work;
        Split_Chosen(text, work);
        ASSERT_EQ(work.Chosen_Count, elements.size());
        for (int i = 1; i <= work.Chosen_Count; ++i)
            EXPECT_EQ(work.Chosen_Items[i].Text().toString(), elements[i - 1]);
    }
}

TEST(SplittingALine, AShorterListLeavesTheTailOfTheOneBefore) {
    Work_Lists work;
    EXPECT_EQ(Correct(u"1,2,3"_s, u"1,2,3"_s, work), 3);
    EXPECT_EQ(Correct(u"4,2,3"_s, u"4"_s, work), 3);
    EXPECT_EQ(work.Chosen_Count, 1);
    EXPECT_EQ(Correct(u"4,3,2"_s, u"4"_s, work), 1);
}

TEST(CountingAnItem, TheThreeCountsDiffer) {
    const std::tuple<QString, QString, int, int, int> cases[] = {
        {u"3,1,2"_s, u"1,3,2"_s, 1, 2, 2}, // two changed places
        {u"3,1,2"_s, u"3,1,2"_s, 3, 0, 0},
        // One that stands twice counts twice for each time it was chosen.
        {u"5,5,1"_s, u"5,2,5"_s, 1, 3, 1},
        {u"1,2,3"_s, u"2,2,2"_s, 1, 2, 0}, // the one in its place takes no part among the misplaced
        {u"1,2,1"_s, u"2,1,2"_s, 0, 4, 4},
        {u"-1"_s, u"-2"_s, 0, 0, 0},
        {u""_s, u""_s, 0, 0, 0},
    };
    for (const auto& [requested, chosen, correct, direct, misplaced] : cases) {
        SCOPED_TRACE(requested.toStdString() + " " + chosen.toStdString());
        Work_Lists work;
        EXPECT_EQ(Correct(requested, chosen, work), correct);
        EXPECT_EQ(Direct(requested, chosen, work), direct);
        EXPECT_EQ(Misplaced(requested, chosen, work), misplaced);
    }
}

TEST(CountingAnItem, DirectErrorsAreLessTheItemThatWasScoredLast) {
    Work_Lists work;
    EXPECT_EQ(Correct(u"1,2,3"_s, u"1,2,3"_s, work), 3);
    EXPECT_EQ(Direct(u"7,8"_s, u"8,7"_s, work), 2 - 3);
    EXPECT_EQ(Correct(u"7,8"_s, u"8,7"_s, work), 0);
    EXPECT_EQ(Direct(u"7,8"_s, u"8,7"_s, work), 2);
}

TEST(CountingAnItem, SingleAnswersAreComparedWhole) {
    Work_Lists work;
    int result = -1;
    Score_Item(u"1,2"_s, u"1,2"_s, result, Item_Form::Single, work);
    EXPECT_EQ(result, 1);
    EXPECT_EQ(work.Requested_Count, 0) << "nothing was to be split";
    result = 42;
    Seq_Errors_Misplaced(u"1"_s, u"2"_s, result, Item_Form::Single, work);
    EXPECT_EQ(result, 42);
    Seq_Errors_Direct(u"1"_s, u"2"_s, result, Item_Form::Single, work);
    EXPECT_EQ(result, -1);
}

TEST(CountingAnItem, StopsAtTheListsLimits) {
    using namespace basics::errors;
    Work_Lists work;
    const QString longest = Counted_List(100);
    EXPECT_EQ(Correct(longest, longest, work), 100);
    EXPECT_EQ(Error_Number([&] { Split_Requested(Counted_List(101), work); }), Subscript_Out_Of_Range);
    EXPECT_EQ(Misplaced(Counted_List(10), Counted_List(10, true), work), 10);
    EXPECT_EQ(Error_Number([&] { Misplaced(Counted_List(12), Counted_List(12, true), work); }),
              Subscript_Out_Of_Range);
}

TEST(CountingAnItem, AnItemWithoutAValueIsRefused) {
    Work_Lists work;
    int result = 0;
    const auto score = [&](const Value& requested, const Value& chosen) {
        return Error_Number([&] { Score_Item(requested, chosen, result, Item_Form::List, work); });
    };
    EXPECT_EQ(score(Value(), u"1"_s), basics::errors::Invalid_Use_Of_Null);
    EXPECT_EQ(score(u"1"_s, Value()), basics::errors::Invalid_Use_Of_Null);
}
