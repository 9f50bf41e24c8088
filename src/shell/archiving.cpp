#include "shell/archiving.h"

#include "conversion/refusal.h"
#include "keeping/earlier_takings.h"
#include "platform/basics/native_path.h"
#include "platform/basics/number_text.h"
#include "platform/basics/run_time_error.h"
#include "platform/database/files/kept_copies.h"
#include "platform/desktop/wait_pointer.h"
#include "shell/whereabouts.h"

#include <QFileInfo>
#include <QProgressBar>
#include <algorithm>

using namespace Qt::StringLiterals;

namespace shell {

using desktop::Answer;
using desktop::Box_Style;

namespace {

constexpr QSize Frame_Size{1000, 496};
constexpr int Left = 40;
constexpr int Column_Width = 452;
constexpr int Whole_Width = 920;

const QString No_Choice = u"*.mdb"_s; // what an Open dialog's file name is until a file is chosen

} // namespace

Form60::Form60(desktop::Platform& platform, Navigator& navigator, foundation::Installation& installation,
               Menu_Counts& counts, database::File_Copies& copies, conversion::Older_Files& older_files)
    : Page(platform, navigator, Frame_Size),
      installation(installation),
      counts(counts),
      copies(copies),
      older_files(older_files),
      holder(platform),
      acts(platform, installation, counts, copies, holder),
      Timer1(new QTimer(this)) {
    setObjectName(u"Form60"_s);
    Timer1->setObjectName(u"Timer1"_s);
    Lay_Out();
    Tell_Helps();
}

// What replaces the working database stands apart from what leaves it alone.
void Form60::Lay_Out() {
    Make_Label(u"Label2"_s, u"Archiving menu"_s, Text_Role::Title, {Left, 28, 500, 44});
    Make_Label(u"Label12"_s, u"Students registered:"_s, Text_Role::Quiet, {Left, 82, 140, 24});
    Label13 = Make_Label(u"Label13"_s, u""_s, Text_Role::Heading, {Left + 144, 82, 120, 24});

    const auto entry = [this](const QString& name, const QString& caption, int column, int row,
                              std::function<void()> click) {
        const QRect place(Left + column * (Column_Width + 16), 128 + row * 70, Column_Width, 58);
        return Make_HotLabel(name, caption, place, std::move(click), HotLabel::Look::Entry);
    };
    HotLabel2 =
        entry(u"HotLabel2"_s, u"Save (archive) the current database"_s, 0, 0, [this] { HotLabel2_Click(); });
    HotLabel3 = entry(u"HotLabel3"_s, u"View an archived database"_s, 0, 1, [this] { HotLabel3_Click(); });
    HotLabel6 = entry(u"HotLabel6"_s, u"Finish viewing"_s, 0, 2, [this] { HotLabel6_Click(); });
    HotLabel6->setEnabled(false);
    HotLabel4 = entry(u"HotLabel4"_s, u"Load a previous archive (destructively)"_s, 1, 0,
                      [this] { HotLabel4_Click(); });
    HotLabel5 = entry(u"HotLabel5"_s, u"Start a clean database (destructively)"_s, 1, 1,
                      [this] { HotLabel5_Click(); });

    HotLabel2->Set_Weight(HotLabel::Weight::Primary);
    for (HotLabel* destructive : {HotLabel4, HotLabel5}) {
        destructive->Set_Icon(u"caution"_s);
        destructive->Set_Weight(HotLabel::Weight::Destructive);
    }

    auto* progress = new QProgressBar(Frame1);
    progress->setObjectName(u"pbrProgressBar"_s);
    progress->setAccessibleName(u"Progress of the archiving"_s);
    progress->setFormat(u"Please wait...saving archive"_s);
    progress->setGeometry(Left + Column_Width + 16, 332, Column_Width, 20);
    progress->hide(); // nothing drives it: a copy is over before it could move
    conversion_bar = new QProgressBar(Frame1);
    conversion_bar->setObjectName(u"pbrConversion"_s);
    conversion_bar->setAccessibleName(u"Progress of the conversion"_s);
    conversion_bar->setFormat(u"Please wait...converting archive"_s);
    conversion_bar->setGeometry(progress->geometry());
    conversion_bar->hide();
    HotLabel1 = Make_HotLabel(u"HotLabel1"_s, u"Menu"_s, {Left + Whole_Width - 140, 277, 140, 40},
                              [this] { HotLabel1_Click(); });
    // The last, so that the others keep their letters.
    GoBack = Make_HotLabel(
        u"GoBack"_s, u"Go back to…"_s, {Left + Column_Width + 16, 268, 288, 58}, [this] { GoBack_Click(); },
        HotLabel::Look::Entry);
}

void Form60::Tell_Helps() {
    const Help made = Make_Help(u"Label1"_s, {Left, 356, Whole_Width, 100});
    Label1 = made.label;
    const std::pair<HotLabel*, QString> helps[] = {
        {HotLabel1, u"Return to Main Menu"_s},
        {HotLabel2,
         u"Save a copy of the current database (with a unique filename indicating when the archive was made)."_s},
        {HotLabel3,
         u"In Viewing mode you can see reports but you cannot edit the database in any way. Any further assessments that are undertaken will have their data saved in the current (working) database and NOT the archive you may have loaded in Viewing Mode."_s},
        {HotLabel4,
         u"Import an archived database (this will erase your current database so take care with this option)."_s},
        {HotLabel5,
         u"Start afresh and clear all pupils and their data from the database (this will erase your current database so take care with this option)."_s},
        {GoBack,
         u"See the copies that were kept of the database before it could be changed. You can look inside them, go back to one of them, or remove them."_s},
        {HotLabel6,
         u"You can easily restore the current (working database) and this will remove the archive from the Viewer."_s},
    };
    for (const auto& [button, text] : helps)
        made.line->Tell(button, text);
}

void Form60::Load() {
    Refresh_Archive_Page();
    if (installation.Viewing_Mode) HotLabel6->setEnabled(true);
}

void Form60::Refresh_Archive_Page() {
    Timer1->stop();
    qint16 count = counts.Number_Of_Students.Is_Empty() ? qint16(0) : counts.Number_Of_Students.As_Integer();
    holder.ado_Open(installation.Connection_String, u"SELECT * FROM Mevo_Pupils ORDER BY Surname,Forename"_s,
                    u"Optimistic"_s);
    holder.ado_RSCount(count);
    counts.Number_Of_Students = count;
    holder.ado_Close();
    if (count == 0) {
        HotLabel2->setEnabled(false);
        HotLabel5->setEnabled(false);
        Label1->setText(u""_s);
    }
    Label13->setText(basics::Plain_Number(count));
}

void Form60::Set_Archive_Buttons() {
    const bool somebody = counts.Number_Of_Students.As_Integer() > 0;
    HotLabel5->setEnabled(somebody);
    HotLabel2->setEnabled(somebody);
}

void Form60::HotLabel1_Click() {
    navigator.Go_To(Page_Id::Main_Menu);
}

desktop::File_Question Form60::File_Dialog(const QString& title, const QString& file_name) const {
    return {title, u"MS Access 2000 (*.mdb)"_s, installation.Archive_Folder, file_name, u"mdb"_s};
}

QString Form60::Chosen_Archive(const QString& title) {
    holder.Let_Go(); // the dialog looks into files
    desktop::File_Question question = File_Dialog(title, No_Choice);
    question.tell = Tell_Of_File;
    const QString answer = platform.file_dialogs.Open_File(question);
    if (answer == No_Choice) return u""_s;
    return older_files.Is_One(basics::Native_Path(answer)) ? Converted_Copy(answer) : answer;
}

QString Form60::Converted_Copy(const QString& file) {
    const QString title = u"Older file format"_s;
    const Answer answer = platform.boxes.Ask(
        Box_Style::Yes_No_Information, title,
        u"This archive was saved in the older Access format. Do you wish to make a converted copy beside it and go on with that?"_s);
    if (answer != Answer::Yes) return {};
    const QString copy = conversion::Converted_Name(file);
    QString why_not;
    {
        const desktop::Wait_Pointer busy(platform.pointer);
        try {
            older_files.Convert(basics::Native_Path(file), basics::Native_Target(copy),
                                [this](const conversion::Progress& progress) { Show_Progress(progress); });
        } catch (const conversion::Refusal& refusal) {
            why_not = refusal.Why();
        }
        conversion_bar->hide();
    }
    if (why_not.isEmpty()) return copy;
    platform.boxes.Ask(Box_Style::Critical, title,
                       u"The archive "_s + file + u" can't be converted.\r"_s + why_not);
    return {};
}

// Painted at once: the page's events wait until the copy is made.
void Form60::Show_Progress(const conversion::Progress& progress) {
    constexpr int steps = 1000;
    const qint64 of_rows = std::max<qint64>(progress.of_rows, 1);
    conversion_bar->setRange(0, steps);
    conversion_bar->setValue(static_cast<int>(progress.rows * steps / of_rows));
    conversion_bar->show();
    conversion_bar->repaint();
}

// A 12-hour clock without morning or afternoon: two saves of a day may suggest the same name.
QString Form60::Create_Unique_Filename() const {
    const QDateTime now = platform.clock.Now();
    const int hour = (now.time().hour() + 11) % 12 + 1;
    return u"Mevo05_"_s + now.toString(u"ddMMyy"_s) + u'_' + u"%1"_s.arg(hour, 2, 10, QChar(u'0')) +
           now.toString(u"mm"_s) + u".mdb"_s;
}

void Form60::GoBack_Click() {
    navigator.Go_To(Page_Id::Go_Back);
}

void Form60::HotLabel2_Click() {
    try {
        suggested_file_name = Create_Unique_Filename();
        desktop::File_Question question = File_Dialog(u"Save archive"_s, suggested_file_name);
        question.why_not = [this](const QString& file) { return Why_No_Archive(file); };
        const QString answer = platform.file_dialogs.Save_File(question);
        if (!answer.isEmpty() && answer != suggested_file_name) Save_As(answer);
    } catch (const basics::Run_Time_Error& error) {
        if (error.Number == basics::errors::Permission_Denied)
            platform.boxes.Ask(
                Box_Style::Critical, u"Cannot save archive file"_s,
                u"Cannot save this archive because the folder shown below seems to be Read-Only under your User Account.\r\r"_s +
                    installation.Archive_Folder);
        else
            platform.boxes.Ask(Box_Style::Plain, desktop::Default_Box_Title(),
                               u"An error has occured (Archiving) Error # "_s +
                                   basics::Plain_Number(error.Number) + u") Description ("_s +
                                   error.Description + u')');
    }
}

// Whether two names lead to one file, or would but for their letter case.
static bool Is_One_Place(const QString& first, const QString& second) {
    const QFileInfo one(basics::Native_Target(first));
    const QFileInfo other(basics::Native_Path(second));
    if (one.exists() && one.canonicalFilePath() == other.canonicalFilePath()) return true;
    return one.fileName().compare(other.fileName(), Qt::CaseInsensitive) == 0 &&
           QFileInfo(one.path()).canonicalFilePath() == QFileInfo(other.path()).canonicalFilePath();
}

QString Form60::Why_No_Archive(const QString& file) const {
    const QString another = u" Please choose another name for the archive."_s;
    if (Is_One_Place(file, installation.Database_Path))
        return u"This is the name of the working database."_s + another;
    if (Is_One_Place(file, installation.Empty_Database_Path))
        return u"This is the name of the empty database that a clean start needs."_s + another;
    if (database::Has_Name_Of_Kept_Copy(file))
        return u"Names like this one are for the databases that are kept when they are replaced."_s + another;
    return {};
}

void Form60::Save_As(const QString& file) {
    {
        const desktop::Wait_Pointer busy(platform.pointer);
        holder.Let_Go();
        copies.Copy(installation.Database_Path, file);
        keeping::Quietly([&] { keeping::Copy_Companion(installation.Database_Path, file); });
    }
    acts.Note(keeping::Act::Archived, file);
    Remember_Archive(installation, platform);
    platform.boxes.Ask(Box_Style::Plain, desktop::Default_Box_Title(),
                       u"Your database has been archived as "_s + file);
}

void Form60::HotLabel4_Click() {
    if (!acts.Confirmed(u"Load an archived database - CAUTION!"_s, Wrong_Password::Is_Silent)) return;
    Load_Archived_Database();
    Refresh_Archive_Page();
    Set_Archive_Buttons();
}

void Form60::Load_Archived_Database() {
    const QString file = Chosen_Archive(u"Load archive"_s);
    if (!file.isEmpty()) acts.Load(file);
}

void Form60::HotLabel5_Click() {
    if (acts.Confirmed(u"Clear current database and start afresh - CAUTION!"_s, Wrong_Password::Is_Told))
        Clear_Working_Database();
}

void Form60::Clear_Working_Database() {
    // Before the copy here, so that the password in force reaches the new working database.
    acts.Hand_On_The_Password(installation.Empty_Database_Path);
    acts.Replace_Working_Database(installation.Empty_Database_Path, u"clean_start"_s);
    acts.Note(keeping::Act::Cleared, installation.Database_Path);
    if (!acts.Working_Database_Is_Of_Version_51()) return;
    platform.boxes.Ask(Box_Style::Plain, desktop::Default_Box_Title(),
                       u"The database has now been cleared of all pupils and their data."_s);
    counts.Number_Of_Students = 0;
    Set_Archive_Buttons();
    Label13->setText(u"0"_s);
}

void Form60::HotLabel3_Click() {
    View_Archived_Database();
}

void Form60::View_Archived_Database() {
    const QString file = Chosen_Archive(u"View archive"_s);
    if (!file.isEmpty() && acts.View(file)) HotLabel6->setEnabled(true);
}

void Form60::HotLabel6_Click() {
    installation.Current_Database_Path = installation.Database_Path;
    installation.Connection_String = foundation::Connection_String_For(installation.Current_Database_Path);
    // The name in the text is fixed, wherever the working database lies.
    platform.boxes.Ask(
        Box_Style::Plain, desktop::Default_Box_Title(),
        u"The current database (Mevo05data.mdb) has now been restored and you are able to use Mevo as normal."_s);
    HotLabel6->setEnabled(false);
    installation.Viewing_Mode = false;
}

} // namespace shell
