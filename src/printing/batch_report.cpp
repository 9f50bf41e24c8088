#include "printing/batch_report.h"

#include "keeping/change_list.h"
#include "platform/basics/text_order.h"
#include "printing/batch_list.h"
#include "printing/full_reports_dialog.h"
#include "printing/scores_file.h"

#include <QShortcut>
#include <QSignalBlocker>
#include <algorithm>

using namespace Qt::StringLiterals;

namespace printing {

using shell::HotLabel;
using shell::Text_Role;

Form92::Form92(desktop::Platform& platform, shell::Navigator& navigator,
               const foundation::Installation& installation, const reports::Report_State& state,
               scoring::Scoring& scoring)
    : Report_Page(platform, navigator, installation),
      state(state),
      scoring(scoring),
      report(ViewPro1, {installation, state, scoring.pupils, cohort}, platform) {
    setObjectName(u"Form92"_s);
    Lay_Out();
    Tell_Helps();
    (state.Chart_Background == "GREY"_L1 ? Option1 : Option2)->setChecked(true);
    Option5->setChecked(true);
}

void Form92::Load() {
    const desktop::Wait_Pointer busy(platform.pointer);
    report.Report_Setup();
    Set_Zoom(First_Zoom);
    Load_Group_Filter(installation.Connection_String);
    Compute_All_Scores();
}

void Form92::Compute_All_Scores() {
    Label5->setText(u"PLEASE WAIT...Computing individual scores"_s);
    const desktop::Wait_Pointer busy(platform.pointer);
    if (window()->isVisible()) show(); // or nobody would see how far it has come
    printing::Compute_All_Scores([this](const QString& text) { Show_Progress(text); }, cohort, scoring);
    Batch_Count = static_cast<qint16>(scoring.pupils.Pupils_Listed);
    Label10->setText(u"ALL pupils are currently listed."_s);
    Label5->setText(u"There are %1 pupils who have scores."_s.arg(scoring.pupils.Pupils_Listed));
}

// The page is locked while it works, but it stays painted when something uncovers it.
void Form92::Show_Progress(const QString& text) {
    Label10->setText(text);
    Label10->repaint();
    constexpr int frame_ms = 40; // as often as an eye can follow
    if (painted.isValid() && !painted.hasExpired(frame_ms)) return;
    scoring.holder.End_Shared_Lock(); // events are looked at
    shell::Paint_Meanwhile(platform);
    painted.start();
}

void Form92::Load_Group_Filter(const QString& connection_string) {
    cboGroupFilter->Clear();
    cboGroupFilter->AddItem(All_Groups());
    Read_Group_Names(connection_string, [this](const QString& group) { cboGroupFilter->AddItem(group); });
    cboGroupFilter->Set_ListIndex(0);
}

void Form92::cboGroupFilter_Click() {
    Load_Pupil_List(installation.Connection_String);
}

void Form92::Load_Pupil_List(const QString& connection_string) {
    const QSignalBlocker quiet(lstPupils);
    lstPupils->clear();
    const bool all_read = Read_Pupil_Entries(connection_string, cboGroupFilter->currentText(),
                                             [this](const QString& student) { lstPupils->addItem(student); });
    if (all_read && lstPupils->count() == 0) HotLabel9->setEnabled(false);
    Offer_Files();
}

void Form92::lstPupils_Click() {
    HotLabel9->setEnabled(true);
    Offer_Files();
}

void Form92::Offer_Files() {
    for (shell::HotLabel* of_selected : {FullReports, SaveScores})
        of_selected->setEnabled(!lstPupils->selectedItems().isEmpty());
}

void Form92::HotLabel7_Click() {
    lstPupils->selectAll();
    HotLabel9->setEnabled(true);
}

void Form92::HotLabel8_Click() {
    lstPupils->clearSelection();
    HotLabel9->setEnabled(false);
}

// Neither the batch nor the sheets on view have a part in it, and the pupil on the Reports page stays theirs.
void Form92::FullReports_Click() {
    Full_Reports_Dialog dialog(platform, {installation, scoring.pupils, scoring.norms, state},
                               ViewPro1.Keep_To_Margins, Find_By_Code(Selected_Entries(), scoring.pupils),
                               cboGroupFilter->currentText());
    platform.dialogs.Show(dialog);
    if (dialog.Sheets_Made() > 0)
        keeping::Note(installation, platform.clock, keeping::Act::Printed_Batch,
                      {cboGroupFilter->currentText()}, u"%1 full reports saved"_s.arg(dialog.Sheets_Made()));
}

QStringList Form92::Selected_Entries() const {
    QStringList entries;
    for (int i = 0; i < lstPupils->count(); ++i)
        if (lstPupils->item(i)->isSelected()) entries.append(lstPupils->item(i)->text());
    return entries;
}

// A selection with a pupil who can't be found changes nothing: the report on view can still be drawn anew.
void Form92::HotLabel9_Click() {
    const QList<qint16> places = Places_Of(Selected_Entries(), scoring.pupils);
    const qsizetype errors = places.count(-1);
    if (errors > 0) {
        platform.boxes.Ask(desktop::Box_Style::Critical, u"Error needs attention"_s, Surname_Message(errors));
        return;
    }
    Take_Batch(places, cohort);
    Batch_Count = static_cast<qint16>(places.size());
    Preview->Set_ShownPage(1);
    {
        const QSignalBlocker quiet(FindName);
        FindName->clear(); // who was looked for was in another batch
    }
    Build_Batch(Batch_Count);
}

void Form92::Build_Batch(int count) {
    const int pages = Sheets_For(count);
    Forget_Found();
    Label5->setText(u"There are %1 pupils on %2 pages."_s.arg(count).arg(pages));
    report.Build_Batch(count, {.ground = Option1->isChecked() ? u"GREY"_s : u"WHITE"_s,
                               .label = Option5->isChecked() ? Pupil_Label::Name : Pupil_Label::User_ID,
                               .group = cboGroupFilter->currentText()});
    ViewPro1.ShowOutput();
    Fill_Page_List(pages);
    Set_Zoom(Zoom_Now);
    Report_Built = true;
}

void Form92::Fill_Page_List(int pages) {
    const QSignalBlocker quiet(List3);
    List3->clear();
    for (int k = 1; k <= pages; ++k)
        List3->addItem(u"Page %1"_s.arg(k));
    List3->setCurrentRow(pages > 0 ? Preview->ShownPage() - 1 : -1);
}

void Form92::Follow_Shown_Page() {
    List3->setCurrentRow(Preview->ShownPage() - 1);
}

// By all the words that were typed, in the name or the User ID.
QList<int> Form92::Ranks_Meant() const {
    const QStringList words = FindName->text().split(u' ', Qt::SkipEmptyParts);
    QList<int> ranks;
    if (!Report_Built || words.isEmpty()) return ranks;
    for (int rank = 1; rank <= Batch_Count; ++rank) {
        const int p = cohort.Cohort_Pupil[rank];
        const std::string pupil =
            (scoring.pupils.Pupil_Name_List[p] + u' ' + scoring.pupils.Student_Code[p]).toStdString();
        if (std::all_of(words.begin(), words.end(), [&pupil](const QString& word) {
                return basics::Stands_In(word.toStdString(), pupil);
            }))
            ranks.append(rank);
    }
    return ranks;
}

// The first of them from that rank on; behind the last the first comes again.
void Form92::Show_Meant_From(int rank) {
    const QList<int> ranks = Ranks_Meant();
    Forget_Found();
    if (ranks.isEmpty()) {
        if (!FindName->text().trimmed().isEmpty())
            Found->setText(Report_Built ? u"Not in this report"_s : u"No report as yet"_s);
        return;
    }
    const auto from = std::lower_bound(ranks.begin(), ranks.end(), rank);
    const auto next = from == ranks.end() ? ranks.begin() : from;
    found_rank = *next;
    const int page = Sheets_For(found_rank);
    Preview->Mark(page, Miniature_Place(found_rank).translated(ViewPro1.Page(page).moved_by));
    Follow_Shown_Page();
    const QString& name = scoring.pupils.Pupil_Name_List[cohort.Cohort_Pupil[found_rank]];
    Found->setText(u"%1 of %2, page %3\n%4"_s.arg(next - ranks.begin() + 1)
                       .arg(ranks.size())
                       .arg(page)
                       .arg(Found->fontMetrics().elidedText(name, Qt::ElideRight, Found->width())));
    Found->setToolTip(name);
}

void Form92::Forget_Found() {
    found_rank = 0;
    Found->clear();
    Preview->Mark(0);
}

void Form92::FindName_Changed() {
    Show_Meant_From(1);
}

void Form92::Find_Next() {
    Show_Meant_From(found_rank + 1);
}

void Form92::List3_Click() {
    Preview->Set_ShownPage(List3->currentRow() + 1);
    ViewPro1.ShowOutput();
}

void Form92::Option_Click() {
    if (Report_Built) Build_Batch(Batch_Count);
}

void Form92::SaveScores_Click() {
    const Found_Entries chosen = Find_By_Code(Selected_Entries(), scoring.pupils);
    const QString group = cboGroupFilter->currentText();
    const QString listed = Label10->text();
    Save_Scores(
        {chosen.places, chosen.lost, group == All_Groups() ? u"Mevo scores"_s : u"Mevo scores "_s + group},
        scoring,
        [&](int done) { Label10->setText(u"Scoring student %1/%2"_s.arg(done).arg(chosen.places.size())); },
        platform);
    Label10->setText(listed);
}

QString Form92::Document_Name() const {
    return u"Mevo batch report"_s;
}

void Form92::Note_Printed(Outlet outlet) const {
    const QString where =
        outlet == Outlet::Printer && platform.printers.Is_Any_Set_Up() ? u"on the sheets"_s : u"in a PDF"_s;
    keeping::Note(installation, platform.clock, keeping::Act::Printed_Batch, {cboGroupFilter->currentText()},
                  u"%1 "_s.arg(Batch_Count) + where);
}

static QListWidget* Make_List(const QString& name, const QString& told, const QRect& place, QWidget* parent) {
    auto* list = new QListWidget(parent);
    list->setObjectName(name);
    list->setAccessibleName(told);
    list->setGeometry(place);
    list->setUniformItemSizes(true); // there may be 2000
    return list;
}

constexpr int Left = 16;
constexpr int Left_Width = 304;
constexpr int Middle = 332;
constexpr int Middle_Width = 490;
constexpr int Right = 834;
constexpr int Right_Width = 230;
constexpr int Top = 54;

QGroupBox* Form92::Make_Frame(const QString& name, const QString& caption, const QRect& place) {
    auto* frame = new QGroupBox(caption, Frame1);
    frame->setObjectName(name);
    frame->setGeometry(place);
    return frame;
}

QRadioButton* Form92::Make_Option(const QString& name, const QString& caption, const QRect& place,
                                  QWidget* parent) {
    auto* option = new QRadioButton(caption, parent);
    option->setObjectName(name);
    option->setGeometry(place);
    option->setAccessibleDescription(parent->accessibleDescription());
    shell::On(option, &QRadioButton::clicked, this, platform, [this] { Option_Click(); });
    return option;
}

// The order of making is the tab order: first the pupils, then the report, then what can be done with it.
void Form92::Lay_Out() {
    Make_Label(u"Label3"_s, u"Multiple Reports Print Preview"_s, Text_Role::Title, {Left, 16, 440, 34});
    Lay_Out_List();
    Lay_Out_Selection();
    Lay_Out_Middle();
    Lay_Out_Options();
    Lay_Out_Zoom();
    QGroupBox* copies = Make_Frame(u"Frame9"_s, u"Make copies"_s, {Right, 362, Right_Width, 74});
    Make_Copy_Entries({12, 28, 98, 36}, {120, 28, 98, 36}, copies);
    Make_Margins_Box({Right, 437, Right_Width, 26});
    Make_Main_Entry({Right, 508, Right_Width, 36});
    Make_Save_Entry({Right, 466, Right_Width, 36}, KeepToMargins);
}

void Form92::Lay_Out_List() {
    QGroupBox* frame = Make_Frame(u"Frame7"_s, u"Batch list"_s, {Left, Top, Left_Width, 230});
    Make_Label(u"Label1"_s, u"Group Filter:"_s, Text_Role::Body, {12, 30, 92, 20}, frame);
    cboGroupFilter = new shell::Click_Combo(u"cboGroupFilter"_s, frame);
    cboGroupFilter->setGeometry(106, 24, 186, 32);
    cboGroupFilter->setAccessibleName(u"Group Filter"_s);
    cboGroupFilter->setAccessibleDescription(u"Lists the pupils of one group only."_s);
    shell::On(cboGroupFilter, &shell::Click_Combo::Click, this, platform, [this] { cboGroupFilter_Click(); });
    lstPupils = Make_List(u"lstPupils"_s, u"Batch list"_s, {12, 62, 280, 158}, frame);
    lstPupils->setAccessibleDescription(
        u"The space bar selects a pupil for the report, or takes them out."_s);
    lstPupils->setSelectionMode(QAbstractItemView::MultiSelection);
    shell::On(lstPupils, &QListWidget::itemSelectionChanged, this, platform, [this] { lstPupils_Click(); });
}

void Form92::Lay_Out_Selection() {
    QGroupBox* frame = Make_Frame(u"Frame4"_s, u"Selection"_s, {Left, 288, Left_Width, 112});
    const auto entry = [this, frame](const char16_t* name, const QString& caption, const QRect& place,
                                     std::function<void()> click) {
        return Make_HotLabel(QString::fromUtf16(name), caption, place, std::move(click),
                             HotLabel::Look::Command, frame);
    };
    HotLabel7 = entry(u"HotLabel7", u"Select all"_s, {12, 26, 134, 34}, [this] { HotLabel7_Click(); });
    HotLabel8 = entry(u"HotLabel8", u"Clear all"_s, {158, 26, 134, 34}, [this] { HotLabel8_Click(); });
    HotLabel9 =
        entry(u"HotLabel9", u"Create batch report"_s, {12, 66, 280, 38}, [this] { HotLabel9_Click(); });
    HotLabel9->Set_Weight(HotLabel::Weight::Primary);
    FullReports = Make_HotLabel(u"FullReports"_s, u"Full reports..."_s, {Left, 462, Left_Width, 38},
                                [this] { FullReports_Click(); });
    SaveScores = Make_HotLabel(u"SaveScores"_s, u"Save scores as CSV..."_s, {Left, 506, Left_Width, 38},
                               [this] { SaveScores_Click(); });
    for (HotLabel* of_selected : {HotLabel9, FullReports, SaveScores})
        of_selected->setEnabled(false); // nothing is selected as yet
}

void Form92::Lay_Out_Middle() {
    constexpr int beside_the_title = 464;
    constexpr int room = Middle + Middle_Width - beside_the_title;
    Label5 = Make_Label(u"Label5"_s, u""_s, Text_Role::Heading, {beside_the_title, 16, room, 19});
    Label10 = Make_Label(u"Label10"_s, u""_s, Text_Role::Quiet, {beside_the_title, 35, room, 18});
    Make_Preview({Middle, Top, Middle_Width, 490}); // a whole sheet at the first zoom
    Label2 = Make_Label(u"Label2"_s, u""_s, Text_Role::Help, {Left, 402, Left_Width, 58});
    Label2->setWordWrap(true);
    Label2->setAccessibleName(u"Help"_s);
}

void Form92::Lay_Out_Options() {
    const QRect first(14, 26, 100, 28);
    const QRect second(120, 26, 100, 28);
    Frame2 = Make_Frame(u"Frame2"_s, u"Preview Pages"_s, {Right, 16, Right_Width, 116});
    List3 = Make_List(u"List3"_s, u"Preview Pages"_s, {12, 28, 88, 78}, Frame2);
    shell::On(List3, &QListWidget::currentRowChanged, this, platform, [this] { List3_Click(); });
    shell::On(Preview, &preview::Preview_Window::Turned, this, platform, [this] { Follow_Shown_Page(); });
    Lay_Out_Search();

    Frame5 = Make_Frame(u"Frame5"_s, u"Background"_s, {Right, 136, Right_Width, 60});
    Option1 = Make_Option(u"Option1"_s, u"Grey"_s, first, Frame5);
    Option2 = Make_Option(u"Option2"_s, u"White"_s, second, Frame5);
    QGroupBox* labels = Make_Frame(u"Frame3"_s, u"Student label"_s, {Right, 200, Right_Width, 60});
    labels->setAccessibleDescription(u"What stands over each profile."_s);
    Option5 = Make_Option(u"Option5"_s, u"Name"_s, first, labels);
    Option6 = Make_Option(u"Option6"_s, u"User ID"_s, second, labels);
}

void Form92::Lay_Out_Search() {
    FindName = new QLineEdit(Frame2);
    FindName->setObjectName(u"FindName"_s);
    FindName->setAccessibleName(u"Find a name"_s);
    FindName->setPlaceholderText(u"Find a name"_s);
    FindName->setGeometry(108, 28, 110, 30);
    shell::On(FindName, &QLineEdit::textChanged, this, platform, [this] { FindName_Changed(); });
    shell::On(FindName, &QLineEdit::returnPressed, this, platform, [this] { Find_Next(); });
    Found = Make_Label(u"Found"_s, u""_s, Text_Role::Quiet, {108, 62, 110, 44}, Frame2);
    const auto key = [this](const QKeySequence& keys, std::function<void()> act) {
        shell::On(new QShortcut(keys, this), &QShortcut::activated, this, platform, std::move(act));
    };
    key(QKeySequence(Qt::CTRL | Qt::Key_F), [this] {
        FindName->setFocus();
        FindName->selectAll();
    });
    key(QKeySequence(Qt::Key_F3), [this] { Find_Next(); });
}

void Form92::Lay_Out_Zoom() {
    Frame8 = Make_Frame(u"Frame8"_s, u"Zoom"_s, {Right, 264, Right_Width, 94});
    const auto zoom = [](const QString& caption, int left) {
        constexpr int width = 47;
        return Zoom_Entry{caption, {left, 28, width, 34}, {left, 64, width, 26}};
    };
    Make_Zoom_Entries({zoom(u"100%"_s, 12), zoom(u"67%"_s, 65), zoom(u"40%"_s, 118), zoom(u"Fit"_s, 171)},
                      Frame8);
}

void Form92::Tell_Helps() {
    auto* help = new shell::Help_Line(this, [this](const QString& text) { Label2->setText(text); });
    Tell_Common_Helps(*help, u"Copy the current page only to the clipboard as a Windows Metafile (.WMF)"_s);
    help->Tell(HotLabel7, u"Highlight (select) all the names shown in the batch list."_s);
    help->Tell(HotLabel8, u"Clear (unselect) all names from the batch list."_s);
    help->Tell(HotLabel9,
               u"Create a printout for all pupils whose names are highlighted in the batch list."_s);
    help->Tell(FullReports,
               u"Save an individual report of each pupil highlighted in the batch list as PDF."_s);
    help->Tell(
        FindName,
        u"Type a part of a name: the page with that pupil is shown, and F3 goes on to the next one."_s);
    help->Tell(SaveScores,
               u"Save the scores of all pupils whose names are highlighted in the batch list, for a "
               "spreadsheet."_s);
    help->Tell(Frame2, u"Select the page of miniature profiles you wish to view"_s);
    help->Tell(Frame5,
               u"Tip: Change background to white if report printouts appear too dark or indistinct."_s);
    help->Tell(Frame8, u"Tip: Double click on the report to zoom in further."_s);
    help->Follow_Focus(*this);
}

} // namespace printing
