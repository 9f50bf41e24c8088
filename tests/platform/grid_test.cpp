#include "platform/grid/spread.h"
#include "support/printing.h"
#include "support/scripted_platform.h"

#include <QApplication>
#include <QHeaderView>
#include <QHelpEvent>
#include <QPaintEvent>
#include <QRegularExpression>
#include <QTest>
#include <QToolTip>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace grid;

namespace {

constexpr double Paper_Width = 11906; // twips
constexpr double Paper_Height = 16838;
constexpr double Right_Margin = 720;
constexpr double Within = 2;

// "c14b:Text": side, size and weight of a run.
QString Described(const Text_Run& run) {
    const QString sides[] = {u"l"_s, u"c"_s, u"r"_s};
    return sides[static_cast<int>(run.side)] + QString::number(run.font.size) +
           (run.font.bold ? u"b:"_s : u":"_s) + run.text;
}

QStringList Described(const std::vector<Text_Line>& lines) {
    QStringList described;
    for (const Text_Line& line : lines) {
        described.append(QString());
        for (const Text_Run& run : line.runs)
            described.last() += (described.last().isEmpty() ? u""_s : u" | "_s) + Described(run);
    }
    return described;
}

double Right_End(const Placed_Text& text) {
    return text.x + Text_Width(text.font, text.text);
}

QStringList Texts_On(const Sheet& sheet) {
    QStringList texts;
    for (const Placed_Text& placed : sheet.texts)
        texts.append(placed.text);
    return texts;
}

const Placed_Text& Found(const Sheet& sheet, const QString& text) {
    return sheet.texts.at(std::size_t(Texts_On(sheet).indexOf(text)));
}

// Each text of a cell must lie in a box of the grid: one that runs over its neighbour lies in none.
void Expect_In_Boxes(const Sheet& sheet, const QStringList& texts_beside_the_grid) {
    for (const Placed_Text& text : sheet.texts) {
        if (texts_beside_the_grid.contains(text.text)) continue;
        const bool held = std::any_of(sheet.boxes.begin(), sheet.boxes.end(), [&](const Cell_Box& box) {
            return box.place.left() <= text.x && Right_End(text) <= box.place.right() + Within &&
                   box.place.top() <= text.baseline - Ascent(text.font) &&
                   text.baseline <= box.place.bottom();
        });
        EXPECT_TRUE(held) << text.text.toStdString();
    }
}

Printed_Grid Long_Grid(int rows) {
    Printed_Grid grid;
    grid.header.Add_Markup(u"/fz\"14\"/fb1/cSchool/n/cTitle./n"_s);
    grid.footer.Add_Markup(u"Made here/nOn a day/rPage /p"_s);
    grid.margin_left = 1440;
    grid.columns = {{150, Side::Left}, {80, Side::Centre}};
    grid.heads = {{u"Pupil"_s, u"Mark"_s}};
    for (int row = 1; row <= rows; ++row)
        grid.rows.push_back({u"pupil %1"_s.arg(row), u"-"_s});
    return grid;
}

class Grid : public testing::Test {
protected:
    void Print(fpSpread& grid) {
        grid.Action(fpSpread::Action_Print,
                    {u"Sheet"_s, [this](const auto& sheets) { outside.printers.Print(sheets); }});
    }
    test_support::Scripted_Platform outside;
};

} // namespace

TEST(HeaderMarkup, ReadsEachCodeAndPrintsWhatIsNone) {
    const std::pair<QString, QStringList> cases[] = {
        {u""_s, {}},
        {u"plain"_s, {u"l9:plain"_s}},
        {u"/fn\"Arial\"/fz\"14\"/fb1/cSchool/n/cTitle./n"_s, {u"c14b:School"_s, u"c14b:Title."_s, u""_s}},
        {u"/fb1bold/fb0 and not"_s, {u"l9b:bold | l9: and not"_s}},
        {u"/fz\"14\"/fb1Name/n/c/fz\"12\"/fb0/nID"_s,
         {u"l14b:Name"_s, u""_s, u"l12:ID"_s}}, // fonts hold, sides don't
        {u"left/cmiddle/rright"_s, {u"l9:left | c9:middle | r9:right"_s}},
        {u"Made/nOn 15/06/2026/rPage /p"_s, {u"l9:Made"_s, u"l9:On 15/06/2026 | r9:Page 7"_s}},
        {u"a/n/nb/n/n"_s, {u"l9:a"_s, u""_s, u"l9:b"_s, u""_s, u""_s}},
        {u"a/xb /fb2 /fn /N /"_s, {u"l9:a/xb /fb2 /fn /N /"_s}},
        {u"/fz\"big\"/fz\"12/fn\"\"/fz\"-3\"/fz\"99999\""_s,
         {u"l9:/fz\"big\"/fz\"12/fn\"\"/fz\"-3\"/fz\"99999\""_s}},
    };
    for (const auto& [markup, lines] : cases)
        EXPECT_EQ(Described(Parse_Markup(markup, 7)), lines) << markup.toStdString();
    Marked_Text school;
    school.Add_Markup(u"/c"_s).Add_Value(u"a/n/cb"_s).Add_Markup(u"/n"_s).Add_Value(u"/fb1"_s);
    EXPECT_EQ(school.text, u"/ca/n/cb/n/fb1"_s);
    EXPECT_EQ(Described(Parse_Markup(school.text, 7, school.values)),
              (QStringList{u"c9:a/n/cb"_s, u"l9:/fb1"_s}));
    EXPECT_EQ(Parse_Markup(u"/fn\"Courier New\"x"_s, 1)[0].runs[0].font.name, u"Courier New"_s);
}

