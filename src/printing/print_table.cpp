#include "printing/print_table.h"

#include "platform/basics/dates.h"
#include "printing/grid_print.h"
#include "printing/product_lines.h"

using namespace Qt::StringLiterals;

namespace printing {
namespace {

const QString Ten_Blanks(10, u' ');

QString Title_Piece(const Chosen_Table& table) {
    if (table.table_to_print == Table_To_Print::Summary)
        return u"/n/cMevo for Networks - Summary Data Table./n"_s;
    return u"/n/c"_s + table.title;
}

QString Pupil_Piece(Table_To_Print table, const reports::Report_State& state) {
    const QString pupil = u"/c/fz\"12\"/fb0/n"_s + u"ID:  "_s + state.Current_Student_Code + Ten_Blanks +
                          u"Date of birth: "_s + state.Pupil_DOB.Text_Or_Empty();
    if (table == Table_To_Print::Summary) return pupil + u"/n/n"_s;
    return pupil + Ten_Blanks + u"Age at test: "_s + state.Pupil_Age_Text + u"/n"_s;
}

QString Header(const Chosen_Table& table, const reports::Report_State& state, const QString& institution) {
    return u"/fn\"Arial\"/fz\"14\"/fb1/c"_s + institution + Title_Piece(table) + u"/n/n"_s +
           state.Pupil_Name + u"/n"_s + Pupil_Piece(table.table_to_print, state);
}

QString Footer(Table_To_Print table, const QDate& today) {
    const QString printed_on = table == Table_To_Print::Summary ? u"/nReport printed on: "_s // one blank less
                                                                : u"/nReport printed on:  "_s;
    return Long_Product_Line() + printed_on + basics::Date_Text(today.startOfDay()) + u"/n/n"_s;
}

QString Document_Name(const Chosen_Table& table) {
    if (table.table_to_print == Table_To_Print::Summary) return u"Mevo summary data table"_s;
    return u"Mevo "_s + table.title;
}

} // namespace

bool Print_Table(const Chosen_Table& table, const reports::Report_State& state,
                 const foundation::Installation& installation, desktop::Platform& platform) {
    grid::fpSpread& grid = table.grid;
    if (table.table_to_print == Table_To_Print::Wide_Detail) grid.PrintDataOnly = true;
    grid.PrintOrientation = grid::fpSpread::Portrait;
    grid.PrintHeader = Header(table, state, installation.Institution);
    grid.PrintFooter = Footer(table.table_to_print, platform.clock.Now().date());
    grid.PrintMarginLeft = 1440;
    grid.PrintColHeaders = false;
    grid.PrintRowHeaders = false;
    return Print_On_Paper(grid, Document_Name(table), installation, platform);
}

} // namespace printing
