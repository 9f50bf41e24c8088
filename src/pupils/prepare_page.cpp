#include "pupils/prepare_page.h"

#include "platform/desktop/wait_pointer.h"
#include "scoring/pupil_lists.h"

#include <QCompleter>
#include <QDir>
#include <QSaveFile>
#include <algorithm>

using namespace Qt::StringLiterals;

namespace pupils {

using desktop::Box_Style;

namespace {

// The name under which the account keeps what the columns of such a list hold.
QString Setting_Of(const Recognition& recognition) {
    return u"Lists/"_s + Headings_Name(recognition);
}

bool Has_Headings(const Recognition& recognition) {
    return recognition.heading != No_Column;
}

// What is chosen is set without telling that it was.
void Fill(shell::Click_Combo* combo, const QStringList& items, int chosen) {
    combo->Clear();
    combo->addItems(items);
    combo->setCurrentIndex(chosen);
    combo->setEnabled(!items.isEmpty());
}

QString Shortened(const QString& text) {
    constexpr qsizetype most = 60;
    return text.size() <= most ? text : text.left(most - 1) + u'…';
}

void Write_File(const QString& name, const QByteArray& bytes) {
    QSaveFile file(name);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size() || !file.commit())
        throw Refused_Source(u"The file can't be written: "_s + file.errorString());
}

} // namespace

void Form43::Load() {
    registered = Read_Registered(installation.Connection_String);
    auto* groups = new QCompleter(registered.Groups(), this);
    groups->setCompletionMode(QCompleter::InlineCompletion);
    groups->setCaseSensitivity(Qt::CaseInsensitive);
    Text2->setCompleter(groups);
    Show_List();
}

void Form43::Telling_Refusals(const std::function<void()>& work) {
    try {
        const desktop::Wait_Pointer busy(platform.pointer);
        work();
    } catch (const Refused_Source& refused) {
        platform.boxes.Ask(Box_Style::Exclamation, windowTitle(), refused.Why());
    }
}

void Form43::Begin_With(const QString& source, const QByteArray& bytes, Source_Table table) {
    const QDate today = platform.clock.Now().date();
    list.source = source;
    list.bytes = bytes;
    Take_Source(list, std::move(table), today);
    if (Has_Headings(list.recognition)) {
        const QString kept = platform.settings.Value(Setting_Of(list.recognition), {});
        if (const auto mapping = Mapping_Of(kept, list.recognition.headings.size()))
            Take_Mapping(list, *mapping, today);
    }
    Combo9->setCurrentIndex(0);
    Show_List();
}

void Form43::HotLabel2_Click() {
    desktop::File_Question question;
    question.title = u"Open a list of pupils"_s;
    question.filter = u"Lists (*.csv *.txt *.tsv *.xlsx);;All files (*)"_s;
    question.folder = installation.Archive_Folder;
    const QString file = platform.file_dialogs.Open_File(question);
    if (file.isEmpty()) return;
    Telling_Refusals([&] {
        const QByteArray bytes = Bytes_Of_Source(file);
        Begin_With(QDir::toNativeSeparators(file), bytes, Read_Source_Bytes(bytes));
    });
}

void Form43::HotLabel3_Click() {
    const QString text = platform.clipboard.Text();
    Telling_Refusals([&] {
        if (text.trimmed().isEmpty())
            throw Refused_Source(u"Nothing has been copied that could be pasted."_s);
        Begin_With(u"(pasted)"_s, {}, Read_Pasted_Source(text));
    });
}

void Form43::Combo1_Click() {
    Telling_Refusals([&] {
        const int chosen = Combo1->ListIndex();
        const Source_Choice choice =
            list.table.encoding ? Source_Choice{Encoding(chosen), 0} : Source_Choice{{}, chosen};
        Begin_With(list.source, list.bytes, Read_Source_Bytes(list.bytes, choice));
    });
}

