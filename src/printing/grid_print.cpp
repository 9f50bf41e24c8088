#include "printing/grid_print.h"

#include "platform/basics/dates.h"
#include "platform/basics/run_time_error.h"
#include "printing/product_lines.h"

using namespace Qt::StringLiterals;

namespace printing {
namespace {

struct Grid_Titles {
    QString suffix;   // of the heading
    QString document; // in the printer's queue
};

Grid_Titles Titles_Of(Grid_Kind kind) {
    switch (kind) {
    case Grid_Kind::Testing_Progress:
        return {u" - Testing Progress Record./n"_s, u"Mevo testing progress"_s};
    case Grid_Kind::Import_Preview:
        return {u" - Preview of student import details./n"_s, u"Mevo import preview"_s};
    case Grid_Kind::Security_Settings:
        return {u" - Security settings for all registered individuals./n"_s, u"Mevo security settings"_s};
    }
    basics::Raise(basics::errors::Subscript_Out_Of_Range);
}

grid::fpSpread& Spread1_Of(const QWidget& page) {
    auto* grid = page.findChild<grid::fpSpread*>(u"Spread1"_s);
    if (!grid) basics::Raise(basics::errors::Object_Not_Set);
    return *grid;
}

} // namespace

bool Print_On_Paper(grid::fpSpread& grid, const Sheet_Names& names,
                    const foundation::Installation& installation, desktop::Platform& platform,
                    Outlet outlet) {
    bool taken = false;
    grid.Action(grid::fpSpread::Action_Print, {names.document, [&](desktop::Printed_Document sheets) {
                                                   sheets.title = names.title;
                                                   sheets.about = names.about;
                                                   sheets.author = installation.Institution;
                                                   taken = Put_Out(sheets, outlet, platform);
                                               }});
    return taken;
}

bool Print_List(grid::fpSpread& grid, const grid::Marked_Text& heading, const Sheet_Names& names,
                const foundation::Installation& installation, desktop::Platform& platform, Outlet outlet) {
    const QString today = basics::Date_Text(platform.clock.Now().date().startOfDay());
    grid.PrintOrientation = grid::fpSpread::Portrait;
    grid.Set_PrintHeader(heading);
    grid.PrintFooter = Short_Product_Line() + u"/nReport printed on: "_s + today + u"/rPage /p"_s;
    grid.PrintMarginLeft = 1440;
    grid.PrintColHeaders = true;
    grid.PrintRowHeaders = false;
    const bool taken = Print_On_Paper(grid, names, installation, platform, outlet);
    platform.pointer.Set(desktop::Pointer_Shape::Default);
    return taken;
}

grid::Marked_Text List_Heading(const foundation::Installation& installation) {
    grid::Marked_Text heading;
    heading.Add_Markup(u"/fn\"Arial\"/fz\"14\"/fb1/c"_s).Add_Value(installation.Institution);
    return heading;
}

bool Grid_Print(Grid_Kind kind, const QWidget& page, const foundation::Installation& installation,
                desktop::Platform& platform, Outlet outlet) {
    const Grid_Titles titles = Titles_Of(kind);
    return Print_List(Spread1_Of(page),
                      List_Heading(installation).Add_Markup(u"/n/cQuend Mevo"_s + titles.suffix),
                      titles.document, installation, platform, outlet);
}

} // namespace printing
