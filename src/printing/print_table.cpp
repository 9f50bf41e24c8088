#include "printing/print_table.h"

#include "platform/basics/dates.h"
#include "printing/grid_print.h"
#include "printing/product_lines.h"

using namespace Qt::StringLiterals;

namespace printing {
namespace {

using grid::Marked_Text;

const QString Ten_Blanks(10, u' ');

void Add_Title(const Chosen_Table& table, Marked_Text& header) {
    if (table.table_to_print == Table_To_Print::Summary)
        header.Add_Markup(u"/n/cMevo for Networks - Summary Data Table./n"_s);
    else
        header.Add_Markup(u"/n/c"_s).Add_Value(table.title);
}

void Add_Pupil(Table_To_Print table, const reports::Report_State& state, Marked_Text& header) {
    header.Add_Markup(u"/n/n"_s).Add_Value(state.Pupil_Name);
    header.Add_Markup(u"/n/c/fz\"12\"/fb0/nID:  "_s).Add_Value(state.Current_Student_Code);
    header.Add_Markup(Ten_Blanks + u"Date of birth: "_s).Add_Value(state.Pupil_DOB.Text_Or_Empty());
    if (table == Table_To_Print::Summary)
        header.Add_Markup(u"/n/n"_s);
    else
        header.Add_Markup(Ten_Blanks + u"Age at test: "_s)
            .Add_Value(state.Pupil_Age_Text)
            .Add_Markup(u"/n"_s);
}

Marked_Text Header(const Chosen_Table& table, const reports::Report_State& state,
                   const QString& institution) {
    Marked_Text header;
    header.Add_Markup(u"/fn\"Arial\"/fz\"14\"/fb1/c"_s).Add_Value(institution);
    Add_Title(table, header);
    Add_Pupil(table.table_to_print, state, header);
    return header;
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
                 const foundation::Installation& installation, desktop::Platform& platform, Outlet outlet) {
    grid::fpSpread& grid = table.grid;
    if (table.table_to_print == Table_To_Print::Wide_Detail) grid.PrintDataOnly = true;
    grid.PrintOrientation = grid::fpSpread::Portrait;
    grid.Set_PrintHeader(Header(table, state, installation.Institution));
    grid.PrintFooter = Footer(table.table_to_print, platform.clock.Now().date());
    grid.PrintMarginLeft = 1440;
    grid.PrintColHeaders = false;
    grid.PrintRowHeaders = false;
    const QString name = Document_Name(table);
    const Sheet_Names names(name, name + u" - "_s + state.Pupil_In_Titles(),
                            About_Scores(state.Norms_Digest));
    return Print_On_Paper(grid, names, installation, platform, outlet);
}

} // namespace printing
