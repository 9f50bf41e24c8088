#include "reports/reports_page_fixture.h"

#include <QHeaderView>

using namespace Qt::StringLiterals;
using namespace test_support;

namespace {

class Raw_Tables : public Reports_Page {
protected:
    Raw_Tables() { code = Code_Where(All_Normed + u" AND Pindo = 1"_s); }

    void Set_Age(int months) {
        for (int t = 1; t <= scoring::Normed_Tests; ++t)
            Set(code, u"%1_age = %2"_s.arg(scoring::Test_At(t).Status_Column).arg(months));
    }
    void Show(int t) {
        if (!page) Open();
        Choose(code);
        Click(*page, u"BtnEnh1%1"_s.arg(t));
    }
    QString At(int column, int row, const QString& grid = u"fpSpread2"_s) { return Cell(column, row, grid); }
    // The cells of a row, with a bar between.
    QString Row(int row) {
        QStringList cells;
        for (int column = 1; column <= 6; ++column)
            cells.append(At(column, row));
        return cells.join(u'|');
    }
    int Rows(const QString& grid = u"fpSpread2"_s) { return Control<grid::fpSpread>(*page, grid).rowCount(); }

    QString code;
};

const QString Wide = u"fpSpread2plus"_s;

} // namespace

TEST_F(Raw_Tables, TheTotalsStandBelowTheItemsOfThatAge) {
    const QString narrow = u"fpSpread2"_s;
    const std::tuple<int, int, int, int, QString> cases[] = {
        {1, 10, 13, 3, narrow}, {2, 15, 15, 3, narrow}, {4, 10, 12, 3, narrow}, {5, 8, 12, 4, narrow},
        {6, 7, 9, 3, narrow},   {8, 15, 25, 6, Wide},   {7, 8, 12, 5, Wide}};
    for (const int months : {83, 84}) {
        Set_Age(months);
        page.reset();
        for (const auto& [t, younger, older, label_column, sheet] : cases) {
            SCOPED_TRACE(testing::Message() << "test " << t << " at " << months);
            Show(t);
            const int items = months < 84 ? younger : older;
            EXPECT_EQ(At(1, items + 1, sheet), QString::number(items));
            EXPECT_EQ(At(1, items + 2, sheet), u" "_s);
            EXPECT_EQ(At(label_column, items + 3, sheet), u"Child's total"_s);
            EXPECT_EQ(At(label_column, items + 6, sheet), u"Popul'n SD"_s);
            EXPECT_TRUE(At(2, items + 5, sheet).startsWith(u"Paused:"_s));
            EXPECT_TRUE(Shown(*page, sheet));
            const auto& table = Control<grid::fpSpread>(*page, sheet);
            EXPECT_EQ(table.horizontalHeader()->length(), 744);
            EXPECT_TRUE(table.isRowHidden(0) && !table.horizontalHeader()->isHidden()); // stays on top
            EXPECT_EQ(table.Text(1, 0), table.Text(1, 1));
            EXPECT_FALSE(Shown(*page, u"Picture2"_s));
        }
    }
}

TEST_F(Raw_Tables, AnEndedTestShowsWhatWasNotReached) {
    Set_Age(90);
    Set(code,
        u"Level_11_holes_req = '3,1,2', Level_11_holes_chosen = '1,3,2', Level_11_time = 2369, "
        "Level_12_holes_req = '5,6', Level_12_holes_chosen = '-2', Level_12_time = 0, "
        "Level_52_holes_req = '-1', Level_52_holes_chosen = '-2', Level_52_time = 0"_s,
        u"Mevo_Tolvens_data"_s);
    Show(1);
    EXPECT_EQ(At(3, 1), u"Holes chosen"_s);
    EXPECT_EQ(Row(2), u"1|3,1,2|1,3,2|0|1|2"_s); // without time bars no time has been read
    EXPECT_EQ(Row(3), u"2|5,6|| | | "_s);
    EXPECT_EQ(Row(14), u"13|Not attempted|| | | "_s);

    page->HotLabel2_Click();
    Click(*page, u"BtnEnh11"_s);
    EXPECT_EQ(At(4, 2), u"2.369"_s);
}

