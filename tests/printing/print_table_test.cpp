#include "printing/print_table.h"

#include "platform/basics/run_time_error.h"
#include "printing/grid_print.h"
#include "printing/product_lines.h"
#include "printing/pupil_on_paper.h"

#include <gtest/gtest.h>

using namespace printing;
using namespace test_support;

namespace {

class Printed_Grids : public Pupil_On_Paper {
protected:
    Printed_Grids() {
        installation.Institution = u"St Mary's/nursery School"_s;
        grid.Set_Text(1, 0, u"Heading"_s);
        grid.Set_Text(1, 1, u"value"_s);
    }

    bool Print(Table_To_Print table) {
        return Print_Table({table, grid, u"Test data for Yoon"_s}, state, installation, outside.platform);
    }
    bool Print(Grid_Kind kind) { return Grid_Print(kind, page, installation, outside.platform); }

    QStringList Printed_Texts() const {
        QStringList texts;
        for (const grid::Sheet& sheet : grid::Lay_Out_Sheets(grid.Printed()))
            for (const grid::Placed_Text& text : sheet.texts)
                texts.append(text.text);
        return texts;
    }

    QWidget page;
    grid::fpSpread& grid = *new grid::fpSpread(u"Spread1"_s, 2, 3, &page);
};

} // namespace

TEST_F(Printed_Grids, HeadersAndFootersOfTheReportsTables) {
    const QString blanks(10, u' ');
    const QString detail_header = u"/fn\"Arial\"/fz\"14\"/fb1/cSt Mary's/nursery School/n/cTest data for "
                                  u"Yoon/n/nSmith Oliver/n/c/fz\"12\"/fb0/n"
                                  u"ID:  SMIOLI633THJ"_s +
                                  blanks + u"Date of birth: 09/02/2020"_s + blanks +
                                  u"Age at test:  6y 3m/n"_s;
    const QString summary_header =
        u"/fn\"Arial\"/fz\"14\"/fb1/cSt Mary's/nursery School/n/cMevo for Networks - "
        u"Summary Data Table./n/n/nSmith Oliver"
        u"/n/c/fz\"12\"/fb0/nID:  SMIOLI633THJ"_s +
        blanks + u"Date of birth: 09/02/2020/n/n"_s;
    const std::tuple<Table_To_Print, QString, QString> cases[] = {
        {Table_To_Print::Wide_Detail, detail_header, u"/nReport printed on:  15/06/2026/n/n"_s},
        {Table_To_Print::Summary, summary_header, u"/nReport printed on: 15/06/2026/n/n"_s},
        {Table_To_Print::Detail, detail_header, u"/nReport printed on:  15/06/2026/n/n"_s},
    };
    for (const auto& [table, header, footer_end] : cases) {
        SCOPED_TRACE(static_cast<int>(table));
        EXPECT_TRUE(Print(table));
        EXPECT_EQ(grid.PrintHeader, header);
        EXPECT_EQ(grid.PrintFooter, Long_Product_Line() + footer_end);
        EXPECT_EQ(grid.PrintMarginLeft, 1440);
        EXPECT_EQ(Printed_Texts().filter(u"Age at test:  6y 3m"_s).isEmpty(),
                  table == Table_To_Print::Summary);
        EXPECT_FALSE(Printed_Texts().contains(u"Heading"_s)); // no column heads
        EXPECT_EQ(Printed_Texts().first(), installation.Institution);
        EXPECT_TRUE(Printed_Texts().filter(u"Page"_s).isEmpty());
    }
    EXPECT_EQ(outside.printers.pages.size(), 3);
}

TEST_F(Printed_Grids, OnlyTheWideTableIsLimitedToItsData) {
    Print(Table_To_Print::Detail);
    Print(Table_To_Print::Summary);
    EXPECT_EQ(grid.Printed().rows.size(), 3u);
    Print(Table_To_Print::Wide_Detail);
    EXPECT_EQ(grid.Printed().rows.size(), 1u);
}

TEST_F(Printed_Grids, WithoutAPrinterAskWhereThePdfIsToLie) {
    outside.printers.is_set_up = false;
    outside.file_dialogs.answers = {u"/missing/a.pdf"_s};
    outside.boxes.Will_Answer(desktop::Answer::Ok);
    EXPECT_FALSE(Print(Table_To_Print::Summary));
    EXPECT_EQ(outside.boxes.shown.last().style, desktop::Box_Style::Critical);
    EXPECT_FALSE(Print(Grid_Kind::Security_Settings)) << "cancelled";
    ASSERT_EQ(outside.file_dialogs.asked.size(), 2);
    EXPECT_EQ(outside.file_dialogs.asked[0].title, u"No printer is set up: save as PDF"_s);
    EXPECT_EQ(outside.file_dialogs.asked[0].file_name,
              u"Mevo summary data table - SMIOLI633THJ Smith Oliver.pdf"_s);
    EXPECT_EQ(outside.file_dialogs.asked[1].file_name, u"Mevo security settings.pdf"_s);
}

TEST_F(Printed_Grids, AFaultOfThePrinterIsARunTimeError) {
    outside.printers.broken = true;
    EXPECT_THROW(Print(Table_To_Print::Detail), basics::Run_Time_Error);
    EXPECT_THROW(Print(Grid_Kind::Import_Preview), basics::Run_Time_Error);
    const QWidget without_grid;
    EXPECT_THROW(Grid_Print(Grid_Kind::Testing_Progress, without_grid, installation, outside.platform),
                 basics::Run_Time_Error);
    EXPECT_TRUE(outside.boxes.shown.isEmpty());
}