TEST(HeaderLines, StandAtTheirSidesAndNeverMeet) {
    constexpr double width = 9000;
    const Text_Block one = Set_Lines(Parse_Markup(u"left/cmiddle/rright"_s, 1), width);
    ASSERT_EQ(one.texts.size(), 3u);
    EXPECT_NEAR(one.texts[1].x + Right_End(one.texts[1]), width, Within);
    EXPECT_NEAR(Right_End(one.texts[2]), width, Within);

    const QString name = u"Wolfeschlegelsteinhausenbergerdorff-Smythe Maximiliana Wilhelmina"_s;
    for (const QString& crowded : {u"/fz\"14\"/fb1"_s + name + name, u"/fz\"14\"/c"_s + QString(120, u'W'),
                                   u"/fz\"14\""_s + name + u"/r"_s + name}) {
        SCOPED_TRACE(crowded.toStdString());
        const Text_Block block = Set_Lines(Parse_Markup(crowded, 1), width);
        QString all;
        double last_baseline = 0;
        for (const Placed_Text& text : block.texts) {
            EXPECT_GE(text.x, 0);
            EXPECT_LE(Right_End(text), width + Within);
            EXPECT_GT(text.baseline, last_baseline); // a line each
            last_baseline = text.baseline;
            all += text.text;
        }
        EXPECT_LE(last_baseline, block.height);
        QString given = crowded.mid(7);
        given.remove(u"/fb1"_s).remove(u"/c"_s).remove(u"/r"_s);
        EXPECT_EQ(all.remove(u' '), given.remove(u' ')); // nothing is lost where a line breaks
    }
}

TEST(PageBreaks, FallBetweenRows) {
    const std::pair<std::vector<double>, std::vector<Row_Range>> cases[] = {
        {{}, {{0, 0}}},
        {{40, 60}, {{0, 2}}}, // fills the room to the last twip
        {{40, 61}, {{0, 1}, {1, 2}}},
        {{10, 500, 10}, {{0, 1}, {1, 2}, {2, 3}}},
        {{500}, {{0, 1}}},
        {{50, 50, 50, 50, 50}, {{0, 2}, {2, 4}, {4, 5}}},
    };
    for (const auto& [heights, pages] : cases)
        EXPECT_EQ(Page_Breaks(heights, 100), pages) << heights.size();
}

TEST(ColumnWidths, ShrinkTogetherOnlyWhenTheyMust) {
    EXPECT_EQ(Fitted_Widths({{100, Side::Left}, {200, Side::Left}}, 9000), (std::vector<double>{1500, 3000}));
    const std::vector<double> shrunk = Fitted_Widths({{300, Side::Left}, {900, Side::Left}}, 9000);
    EXPECT_NEAR(shrunk[0], 2250, Within);
    EXPECT_NEAR(shrunk[1], 6750, Within);
}

TEST(Sheets, RepeatHeadsHeaderAndFooterAroundEachRowOnce) {
    const std::vector<Sheet> sheets = Lay_Out_Sheets(Long_Grid(150));
    ASSERT_GT(sheets.size(), 2u);
    int pupils = 0;
    for (std::size_t page = 0; page < sheets.size(); ++page) {
        SCOPED_TRACE(page);
        const Sheet& sheet = sheets[page];
        const QString number = u"Page %1"_s.arg(page + 1);
        EXPECT_LT(Found(sheet, u"Title."_s).baseline, Found(sheet, u"Pupil"_s).baseline);
        EXPECT_NEAR(Right_End(Found(sheet, number)), Paper_Width - Right_Margin, Within);
        EXPECT_EQ(Found(sheet, number).baseline, Found(sheet, u"On a day"_s).baseline); // the last line
        EXPECT_GT(Found(sheet, u"On a day"_s).baseline, Found(sheet, u"Made here"_s).baseline);
        EXPECT_EQ(Found(sheet, u"Made here"_s).x, 1440);
        EXPECT_EQ(Found(sheet, u"Made here"_s).baseline, Found(sheets[0], u"Made here"_s).baseline);
        EXPECT_LT(sheet.boxes.back().place.bottom(), Found(sheet, u"Made here"_s).baseline - 180);
        EXPECT_GT(Found(sheet, u"On a day"_s).baseline, Paper_Height - 1000); // at the sheet's foot
        EXPECT_EQ(sheet.boxes.front().place.left(), 1440);
        Expect_In_Boxes(sheet, {u"School"_s, u"Title."_s, u"Made here"_s, u"On a day"_s, number});
        for (const QString& pupil : Texts_On(sheet).filter(u"pupil "_s))
            EXPECT_EQ(pupil, u"pupil %1"_s.arg(++pupils));
    }
    EXPECT_EQ(pupils, 150);
}

