#include "pupils/import/preparation.h"

#include "pupils/import/pupil_fields.h"
#include "pupils/import/told_losses.h"

#include <QLocale>
#include <algorithm>

using namespace Qt::StringLiterals;

namespace pupils {
namespace {

QString Cell(const Source_Row& row, int column) {
    return column == No_Column ? QString() : row.cells.value(column);
}

// Letters and accents that were written apart belong together, and blanks of other kinds are blanks.
QString Tidied(const QString& cell) {
    return cell.normalized(QString::NormalizationForm_C).simplified();
}

QStringList Fields_Of(const Source_Row& row, const Column_Mapping& mapping) {
    QStringList fields;
    for (const int column : mapping)
        fields.append(Tidied(Cell(row, column)));
    if (!Has_Whole_Names(mapping)) return fields;
    const QString whole = fields[place::Surname];
    const qsizetype comma = whole.indexOf(u',');
    fields[place::Surname] = whole.left(comma < 0 ? whole.size() : comma).trimmed();
    fields[place::Forename] = comma < 0 ? QString() : whole.mid(comma + 1).trimmed();
    return fields;
}

QStringList Birthdays(const Preparation& list) {
    QStringList texts;
    for (const int row : Pupil_Rows(list.table, list.recognition))
        texts.append(Tidied(Cell(list.table.rows[row], list.recognition.mapping[place::Date_Of_Birth])));
    return texts;
}

QString Fields_Without_Column(const Column_Mapping& mapping) {
    QStringList names;
    for (const qsizetype field : {place::Surname, place::Forename, place::Sex, place::Date_Of_Birth})
        if (mapping[std::size_t(field)] == No_Column) names.append(Field_Name(field));
    return names.isEmpty() ? QString() : u" No column is chosen for: %1."_s.arg(names.join(u", "_s));
}

bool Is_In_The_Way(const Rehearsed_Row& row) {
    return row.goes && (row.kind == Row_Kind::Refused || row.kind == Row_Kind::Spoilt);
}

} // namespace

void Take_Source(Preparation& list, Source_Table table, const QDate& today) {
    list.table = std::move(table);
    list.recognition = Recognise(list.table, today);
    list.chosen.clear();
    list.class_for_all.clear();
    list.accepted_classes.clear();
    Take_Mapping(list, list.recognition.mapping, today);
}

void Take_Mapping(Preparation& list, const Column_Mapping& mapping, const QDate& today) {
    list.recognition.mapping = mapping;
    list.corrections.clear();
    list.dates = Fit_Dates(Birthdays(list), today);
    list.order = list.dates.Settled();
}

QList<Draft_Row> Drafts(const Preparation& list) {
    QList<Draft_Row> drafts;
    for (const int row : Pupil_Rows(list.table, list.recognition)) {
        const Source_Row& source = list.table.rows[row];
        drafts.append({source.line, Fields_Of(source, list.recognition.mapping), false});
    }
    if (list.corrections.isEmpty()) return drafts;
    for (Draft_Row& draft : drafts)
        for (int field = 0; field < place::Count; ++field) {
            const auto corrected = list.corrections.constFind({draft.line, field});
            if (corrected == list.corrections.cend()) continue;
            draft.fields[field] = *corrected;
            if (field == place::Date_Of_Birth) draft.date_is_corrected = true;
        }
    return drafts;
}

Rehearsal_Setting Setting_Of(const Preparation& list, const QDateTime& now) {
    return {list.order, Has_Whole_Names(list.recognition.mapping), list.class_for_all, now};
}

QList<Rehearsed_Row> Rehearse(const Preparation& list, const Registered& registered, const QDateTime& now) {
    QList<Rehearsed_Row> rows = Rehearse(Drafts(list), Setting_Of(list, now), registered);
    for (Rehearsed_Row& row : rows)
        row.goes = list.chosen.value(row.line, row.goes);
    return rows;
}

int Cure(Preparation& list, const QSet<int>& lines, const QDateTime& now) {
    const Rehearsal_Setting setting = Setting_Of(list, now);
    int cured_rows = 0;
    for (const Draft_Row& draft : Drafts(list)) {
        if (!lines.contains(draft.line)) continue;
        const QStringList cured = Cured_Draft(draft, setting);
        if (cured == draft.fields) continue;
        ++cured_rows;
        for (int field = 0; field < place::Count; ++field)
            if (cured[field] != draft.fields[field]) list.corrections[{draft.line, field}] = cured[field];
    }
    return cured_rows;
}

Rehearsal_Counts Count(const QList<Rehearsed_Row>& rows, const Registered& registered) {
    Rehearsal_Counts counts;
    QSet<QString> seen;
    for (const Rehearsed_Row& row : rows) {
        ++counts.rows;
        ++counts.of_kind[std::size_t(row.kind)];
        if (Is_In_The_Way(row)) ++counts.in_the_way;
        if (!row.goes) continue;
        ++counts.going;
        const QString& name = row.fields[place::Group];
        const QString folded = name.toCaseFolded();
        if (name.isEmpty() || seen.contains(folded)) continue;
        seen.insert(folded);
        if (!registered.Has_Group(name)) counts.new_classes.append(name);
    }
    return counts;
}

bool Accepts_Classes(const Preparation& list, const Rehearsal_Counts& counts) {
    return std::all_of(counts.new_classes.begin(), counts.new_classes.end(), [&](const QString& name) {
        return list.accepted_classes.contains(name.toCaseFolded());
    });
}

QString Why_Not_Yet(const Preparation& list, const Rehearsal_Counts& counts) {
    if (counts.rows == 0) return u"There is no row with a pupil."_s;
    if (list.order == Date_Order::Unsettled && list.dates.dates > 0)
        return u"Settle which comes first in the dates."_s;
    if (counts.in_the_way > 0)
        return u"%1 of the rows must be corrected, cured or left out first."_s.arg(counts.in_the_way) +
               Fields_Without_Column(list.recognition.mapping);
    if (counts.going == 0) return u"No row is left to be imported."_s;
    if (!Accepts_Classes(list, counts)) return u"Accept the new classes first."_s;
    return {};
}

QStringList Dates_Either_Way(const Preparation& list) {
    QStringList texts;
    const QStringList birthdays = Birthdays(list);
    const QList<int> rows = Pupil_Rows(list.table, list.recognition);
    for (const int each : list.dates.telling_apart) {
        const auto read = [&](Date_Order order) {
            return QLocale::c().toString(Read_Source_Date(birthdays[each], order)->date, u"d MMM yyyy"_s);
        };
        texts.append(u"line %1: %2 or %3"_s.arg(list.table.rows[rows[each]].line)
                         .arg(read(Date_Order::Day_First), read(Date_Order::Month_First)));
    }
    return texts;
}

QString In_Words(const Rehearsal_Counts& counts) {
    QStringList kinds;
    for (int kind = 0; kind < Row_Kinds; ++kind)
        if (const int count = counts.of_kind[std::size_t(kind)]; count > 0)
            kinds.append(QString::number(count) + u' ' + Words_Of(Row_Kind(kind)));
    return u"%1 rows, %2 to be imported: %3."_s.arg(counts.rows).arg(counts.going).arg(kinds.join(u", "_s));
}

} // namespace pupils
