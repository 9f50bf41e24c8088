// What touches every pupil's row, or the file as a whole.

#include "answering.h"
#include "console/other_ports.h"
#include "conversion/older_files.h"
#include "full_school.h"
#include "keeping/change_list.h"
#include "measuring.h"
#include "plain_writing.h"
#include "platform/database/files/page_copies.h"
#include "platform/database/files/safe_copy.h"
#include "pupils/security_page.h"
#include "shell/archiving.h"
#include "shell/copy_before.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDir>
#include <QFile>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace bench {
namespace {

// Whether the list of changes takes what is done; a folder in its place keeps it from that.
enum class Noted { No, Yes };

// A group's settings pushed to all pupils, who are its members; the list is read and shown anew after it. The
// page and the reference answer the two questions differently: a change to what stands there already is none,
// and never reaches the disk.
void Update_A_Group(benchmark::State& state, Full_School& school, Noted noted) {
    const QString changes = keeping::Changes_Of(school.installation.Database_Path);
    noted == Noted::Yes ? QDir().rmdir(changes) : QDir().mkdir(changes);
    Plain_Writer writer(school.installation.Current_Database_Path);
    writer.Run(u"UPDATE Mevo_Pupils SET Group_Class = (SELECT Group_Name FROM Mevo_Groups)"_s);
    scoring::Pupil_Lists lists;
    pupils::Pupil_Records records;
    const auto page = school.Make<pupils::Form2>(pupils::Record_Data{school.installation, lists, records});
    page->Load();
    Take_Timers_From(*page);
    page->show();
    page->Timer1_Timer();
    for (const QString& answer : {u"Option3"_s, u"Option6"_s}) // shown on the login list, no date of birth
        page->findChild<QAbstractButton*>(answer)->setChecked(true);
    QApplication::processEvents();
    Measure_Beside(
        state,
        [&] {
            page->Update_Group_Settings();
            QApplication::processEvents();
        },
        [&] {
            writer.Run(u"UPDATE Mevo_Groups SET Show_On_List = 0, Dob_as_pw = 1 WHERE Group_Name = "
                       "(SELECT Group_Name FROM Mevo_Groups)"_s);
            writer.Run(u"UPDATE Mevo_Pupils SET show_name = 0, dob_as_pw = 1 WHERE group_class = "
                       "(SELECT Group_Name FROM Mevo_Groups)"_s);
            school.Read(u"SELECT * FROM Mevo_Pupils"_s);
        },
        Wall_Ms);
    constexpr double most_times = 1.5;
    if (noted == Noted::No) state.SetLabel(Limit_At_Most(state, most_times));
}

// The same bytes copied without a look at what they are, and as safely brought to the disk.
void Copy_Plainly(const QString& source, const QString& target) {
    QFile from(source);
    QFile to(target);
    if (!from.open(QIODevice::ReadOnly) || !to.open(QIODevice::WriteOnly))
        throw std::runtime_error("can't copy " + source.toStdString());
    to.write(from.readAll());
    to.flush();
    fsync(to.handle());
}

void Archive_The_File(benchmark::State& state, Full_School& school) {
    const QTemporaryDir folder;
    One_File file_dialogs(folder.filePath(u"archive.mdb"_s));
    Yes_To_All boxes;
    desktop::Platform platform =
        console::With({.boxes = &boxes, .file_dialogs = &file_dialogs}, school.platform);
    database::Safe_Copies copies;
    conversion::Jet_Files older_files;
    Nowhere nowhere;
    shell::Form60 page(platform, nowhere, school.installation, school.counts, copies, older_files);
    page.Load();
    Measure_Beside(
        state, [&] { page.HotLabel2_Click(); },
        [&] { Copy_Plainly(school.installation.Database_Path, folder.filePath(u"plain.mdb"_s)); }, Wall_Ms,
        [&] { QFile::remove(folder.filePath(u"archive.mdb"_s)); });
    if (QFileInfo(folder.filePath(u"archive.mdb"_s)).size() !=
        QFileInfo(school.installation.Database_Path).size())
        throw std::runtime_error("no whole archive was made");
}

// The copy that is kept before a page which can empty the database takes its first press.
void Copy_Before_A_Page(benchmark::State& state, Full_School& school) {
    constexpr double longest_ms = 150;
    const QTemporaryDir folder;
    const QString& file = school.installation.Database_Path;
    Plain_Writer writer(file);
    const double mean_ms = Measure_Beside(
        state, [&] { shell::Copy_Before(shell::Page_Id::Delete, school.installation, school.platform); },
        [&] { Copy_Plainly(file, folder.filePath(u"plain.mdb"_s)); }, Wall_Ms,
        [&] { writer.Run(u"UPDATE Customer_Details SET CustomerName = hex(randomblob(8))"_s); });
    const auto kept = database::Kept_Files_In(database::Copies_Folder(file));
    if (kept.isEmpty() || QFileInfo(kept.first().path).size() != QFileInfo(file).size())
        throw std::runtime_error("no whole copy was kept");
    state.SetLabel(Limit_Below(mean_ms, longest_ms));
}

} // namespace

void Register_Whole_File(Full_School& school) {
    school.Register("update_a_group", Update_A_Group, Noted::No);
    school.Register("update_a_group/noted", Update_A_Group, Noted::Yes);
    school.Register("archive", Archive_The_File);
    school.Register("copy_before_a_page", Copy_Before_A_Page);
}

} // namespace bench