TEST(Sheets, LongTextsStayInTheirCells) {
    Printed_Grid grid;
    grid.margin_left = 1440;
    grid.columns = {{200, Side::Left}, {60, Side::Centre}, {60, Side::Right}};
    const QString name = u"Wolfeschlegelsteinhausenbergerdorff-Smythe Maximiliana"_s;
    grid.rows = {{name, QString(40, u'W'), u"1"_s},
                 {u"one\nline\ttoo"_s, QString(4000, u'W'), QString(40, u'i')},
                 {u"next"_s, u"-"_s, u"12345678"_s}};
    const std::vector<Sheet> sheets = Lay_Out_Sheets(grid);
    ASSERT_EQ(sheets.size(), 1u);
    Expect_In_Boxes(sheets[0], {});
    QString broken;
    for (const Placed_Text& text : sheets[0].texts)
        if (text.x == sheets[0].texts[0].x && text.baseline < sheets[0].boxes[0].place.bottom())
            broken += text.text;
    EXPECT_EQ(broken.remove(u' '), QString(name).remove(u' ')); // a name is never cut
    EXPECT_EQ(Found(sheets[0], u"one line too"_s).x, sheets[0].texts[0].x);
    // A text without end is cut short, or its row would never fit on a sheet.
    EXPECT_TRUE(std::any_of(sheets[0].texts.begin(), sheets[0].texts.end(),
                            [](const Placed_Text& text) { return text.text.endsWith(QChar(0x2026)); }));
    EXPECT_LT(sheets[0].boxes.back().place.bottom(), Paper_Height / 3);
}

TEST_F(Grid, TakesHeadingsInRowZeroAndHasLettersWithoutThem) {
    fpSpread grid(u"Spread1"_s, 28, 2, nullptr);
    EXPECT_TRUE(grid.horizontalHeader()->isHidden());
    EXPECT_EQ(grid.Printed().heads[0].last(), u"AB"_s);
    grid.Set_Text(2, 0, u"Names"_s);
    EXPECT_FALSE(grid.horizontalHeader()->isHidden());
    EXPECT_EQ(grid.Printed().heads[0].mid(1, 3), (QStringList{u"A"_s, u"Names"_s, u"C"_s}));
}

TEST_F(Grid, TakesNoTextOutsideUnlessItsRowsComeAsTheyAreWritten) {
    fpSpread fixed(u"Spread1"_s, 2, 3, nullptr);
    for (const auto& [column, row] : {std::pair{1, 4}, {3, 1}, {0, 1}, {1, -1}, {0, 0}, {3, 0}})
        fixed.Set_Text(column, row, u"lost"_s);
    EXPECT_EQ(fixed.rowCount(), 3);
    EXPECT_EQ(fixed.columnCount(), 2);
    fixed.PrintDataOnly = true;
    EXPECT_TRUE(fixed.Printed().rows.empty());

    fpSpread open(u"Spread1"_s, 2, fpSpread::Rows_As_Written, nullptr);
    EXPECT_EQ(open.rowCount(), 0);
    open.Set_Text(2, 600, u"far"_s);
    EXPECT_EQ(open.rowCount(), 600);
    EXPECT_EQ(open.Text(2, 600), u"far"_s);
    open.Set_MaxRows(10);
    open.Set_Text(1, 12, u"later"_s);
    EXPECT_EQ(open.rowCount(), 12);
    EXPECT_EQ(open.Text(2, 12), u""_s);
}

// Where a widget was painted.
struct Painted : QObject {
    explicit Painted(QWidget* watched) { watched->installEventFilter(this); }
    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() == QEvent::Paint) places += static_cast<QPaintEvent*>(event)->region();
        return false;
    }
    QRegion places;
};

