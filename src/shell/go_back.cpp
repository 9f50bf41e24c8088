#include "shell/go_back.h"

#include "foundation/school_look.h"
#include "platform/basics/run_time_error.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLocale>

using namespace Qt::StringLiterals;

namespace shell {

namespace {

constexpr QSize Frame_Size{1060, 552};
constexpr int Left = 32;
constexpr int List_Width = 684;
constexpr int Right = Left + List_Width + 20;
constexpr int Right_Width = 1060 - Right - Left;

constexpr int Unreadable = Qt::UserRole; // of a row, beside its moment

enum Column { Moment, Why, Pupils, With_Results, Size };

QStringList Row_Of(const database::Kept_File& kept) {
    const QLocale plain = QLocale::c();
    return {plain.toString(kept.when, u"ddd d MMM yyyy, HH:mm"_s),
            Why_Kept(kept),
            {},
            {},
            plain.formattedDataSize(QFileInfo(kept.path).size(), 1, QLocale::DataSizeSIFormat)};
}

} // namespace

Form61::Form61(desktop::Platform& platform, Navigator& navigator, foundation::Installation& installation,
               const Menu_Counts& counts, database::File_Copies& copies)
    : Page(platform, navigator, Frame_Size),
      installation(installation),
      holder(platform),
      acts(platform, installation, counts, copies, holder) {
    setObjectName(u"Form61"_s);
    Lay_Out();
    Tell_Helps();
}

void Form61::Lay_Out() {
    Make_Label(u"Label2"_s, u"Go back to…"_s, Text_Role::Title, {Left, 20, 500, 44});
    QLabel* about = Make_Label(
        u"Label3"_s,
        u"A copy is kept before the Delete, Import, Security or Fine tuning page is worked on, and before an archive or a clean start takes the database's place. The oldest go by themselves."_s,
        Text_Role::Body, {Left, 66, Frame_Size.width() - 2 * Left, 44});
    about->setWordWrap(true);
    Copies = Make_Choice_List(
        u"Copies"_s, u"Copies that were kept"_s,
        {{u"Kept on"_s, 190}, {u"Why"_s, 216}, {u"Pupils"_s, 72}, {u"With results"_s, 108}, {u"Size"_s, 80}},
        {Left, 120, List_Width, 278}, Frame1);
    On(Copies, &QTreeWidget::itemSelectionChanged, this, platform, [this] { Tell_Of_Choice(); });
    Place = Make_Label(u"Place"_s, u""_s, Text_Role::Quiet, {Left, 404, List_Width, 44});
    Place->setWordWrap(true);
    const auto entry = [this](const QString& name, const QString& caption, int row,
                              std::function<void()> click) {
        return Make_HotLabel(name, caption, {Right, 120 + row * 68, Right_Width, 56}, std::move(click),
                             HotLabel::Look::Entry);
    };
    HotLabel2 = entry(u"HotLabel2"_s, u"Look inside"_s, 0, [this] { HotLabel2_Click(); });
    HotLabel3 =
        entry(u"HotLabel3"_s, u"Go back to this copy (destructively)"_s, 1, [this] { HotLabel3_Click(); });
    HotLabel4 = entry(u"HotLabel4"_s, u"Remove this copy for good"_s, 2, [this] { HotLabel4_Click(); });
    HotLabel5 = entry(u"HotLabel5"_s, u"Remove a pupil everywhere"_s, 3, [this] { HotLabel5_Click(); });
    HotLabel2->Set_Weight(HotLabel::Weight::Primary);
    for (HotLabel* destructive : {HotLabel3, HotLabel4}) {
        destructive->Set_Icon(u"caution"_s);
        destructive->Set_Weight(HotLabel::Weight::Destructive);
    }
    HotLabel1 = Make_HotLabel(u"HotLabel1"_s, u"Archiving"_s, {Frame_Size.width() - Left - 140, 408, 140, 40},
                              [this] { HotLabel1_Click(); });
}

void Form61::Tell_Helps() {
    const Help made = Make_Help(u"Label1"_s, {Left, 460, Frame_Size.width() - 2 * Left, 72});
    Label1 = made.label;
    const std::pair<QWidget*, QString> helps[] = {
        {Copies, u"The copies that were kept of your database, the latest first. Choose one of them."_s},
        {HotLabel1, u"Return to the Archiving menu"_s},
        {HotLabel2,
         u"Hold this copy in Viewing mode, as you would an archive. Your current database stays as it is; the Archiving menu brings you back to it."_s},
        {HotLabel3,
         u"Put this copy in the place of your current database, with the Administrator's password. What the database holds now is kept as a copy first, so that you can come back to it here."_s},
        {HotLabel4, u"Delete the file of this copy. Nothing brings it back."_s},
        {HotLabel5,
         u"When a parent asks for it: take a pupil whom you have deleted out of all copies, and out of archives that you choose, so that nothing of them is left."_s},
    };
    for (const auto& [control, text] : helps)
        made.line->Tell(control, text);
    made.line->Follow_Focus(*this);
}

void Form61::Load() {
    List_Copies();
    counting = Once_Painted(u"Timer1"_s, [this] { Timer1_Timer(); });
}

void Form61::List_Copies() {
    Copies->clear();
    counted = 0;
    kept = Kept_Databases(installation);
    QList<QTreeWidgetItem*> rows;
    for (const database::Kept_File& copy : kept)
        rows.append(new QTreeWidgetItem(Row_Of(copy)));
    for (QTreeWidgetItem* row : rows)
        for (const Column number : {Pupils, With_Results, Size})
            row->setTextAlignment(number, Qt::AlignRight | Qt::AlignVCenter);
    Copies->addTopLevelItems(rows);
    if (!kept.isEmpty()) Copies->setCurrentItem(rows.first());
    Tell_Of_Choice();
}

// One at a time: on a share each of them takes a moment, and the page can be used meanwhile.
void Form61::Timer1_Timer() {
    if (counted >= kept.size()) return;
    QTreeWidgetItem* row = Copies->topLevelItem(counted);
    try {
        constexpr int longest_wait = 1;
        const foundation::School_Counts found = foundation::Count_School(kept[counted].path, longest_wait);
        row->setText(Pupils, QString::number(found.pupils));
        row->setText(With_Results, QString::number(found.with_results));
    } catch (const basics::Run_Time_Error&) {
        row->setText(With_Results, u"can't be read"_s);
        row->setData(Moment, Unreadable, true);
        Tell_Of_Choice();
    }
    ++counted;
    if (counted < kept.size()) counting->start(0);
}

int Form61::Chosen() const {
    const QList<QTreeWidgetItem*> rows = Copies->selectedItems();
    return rows.isEmpty() ? -1 : Copies->indexOfTopLevelItem(rows.first());
}

void Form61::Tell_Of_Choice() {
    const int chosen = Chosen();
    const bool readable = chosen >= 0 && !Copies->topLevelItem(chosen)->data(Moment, Unreadable).toBool();
    HotLabel2->setEnabled(readable);
    HotLabel3->setEnabled(readable);
    HotLabel4->setEnabled(chosen >= 0);
    Place->setText(kept.isEmpty() ? u"No copy has been kept yet."_s
                   : chosen < 0   ? QString()
                                  : u"It lies in "_s + QDir::toNativeSeparators(kept[chosen].path));
}

void Form61::HotLabel1_Click() {
    navigator.Go_To(Page_Id::Archiving);
}

// The viewing ends on the Archiving page.
void Form61::HotLabel2_Click() {
    if (acts.View(kept[Chosen()].path)) HotLabel1_Click();
}

void Form61::HotLabel3_Click() {
    const QString file = kept[Chosen()].path;
    if (!acts.Confirmed(u"Load an archived database - CAUTION!"_s, Wrong_Password::Is_Silent)) return;
    acts.Load(file, keeping::Act::Gone_Back);
    HotLabel1_Click(); // which counts the pupils anew
}

void Form61::HotLabel4_Click() {
    const int chosen = Chosen();
    const QString file = kept[chosen].path;
    const QString text = u"Are you sure you wish to remove the copy of "_s +
                         Copies->topLevelItem(chosen)->text(Moment) + u"? - (this is irreversible)"_s;
    if (platform.boxes.Ask(desktop::Box_Style::Yes_No_Question, u"Removing a copy - CAUTION!"_s, text) !=
        desktop::Answer::Yes)
        return;
    if (QFile::remove(file))
        QFile::remove(database::Companion_Of_Archive(file));
    else
        platform.boxes.Ask(desktop::Box_Style::Critical, u"Removing a copy"_s,
                           u"The copy can't be removed by your User Account:\r"_s +
                               QDir::toNativeSeparators(file));
    List_Copies();
    counting->start(0);
}

void Form61::HotLabel5_Click() {
    navigator.Go_To(Page_Id::Remove_Pupil);
}

} // namespace shell
