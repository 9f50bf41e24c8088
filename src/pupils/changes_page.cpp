#include "pupils/changes_page.h"

#include "keeping/earlier_takings.h"
#include "keeping/support_copy.h"
#include "platform/basics/csv_text.h"
#include "platform/basics/native_path.h"
#include "platform/basics/run_time_error.h"
#include "platform/database/files/new_file.h"
#include "platform/desktop/wait_pointer.h"
#include "printing/grid_print.h"
#include "printing/print_outcome.h"
#include "pupils/page_parts.h"

#include <QFileInfo>
#include <QHeaderView>
#include <QSet>
#include <algorithm>

using namespace Qt::StringLiterals;

namespace pupils {

using desktop::Answer;
using desktop::Box_Style;
using keeping::Change;
using shell::Text_Role;

namespace {

constexpr int Left = 16;
constexpr int List_Width = 702;
constexpr int Right = 734;
constexpr int Right_Width = 330;
constexpr int Most_Listed = 2000; // in the grid; a file takes all
const QString Moment = u"dd/MM/yyyy HH:mm"_s;

const QStringList& Change_Headings() {
    static const QStringList headings{u"When"_s, u"Computer"_s, u"What"_s, u"Whom or which"_s,
                                      u"In particular"_s};
    return headings;
}

QStringList Texts_Of(const Change& change) {
    return {change.when.toString(Moment), change.workstation, change.act, change.subject, change.detail};
}

struct Time_Back {
    QString words;
    int months;
};

const QList<Time_Back>& Times_Back() {
    static const QList<Time_Back> times{{u"6 months"_s, 6}, {u"1 year"_s, 12},  {u"2 years"_s, 24},
                                        {u"3 years"_s, 36}, {u"5 years"_s, 60}, {u"7 years"_s, 84}};
    return times;
}

void Fill_With_Times(shell::Click_Combo& combo, int chosen) {
    for (const Time_Back& time : Times_Back())
        combo.AddItem(time.words);
    combo.Set_ListIndex(chosen);
}

const Time_Back& Chosen_Time(const shell::Click_Combo& combo) {
    return Times_Back().at(std::max(combo.ListIndex(), 0));
}

QDateTime So_Long_Ago(const shell::Click_Combo& combo, const desktop::Clock& clock) {
    return clock.Now().addMonths(-Chosen_Time(combo).months);
}

// The latest day on which any test was taken; invalid for a pupil who has taken none.
QDateTime Last_Test(foundation::Access_Holder& holder) {
    QDateTime last;
    for (int t = 1; t <= scoring::All_Tests; ++t) {
        const basics::Value date = holder.Field(scoring::Test_At(t).Date_Column);
        if (date.Is_Date() && (!last.isValid() || date.As_Date() > last)) last = date.As_Date();
    }
    return last;
}

} // namespace

Changes_Page::Changes_Page(desktop::Platform& platform, shell::Navigator& navigator, Record_Data data)
    : Page(platform, navigator, {1080, 560}),
      installation(data.installation),
      records(data.records),
      holder(platform) {
    setObjectName(u"Changes_Page"_s);
    setWindowTitle(u"Changes and data protection"_s);
    Lay_Out();
    Tell_Helps();
}

void Changes_Page::Lay_Out() {
    Make_Label(u"Label1"_s, u"Changes and data protection"_s, Text_Role::Title, {Left, 16, 560, 38});
    Heading = Make_Label(u"Heading"_s, u""_s, Text_Role::Heading, {Left, 58, List_Width, 24});
    Spread1 = new grid::fpSpread(u"Spread1"_s, static_cast<int>(Change_Headings().size()),
                                 grid::fpSpread::Rows_As_Written, Frame1);
    Spread1->setAccessibleName(windowTitle());
    Spread1->setAccessibleDescription(u"What was done, the latest first, or the pupils found."_s);
    Spread1->setGeometry(Left, 88, List_Width, 354);
    Spread1->verticalHeader()->setDefaultSectionSize(26);
    Spread1->setWordWrap(false);
    int column = 0;
    for (const int width : {128, 110, 118, 150, 176})
        Spread1->Set_ColWidth(++column, width);
    Notice = Make_Label(u"Notice"_s, u""_s, Text_Role::Quiet, {Left, 446, List_Width, 42});
    Notice->setWordWrap(true);
    Lay_Out_Changes();
    Lay_Out_Protection();
    HotLabel1 = Make_HotLabel(u"HotLabel1"_s, u"Settings"_s, {Right + Right_Width - 140, 504, 140, 40},
                              [this] { HotLabel1_Click(); });
}

void Changes_Page::Lay_Out_Changes() {
    QGroupBox* frame = Make_Panel(u"Frame2"_s, u"Changes"_s, {Right, 46, Right_Width, 226}, Frame1);
    const auto button = [&](const QString& name, const QString& caption, const QRect& place,
                            void (Changes_Page::*click)()) {
        return Make_HotLabel(
            name, caption, place, [this, click] { (this->*click)(); }, shell::HotLabel::Look::Command, frame);
    };
    Combo1 = Make_Combo(u"Combo1"_s, u"Kind of change"_s, {12, 28, 306, 32}, frame);
    Combo1->AddItem(u"All changes"_s);
    for (const QString& act : keeping::All_Acts_In_Words())
        Combo1->AddItem(act);
    Combo1->Set_ListIndex(0);
    shell::On(Combo1, &shell::Click_Combo::Click, this, platform, [this] { Show_Changes(); });
    Text1 = Make_Entry(u"Text1"_s, u"Words to look for"_s, {12, 66, 306, 32}, frame);
    Text1->setPlaceholderText(u"User ID, file, group or computer"_s);
    shell::On(Text1, &QLineEdit::textEdited, this, platform, [this] { Show_Changes(); });
    HotLabel2 = button(u"HotLabel2"_s, u"Print list"_s, {12, 106, 90, 36}, &Changes_Page::HotLabel2_Click);
    HotLabel3 = button(u"HotLabel3"_s, u"Save as CSV"_s, {108, 106, 102, 36}, &Changes_Page::HotLabel3_Click);
    Make_Label(u"Label2"_s, u"Entries older than"_s, Text_Role::Body, {12, 150, 306, 24}, frame);
    Combo2 = Make_Combo(u"Combo2"_s, u"Entries older than"_s, {12, 176, 148, 34}, frame);
    Fill_With_Times(*Combo2, 4);
    HotLabel4 = button(u"HotLabel4"_s, u"Remove"_s, {170, 175, 148, 36}, &Changes_Page::HotLabel4_Click);
    HotLabel4->Set_Weight(shell::HotLabel::Weight::Destructive);
    SaveAsPdf = button(u"SaveAsPdf"_s, u"Save as PDF"_s, {216, 106, 102, 36}, &Changes_Page::SaveAsPdf_Click);
    setTabOrder(HotLabel3, SaveAsPdf);
}

void Changes_Page::Lay_Out_Protection() {
    QGroupBox* frame = Make_Panel(u"Frame3"_s, u"Data protection"_s, {Right, 282, Right_Width, 206}, Frame1);
    const auto button = [&](const QString& name, const QString& caption, const QRect& place,
                            void (Changes_Page::*click)()) {
        return Make_HotLabel(
            name, caption, place, [this, click] { (this->*click)(); }, shell::HotLabel::Look::Command, frame);
    };
    Make_Label(u"Label3"_s, u"Pupils not tested for longer than"_s, Text_Role::Body, {12, 28, 306, 24},
               frame);
    Combo3 = Make_Combo(u"Combo3"_s, u"Not tested for longer than"_s, {12, 54, 148, 34}, frame);
    Fill_With_Times(*Combo3, 3);
    HotLabel5 = button(u"HotLabel5"_s, u"List pupils"_s, {170, 53, 148, 36}, &Changes_Page::HotLabel5_Click);
    HotLabel6 = button(u"HotLabel6"_s, u"Hand over to Delete page"_s, {12, 104, 306, 38},
                       &Changes_Page::HotLabel6_Click);
    HotLabel7 =
        button(u"HotLabel7"_s, u"Make a support copy"_s, {12, 152, 306, 38}, &Changes_Page::HotLabel7_Click);
}

void Changes_Page::Tell_Helps() {
    auto* help =
        Help_In(Make_Help_Label(u"Help"_s, {Left, 494, Right + Right_Width - 156 - Left, 50}, Frame1), this);
    const std::pair<QWidget*, QString> helps[] = {
        {Spread1,
         u"What was done with the pupils' records: acts that were stored, with the time and the computer. Pupils are named by their User ID."_s},
        {Combo1, u"List one kind of change only."_s},
        {Text1, u"List only what has these words in it, such as a pupil's User ID."_s},
        {Combo2, u"How far back the list of changes is kept."_s},
        {Combo3,
         u"How far back a pupil's last test must lie. Pupils who have taken no test aren't listed."_s},
        {HotLabel1, u"Return to the Settings page"_s},
        {HotLabel2, u"Print what is listed."_s},
        {SaveAsPdf, u"Save what is listed in a PDF file, where you choose."_s},
        {HotLabel3, u"Save the changes that are listed as comma-separated values, for a spreadsheet."_s},
        {HotLabel4, u"Remove the entries that are older than the chosen time from the list of changes."_s},
        {HotLabel5, u"List the pupils whose last test was taken longer ago than the chosen time."_s},
        {HotLabel6,
         u"Open the Delete page with these pupils selected. Nothing is deleted before you confirm it there."_s},
        {HotLabel7,
         u"Write a copy of the database for those who help with a fault: names, codes, groups, passwords and the school are replaced, comments emptied and birthdays moved. All scores stay."_s},
    };
    for (const auto& [control, text] : helps)
        help->Tell(control, text);
    help->Follow_Focus(*this);
}

void Changes_Page::Load() {
    Read_Changes();
    Show_Changes();
}

void Changes_Page::Read_Changes() {
    changes.clear();
    keeping::Quietly([this] { changes = keeping::Changes_In(installation.Database_Path); });
    Tell_State();
}

// What keeps a file from being used; else what is kept of whom.
void Changes_Page::Tell_State() {
    QStringList told{keeping::Look_At_Changes(installation.Database_Path).words,
                     keeping::Look_At_Companion(installation.Database_Path).words};
    told.removeAll(QString());
    QSet<QString> kept_of;
    keeping::Quietly([&] {
        for (const keeping::Taking& taking : keeping::Takings_Of(installation.Database_Path, u""_s))
            kept_of.insert(taking.code);
    });
    if (told.isEmpty()) told.append(u"Pupils of whom earlier results are kept: %1."_s.arg(kept_of.size()));
    Notice->setText(told.join(u' '));
}

bool Changes_Page::Passes(const Change& change) const {
    if (Combo1->ListIndex() > 0 && change.act != Combo1->currentText()) return false;
    const QString words = Text1->text().trimmed();
    return words.isEmpty() || Texts_Of(change).join(u'\n').contains(words, Qt::CaseInsensitive);
}

QList<Change> Changes_Page::Passing() const {
    QList<Change> passing = changes;
    passing.removeIf([this](const Change& change) { return !Passes(change); });
    return passing;
}

void Changes_Page::Write_Headings(const QStringList& headings) {
    Write_Row(0, headings);
}

void Changes_Page::Write_Row(int row, const QStringList& texts) {
    int column = 0;
    for (const QString& text : texts)
        Spread1->Set_Text(++column, row, text);
}

void Changes_Page::Offer_Handing_Over() {
    HotLabel6->setEnabled(!untested.isEmpty());
}

void Changes_Page::Show_Changes() {
    untested.clear();
    Offer_Handing_Over();
    Write_Headings(Change_Headings());
    const QList<Change> passing = Passing();
    const int listed = static_cast<int>(std::min<qsizetype>(passing.size(), Most_Listed));
    for (int row = 1; row <= listed; ++row)
        Write_Row(row, Texts_Of(passing[row - 1]));
    Spread1->Set_MaxRows(listed);
    Heading->setText(listed < passing.size()
                         ? u"The latest %1 of %2 changes"_s.arg(listed).arg(passing.size())
                         : u"Changes: %1"_s.arg(listed));
}

QList<Changes_Page::Untested_Pupil> Changes_Page::Untested_Before(const QDateTime& moment) {
    QList<Untested_Pupil> found;
    holder.ado_Open(installation.Connection_String, u"SELECT * FROM Mevo_Pupils ORDER BY Surname,Forename"_s,
                    u"ReadOnly"_s);
    const auto text = [this](const QString& field) { return holder.Field(field).Text_Or_Empty(); };
    for (; !holder.Rows().Eof(); holder.Rows().MoveNext()) {
        const QDateTime last = Last_Test(holder);
        if (last.isValid() && last < moment)
            found.append({text(u"StudentCode"_s), text(u"Surname"_s) + u' ' + text(u"Forename"_s),
                          text(u"DOB"_s), text(u"Group_Class"_s), last});
    }
    holder.ado_Close();
    return found;
}

void Changes_Page::Show_Untested() {
    const QList<Untested_Pupil> found = Untested_Before(So_Long_Ago(*Combo3, platform.clock));
    Write_Headings({u"Last test"_s, u"Date of birth"_s, u"Group/Class"_s, u"User ID"_s, u"Names"_s});
    untested.clear();
    for (const Untested_Pupil& pupil : found) {
        untested.append(pupil.code);
        Write_Row(static_cast<int>(untested.size()), {pupil.last_test.toString(u"dd/MM/yyyy"_s), pupil.born,
                                                      pupil.group, pupil.code, pupil.name});
    }
    Spread1->Set_MaxRows(static_cast<int>(untested.size()));
    Heading->setText(
        u"Pupils not tested for longer than %1: %2"_s.arg(Chosen_Time(*Combo3).words).arg(untested.size()));
    Offer_Handing_Over();
}

void Changes_Page::HotLabel1_Click() {
    navigator.Close_Page();
}

void Changes_Page::Put_Out_List(printing::Outlet outlet) {
    printing::Telling_Printer_Errors(platform, [this, outlet] {
        grid::Marked_Text heading = printing::List_Heading(installation);
        heading.Add_Markup(u"/n/cQuend Mevo - "_s).Add_Value(Heading->text()).Add_Markup(u"./n"_s);
        printing::Print_List(*Spread1, heading, u"Mevo changes and data protection"_s, installation, platform,
                             outlet);
    });
}

void Changes_Page::HotLabel2_Click() {
    if (platform.printers.Choose()) Put_Out_List(printing::Outlet::Printer);
}

void Changes_Page::SaveAsPdf_Click() {
    Put_Out_List(printing::Outlet::Pdf_File);
}

// Empty where the dialog was cancelled. A file that is there isn't replaced.
QString Changes_Page::Save_Place(const QString& title, const QString& filter, const QString& name) {
    desktop::File_Question question;
    question.title = title;
    question.filter = filter;
    question.folder = installation.Archive_Folder;
    question.file_name = name;
    question.extension = QFileInfo(name).suffix();
    question.why_not = [](const QString& file) {
        return QFileInfo::exists(basics::Native_Target(file))
                   ? u"There is a file of this name already. Please choose another name."_s
                   : QString();
    };
    const QString chosen = platform.file_dialogs.Save_File(question);
    return chosen == name ? QString() : chosen;
}

void Changes_Page::HotLabel3_Click() {
    const QString file =
        Save_Place(u"Save changes"_s, u"Comma-separated values (*.csv)"_s, u"Mevo05_changes.csv"_s);
    if (file.isEmpty()) return;
    const qsizetype texts = Change_Headings().size(); // all of them
    const auto line = [texts](const QStringList& fields) {
        return basics::Spreadsheet_Line(fields, texts, basics::Decimal_Mark::Point);
    };
    QString text = basics::Csv_Mark + line(Change_Headings());
    for (const Change& change : Passing())
        text += line(Texts_Of(change));
    try {
        database::New_File made(basics::Native_Target(file), basics::Native_Path(installation.Database_Path));
        made.Write(text.toUtf8());
        made.Flush_And_Close();
        made.Move_To_Its_Place();
    } catch (const basics::Run_Time_Error& error) {
        platform.boxes.Ask(Box_Style::Critical, u"Save changes"_s, error.Description);
    }
}

void Changes_Page::HotLabel4_Click() {
    const QString title = u"Remove older entries"_s;
    const Answer answer =
        platform.boxes.Ask(Box_Style::Yes_No_Question, title,
                           u"Do you wish to remove all entries older than "_s + Chosen_Time(*Combo2).words +
                               u" from the list of changes?"_s);
    if (answer != Answer::Yes) return;
    try {
        const int removed =
            keeping::Remove_Changes_Before(installation.Database_Path, So_Long_Ago(*Combo2, platform.clock));
        platform.boxes.Ask(Box_Style::Information, title, u"Entries removed: "_s + QString::number(removed));
    } catch (const basics::Run_Time_Error& error) {
        platform.boxes.Ask(Box_Style::Critical, title, error.Description);
    }
    Load();
}

void Changes_Page::HotLabel5_Click() {
    Show_Untested();
}

// The Delete page stands where the Main menu's entries lead: over no other.
void Changes_Page::HotLabel6_Click() {
    records.To_Be_Deleted = untested;
    navigator.Close_Page();
    navigator.Close_Page();
    navigator.Go_To(shell::Page_Id::Delete);
}

void Changes_Page::HotLabel7_Click() {
    const QString title = u"Support copy"_s;
    const QString file = Save_Place(title, u"MS Access 2000 (*.mdb)"_s, u"Mevo05_support_copy.mdb"_s);
    if (file.isEmpty()) return;
    holder.Let_Go();
    QString why_not;
    {
        const desktop::Wait_Pointer busy(platform.pointer);
        try {
            keeping::Write_Support_Copy(installation.Database_Path, file,
                                        [this] { return platform.random.Next(); });
        } catch (const basics::Run_Time_Error& error) {
            why_not = error.Description;
        }
    }
    if (why_not.isEmpty())
        platform.boxes.Ask(
            Box_Style::Information, title,
            u"The copy has been written as "_s + file +
                u"\rNobody can be recognised in it, and all scores are those of your database."_s);
    else
        platform.boxes.Ask(Box_Style::Critical, title, u"The copy can't be made.\r"_s + why_not);
}

} // namespace pupils
