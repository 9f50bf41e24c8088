#include "shell/main_menu.h"

#include "platform/basics/run_time_error.h"
#include "platform/desktop/wait_pointer.h"
#include "shell/conventions/utilities.h"
#include "shell/foot_line.h"

#include <QGroupBox>
#include <QLocale>

using namespace Qt::StringLiterals;

namespace shell {

constexpr QSize Frame_Size{1000, 560};

Form77::Form77(desktop::Platform& platform, Navigator& navigator, foundation::Installation& installation,
               Menu_Counts& counts)
    : Page(platform, navigator, Frame_Size), installation(installation), counts(counts), holder(platform) {
    setObjectName(u"Form77"_s);
    Lay_Out();
    Tell_Helps();
}

void Form77::Lay_Out() {
    Make_Label(u"Label1"_s, u"Main Menu"_s, Text_Role::Title, {40, 20, 500, 40});
    Make_Label(u"Label2"_s, u"Administration Module"_s, Text_Role::Subtitle, {40, 60, 500, 24});
    Label6 = Make_Label(u"Label6"_s, u""_s, Text_Role::Quiet, {700, 26, 260, 24});
    Label6->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    Label5 = Make_Label(u"Label5"_s, u"Viewing Mode in use"_s, Text_Role::Badge, {760, 52, 200, 34});
    Label5->setAlignment(Qt::AlignCenter);
    Label4 = Make_Label(u"Label4"_s, u""_s, Text_Role::Notice, {40, 304, 920, 34});
    Label4->hide();

    // Made column by column, as the Tab key goes by the order in which they are made.
    const auto entry = [this](const char16_t* name, const QString& caption, const QString& icon, int column,
                              int row, std::function<void()> click) {
        const QRect place(40 + column * 312, 100 + row * 66, 296, 56);
        HotLabel* made =
            Make_HotLabel(QString::fromUtf16(name), caption, place, std::move(click), HotLabel::Look::Entry);
        made->Set_Icon(icon);
        return made;
    };
    const auto going_to = [this](Page_Id page) { return [this, page] { navigator.Go_To(page); }; };
    const auto on_top = [this](Page_Id page) { return [this, page] { navigator.Open_On_Top(page); }; };
    HotLabel1 = entry(u"HotLabel1", u"Reports"_s, u"reports"_s, 0, 0, going_to(Page_Id::Reports));
    HotLabel1->Set_Weight(HotLabel::Weight::Primary);
    HotLabel7 =
        entry(u"HotLabel7", u"Testing progress"_s, u"progress"_s, 0, 1, on_top(Page_Id::Testing_Progress));
    HotLabel5 = entry(u"HotLabel5", u"Fine tuning"_s, u"tuning"_s, 0, 2, going_to(Page_Id::Fine_Tuning));
    HotLabel4 =
        entry(u"HotLabel4", u"Register individuals"_s, u"register"_s, 1, 0, going_to(Page_Id::Register));
    HotLabel2 = entry(u"HotLabel2", u"Import from file"_s, u"import"_s, 1, 1, going_to(Page_Id::Import));
    HotLabel3 = entry(u"HotLabel3", u"Delete individuals"_s, u"delete"_s, 1, 2, going_to(Page_Id::Delete));
    HotLabel14 = entry(u"HotLabel14", u"Security"_s, u"security"_s, 2, 0, going_to(Page_Id::Security));
    // The help line has no text for this entry, and a screen reader needs one.
    HotLabel14->setAccessibleDescription(u"Arrange groups, and how each pupil logs in."_s);
    HotLabel8 = entry(u"HotLabel8", u"Archiving"_s, u"archiving"_s, 2, 1, going_to(Page_Id::Archiving));
    HotLabel6 = entry(u"HotLabel6", u"Settings"_s, u"settings"_s, 2, 2, on_top(Page_Id::Settings));

    auto* frame2 = new QGroupBox(u"Documentation"_s, Frame1);
    frame2->setObjectName(u"Frame2"_s);
    frame2->setGeometry(40, 346, 608, 98);
    HotLabel11 = Make_HotLabel(
        u"HotLabel11"_s, u"Teacher's Manual (htm)"_s, {16, 32, 280, 52}, [this] { HotLabel11_Click(); },
        HotLabel::Look::Entry, frame2);
    HotLabel12 = Make_HotLabel(
        u"HotLabel12"_s, u"Software Guide (htm)"_s, {312, 32, 280, 52}, [this] { HotLabel12_Click(); },
        HotLabel::Look::Entry, frame2);
    HotLabel13 = Make_HotLabel(
        u"HotLabel13"_s, u"Quit"_s, {664, 378, 296, 52}, [this] { HotLabel13_Click(); },
        HotLabel::Look::Entry);
    for (HotLabel* manual : {HotLabel11, HotLabel12})
        manual->Set_Icon(u"manual"_s);
    HotLabel13->Set_Icon(u"quit"_s);
    Foot = new Foot_Line(u"Foot"_s, {40, Frame_Size.height() - 40, Frame_Size.width() - 80, 24}, Frame1);
}

void Form77::Tell_Helps() {
    const auto [label, help] = Make_Help(u"Label3"_s, {40, 454, 920, 52});
    Label3 = label;
    for (QLabel* told : {Label3, Label5})
        told->setFocusPolicy(Qt::TabFocus); // so that the keys reach what the help line has to tell of them
    help->Tell(Foot, [this] { return u"Whose database is open, and where it lies. "_s + Foot->Whole(); });
    help->Clear_Over(this);
    help->Clear_Over(Frame1);
    help->Tell(Label3, [this] {
        return u"Number of pupils registered: "_s + counts.Number_Of_Students.Text_Or_Empty();
    });
    help->Tell(HotLabel1, [this] {
        return counts.Number_With_Results > 0
                   ? u"View the reports for each student; export raw results to a text file or print out reports singly or 8 to a page."_s
                   : u"There are currently no results to view in 'Reports' as no tests have been completed yet."_s;
    });
    help->Tell(HotLabel2, u"Click on 'Import pupils' to register batches of individuals in Mevo using a "
                          u"specially formatted text file "
                          "(see Software Guide for details)."_s);
    help->Tell(
        HotLabel3,
        u"Click on 'Delete individuals' to remove those individuals whose details and results are no longer needed."_s);
    help->Tell(
        HotLabel4,
        u"Click on 'Register individuals' to register pupils who will be assessed with Mevo in the future."_s);
    help->Tell(HotLabel5, u"'Fine tuning' allows you to edit an individual's personal information or to "
                          u"allow him/her to retake "
                          "assessments if necessary."_s);
    help->Tell(HotLabel6, u"The Settings Page allows you to change the administration password."_s);
    help->Tell(HotLabel7,
               u"View and print out a summary of which tests have been completed by each pupil."_s);
    help->Tell(HotLabel8,
               u"Go to 'Archiving' to load, save and view databases. Please make archives regularly!"_s);
    help->Tell(HotLabel11, u"View the Teacher's Manual using your web browser. If you wish to print out this "
                           u"manual we recommend you do "
                           "so from the PDF version found on the CD."_s);
    help->Tell(HotLabel12, u"View the Software Guide using your web browser. If you wish to print out this "
                           u"guide we recommend you do so "
                           "from the PDF version found on the CD."_s);
    help->Tell(HotLabel13, u"Select Quit to exit this module."_s);
    help->Tell(Label5, [this] {
        return installation.Viewing_Mode
                   ? u"Mode of use (Viewing only) - you have loaded an archived database for viewing and "
                     u"printing out only, you cannot "
                     "alter the contents of the archive."_s
                   : u"Mode of use (normal) - current (working) database is active and can be edited as normal."_s;
    });
}

void Form77::Load() {
    Label3->setText(u""_s);
    Get_Student_Count();
    Label6->setText(QLocale(QLocale::English, QLocale::UnitedKingdom)
                        .toString(platform.clock.Now().date(), u"dd/MM/yyyy"_s));
    Show_Mode_Of_Use();
    Once_Painted(u"Timer1"_s, [this] {
        Timer1_Timer();
        Tell_Whereabouts();
    });
}

void Form77::Get_Student_Count() {
    const auto act = holder.Begin_Act();
    qint16 count = 0;
    holder.ado_Open(installation.Connection_String, u"SELECT * FROM mevo_pupils"_s, u"ReadOnly"_s);
    holder.ado_RSCount(count);
    holder.ado_Close();
    counts.Number_Of_Students = count;
    Count_Pupils_With_Results();
}

static qint16 Pupils_With_Results(const QString& connection_string, database::Kept_Engine& kept) {
    database::Connection connection;
    connection.Keep_In(kept);
    connection.ConnectionString = connection_string;
    connection.Open();
    database::Recordset pupils;
    pupils.LockType = database::Lock_Type::Read_Only;
    pupils.Set_ActiveConnection(&connection);
    // Pindo stays out of the sum: it has no norms, so a pupil who has done nothing else has no report to
    // open.
    pupils.Source =
        u"SELECT * "
        "FROM     mevo_pupils "
        "WHERE      (Tolvens + BliksFriends + Karrel + BliksLetters + BliksLetterNames + Drell + Mirvel + Yoon) >0 "_s;
    pupils.Open();
    int count = 0;
    for (; !pupils.Eof(); pupils.MoveNext())
        ++count;
    return basics::Value(count).As_Integer();
}

void Form77::Count_Pupils_With_Results() {
    try {
        counts.Number_With_Results = Pupils_With_Results(installation.Connection_String, holder.Kept());
    } catch (const basics::Run_Time_Error&) {
        // The menu opens all the same, with the count that it had.
    }
}

void Form77::Disable(std::initializer_list<HotLabel*> entries) {
    for (HotLabel* entry : entries)
        entry->setEnabled(false);
}

void Form77::Show_Mode_Of_Use() {
    Label5->setVisible(installation.Viewing_Mode);
    if (installation.Viewing_Mode)
        Disable({HotLabel2, HotLabel3, HotLabel4, HotLabel5, HotLabel6, HotLabel14});
}

void Form77::Timer1_Timer() {
    const desktop::Wait_Pointer busy(platform.pointer);
    const bool nobody = counts.Number_Of_Students.As_Integer() == 0;
    if (nobody) Disable({HotLabel1, HotLabel3, HotLabel5, HotLabel14});
    Label4->setText(nobody ? u"Because no pupils are registered some menu options are disabled."_s : u""_s);
    Label4->setVisible(nobody);
    if (counts.Number_With_Results == 0) Disable({HotLabel1});
}

// Behind the greying, which is never kept waiting by it.
void Form77::Tell_Whereabouts() {
    const desktop::Wait_Pointer busy(platform.pointer);
    Foot->Tell(Find_Whereabouts(installation, counts, platform));
}

void Form77::HotLabel11_Click() {
    Open_Document(installation.App_Path + u"\\Manuals\\Quend Mevo Teachers Manual Mar2010 4th Edn.htm"_s,
                  installation, platform);
}

void Form77::HotLabel12_Click() {
    Open_Document(installation.App_Path + u"\\Manuals\\Quend Mevo Software Guide v5.1.htm"_s, installation,
                  platform);
}

void Form77::HotLabel13_Click() {
    navigator.Unload_All();
    platform.processes.Start(installation.App_Path + u"\\MevoV51Shell.exe 417"_s);
    platform.processes.End(0);
}

} // namespace shell
