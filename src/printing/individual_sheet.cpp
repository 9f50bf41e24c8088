#include "printing/individual_sheet.h"

#include "platform/preview/text_metrics.h"
#include "printing/product_lines.h"
#include "printing/sheet.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace printing {

using scoring::Summary_Cells;

constexpr int Foot_Top = 14800;    // of the rule with the institution's name below it
constexpr int Foot_Bottom = 15300; // at the most

constexpr int Comment_Top = 11480;
constexpr int Comment_Width = 10080;
constexpr int Comment_Font = 9; // points

Individual_Sheet::Individual_Sheet(preview::ViewPro& sheet, Individual_Sources sources,
                                   desktop::Platform& platform)
    : sheet(sheet), sources(sources), clock(platform.clock), charts(sheet, platform.boxes) {
    sheet.Before_Cell = [this](int row) { Shade_Cell(row); };
    sheet.After_Cell = [this](int row) { Unshade_Cell(row); };
}

Individual_Sheet::~Individual_Sheet() {
    sheet.Before_Cell = nullptr;
    sheet.After_Cell = nullptr;
}

void Individual_Sheet::Report_Setup() {
    constexpr int cell_padding = 90;
    Set_Up_Sheet(sheet, cell_padding);
    charts.Has_Terminated_Mark = false;
}

QString Individual_Title(const reports::Report_State& state) {
    return u"Mevo individual report - "_s + state.Pupil_In_Titles();
}

void Individual_Sheet::Build_Report(const Report_Sections& sections) {
    const reports::Report_State& state = sources.state;
    sheet.About = About_Scores(state.Norms_Digest);
    sheet.Author = sources.installation.Institution;
    sheet.Title = Individual_Title(state);
    sheet.BeginOutput();
    sheet.Bookmark(state.Pupil_Name);
    // The last build's chart and legend left their line and their colour for the table.
    sheet.LineWidth = Usual_Line;
    sheet.ObjectBKColor = Qt::white;
    Draw_Report_Head();
    Draw_Pupil_Details();
    Shade_Heading = true;
    if (sections.Summary) Draw_Score_Table();
    Shade_Heading = false;
    charts.Set_Up(Large_Chart(sources.state.Show_Time_Bars).place);
    if (sections.Profile) Draw_Profile();
    if (sections.Legend) {
        Draw_Test_Notes(1640, 9680);
        charts.Draw_Extra_Legend(120, 9560, sources.state.Show_Time_Bars);
    }
    if (sections.Comments) Draw_Comments();
    sheet.EndOutput();
}

void Individual_Sheet::Draw_Report_Head() {
    Draw_Running_Texts(sheet, u'|' + Cell(sources.installation.Institution) + u'|',
                       u'|' + Long_Product_Line() + u'|');
    Draw_Centred(sheet, 180, 8640, 12, u"Individual Mevo Summary Sheet and Cognitive Profile"_s);
    Draw_Centred(sheet, 520, 5760, 10, sources.state.Pupil_Name);
}

void Individual_Sheet::Draw_Pupil_Details() {
    constexpr int width = 10080;
    sheet.TextAlign = 0;
    sheet.FontSize = 9;
    sheet.FontBold = false;
    const int row_padding = sheet.RowPadding;
    sheet.TextWidth = width;
    sheet.TableFormat = u"3700|2800|3100"_s;
    sheet.CurrentX = (sheet.PageWidth() - width) / 2;
    sheet.CurrentY = 984;
    sheet.TableBorders = 0;
    sheet.TableText(Table_Row({u"Mevo ID: "_s + sources.state.Current_Student_Code,
                               u"D.O.B: "_s + sources.state.Pupil_DOB.Text_Or_Empty(),
                               u"Date printed: "_s + Today(clock)}));
    Draw_Institution_At_Foot();
    sheet.RowPadding = row_padding;
}

void Individual_Sheet::Draw_Institution_At_Foot() {
    sheet.FontSize = 8;
    Draw_Rule(sheet, Foot_Top);
    sheet.TextWidth = sheet.PageWidth();
    sheet.ForeColor = QColor(255, 0, 0);
    sheet.TableFormat = u"3920"_s;
    sheet.CurrentX = 20;
    sheet.CurrentY = 14810;
    sheet.TableBorders = 0;
    sheet.TableText(Table_Row({sources.installation.Institution}));
    sheet.ForeColor = Qt::black;
}

// A name is blank when it is one space, all else when it is empty: a name that is empty prints as a space.
static QString Score_Cell(int column, const QString& text) {
    const QString blank = column == scoring::summary_column::Module ? u" "_s : QString();
    return text == blank ? u"-"_s : u' ' + text;
}

static QString Score_Rows(const Summary_Cells& summary) {
    QString rows;
    for (int row = 2; row <= Summary_Cells::Rows; ++row) {
        QStringList texts;
        for (int column = 1; column <= Summary_Cells::Columns; ++column)
            texts.append(Score_Cell(column, summary(row, column)));
        rows += Table_Row(texts);
    }
    return rows;
}