TEST_F(Raw_Tables, KarrelHasAsManyRowsAsItemsWereTried) {
    Set_Age(84);
    QStringList times;
    for (int i = 1; i <= 25; ++i)
        times.append(u"Level_1%1_time = %2"_s.arg(i).arg(i <= 20 ? 1005 : 1000000));
    times.append(u"Level_11_req = 'Red', Level_11_colourchosen = 'Cyan'"_s);
    Set(code, times.join(u", "_s), u"Mevo_Karrel_data"_s);
    Show(3);
    EXPECT_EQ(Rows(), 27);
    EXPECT_EQ(Row(2), u"1|Checkers|Triangles|1.01|0| "_s);
    EXPECT_EQ(At(1, 21), u"20"_s);
    EXPECT_EQ(At(3, 23), u"Child's total"_s);
    const QString right = At(5, 23);
    EXPECT_EQ(right, scores.scores.Raw_Score[3].As_Text());
    EXPECT_EQ(At(2, 25), u" "_s); // it counts neither pauses nor repeats

    // The time pass leaves the total at nought, and the score alone.
    page->HotLabel2_Click();
    Click(*page, u"BtnEnh13"_s);
    EXPECT_EQ(Row(23), u" | |Child's total|20.10|0| "_s);
    EXPECT_EQ(scores.scores.Raw_Score[3].As_Text(), right);
}

TEST_F(Raw_Tables, TheTargetsPlaceIsNamed) {
    Set(code,
        u"Choices_1 = 'cup,cap', Shown_1 = 'cup', Choices_2 = 'cup,cap', Shown_2 = 'cap', "
        "Choices_3 = NULL, Shown_3 = NULL"_s,
        u"Mevo_Yoon_data"_s);
    Show(8);
    EXPECT_EQ(At(3, 2, Wide), u"Left"_s);
    EXPECT_EQ(At(3, 3, Wide), u"Right"_s);
    EXPECT_EQ(At(3, 4, Wide).trimmed(), u""_s);
    EXPECT_EQ(Caption(*page, u"Label7"_s), u"Detailed data for the Ostrel test"_s);
}

TEST_F(Raw_Tables, SomeTablesSetTheRowsAndOthersLeaveThem) {
    Set_Age(90);
    for (const auto& [test, rows] : {std::pair(1, 20), {2, 22}, {6, 22}, {9, 28}}) {
        Show(test);
        EXPECT_EQ(Rows(), rows) << test;
    }
    Show(7);
    EXPECT_EQ(Rows(Wide), 18);
    Show(8);
    EXPECT_EQ(Rows(Wide), 18); // and so ends within its items
    EXPECT_EQ(At(1, 18, Wide), u"17"_s);
    Set_Age(70);
    page.reset();
    Show(7);
    EXPECT_EQ(Rows(Wide), 14);
    EXPECT_EQ(Rows(), 32); // of the other grid, as designed
}

TEST_F(Raw_Tables, PindoShowsEveryTryAndTheVerdict) {
    QStringList tries;
    for (int i = 1; i <= 24; ++i)
        tries.append(u"Level_1%1_requested = 'LBLU', Level_1%1_chosen = '%2', Level_1%1_time = %3"_s.arg(i)
                         .arg(i == 1 ? u"GREN"_s : u"LBLU"_s)
                         .arg(i <= 8 ? u"1500"_s : u"NULL"_s));
    Set(code, tries.join(u", "_s), u"Mevo_Pindo_data"_s);
    Set(code, u"Pindo_age = 87"_s);
    Show(9);
    EXPECT_EQ(Row(2), u"Hat 1st|Sky blue|Green|1.50|No| "_s);
    EXPECT_EQ(Row(3), u"Hat 2nd|Sky blue|Sky blue|1.50|Yes| "_s);
    EXPECT_EQ(Row(10), u"Left arm 1st|Sky blue|Sky blue| | | "_s);
    EXPECT_EQ(At(1, 25), u"Right leg 4th"_s);
    EXPECT_EQ(Row(26), u" | |Total time (secs)|12.00| | "_s);
    EXPECT_EQ(Row(27), u" |Unsatisfactory|Attempts (optimum=6)|8| | "_s);
    EXPECT_EQ(Caption(*page, u"Label16"_s), u"Pindo test unsatisfactory (Number of errors: 2)."_s);
    EXPECT_EQ(Caption(*page, u"Label17"_s), u"7:03"_s);
    Choose(code);
    EXPECT_EQ(Caption(*page, u"Label16"_s), u""_s);
}
