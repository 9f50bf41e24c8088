#include "shell/remove_pupil.h"

#include "keeping/change_list.h"
#include "platform/basics/native_path.h"
#include "platform/basics/run_time_error.h"
#include "platform/desktop/wait_pointer.h"
#include "shell/archive_acts.h"

#include <QDir>
#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace shell {

using desktop::Box_Style;

namespace {

constexpr QSize Frame_Size{1060, 552};
constexpr int Left = 32;
constexpr int List_Width = 684;
constexpr int Right = Left + List_Width + 20;
constexpr int Right_Width = 1060 - Right - Left;

} // namespace

Form62::Form62(desktop::Platform& platform, Navigator& navigator, foundation::Installation& installation)
    : Page(platform, navigator, Frame_Size), installation(installation) {
    setObjectName(u"Form62"_s);
    Lay_Out();
    Tell_Helps();
}

void Form62::Lay_Out() {
    Make_Label(u"Label2"_s, u"Remove a pupil everywhere"_s, Text_Role::Title, {Left, 20, 600, 44});
    QLabel* about = Make_Label(
        u"Label3"_s,
        u"Pupils who have been deleted, and whom copies still hold. They are taken out of all copies, and nothing of them is left in your database. Archives that should lose them too are chosen one by one."_s,
        Text_Role::Body, {Left, 66, Frame_Size.width() - 2 * Left, 44});
    about->setWordWrap(true);
    Pupils = Make_Choice_List(u"Pupils"_s, u"Deleted pupils in copies"_s,
                              {{u"Surname"_s, 160},
                               {u"Forename"_s, 150},
                               {u"Date of birth"_s, 120},
                               {u"User ID"_s, 150},
                               {u"Files"_s, 80}},
                              {Left, 120, List_Width, 278}, Frame1);
    On(Pupils, &QTreeWidget::itemSelectionChanged, this, platform, [this] { Tell_Of_Choice(); });
    Label4 = Make_Label(u"Label4"_s, u""_s, Text_Role::Quiet, {Left, 404, List_Width, 44});
    Label4->setWordWrap(true);
    HotLabel2 = Make_HotLabel(
        u"HotLabel2"_s, u"Choose an archive"_s, {Right, 120, Right_Width, 56}, [this] { HotLabel2_Click(); },
        HotLabel::Look::Entry);
    HotLabel3 = Make_HotLabel(
        u"HotLabel3"_s, u"Remove from all (destructively)"_s, {Right, 188, Right_Width, 56},
        [this] { HotLabel3_Click(); }, HotLabel::Look::Entry);
    HotLabel3->Set_Icon(u"caution"_s);
    HotLabel3->Set_Weight(HotLabel::Weight::Destructive);
    HotLabel1 = Make_HotLabel(u"HotLabel1"_s, u"Copies"_s, {Frame_Size.width() - Left - 140, 408, 140, 40},
                              [this] { HotLabel1_Click(); });
}

void Form62::Tell_Helps() {
    const Help made = Make_Help(u"Label1"_s, {Left, 460, Frame_Size.width() - 2 * Left, 72});
    Label1 = made.label;
    const std::pair<QWidget*, QString> helps[] = {
        {Pupils,
         u"The pupils who are no longer in your database and still in copies or in the archives that you chose. Who is in the database is deleted on the Delete page first."_s},
        {HotLabel1, u"Return to the copies that were kept"_s},
        {HotLabel2,
         u"Choose an archive that should lose the pupil as well. You can choose as many as you like, one after the other."_s},
        {HotLabel3,
         u"Take this pupil out of all copies and of the archives that you chose, with the Administrator's password. Everybody else in them stays. Nothing brings the pupil back."_s},
    };
    for (const auto& [control, text] : helps)
        made.line->Tell(control, text);
    made.line->Follow_Focus(*this);
}

void Form62::Load() {
    Tell_Of_Choice();
    Label4->setText(u"The copies are being read..."_s);
    Once_Painted(u"Timer1"_s, [this] { Timer1_Timer(); });
}

QStringList Form62::Files() const {
    QStringList files;
    for (const database::Kept_File& copy : Kept_Databases(installation))
        files.append(copy.path);
    for (const QString& archive : archives)
        files.append(QFileInfo(basics::Native_Path(archive)).canonicalFilePath());
    files.removeDuplicates();
    return files;
}

