#include "reports/earlier_page.h"

#include "platform/basics/run_time_error.h"
#include "printing/grid_print.h"
#include "printing/print_outcome.h"

#include <QHeaderView>
#include <algorithm>

using namespace Qt::StringLiterals;

namespace reports {
namespace {

struct Result_Column {
    QString heading;
    int width; // pixels, in all no more than the grid's
};

const QList<Result_Column>& Result_Columns() {
    static const QList<Result_Column> columns{
        {u"Test"_s, 150},     {u"Taken"_s, 108},  {u"Date"_s, 116},
        {u"Age"_s, 104},      {u"Score"_s, 84},   {u"Centile"_s, 84},
        {u"Std score"_s, 96}, {u"Z Score"_s, 92}, {u"Against the one before"_s, 190},
    };
    return columns;
}

} // namespace

Earlier_Page::Earlier_Page(desktop::Platform& platform, shell::Navigator& navigator, Report_Data data)
    : Page(platform, navigator, {1080, 560}),
      installation(data.installation),
      pupils(data.scores.pupils),
      state(data.state),
      results(data.installation, data.scoring.holder, data.scores.norms) {
    setObjectName(u"Earlier_Page"_s);
    setWindowTitle(u"Earlier results"_s);
    Lay_Out();
    Tell_Helps();
}

void Earlier_Page::Lay_Out() {
    using shell::Text_Role;
    constexpr int left = 16;
    constexpr int width = 1048;
    Make_Label(u"Label1"_s, u"Earlier results"_s, Text_Role::Title, {left, 16, 300, 38});
    Make_Label(u"Label2"_s, state.Pupil_Name + u"   ("_s + state.Current_Student_Code + u')',
               Text_Role::Heading, {left, 58, width, 24});
    Spread1 = new grid::fpSpread(u"Spread1"_s, static_cast<int>(Result_Columns().size()),
                                 grid::fpSpread::Rows_As_Written, Frame1);
    Spread1->setAccessibleName(windowTitle());
    Spread1->setAccessibleDescription(
        u"One row for each time that a test was taken; the present one is the last of its test."_s);
    Spread1->setGeometry(left, 90, width, 356);
    Spread1->verticalHeader()->setDefaultSectionSize(28);
    Spread1->setWordWrap(false);
    Notice = Make_Label(u"Notice"_s, u""_s, Text_Role::Notice, {left, 454, width, 34});
    Notice->setWordWrap(true);
    HotLabel2 =
        Make_HotLabel(u"HotLabel2"_s, u"Print out"_s, {772, 504, 140, 40}, [this] { HotLabel2_Click(); });
    HotLabel2->Set_Weight(shell::HotLabel::Weight::Primary);
    HotLabel1 =
        Make_HotLabel(u"HotLabel1"_s, u"Reports"_s, {924, 504, 140, 40}, [this] { HotLabel1_Click(); });
    SaveAsPdf = Make_HotLabel(u"SaveAsPdf"_s, u"Save as PDF..."_s, {620, 504, 140, 40},
                              [this] { SaveAsPdf_Click(); });
    setTabOrder(HotLabel2, SaveAsPdf);
}

void Earlier_Page::Tell_Helps() {
    shell::Help_Line* help = Make_Help(u"Help"_s, {16, 494, 592, 50}).line;
    help->Tell(HotLabel1, u"Return to the main reports page"_s);
    help->Tell(HotLabel2, u"Print out the list of earlier and present results"_s);
    help->Tell(SaveAsPdf, u"Save the list in a PDF file, where you choose"_s);
    help->Tell(
        Spread1,
        u"Each score is by the norms of the age at that time. It is called higher or lower than the one before only where one raw point more or less would make no such difference."_s);
    help->Follow_Focus(*this);
}

void Earlier_Page::Write_Headings() {
    int column = 0;
    for (const Result_Column& told : Result_Columns()) {
        Spread1->Set_Text(++column, 0, told.heading);
        Spread1->Set_ColWidth(column, told.width);
    }
}

void Earlier_Page::Write(int row, const scoring::Scored_Taking& taking) {
    int column = 0;
    for (const QString& text :
         {scoring::Test_At(taking.test).Test_Name, taking.is_present ? u"now"_s : u"earlier"_s, taking.date,
          taking.age, taking.score, taking.centile, taking.standard_score, taking.z_score,
          scoring::In_Words(taking.from_the_one_before)})
        Spread1->Set_Text(++column, row, text);
}

void Earlier_Page::Show(const QList<scoring::Scored_Taking>& takings) {
    int row = 0;
    for (const scoring::Scored_Taking& taking : takings)
        Write(++row, taking);
    Spread1->Set_MaxRows(row);
    const bool any_earlier =
        std::any_of(takings.begin(), takings.end(), [](const auto& taking) { return !taking.is_present; });
    if (!any_earlier && Notice->text().isEmpty())
        Notice->setText(
            u"Nothing earlier is kept of this pupil. A result is kept when its retest is allowed."_s);
}

// The scores of now are shown also where the earlier ones can't be.
void Earlier_Page::Load() {
    Write_Headings();
    const QString database = foundation::Database_Named_In(installation.Connection_String);
    const int p = state.Current_Pupil;
    Notice->setText(keeping::Look_At_Companion(database).words);
    try {
        Show(results.All_Takings(p, pupils, state.summary));
    } catch (const basics::Run_Time_Error&) {
        Show(results.Present_Takings(p, pupils, state.summary));
    }
    Notice->setVisible(!Notice->text().isEmpty());
}

void Earlier_Page::HotLabel1_Click() {
    navigator.Close_Page();
}

void Earlier_Page::Put_Out_List(printing::Outlet outlet) {
    printing::Telling_Printer_Errors(platform, [this, outlet] {
        grid::Marked_Text heading = printing::List_Heading(installation);
        heading.Add_Markup(u"/n/cQuend Mevo - Earlier results of "_s).Add_Value(state.Pupil_Name);
        heading.Add_Markup(u"./n/c/fz\"12\"/fb0ID:  "_s).Add_Value(state.Current_Student_Code);
        heading.Add_Markup(u"          Date of birth: "_s).Add_Value(state.Pupil_DOB.Text_Or_Empty());
        heading.Add_Markup(u"/n/n"_s);
        const QString name = u"Mevo earlier results"_s;
        printing::Print_List(*Spread1, heading, {name, name + u" - "_s + state.Pupil_In_Titles()},
                             installation, platform, outlet);
    });
}

void Earlier_Page::HotLabel2_Click() {
    if (platform.printers.Choose()) Put_Out_List(printing::Outlet::Printer);
}

void Earlier_Page::SaveAsPdf_Click() {
    Put_Out_List(printing::Outlet::Pdf_File);
}

} // namespace reports
