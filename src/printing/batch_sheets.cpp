#include "printing/batch_sheets.h"

#include "platform/preview/text_metrics.h"
#include "printing/batch_list.h"
#include "printing/product_lines.h"
#include "printing/sheet.h"

using namespace Qt::StringLiterals;

namespace printing {

int Sheets_For(int count) {
    return (count + Miniatures_A_Sheet - 1) / Miniatures_A_Sheet;
}

static QPoint Corner_Of(int rank) {
    constexpr int columns[] = {500, 5900};
    constexpr int rows[] = {1000, 4200, 7400, 10600};
    const int place = (rank - 1) % Miniatures_A_Sheet;
    return {columns[place % 2], rows[place / 2]};
}

QRect Miniature_Place(int rank) {
    const Chart_Place chart = Small_Chart(Corner_Of(rank).x(), Corner_Of(rank).y(), false).place;
    constexpr int figures = 400; // beside the chart
    constexpr int line = 230;    // above it
    constexpr int names = 300;   // below it
    return QRect(chart.left, chart.top, chart.width, chart.height)
        .adjusted(-figures, -line, figures / 4, names);
}

Batch_Sheets::Batch_Sheets(preview::ViewPro& sheet, Batch_Sources sources, desktop::Platform& platform)
    : sheet(sheet), sources(sources), clock(platform.clock), charts(sheet, platform.boxes) {
}

void Batch_Sheets::Report_Setup() {
    constexpr int cell_padding = 14;
    Set_Up_Sheet(sheet, cell_padding);
}

void Batch_Sheets::Build_Batch(int count, const Batch_Options& chosen) {
    options = chosen;
    sheet.About = About_Scores(sources.state.Norms_Digest);
    sheet.Author = sources.installation.Institution;
    sheet.Title = u"Mevo batch report - "_s + options.group;
    sheet.BeginOutput();
    const int pages = Sheets_For(count);
    for (int page = 1; page <= pages; ++page) {
        Draw_Sheet(page, count);
        if (page < pages) sheet.NewPage();
    }
    sheet.EndOutput();
}

void Batch_Sheets::Draw_Sheet(int page, int count) {
    Draw_Batch_Head(page);
    const int last = page * Miniatures_A_Sheet;
    for (int rank = last - Miniatures_A_Sheet + 1; rank <= last; ++rank)
        Draw_Miniature(rank, count, Corner_Of(rank).x(), Corner_Of(rank).y());
    if (charts.Has_Terminated_Mark) charts.Draw_Terminated_Note(500, 480);
}

// The text for z-scores has no blank at its end.
static QString Title_For(const QString& Chart_Mode) {
    return Chart_Mode == "P"_L1
               ? u"Mevo multiple graphical profiles (Y-axis in Centile scores). Printed on: "_s
               : u"Mevo multiple graphical profiles (Y-axis in Standard Deviation Units or Z-Scores). Printed on:"_s;
}

void Batch_Sheets::Draw_Batch_Head(int page) {
    constexpr int width = 8640;
    Draw_Running_Texts(sheet, u'|' + Cell(sources.installation.Institution) + u'|',
                       u'|' + Long_Product_Line() + u"|Page "_s + QString::number(page));
    Draw_Centred(sheet, 72, width, 9, Title_For(sources.state.Chart_Mode) + Today(clock));
    sheet.FontSize = 8;
    sheet.CurrentY = 312;
    sheet.Text(u"Class or Group represented is: "_s + options.group);
}

void Batch_Sheets::Draw_Miniature(int rank, int count, int x, int y) {
    if (rank > count) return;
    const reports::Report_State& state = sources.state;
    const Chart_Layout layout = Small_Chart(x, y, state.Show_Time_Bars);
    sheet.Bookmark(Label_Of(sources.cohort.Cohort_Pupil[rank]));
    Draw_Mini_Label(rank, x, y);
    charts.Set_Up(layout.place);
    charts.Draw_Profile(layout, Profile_Of(sources.cohort.Cohort_Pupil[rank], sources.cohort),
                        {options.ground, state.Chart_Mode, state.Show_Time_Bars});
    // Each miniature draws the rule and the heading of the whole sheet once more.
    const int rule = sheet.PageHeight() - 3500;
    Draw_Rule(sheet, rule);
    sheet.FontSize = 8;
    sheet.DrawText(144, rule, u"Assessor's comments"_s);
}

QString Batch_Sheets::Label_Of(int p) const {
    return options.label == Pupil_Label::Name ? sources.pupils.Pupil_Name_List[p]
                                              : u"Mevo ID: "_s + sources.pupils.Student_Code[p];
}

// The line has no room below it: a second one would lie on the chart. So its letters are set narrower as far
// as that goes, and the longest names are cut short.
void Batch_Sheets::Draw_Mini_Label(int rank, int x, int y) {
    constexpr int cell_width = 1720;
    constexpr int font_size = 6;
    const int p = sources.cohort.Cohort_Pupil[rank];
    const double room = (cell_width - 2 * sheet.CellPadding) / preview::Tightest_Letters;
    sheet.TextAlign = 0;
    sheet.FontSize = font_size;
    sheet.FontBold = false;
    sheet.TableFormat = u"1720|1720|1720"_s;
    sheet.CurrentX = x;
    sheet.CurrentY = y - 180;
    sheet.TableBorders = 0;
    sheet.TableText(Table_Row({preview::Elided({font_size, false}, Label_Of(p), room),
                               u"DOB: "_s + sources.pupils.Pupil_DOB_List[p],
                               u"Age: "_s + AgeFromMonths(sources.pupils.Pupil_Test_Age[p])}));
}

} // namespace printing