void Form43::Mapping_Click() {
    Column_Mapping mapping;
    for (std::size_t field = 0; field < mapping.size(); ++field)
        mapping[field] = Fields[field]->ListIndex() - 1; // behind the item for none
    if (mapping == list.recognition.mapping) return;
    Take_Mapping(list, mapping, platform.clock.Now().date());
    if (Has_Headings(list.recognition))
        platform.settings.Keep(Setting_Of(list.recognition), Text_Of(mapping));
    Show_List();
}

void Form43::Combo8_Click() {
    list.order = Date_Order(Combo8->ListIndex());
    Show_Rehearsal();
}

void Form43::Text2_Change() {
    const QString name = Text2->text().simplified();
    if (name == list.class_for_all) return;
    list.class_for_all = name;
    Show_Rehearsal();
}

void Form43::Check1_Click() {
    list.accepted_classes.clear();
    if (Check1->isChecked())
        for (const QString& name : Count(rows, registered).new_classes)
            list.accepted_classes.insert(name.toCaseFolded());
    Show_Rehearsal();
}

void Form43::HotLabel4_Click() {
    QSet<int> lines;
    for (const Rehearsed_Row& row : Shown_Rows())
        if (row.goes) lines.insert(row.line);
    Cure(list, lines, platform.clock.Now());
    Show_Rehearsal();
}

void Form43::HotLabel5_Click() {
    desktop::File_Question question;
    question.title = u"Keep the prepared list"_s;
    question.filter = u"Text files (*.txt)"_s;
    question.folder = installation.Archive_Folder;
    question.extension = u"txt"_s;
    const QString file = platform.file_dialogs.Save_File(question);
    if (file.isEmpty()) return;
    Telling_Refusals([&] { Write_File(file, Prepared_Bytes(rows)); });
}

void Form43::HotLabel6_Click() {
    Telling_Refusals([&] {
        shared.file.Hold(Prepared_Bytes(rows));
        navigator.Go_To(shell::Page_Id::Import);
    });
}

void Form43::HotLabel1_Click() {
    navigator.Go_To(shell::Page_Id::Import);
}

// ---- what is shown

void Form43::Show_List() {
    Show_Source();
    Show_Columns();
    Show_Dates();
    Text2->setText(list.class_for_all);
    Text2->setEnabled(!list.source.isEmpty());
    Show_Rehearsal();
}

void Form43::Show_Source() {
    Text1->setText(list.source);
    const bool of_workbook = !list.table.sheets.isEmpty();
    Label2->setText(of_workbook ? u"Sheet:"_s : u"Encoding:"_s);
    QStringList items = of_workbook ? list.table.sheets : Encoding_Names();
    if (!of_workbook && !list.table.encoding) items.clear();
    Fill(Combo1, items, of_workbook ? list.table.sheet : int(list.table.encoding.value_or(Encoding::Utf_8)));
}

void Form43::Show_Columns() {
    static const QString without[] = {u"(choose)"_s, u"(choose)"_s,      u"(choose)"_s,
                                      u"(choose)"_s, u"(one for all)"_s, u"(date of birth)"_s};
    QStringList headings;
    for (const QString& heading : list.recognition.headings)
        headings.append(Shortened(heading));
    for (std::size_t field = 0; field < list.recognition.mapping.size(); ++field)
        Fill(Fields[field], headings.isEmpty() ? QStringList() : QStringList{without[field]} + headings,
             list.recognition.mapping[field] + 1);
}

void Form43::Show_Dates() {
    QStringList items;
    for (int order = 0; order < Date_Orders && list.dates.dates > 0; ++order) {
        const QString words = Words_Of(Date_Order(order));
        items.append(order == 0 ? u"choose what comes first"_s
                                : u"%1: reads %2 of %3"_s.arg(words)
                                      .arg(list.dates.read[std::size_t(order)])
                                      .arg(list.dates.dates));
    }
    Fill(Combo8, items, int(list.order));
}

