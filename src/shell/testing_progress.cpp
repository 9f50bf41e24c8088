#include "shell/testing_progress.h"

#include "platform/basics/number_text.h"
#include "platform/basics/run_time_error.h"
#include "platform/basics/text_order.h"
#include "platform/desktop/wait_pointer.h"
#include "printing/grid_print.h"
#include "printing/sheet.h"

#include <QHeaderView>
#include <algorithm>

using namespace Qt::StringLiterals;

namespace shell {
namespace {

constexpr QSize Frame_Size{1080, 560};
constexpr int Left = 16;
constexpr int Whole_Width = 1048;
constexpr int Waiting_Time = 45; // seconds: other workstations are testing while the chart is looked at

struct Progress_Column {
    QString heading;
    QString status;                 // column of the pupils' table; none for what says who the pupil is
    int width;                      // pixels on paper; an eighth less on screen
    QString on_tick_list = heading; // which names no test twice
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
        {u"Names"_s, u"BliksLetterNames"_s, mark,
         u"L. Names"_s}, // the letter names, with the heading of column 2
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

bool Is_Done(const basics::Value& status) {
    return !status.Is_Empty() && status.As_Double() > 0;
}

QString All_Groups() {
    return u"All groups"_s;
}

// To the database names that differ only in case are one group.
bool Is_Same_Group(const QString& one, const QString& other) {
    return one.compare(other, Qt::CaseInsensitive) == 0;
}

QString Day(const basics::Value& date) {
    return date.Is_Date() ? date.As_Date().toString(u"dd/MM/yyyy"_s) : date.Text_Or_Empty();
}

} // namespace

Form14::Form14(desktop::Platform& platform, Navigator& navigator,
               const foundation::Installation& installation, Ticks& ticks)
    : Page(platform, navigator, Frame_Size), installation(installation), ticks(ticks), holder(platform) {
    setObjectName(u"Form14"_s);
    setWindowTitle(u"Assessments completed so far"_s);
    holder.ConnectionTimeout = Waiting_Time;
    Lay_Out();
    Lay_Out_Filter();
    Tell_Helps();
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
    TickList = Make_HotLabel(u"TickList"_s, u"Tick list..."_s,
                             {QPoint(Left + Whole_Width - 3 * button.width() - 24, top), button},
                             [this] { TickList_Click(); });
    HotLabel* save = Make_HotLabel(u"SaveAsPdf"_s, u"Save as PDF..."_s,
                                   {QPoint(Left + Whole_Width - 4 * button.width() - 36, top), button},
                                   [this] { SaveAsPdf_Click(); });
    setTabOrder(print, save);
    print->Set_Weight(HotLabel::Weight::Primary);
    // The help line is only for the filter and the tick list; nothing else describes these to a screen
    // reader.
    print->setAccessibleDescription(u"Prints the chart."_s);
    save->setAccessibleDescription(u"Saves the chart in a PDF file, where you choose."_s);
    menu->setAccessibleDescription(u"Return to Main Menu"_s);
}

void Form14::Lay_Out_Filter() {
    constexpr int top = 54;
    QLabel* label = Make_Label(u"GroupLabel"_s, u"Group/Class"_s, Text_Role::Body, {582, top, 90, 30});
    GroupFilter = new Click_Combo(u"GroupFilter"_s, Frame1);
    GroupFilter->setAccessibleName(label->text());
    GroupFilter->setGeometry(676, top, 230, 30);
    GroupFilter->AddItem(All_Groups());
    On(GroupFilter, &Click_Combo::Click, this, platform, [this] { Show_Pupils(); });
    UnfinishedOnly = new QCheckBox(u"Unfinished only"_s, Frame1);
    UnfinishedOnly->setObjectName(u"UnfinishedOnly"_s);
    UnfinishedOnly->setGeometry(918, top, 146, 30);
    On(UnfinishedOnly, &QCheckBox::clicked, this, platform, [this] { Show_Pupils(); });
    for (QWidget* control : std::initializer_list<QWidget*>{GroupFilter, UnfinishedOnly, TickList})
        control->setEnabled(false); // until the pupils have been read
}

void Form14::Tell_Helps() {
    Help_Line* help = Make_Help(u"ProgressHelp"_s, {Left, 500, 440, 44}).line;
    help->Tell(GroupFilter, u"Show the pupils of one group, here and on what is printed."_s);
    help->Tell(UnfinishedOnly, u"Show only pupils who haven't done all nine tests."_s);
    help->Tell(
        TickList,
        u"Print the pupils shown here with a box for each test, for the wall: done ones are ticked."_s);
}

void Form14::Load() {
    Once_Painted(u"Timer1"_s, [this] { Timer1_Timer(); });
}

void Form14::Timer1_Timer() {
    const desktop::Wait_Pointer busy(platform.pointer);
    Write_Headings();
    holder.ado_Open(installation.Connection_String, u"SELECT * FROM Mevo_Pupils ORDER BY Surname,Forename"_s,
                    u"Optimistic"_s);
    pupils.clear();
    for (; !holder.Rows().Eof(); holder.Rows().MoveNext())
        pupils.append(Read_Pupil());
    holder.ado_Close();
    Offer_Groups();
    Show_Pupils();
}

void Form14::Offer_Groups() {
    QStringList groups;
    for (const Progress& pupil : pupils)
        if (!pupil.group.isEmpty() && !groups.contains(pupil.group, Qt::CaseInsensitive))
            groups.append(pupil.group);
    std::sort(groups.begin(), groups.end(), [](const QString& left, const QString& right) {
        return basics::Compare_Names(left.toStdString(), right.toStdString()) < 0;
    });
    GroupFilter->Clear();
    GroupFilter->Add_Items(QStringList(All_Groups()) + groups);
    GroupFilter->setCurrentIndex(0);
    GroupFilter->setEnabled(true);
    UnfinishedOnly->setEnabled(true);
}

bool Form14::Passes(const Progress& pupil) const {
    const bool of_group =
        GroupFilter->ListIndex() <= 0 || Is_Same_Group(pupil.group, GroupFilter->currentText());
    return of_group && !(UnfinishedOnly->isChecked() && pupil.Is_Finished());
}

void Form14::Show_Pupils() {
    listed.clear();
    for (const Progress& pupil : pupils) {
        if (!Passes(pupil)) continue;
        listed.append(pupil);
        Write_Pupil(static_cast<int>(listed.size()), pupil);
    }
    Spread1->Set_MaxRows(static_cast<int>(listed.size()));
    QString count = basics::Plain_Number(pupils.size()) + u" individuals are registered"_s;
    if (listed.size() < pupils.size()) count += u", %1 shown"_s.arg(listed.size());
    Label5->setText(count);
    TickList->setEnabled(!listed.isEmpty());
}

void Form14::Write_Headings() {
    int column = 0;
    for (const Progress_Column& told : Columns())
        Spread1->Set_Text(++column, 0, told.heading);
}

Form14::Progress Form14::Read_Pupil() {
    const auto text = [this](const QString& field) { return holder.Field(field).Text_Or_Empty(); };
    Progress pupil{.code = text(u"StudentCode"_s),
                   .name = text(u"Surname"_s) + u' ' + text(u"Forename"_s),
                   .born = Day(holder.Field(u"DOB"_s)),
                   .group = text(u"Group_Class"_s),
                   .done = {}};
    for (const Progress_Column& told : Columns())
        if (!told.status.isEmpty()) pupil.done.append(Is_Done(holder.Field(told.status)));
    return pupil;
}

void Form14::Write_Pupil(int row, const Progress& pupil) {
    Spread1->Set_Text(Code_Column, row, pupil.code);
    Spread1->Set_Text(Names_Column, row, pupil.name);
    Spread1->Set_Text(Birth_Column, row, pupil.born);
    int column = Birth_Column;
    for (const bool done : pupil.done)
        Spread1->Set_Text(++column, row, done ? Done() : u"-"_s);
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

void Form14::TickList_Click() {
    const QString today = printing::Today(platform.clock);
    ticks = {.title = GroupFilter->ListIndex() > 0 ? GroupFilter->currentText() : u"All pupils"_s,
             .subtitle = UnfinishedOnly->isChecked() ? u"Pupils with tests still to do on "_s + today
                                                     : u"Tests done by "_s + today,
             .tests = {},
             .rows = {}};
    for (const Progress_Column& told : Columns())
        if (!told.status.isEmpty()) ticks.tests.append(told.on_tick_list);
    for (const Progress& pupil : listed)
        ticks.rows.append({pupil.name, pupil.done});
    navigator.Open_On_Top(Page_Id::Tick_List);
}

} // namespace shell
