#include "pupils/rehearsal_view.h"

#include "pupils/import/pupil_fields.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QTextDocument>

using namespace Qt::StringLiterals;

namespace pupils {
namespace {

namespace column = rehearsal_column;

struct Column {
    QString heading;
    int width; // pixels
    int field; // its place among the fields, or -1
};

const QList<Column>& Columns() {
    static const QList<Column> columns{
        {u"Import"_s, 60, -1},
        {u"Line"_s, 44, -1},
        {u"What it is"_s, 124, -1},
        {u"Surname"_s, 106, int(place::Surname)},
        {u"Forename(s)"_s, 100, int(place::Forename)},
        {u"Gender"_s, 66, int(place::Sex)},
        {u"Born"_s, 88, int(place::Date_Of_Birth)},
        {u"Age"_s, 72, -1},
        {u"Class"_s, 92, int(place::Group)},
        {u"Password"_s, 84, int(place::Password)},
        {u"Why"_s, 150, -1},
    };
    return columns;
}

} // namespace

void Rehearsal_Model::Show(QList<Rehearsed_Row> given) {
    const auto lines = [](const QList<Rehearsed_Row>& of) {
        QList<int> numbers;
        for (const Rehearsed_Row& row : of)
            numbers.append(row.line);
        return numbers;
    };
    if (lines(rows) == lines(given)) {
        rows = std::move(given);
        if (!rows.isEmpty()) Q_EMIT dataChanged(index(0, 0), index(int(rows.size()) - 1, column::Count - 1));
        return;
    }
    beginResetModel();
    rows = std::move(given);
    endResetModel();
}

const Rehearsed_Row* Rehearsal_Model::Row(int place) const {
    return place >= 0 && place < rows.size() ? &rows[place] : nullptr;
}

int Rehearsal_Model::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : int(rows.size());
}

int Rehearsal_Model::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : int(column::Count);
}

QString Rehearsal_Model::Text_Of(const Rehearsed_Row& row, int which) const {
    if (const int field = Columns()[which].field; field >= 0) return row.fields[field];
    switch (which) {
    case column::Goes:
        return row.goes ? u"yes"_s : u"no"_s;
    case column::Line:
        return QString::number(row.line);
    case column::Kind:
        return Words_Of(row.kind);
    case column::Age:
        return row.birthday.isValid() ? Age_Words(row.age_months) : QString();
    default:
        return row.words.join(u"; "_s);
    }
}

QVariant Rehearsal_Model::data(const QModelIndex& index, int role) const {
    const Rehearsed_Row* row = Row(index.row());
    if (!row) return {};
    const bool ticked = index.column() == column::Goes;
    if (role == Qt::CheckStateRole && ticked) return row->goes ? Qt::Checked : Qt::Unchecked;
    if (role == Qt::AccessibleTextRole || ((role == Qt::DisplayRole || role == Qt::EditRole) && !ticked))
        return Text_Of(*row, index.column());
    if (role == Qt::ToolTipRole) {
        const QString text =
            index.column() == column::Words ? row->words.join(u";\n"_s) : Text_Of(*row, index.column());
        return text.isEmpty() ? QVariant() : QVariant(Qt::convertFromPlainText(text));
    }
    return {};
}

QVariant Rehearsal_Model::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal) return {};
    if (role == Qt::DisplayRole) return Columns()[section].heading;
    return role == Qt::TextAlignmentRole ? QVariant(int(Qt::AlignLeft | Qt::AlignVCenter)) : QVariant();
}

Qt::ItemFlags Rehearsal_Model::flags(const QModelIndex& index) const {
    Qt::ItemFlags flags = Qt::ItemIsEnabled | Qt::ItemIsSelectable;
    if (!index.isValid()) return flags;
    if (index.column() == column::Goes) flags |= Qt::ItemIsUserCheckable;
    if (Columns()[index.column()].field >= 0) flags |= Qt::ItemIsEditable;
    return flags;
}

bool Rehearsal_Model::setData(const QModelIndex& index, const QVariant& value, int role) {
    const Rehearsed_Row* row = Row(index.row());
    if (!row) return false;
    const int field = Columns()[index.column()].field;
    if (role == Qt::CheckStateRole && field < 0)
        change = {row->line, -1, {}, value.toInt() == Qt::Checked};
    else if (role == Qt::EditRole && field >= 0 && value.toString() != row->fields[field])
        change = {row->line, field, value.toString(), false};
    else
        return false;
    Q_EMIT Changed();
    return true;
}

Rehearsal_View::Rehearsal_View(const QString& name, QWidget* parent)
    : QTableView(parent), rows(new Rehearsal_Model(this)) {
    setObjectName(name);
    setModel(rows);
    setTabKeyNavigation(false);
    setSelectionMode(QAbstractItemView::NoSelection);
    setEditTriggers(QAbstractItemView::DoubleClicked | QAbstractItemView::EditKeyPressed |
                    QAbstractItemView::AnyKeyPressed);
    setWordWrap(false);
    verticalHeader()->hide();
    verticalHeader()->setDefaultSectionSize(28);
    horizontalHeader()->setHighlightSections(false);
    horizontalHeader()->setStretchLastSection(true);
    for (int which = 0; which < column::Count; ++which)
        setColumnWidth(which, Columns()[which].width);
}

void Rehearsal_View::keyPressEvent(QKeyEvent* event) {
    const Rehearsed_Row* row = rows->Row(currentIndex().row());
    if (event->key() != Qt::Key_Space || !row) {
        QTableView::keyPressEvent(event);
        return;
    }
    rows->setData(rows->index(currentIndex().row(), column::Goes), row->goes ? Qt::Unchecked : Qt::Checked,
                  Qt::CheckStateRole);
}

} // namespace pupils