QList<Rehearsed_Row> Form43::Shown_Rows() const {
    const int filter = filters.value(Combo9->currentIndex(), All_Kinds);
    if (filter == All_Kinds) return rows;
    QList<Rehearsed_Row> shown = rows;
    shown.removeIf([filter](const Rehearsed_Row& row) { return int(row.kind) != filter; });
    return shown;
}

void Form43::Show_Filter(const Rehearsal_Counts& counts) {
    const int chosen = filters.value(Combo9->currentIndex(), All_Kinds);
    Combo9->Clear();
    Combo9->addItem(u"all rows"_s);
    filters = {All_Kinds};
    for (int kind = 0; kind < Row_Kinds; ++kind)
        if (const int count = counts.of_kind[std::size_t(kind)]; count > 0) {
            Combo9->addItem(u"%1 (%2)"_s.arg(Words_Of(Row_Kind(kind))).arg(count));
            filters.append(kind);
        }
    Combo9->setCurrentIndex(std::max(0, int(filters.indexOf(chosen))));
    Combo9->setEnabled(counts.rows > 0);
}

void Form43::Show_New_Classes(const Rehearsal_Counts& counts) {
    const qsizetype count = counts.new_classes.size();
    Check1->setVisible(count > 0);
    Check1->setText((count == 1 ? u"Make this new class: "_s : u"Make these %1 new classes: "_s.arg(count)) +
                    fontMetrics()
                        .elidedText(counts.new_classes.join(u", "_s), Qt::ElideRight, 760)
                        .replace(u'&', u"&&"_s));
    Check1->setToolTip(Qt::convertFromPlainText(counts.new_classes.join(u", "_s)));
    Check1->setChecked(Accepts_Classes(list, counts));
}

QString Form43::Summary(const Rehearsal_Counts& counts) const {
    QString words = In_Words(counts);
    if (!registered.why_unknown.isEmpty()) words += u" Who is registered can't be read."_s;
    if (registered.Count() + counts.going > scoring::Most_Pupils)
        words +=
            u" With them there are more pupils than the %1 of the pages' lists."_s.arg(scoring::Most_Pupils);
    return words;
}

void Form43::Show_Rehearsal() {
    rows = Rehearse(list, registered, platform.clock.Now());
    const Rehearsal_Counts counts = Count(rows, registered);
    Show_Filter(counts);
    Spread1->Rows().Show(Shown_Rows());
    Show_New_Classes(counts);
    const bool there = !list.source.isEmpty();
    const QString why_not = there ? Why_Not_Yet(list, counts) : QString();
    Label12->setText(there ? Summary(counts)
                           : u"Open a file, or copy a list in a spreadsheet and paste it."_s);
    const QStringList either_way =
        list.order == Date_Order::Unsettled ? Dates_Either_Way(list) : QStringList();
    Label13->setText(either_way.isEmpty() ? why_not
                                          : why_not + u" Which is right? "_s + either_way.join(u"; "_s));
    HotLabel4->setEnabled(
        std::any_of(rows.begin(), rows.end(), [](const auto& row) { return row.goes && row.curable; }));
    HotLabel5->setEnabled(there && why_not.isEmpty());
    HotLabel6->setEnabled(there && why_not.isEmpty());
}

void Form43::Tell_Row() {
    if (const Rehearsed_Row* row = Spread1->Rows().Row(Spread1->currentIndex().row()))
        Label3->setText(
            u"Line %1, %2. %3"_s.arg(row->line).arg(Words_Of(row->kind), row->words.join(u"; "_s)).trimmed());
}

void Form43::Take_Change() {
    const Rehearsal_Model::Change change = Spread1->Rows().Last_Change();
    if (change.field < 0)
        list.chosen[change.line] = change.goes;
    else
        list.corrections[{change.line, change.field}] = change.text.simplified();
    Show_Rehearsal();
    Tell_Row();
}

} // namespace pupils