void Form62::Timer1_Timer() {
    const desktop::Wait_Pointer busy(platform.pointer);
    Pupils->clear();
    QString why_not;
    try {
        gone = Find_Gone_Pupils(installation.Database_Path, Files());
    } catch (const basics::Run_Time_Error& error) {
        gone.clear();
        why_not = u"The database can't be read now: "_s + error.Description;
    }
    for (const Gone_Pupil& pupil : gone)
        new QTreeWidgetItem(
            Pupils, {pupil.surname, pupil.forename, pupil.born, pupil.code, QString::number(pupil.files)});
    Tell_Of_Choice();
    if (!why_not.isEmpty()) Label4->setText(why_not);
}

void Form62::Tell_Of_Choice() {
    HotLabel3->setEnabled(!Pupils->selectedItems().isEmpty());
    QStringList names;
    for (const QString& archive : archives)
        names.append(QFileInfo(basics::Native_Path(archive)).fileName());
    const QString chosen =
        names.isEmpty() ? u"No archive is chosen."_s : u"Archives that are chosen: "_s + names.join(u", "_s);
    Label4->setText(gone.isEmpty() ? u"No copy holds anybody who has been deleted. "_s + chosen : chosen);
}

void Form62::HotLabel1_Click() {
    navigator.Go_To(Page_Id::Go_Back);
}

QString Form62::Why_Not(const QString& archive) const {
    const auto place = [](const QString& file) {
        return QFileInfo(basics::Native_Path(file)).canonicalFilePath();
    };
    if (place(archive) == place(installation.Database_Path))
        return u"This is the working database, which is seen to in any case."_s;
    return {};
}

void Form62::HotLabel2_Click() {
    const QString no_choice = u"*.mdb"_s;
    desktop::File_Question question{u"Choose an archive"_s, u"MS Access 2000 (*.mdb)"_s,
                                    installation.Archive_Folder, no_choice, u"mdb"_s};
    question.why_not = [this](const QString& file) { return Why_Not(file); };
    question.tell = Tell_Of_File;
    const QString archive = platform.file_dialogs.Open_File(question);
    if (archive.isEmpty() || archive == no_choice || archives.contains(archive)) return;
    archives.append(archive);
    Timer1_Timer();
}

bool Form62::Confirmed(const Gone_Pupil& pupil) {
    const QString text = u"Are you sure you wish to remove "_s + pupil.forename + u' ' + pupil.surname +
                         u" from all copies and chosen archives? - (this is irreversible)"_s;
    return platform.boxes.Ask(Box_Style::Yes_No_Question, u"Remove a pupil everywhere - CAUTION!"_s, text) ==
               desktop::Answer::Yes &&
           Password_Accepted(platform, installation, Wrong_Password::Is_Told);
}

void Form62::HotLabel3_Click() {
    const QList<QTreeWidgetItem*> rows = Pupils->selectedItems();
    if (rows.isEmpty()) return;
    const Gone_Pupil pupil = gone[Pupils->indexOfTopLevelItem(rows.first())];
    if (!Confirmed(pupil)) return;
    Remove(pupil);
    Timer1_Timer();
}

void Form62::Remove(const Gone_Pupil& pupil) {
    QStringList failures;
    {
        const desktop::Wait_Pointer busy(platform.pointer);
        Removal removal{pupil.code, installation.Database_Path, Files()};
        removal.progress = [this](int done, int of) {
            Label4->setText(u"File %1 of %2..."_s.arg(done + 1).arg(of));
            Paint_Meanwhile(platform);
        };
        failures = Remove_Everywhere(removal);
    }
    if (failures.isEmpty()) {
        keeping::Note(installation, platform.clock, keeping::Act::Removed_Everywhere, {QString()});
        platform.boxes.Ask(
            Box_Style::Information, u"Remove a pupil everywhere"_s,
            u"Nothing of the pupil is left in the database, the copies and the chosen archives."_s);
        return;
    }
    platform.boxes.Ask(Box_Style::Exclamation, u"Remove a pupil everywhere"_s,
                       u"The pupil couldn't be removed everywhere:\r"_s + failures.join(u'\r'));
}

} // namespace shell
