#include "printing/full_reports_dialog.h"

#include "platform/basics/native_path.h"
#include "printing/print_outcome.h"
#include "shell/conventions/dialog_layout.h"
#include "shell/conventions/guard.h"
#include "shell/conventions/hot_label.h"
#include "shell/conventions/save_as.h"
#include "shell/conventions/theme.h"
#include "shell/conventions/work_bar.h"

#include <QDir>
#include <QScopeGuard>
#include <algorithm>

using namespace Qt::StringLiterals;

namespace printing {

using desktop::Answer;
using desktop::Box_Style;
using shell::HotLabel;

const QString Full_Reports_Title = u"Full reports"_s;

static QString Count_Of_Pupils(qsizetype count) {
    return count == 1 ? u"1 pupil"_s : u"%1 pupils"_s.arg(count);
}

static QString Count_Of_Reports(int count) {
    return count == 1 ? u"1 full report"_s : u"%1 full reports"_s.arg(count);
}

Full_Reports_Dialog::Full_Reports_Dialog(desktop::Platform& platform, Full_Report_Sources sources,
                                         bool keep_to_margins, Found_Entries chosen, const QString& group)
    : platform(platform),
      sources(sources),
      chosen(std::move(chosen)),
      group(group),
      reports(sources, keep_to_margins, platform) {
    setObjectName(u"Full_Reports"_s);
    setWindowTitle(Full_Reports_Title);
    setModal(true);
    Lay_Out();
}

QString Full_Reports_Dialog::What_It_Makes() const {
    const reports::Report_State& settings = sources.settings;
    return u"Saves the individual report of "_s + Count_Of_Pupils(chosen.places.size() + chosen.lost.size()) +
           u", a sheet each with all its sections, as the Reports page is set: "_s +
           (settings.Chart_Mode == "Z"_L1 ? u"z-scores"_s : u"centiles"_s) +
           (settings.Chart_Background == "GREY"_L1 ? u", grey bands, "_s : u", white background, "_s) +
           (settings.Show_Time_Bars ? u"with time bars."_s : u"without time bars."_s);
}

void Full_Reports_Dialog::Lay_Out() {
    constexpr int width = 460;
    setFixedWidth(width);
    QLabel* what = shell::Make_Label(u"Label1"_s, What_It_Makes(), shell::Text_Role::Body, this);
    what->setWordWrap(true);
    const auto option = [this, what](const QString& name, const QString& caption) {
        auto* button = new QRadioButton(caption, this);
        button->setObjectName(name);
        button->setAccessibleDescription(what->text());
        return button;
    };
    one_file = option(u"Option1"_s, u"One PDF file with all sheets"_s);
    a_file_each = option(u"Option2"_s, u"A PDF file for each pupil, named by User ID and name"_s);
    one_file->setChecked(true);
    bar = new shell::Work_Bar(platform, u"ProgressBar1"_s, u"Progress of the reports"_s, {}, this,
                              shell::Paint_And_Listen);
    progress = shell::Make_Label(u"Label2"_s, u""_s, shell::Text_Role::Quiet, this);
    for (QWidget* shown_at_work : {static_cast<QWidget*>(bar), static_cast<QWidget*>(progress)}) {
        QSizePolicy keeping = shown_at_work->sizePolicy();
        keeping.setRetainSizeWhenHidden(true);
        shown_at_work->setSizePolicy(keeping);
        shown_at_work->hide();
    }
    create = new HotLabel(u"HotLabel1"_s, u"Create..."_s, this);
    create->Set_Weight(HotLabel::Weight::Primary);
    create->setAccessibleDescription(u"Asks where the reports are to be saved, and makes them."_s);
    shell::On(create, &HotLabel::clicked, this, platform, [this] { Create_Click(); });
    cancel = new HotLabel(u"HotLabel2"_s, u"Cancel"_s, this);
    cancel->setAccessibleDescription(u"Leaves without making any more reports."_s);
    // Without the guard of handlers, which refuses a press while one runs: it only leaves a word for it.
    connect(cancel, &HotLabel::clicked, this, &Full_Reports_Dialog::reject);
    shell::Give_Mnemonics(*this);
    shell::Lay_Out_Dialog(*this, {what, one_file, a_file_each, bar, progress}, {create, cancel});
}

void Full_Reports_Dialog::reject() {
    if (working)
        stop_wanted = true;
    else
        QDialog::reject();
}

void Full_Reports_Dialog::Create_Click() {
    working = true;
    stop_wanted = false;
    const auto done = qScopeGuard([this] { working = false; });
    const QString where = Where_To();
    if (where.isEmpty()) return;
    Begin_Work();
    Make(where);
    Tell_Outcome(where);
    accept();
}

// Empty if the user thought better of it.
QString Full_Reports_Dialog::Where_To() {
    if (one_file->isChecked()) {
        const QString name = Full_Reports_Title + (group == All_Groups() ? QString() : u' ' + group);
        return shell::Ask_Where_To_Save({u"Save full reports"_s, u"PDF documents (*.pdf)"_s, u"pdf"_s, name},
                                        platform);
    }
    const QString folder = shell::Ask_For_Folder(u"Folder for the full reports"_s, platform);
    return folder.isEmpty() || May_Replace(folder) ? folder : QString();
}

// What was made earlier isn't lost without a word.
bool Full_Reports_Dialog::May_Replace(const QString& folder) {
    const QDir target(basics::Native_Path(folder));
    const QStringList names = reports.File_Names(chosen.places);
    const auto there =
        std::count_if(names.begin(), names.end(), [&](const QString& name) { return target.exists(name); });
    if (there == 0) return true;
    const QString text =
        there == 1
            ? u"One of these files is in the folder already. Do you want to replace it?"_s
            : u"%1 of these files are in the folder already. Do you want to replace them?"_s.arg(there);
    return platform.boxes.Ask(Box_Style::Yes_No_Question, Full_Reports_Title, text) == Answer::Yes;
}

void Full_Reports_Dialog::Begin_Work() {
    for (QWidget* settled :
         {static_cast<QWidget*>(one_file), static_cast<QWidget*>(a_file_each), static_cast<QWidget*>(create)})
        settled->setEnabled(false);
    cancel->Set_Caption(u"Stop"_s);
    shell::Give_Mnemonics(*this);
    cancel->setFocus();
    progress->show();
    const int times = one_file->isChecked() ? 2 : 1; // first all are scored, then all are drawn
    bar->Begin(std::max(1, times * static_cast<int>(chosen.places.size())));
    shell::Paint_And_Listen(platform);
}

void Full_Reports_Dialog::Make(const QString& where) {
    const auto go_on = [this](const QString& pupil) {
        progress->setText(progress->fontMetrics().elidedText(pupil, Qt::ElideRight, progress->width()));
        bar->Step();
        return !stop_wanted;
    };
    const QString target = basics::Native_Target(where);
    Telling_Printer_Errors(platform, [&] {
        if (one_file->isChecked())
            reports.Write_One_File(chosen.places, target, go_on, made);
        else
            reports.Write_A_File_Each(chosen.places, target, go_on, made);
    });
}

QString Full_Reports_Dialog::Outcome_In_Words(const QString& where) const {
    if (made.sheets == 0)
        return made.stopped ? u"Stopped. No report was saved."_s : u"No report was saved."_s;
    const QString place = one_file->isChecked() ? u" in this file:\r\r"_s : u" in this folder:\r\r"_s;
    const QString verb = made.sheets == 1 ? u" is"_s : u" are"_s;
    return (made.stopped ? u"Stopped. "_s : QString()) + Count_Of_Reports(made.sheets) + verb + place + where;
}

void Full_Reports_Dialog::Tell_Outcome(const QString& where) {
    QStringList left_out = made.left_out;
    for (const QString& entry : chosen.lost)
        left_out.append(entry + u": not on the list of the Reports page"_s);
    QString text = Outcome_In_Words(where);
    if (!left_out.isEmpty())
        text += u"\r\rLeft out, as they can't be scored ("_s + Count_Of_Pupils(left_out.size()) + u"):\r"_s +
                Named(left_out);
    const bool all_well = left_out.isEmpty() && made.sheets > 0;
    platform.boxes.Ask(all_well ? Box_Style::Information : Box_Style::Exclamation, Full_Reports_Title, text);
}

} // namespace printing