void Individual_Sheet::Draw_Score_Table() {
    sheet.FontSize = 8;
    sheet.CurrentY = 1512;
    sheet.CurrentX = 792;
    sheet.TextAlign = 1;
    sheet.TableBorders = 1;
    sheet.TableFormat = u"1440|720|720|720|840|720|720|840|1140|1020"_s;
    sheet.TableTextHooked(
        u"Module|Score|Centile|Std score|Z Score|Time (sec)|Time Centile|Time ZScore|Test date|Test age;"_s +
        Score_Rows(sources.state.summary));
}

void Individual_Sheet::Shade_Cell(int row) {
    if (!Shade_Heading || row != 1) return;
    unshaded_colour = sheet.ObjectBKColor;
    unshaded_bold = sheet.FontBold;
    sheet.ObjectBKColor = QColor(192, 192, 192);
    sheet.FontBold = true;
}

void Individual_Sheet::Unshade_Cell(int row) {
    if (!Shade_Heading || row != 1) return;
    sheet.ObjectBKColor = unshaded_colour;
    sheet.FontBold = unshaded_bold;
}

void Individual_Sheet::Draw_Profile() {
    const reports::Report_State& state = sources.state;
    charts.Draw_Profile(Large_Chart(state.Show_Time_Bars), Profile_Of(sources.scores),
                        {state.Chart_Background, state.Chart_Mode, state.Show_Time_Bars});
    // The mark of an earlier build brings the note back as well.
    if (charts.Has_Terminated_Mark) charts.Draw_Terminated_Note(500, 4160);
}

namespace {

struct Test_Note {
    QStringView name;
    QStringView description;
};

constexpr Test_Note Test_Notes[] = {
    {u"Tolvens", u"measures visual sequential memory (using temporal and spatial position)."},
    {u"Blik's Friends", u"measures visual sequential memory (using temporal position and colour)."},
    {u"Karrel",
     u"measures visual associative memory using shape-colour or (older pupils) shape-pattern association."},
    {u"Blik's Letters", u"measures visual sequential memory based on symbol sequence."},
    {u"Blik's Letter Names", u"measures visual-verbal associative memory."},
    {u"Drell", u"measures auditory/verbal sequential memory (using animal names)."},
    {u"Mirvel", u"measures phonological awareness using detection of rhyme and (older pupils) alliteration."},
    {u"Yoon", u"measures phonological discrimination."},
    {u"Pindo", u"is used to identify pupils with poor colour discrimination."},
};

} // namespace

// The same on every report, whichever tests were done.
void Individual_Sheet::Draw_Test_Notes(int x, int y) {
    sheet.FontSize = 7;
    sheet.TextAlign = 0;
    for (const Test_Note& note : Test_Notes) {
        sheet.FontBold = true;
        sheet.DrawText(x, y, note.name.toString());
        sheet.MeasureText(note.name.toString() + u' ');
        sheet.FontBold = false;
        sheet.DrawText(x + sheet.TextWidth, y, note.description.toString());
        y += sheet.TextHeight();
    }
}

void Individual_Sheet::Draw_Comments() {
    Draw_Rule(sheet, 11192);
    sheet.FontSize = 10;
    sheet.FontBold = true;
    sheet.DrawText(144, 11264, u"Assessor's comments"_s);
    sheet.FontBold = false;
    Comments_Paragraph_New(144, Comment_Top, Comment_Font);
}

void Individual_Sheet::Comments_Paragraph_New(int x, int y, int font_size) {
    sheet.FontSize = font_size;
    const QString& comment = sources.state.comment.Pupil_Comment;
    if (comment.isEmpty()) return;
    sheet.BeginOutput();
    sheet.TextWidth = Comment_Width;
    sheet.TextAlign = 0;
    sheet.ObjectAlign = 0;
    sheet.ForeColor = Qt::black;
    sheet.ObjectBKColor = Qt::white;
    sheet.TableBorders = 0;
    sheet.LineSpacing = 100;
    sheet.CurrentX = x;
    sheet.CurrentY = y;
    Clear_Foot_For(comment);
    sheet.Paragraph(comment);
    sheet.EndOutput();
}

shell::Comment_Lines Lines_Of_Comment(const QString& comment) {
    preview::ViewPro paper;
    paper.FontSize = Comment_Font;
    const auto used = comment.isEmpty() ? 0 : preview::Wrapped({Comment_Font}, comment, Comment_Width).size();
    return {.used = static_cast<int>(used),
            .room = (Foot_Top - Comment_Top) / paper.TextHeight(),
            .paper = (paper.PageHeight() - Comment_Top) / paper.TextHeight()};
}

// A comment that is too long for its place runs over the foot of the sheet. There the foot gives way: of two
// texts on one another neither could be read.
void Individual_Sheet::Clear_Foot_For(const QString& comment) {
    const shell::Comment_Lines lines = Lines_Of_Comment(comment);
    if (lines.Over() == 0) return;
    const int bottom = sheet.CurrentY + lines.used * sheet.TextHeight();
    const int top = Foot_Top - sheet.LineWidth;
    sheet.FillStyle = 1;
    sheet.ForeColor = sheet.FillColor = Qt::white;
    sheet.DrawRectangle2(0, top, sheet.PageWidth(), std::max(bottom, Foot_Bottom) - top);
    sheet.ForeColor = sheet.FillColor = Qt::black;
}

} // namespace printing
