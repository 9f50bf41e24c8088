#include "shell/testing_progress.h"

#include "platform/basics/number_text.h"
#include "platform/basics/run_time_error.h"
#include "platform/desktop/wait_pointer.h"
#include "printing/grid_print.h"

#include <QHeaderView>

using namespace Qt::StringLiterals;

namespace shell {
namespace {

constexpr QSize Frame_Size{1080, 560};
constexpr int Left = 16;
constexpr int Whole_Width = 1048;
constexpr int Waiting_Time = 45; // seconds: other workstations are testing while the chart is looked at

struct Progress_Column {
    QString heading;
    QString status; // column of the pupils' table; none for what says who the pupil is
    int width;      // pixels on paper; an eighth less on screen
};

const QList<Progress_Column>& Columns() {
    constexpr int mark = 76;
    static const QList<Progress_Column> columns{
        {u"User ID"_s, {}, 168},
        {u"Names"_s, {}, 222},
        {u"DOB"_s, {}, 98},
        {u"Tolvens"_s, u"Tolvens"_s, mark},
        {u"Friends"_s, u"BliksFriends"_s, mark},
        {u"Karrel"_s, u"Karrel"_s, mark},
        {u"Letters"_s, u"BliksLetters"_s, mark},
        {u"Names"_s, u"BliksLetterNames"_s, mark}, // the letter names, with the heading of column 2
        {u"Drell"_s, u"Drell"_s, mark},
        {u"Mirvel"_s, u"Mirvel"_s, mark},
        {u"Yoon"_s, u"Yoon"_s, mark},
        {u"Pindo"_s, u"Pindo"_s, mark},
    };
    return columns;
}

constexpr int Code_Column = 1;
constexpr int Names_Column = 2;
constexpr int Birth_Column = 3;

const QString& Done() {
    static const QString done = u"Yes"_s;
    return done;
}

QString Mark(const basics::Value& status) {
    return !status.Is_Empty() && status.As_Double() > 0 ? Done() : u"-"_s;
}

QString Day(const basics::Value& date) {
    return date.Is_Date() ? date.As_Date().toString(u"dd/MM/yyyy"_s) : date.Text_Or_Empty();
}

} // namespace

Form14::Form14(desktop::Platform& platform, Navigator& navigator,
               const foundation::Installation& installation)
    : Page(platform, navigator, Frame_Size), installation(installation), holder(platform) {
    setObjectName(u"Form14"_s);
    setWindowTitle(u"Assessments completed so far"_s);
    holder.ConnectionTimeout = Waiting_Time;
    Lay_Out();
}

void Form14::Lay_Out() {
    Make_Label(u"Label4"_s, u"Testing progress for all registered individuals"_s, Text_Role::Title,
               {Left, 16, 760, 38});
    QLabel* label3 = Make_Label(u"Label3"_s, u"Number of students:"_s, Text_Role::Quiet, {Left, 58, 140, 24});
    Label5 =
        Make_Label(u"Label5"_s, u""_s, Text_Role::Heading, {label3->geometry().right() + 8, 58, 400, 24});

    Spread1 = new grid::fpSpread(u"Spread1"_s, static_cast<int>(Columns().size()),
                                 grid::fpSpread::Rows_As_Written, Frame1);
    Spread1->setAccessibleName(windowTitle());
    Spread1->setAccessibleDescription(u"One row for each pupil, one column for each test."_s);
    Spread1->setGeometry(Left, 88, Whole_Width, 402);
    Spread1->verticalHeader()->setDefaultSectionSize(28);
    Spread1->setWordWrap(false); // a row is one line high: what doesn't fit ends in an ellipsis
    int column = 0;
    for (const Progress_Column& told : Columns()) {
        Spread1->Set_ColWidth(++column, told.width);
        Spread1->Narrow_On_Screen(column, told.width * 7 / 8);
    }
    Spread1->Set_Left_Aligned(Names_Column);
    Spread1->Set_Look(Done(), {Colours_In_Force().Hover_Ground, Colours_In_Force().Accent_Text, true});

    constexpr QSize button{140, 40};
    constexpr int top = 504;
    HotLabel* print = Make_HotLabel(u"HotLabel2"_s, u"Print out"_s,
                                    {QPoint(Left + Whole_Width - 2 * button.width() - 12, top), button},
                                    [this] { HotLabel2_Click(); });
    HotLabel* menu =
        Make_HotLabel(u"HotLabel1"_s, u"Menu"_s, {QPoint(Left + Whole_Width - button.width(), top), button},
                      [this] { HotLabel1_Click(); });
    HotLabel* save = Make_HotLabel(u"SaveAsPdf"_s, u"Save as PDF..."_s,
                                   {QPoint(Left + Whole_Width - 3 * button.width() - 24, top), button},
                                   [this] { SaveAsPdf_Click(); });
    setTabOrder(print, save);
    print->Set_Weight(HotLabel::Weight::Primary);
    // Without a help line nothing else describes them to a screen reader.
    print->setAccessibleDescription(u"Prints the chart."_s);
    save->setAccessibleDescription(u"Saves the chart in a PDF file, where you choose."_s);
    menu->setAccessibleDescription(u"Return to Main Menu"_s);
}

void Form14::Load() {
    Once_Painted(u"Timer1"_s, [this] { Timer1_Timer(); });
}

void Form14::Timer1_Timer() {
    const desktop::Wait_Pointer busy(platform.pointer);
    Write_Headings();
    holder.ado_Open(installation.Connection_String, u"SELECT * FROM Mevo_Pupils ORDER BY Surname,Forename"_s,
                    u"Optimistic"_s);
    int count = 0;
    for (; !holder.Rows().Eof(); holder.Rows().MoveNext())
        Write_Pupil(++count);
    Spread1->Set_MaxRows(count);
    holder.ado_Close();
    Label5->setText(basics::Plain_Number(count) + u" individuals are registered"_s);
}

void Form14::Write_Headings() {
    int column = 0;
    for (const Progress_Column& told : Columns())
        Spread1->Set_Text(++column, 0, told.heading);
}

void Form14::Write_Pupil(int row) {
    const QString name =
        holder.Field(u"Surname"_s).Text_Or_Empty() + u' ' + holder.Field(u"Forename"_s).Text_Or_Empty();
    Spread1->Set_Text(Code_Column, row, holder.Field(u"StudentCode"_s).Text_Or_Empty());
    Spread1->Set_Text(Names_Column, row, name);
    Spread1->Set_Text(Birth_Column, row, Day(holder.Field(u"DOB"_s)));
    int column = 0;
    for (const Progress_Column& told : Columns()) {
        ++column;
        if (!told.status.isEmpty()) Spread1->Set_Text(column, row, Mark(holder.Field(told.status)));
    }
}

void Form14::HotLabel1_Click() {
    navigator.Close_Page();
}

void Form14::HotLabel2_Click() {
    try {
        if (!platform.printers.Choose()) return;
        if (!printing::Grid_Print(printing::Grid_Kind::Testing_Progress, *this, installation, platform))
            return;
        platform.boxes.Ask(desktop::Box_Style::Information, u"Will be printed"_s,
                           u"Progress chart has been sent to your printer"_s);
    } catch (const basics::Run_Time_Error&) {
        // Whatever the printer objects to is passed over in silence.
    }
}

void Form14::SaveAsPdf_Click() {
    printing::Grid_Print(printing::Grid_Kind::Testing_Progress, *this, installation, platform,
                         printing::Outlet::Pdf_File);
}

} // namespace shell