TEST_F(Grid, PaintsAnewWhatSaysSomethingElseAndNothingBesides) {
    fpSpread grid(u"Spread1"_s, 3, 0, nullptr);
    grid.resize(400, 300);
    grid.show();
    std::vector<QString> texts(9, u"as before"_s);
    grid.Set_All_Texts(texts);
    QApplication::processEvents();
    const auto cell = [&](int row, int column) { return grid.visualRect(grid.model()->index(row, column)); };
    Painted painted(grid.viewport());
    texts[1] = texts[7] = u"new"_s; // in the second column
    grid.Set_All_Texts(texts);
    QApplication::processEvents();
    for (int row = 0; row < 3; ++row)
        EXPECT_EQ(painted.places.intersected(cell(row, 1)), QRegion(cell(row, 1))) << row;
    EXPECT_FALSE(painted.places.contains(cell(1, 0).center()) ||
                 painted.places.contains(cell(1, 2).center()));
    const QRect last = cell(2, 0);
    grid.Set_All_Texts({u"alone"_s, u"new"_s, u"as before"_s});
    EXPECT_TRUE(QTest::qWaitFor([&] {
        return painted.places.contains(cell(0, 0).center()) && painted.places.contains(last.center());
    }));
}

TEST_F(Grid, PrintsColumnHeadsAndRowNumbersOnlyWhenAsked) {
    fpSpread grid(u"Spread1"_s, 2, 2, nullptr);
    grid.Set_Text(1, 0, u"Head"_s);
    grid.Set_Text(1, 1, u"cell"_s);
    const std::tuple<bool, bool, std::vector<QStringList>, QStringList> cases[] = {
        {true, false, {{u"Head"_s, u"B"_s}}, {u"cell"_s, u""_s}},
        {false, false, {}, {u"cell"_s, u""_s}},
        {true, true, {{u""_s, u"Head"_s, u"B"_s}}, {u"1"_s, u"cell"_s, u""_s}},
    };
    for (const auto& [heads, numbers, printed_heads, first_row] : cases) {
        grid.PrintColHeaders = heads;
        grid.PrintRowHeaders = numbers;
        const Printed_Grid printed = grid.Printed();
        EXPECT_EQ(printed.heads, printed_heads);
        EXPECT_EQ(printed.rows[0], first_row);
        EXPECT_EQ(printed.columns.size(), std::size_t(first_row.size()));
    }
}

TEST_F(Grid, LeavesOutWhatLiesBehindTheDataWhenAsked) {
    fpSpread grid(u"fpSpread2plus"_s, 8, 32, nullptr);
    grid.PrintRowHeaders = grid.PrintColHeaders = false;
    for (int row = 1; row <= 32; ++row)
        for (int column = 1; column <= 8; ++column)
            grid.Set_Text(column, row, u" "_s); // as a cleared grid holds it
    grid.Set_Text(1, 1, u"Level"_s);
    grid.Set_Text(5, 3, u"wide"_s);
    grid.Set_Text(2, 20, u"last"_s);
    EXPECT_EQ(grid.Printed().rows.size(), 32u);
    grid.PrintDataOnly = true;
    const Printed_Grid printed = grid.Printed();
    EXPECT_EQ(printed.rows.size(), 20u);
    EXPECT_EQ(printed.columns.size(), 5u);
    EXPECT_EQ(printed.rows.back(), (QStringList{u" "_s, u"last"_s, u" "_s, u" "_s, u" "_s}));

    for (const auto& [column, row] : {std::pair{1, 1}, {5, 3}, {2, 20}})
        grid.Set_Text(column, row, u""_s);
    EXPECT_TRUE(grid.Printed().rows.empty());
    Print(grid);
    EXPECT_EQ(outside.printers.pages.size(), 1);
}

TEST_F(Grid, AListBreaksBehindItsCommasAndIsWholeInItsTip) {
    const QString list = u"Sheep,Horse,Frog,Pig,Elephant"_s;
    fpSpread grid(u"fpSpread2"_s, 2, 1, nullptr);
    grid.PrintRowHeaders = grid.PrintColHeaders = false;
    grid.Set_ColWidth(1, 90);
    grid.Set_ColWidth(2, 0); // is put away
    grid.Set_Text(1, 1, list);
    grid.Fit_Rows();
    EXPECT_GE(grid.rowHeight(0), 3 * grid.fontMetrics().height());
    const QStringList lines = Texts_On(Lay_Out_Sheets(grid.Printed())[0]);
    EXPECT_EQ(grid.Printed().columns.size(), 1u);
    grid.Narrow_On_Screen(1, 60);
    EXPECT_EQ(grid.Printed().columns[0].width, 90);
    EXPECT_EQ(lines.join(QString()), list);
    EXPECT_EQ(lines.filter(QRegularExpression(u",$"_s)).size(), lines.size() - 1);
    QHelpEvent pointed(QEvent::ToolTip, grid.visualRect(grid.model()->index(0, 0)).center(), {});
    QApplication::sendEvent(grid.viewport(), &pointed);
    EXPECT_TRUE(QToolTip::text().remove(QChar(0x200B)).contains(list)) << QToolTip::text().toStdString();
}
