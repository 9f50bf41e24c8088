#include "pupils/import_page.h"

#include "keeping/change_list.h"
#include "platform/basics/native_path.h"
#include "platform/basics/number_text.h"
#include "platform/basics/run_time_error.h"
#include "platform/desktop/wait_pointer.h"
#include "printing/grid_print.h"
#include "pupils/import/import_file.h"
#include "pupils/import/pupil_fields.h"
#include "pupils/import/told_losses.h"

#include <QFileInfo>
#include <QScopeGuard>

using namespace Qt::StringLiterals;

namespace pupils {

using desktop::Answer;
using desktop::Box_Style;

namespace {

// The dialog's words and patterns as they have always stood: description and pattern in turn.
const QString File_Filter = u"Text comma-seperated (.txt)|(*.txt)|Comma Seperated (.csv)|(*.csv)"_s;
const QString File_Pattern = u"*.txt"_s;

// The grid lays out the whole text of a cell each time that it paints it; a file can hold fields of
// megabytes.
constexpr qsizetype Longest_Cell = 4096;

// Each description with its pattern, as the file dialog takes them.
QString Dialog_Filter(const QString& described) {
    const QStringList parts = described.split(u'|');
    QStringList filters;
    for (qsizetype i = 0; i + 1 < parts.size(); i += 2)
        filters.append(parts[i] + u' ' + parts[i + 1]);
    return filters.join(u";;"_s);
}

} // namespace

void Form42::PreviewImport_Click() {
    try {
        desktop::File_Question question;
        question.title = u"TXT Comma-seperated files"_s;
        question.filter = Dialog_Filter(File_Filter);
        question.file_name = File_Pattern;
        question.folder = installation.Archive_Folder;
        const QString chosen = platform.file_dialogs.Open_File(question);
        Text1->setText(chosen.isEmpty() ? File_Pattern : chosen);
        Preview(Text1->text());
    } catch (const std::exception&) {
        // Whatever fails ends the preview in silence and leaves the buttons as they were.
    }
}

void Form42::Load() {
    if (!prepared.file.Name().isEmpty()) Once_Painted(u"Timer1"_s, [this] { Preview_Prepared(); });
}

// As though it had been chosen in the dialog.
void Form42::Preview_Prepared() {
    try {
        Text1->setText(prepared.file.Name());
        Preview(Text1->text());
    } catch (const std::exception&) {
        // As the preview's own button has it.
    }
}

void Form42::Preview(const QString& file_name) {
    Import_Pass pass;
    {
        const desktop::Wait_Pointer busy(platform.pointer);
        const QString text = Decoded_Import_Text(Read_Import_File(file_name));
        Spread1->setUpdatesEnabled(false);
        const auto shown_again = qScopeGuard([this] { Spread1->setUpdatesEnabled(true); });
        Walk_Import_Text(text, pass,
                         {[this](const QStringList& fields, qint16 line) { Show_Record(fields, line); }, {}});
    }
    Lines_Previewed = pass.line_count;
    Show_Marks();
    Offer_Import(pass.error_text.isEmpty());
    if (!pass.error_text.isEmpty())
        platform.boxes.Ask(Box_Style::Exclamation, windowTitle(), Erroneous_Records_Text(pass));
}

void Form42::Offer_Import(bool offered) {
    HotLabel3->setEnabled(offered);
    HotLabel4->setEnabled(offered);
    SaveAsPdf->setEnabled(offered);
}

void Form42::Show_Marks() {
    Set_User_Id_Width(marks.isEmpty() ? 0 : grid::fpSpread::Mark_Width);
    Spread1->Set_Marks(marks);
}

void Form42::Tell_Mark() {
    const QString words = Spread1->Mark_Of(Spread1->currentIndex().row() + 1);
    if (!words.isEmpty()) Label3->setText(words);
}

void Form42::Show_Record(const QStringList& fields, int row) {
    if (const QStringList losses = Broken_Rules(fields, true); losses.isEmpty())
        marks.remove(row);
    else
        marks[row] = u"Line %1: "_s.arg(row) + losses.join(u"; "_s) + u'.';
    Fill_Spread(Normalise_Hyphen(fields[place::Surname]), fields[place::Forename], fields[place::Sex],
                Format_Import_Date(fields[place::Date_Of_Birth]), u""_s, fields[place::Group],
                fields[place::Password], row);
}

void Form42::Fill_Spread(const QString& surname, const QString& forename, const QString& gender,
                         const QString& date_of_birth, QString code, QString group, const QString& password,
                         int row) {
    if (code.isEmpty()) code = u"(will be created)"_s;
    if (group.isEmpty()) group = u"Universal"_s;
    int column = 0;
    for (const QString& text : {surname, forename, gender, date_of_birth, code, group, password})
        Spread1->Set_Text(++column, row, text.left(Longest_Cell));
}

void Form42::HotLabel3_Click() {
    if (platform.boxes.Ask(Box_Style::Yes_No_Question, u"Confirm all details accurate and complete"_s,
                           u"Are you sure that all these details are accurate?"_s) != Answer::Yes)
        return;
    Import_Pupil_File(Text1->text(), Lines_Previewed);
}

void Form42::Import_Pupil_File(const QString& file_name, qint16& line_count) {
    ProgressBar1->Begin(line_count);
    Import_Pass pass;
    {
        const desktop::Wait_Pointer busy(platform.pointer);
        int stored = 0;
        const auto noted = qScopeGuard([&] { Note_Import(file_name, stored); });
        const auto act = maker.Begin_Act();
        const QString text = Decoded_Import_Text(Read_Import_File(file_name));
        Walk_Import_Text(
            text, pass,
            {[&](QStringList& fields, qint16) { stored += maker.Insert_New_Pupil(fields) ? 1 : 0; },
             [this] { ProgressBar1->Step(); }});
    }
    line_count = pass.line_count;
    if (!pass.error_text.isEmpty())
        platform.boxes.Ask(Box_Style::Exclamation, u"DB module"_s, Erroneous_Records_Text(pass));
    ProgressBar1->hide();
    // The lines of the file, whether or not a pupil came of each.
    Label3->setText(
        basics::Plain_Number(line_count) +
        u" pupils have now been imported. Please now check their settings on the Security page"_s);
}

void Form42::Note_Import(const QString& file_name, int stored) {
    const QString file = QFileInfo(basics::Native_Path(file_name)).fileName();
    if (stored > 0)
        keeping::Note(installation, platform.clock, keeping::Act::Imported, {file},
                      u"%1 stored"_s.arg(stored));
}

void Form42::HotLabel4_Click() {
    try {
        if (!platform.printers.Choose()) return;
        if (!printing::Grid_Print(printing::Grid_Kind::Import_Preview, *this, installation, platform)) return;
        platform.boxes.Ask(
            Box_Style::Information, u"Printed"_s,
            u"A spreadsheet showing personal details of all individuals to import has been sent to your printer"_s);
    } catch (const basics::Run_Time_Error&) {
        // A printer that fails ends it without a word, as a cancelled dialog does.
    }
}

void Form42::SaveAsPdf_Click() {
    printing::Grid_Print(printing::Grid_Kind::Import_Preview, *this, installation, platform,
                         printing::Outlet::Pdf_File);
}

void Form42::HotLabel5_Click() {
    prepared.file.Drop();
    navigator.Go_To(shell::Page_Id::Prepare);
}

void Form42::HotLabel1_Click() {
    prepared.Forget();
    navigator.Go_To(shell::Page_Id::Main_Menu);
}

} // namespace pupils
