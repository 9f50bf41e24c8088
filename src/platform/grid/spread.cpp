#include "platform/grid/spread.h"

#include "platform/basics/run_time_error.h"

#include <QAbstractTableModel>
#include <QHeaderView>
#include <QHelpEvent>
#include <QStyledItemDelegate>
#include <QTextDocument>
#include <QToolTip>
#include <algorithm>

using namespace Qt::StringLiterals;

namespace grid {
namespace {

constexpr int Row_Numbers_Width = 48; // pixels

// Draws cells that hold certain texts in a look of their own.
class Look_Delegate final : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;
    QHash<QString, Cell_Look> looks;

protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override {
        QStyledItemDelegate::initStyleOption(option, index);
        const auto look = looks.constFind(option->text);
        option->text = With_Breaks_At_Commas(option->text);
        if (look == looks.constEnd()) return;
        if (look->ground.isValid()) option->backgroundBrush = look->ground;
        option->palette.setColor(QPalette::Text, look->ink);
        option->font.setBold(look->bold);
    }
};

// A to Z, AA, AB and so on.
QString Column_Letters(int column) {
    QString letters;
    for (int rest = column; rest > 0; rest = (rest - 1) / 26)
        letters.prepend(QChar(u'A' + (rest - 1) % 26));
    return letters;
}

} // namespace

// The grid's texts, and of each column its heading and its side: nothing of a cell's own, as each of the
// toolkit's items would have it.
class Cells final : public QAbstractTableModel {
public:
    Cells(int columns, int rows, QObject* parent) : QAbstractTableModel(parent), columns(columns) {
        Set_Rows(rows);
        headings.resize(static_cast<std::size_t>(columns));
    }

    struct Heading {
        QString text;
        QFont font;
        Side side = Side::Centre; // of the column's cells
        int alignment = Qt::AlignCenter;
    };
    std::vector<Heading> headings; // by column

    int rowCount(const QModelIndex& parent = {}) const override {
        return parent.isValid() || columns == 0 ? 0 : static_cast<int>(texts.size()) / columns;
    }
    int columnCount(const QModelIndex& parent = {}) const override { return parent.isValid() ? 0 : columns; }
    QVariant data(const QModelIndex& index, int role) const override {
        if (role == Qt::TextAlignmentRole) return int(Alignment_Of(index.column()));
        if (role == Qt::AccessibleDescriptionRole) return marks.value(index.row() + 1);
        if (role != Qt::DisplayRole && role != Qt::EditRole) return {};
        return texts[At(index.column(), index.row())];
    }
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override {
        if (orientation == Qt::Vertical) return Row_Heading(section, role);
        const Heading& heading = headings[static_cast<std::size_t>(section)];
        if (role == Qt::DisplayRole) return heading.text;
        if (role == Qt::FontRole) return heading.font;
        return role == Qt::TextAlignmentRole ? QVariant(heading.alignment) : QVariant();
    }

    Qt::Alignment Alignment_Of(int column) const {
        const bool left = headings[static_cast<std::size_t>(column)].side == Side::Left;
        return (left ? Qt::AlignLeft : Qt::AlignHCenter) | Qt::AlignVCenter;
    }
    const QString& Text(int column, int row) const { return texts[At(column, row)]; }
    void Set_Text(int column, int row, const QString& text) {
        QString& cell = texts[At(column, row)];
        if (cell == text) return;
        cell = text;
        Q_EMIT dataChanged(index(row, column), index(row, column));
    }
    void Set_Rows(int rows) {
        const int now = rowCount();
        if (rows > now) {
            beginInsertRows({}, now, rows - 1);
            texts.resize(static_cast<std::size_t>(rows) * static_cast<std::size_t>(columns), u""_s);
            endInsertRows();
        } else if (rows < now) {
            beginRemoveRows({}, rows, now - 1);
            texts.resize(static_cast<std::size_t>(rows) * static_cast<std::size_t>(columns));
            endRemoveRows();
        }
    }
    void Set_All(std::vector<QString> all) {
        Set_Rows(static_cast<int>(all.size()) / columns);
        texts.swap(all);
        for (int column = 0; column < columns; ++column)
            Tell_What_Changed(column, all);
    }
    // Words by row, from 1.
    void Set_Marks(const QMap<int, QString>& words) {
        marks = words;
        if (rowCount() > 0) Q_EMIT headerDataChanged(Qt::Vertical, 0, rowCount() - 1);
    }
    QString Mark_Of(int row) const { return marks.value(row); }
    void Heading_Changed(int column) { Q_EMIT headerDataChanged(Qt::Horizontal, column, column); }

private:
    std::size_t At(int column, int row) const {
        return static_cast<std::size_t>(row) * static_cast<std::size_t>(columns) +
               static_cast<std::size_t>(column);
    }

    // Of the column's cells, beside what stood in them: what is the same needn't be painted anew.
    void Tell_What_Changed(int column, const std::vector<QString>& before) {
        const auto is_as_before = [&](int row) { return texts[At(column, row)] == before[At(column, row)]; };
        int first = 0;
        int last = rowCount() - 1;
        while (first <= last && is_as_before(first))
            ++first;
        while (first < last && is_as_before(last))
            --last;
        if (first <= last) Q_EMIT dataChanged(index(first, column), index(last, column));
    }

    // A row without a mark has an empty heading, or its number would show.
    QVariant Row_Heading(int row, int role) const {
        const bool is_marked = marks.contains(row + 1);
        if (marks.isEmpty() || (role != Qt::DisplayRole && role != Qt::ToolTipRole))
            return QAbstractTableModel::headerData(row, Qt::Vertical, role);
        if (role == Qt::DisplayRole) return is_marked ? u"!"_s : u""_s;
        return is_marked ? QVariant(Qt::convertFromPlainText(Mark_Of(row + 1))) : QVariant();
    }

    int columns;
    std::vector<QString> texts; // row by row
    QMap<int, QString> marks;
};

fpSpread::fpSpread(const QString& name, int columns, int rows, QWidget* parent)
    : QTableView(parent),
      cells(new Cells(columns, std::max(rows, 0), this)),
      rows_as_written(rows == Rows_As_Written),
      wider_on_paper(static_cast<std::size_t>(columns), 0) {
    setModel(cells);
    setObjectName(name);
    setItemDelegate(new Look_Delegate(this));
    for (int column = 1; column <= columns; ++column) {
        QFont& bold = cells->headings[static_cast<std::size_t>(column) - 1].font;
        bold = font();
        bold.setBold(true);
        Set_Heading(column, Column_Letters(column));
    }
    if (columns > 0) Set_Left_Aligned(1);
    horizontalHeader()->hide();
    horizontalHeader()->setHighlightSections(false);
    verticalHeader()->hide();
    verticalHeader()->setDefaultSectionSize(34);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setSelectionMode(QAbstractItemView::NoSelection);
    setTabKeyNavigation(false);
    connect(this, &QTableView::doubleClicked, this, [this] { Q_EMIT Double_Click(); });
    connect(horizontalHeader(), &QHeaderView::sectionDoubleClicked, this, [this] { Q_EMIT Double_Click(); });
}

int fpSpread::rowCount() const {
    return cells->rowCount();
}

int fpSpread::columnCount() const {
    return cells->columnCount();
}

void fpSpread::Set_Heading(int column, const QString& text) {
    QString& heading = cells->headings[static_cast<std::size_t>(column) - 1].text;
    if (heading == text) return;
    heading = text;
    cells->Heading_Changed(column - 1);
}

void fpSpread::Set_Text(int column, int row, const QString& text) {
    if (column < 1 || column > columnCount() || row < 0) return;
    if (row == 0) {
        Set_Heading(column, text);
        horizontalHeader()->show();
        return;
    }
    if (row > rowCount() && rows_as_written) cells->Set_Rows(row);
    if (row > rowCount()) return;
    cells->Set_Text(column - 1, row - 1, text);
    if (row == 1 && heading_row) Set_Heading(column, text);
}

QString fpSpread::Text(int column, int row) const {
    if (column < 1 || column > columnCount() || row < 0 || row > rowCount()) return u""_s;
    return row == 0 ? cells->headings[static_cast<std::size_t>(column) - 1].text
                    : cells->Text(column - 1, row - 1);
}

void fpSpread::Set_MaxRows(int rows) {
    cells->Set_Rows(rows);
}

void fpSpread::Set_All_Texts(std::vector<QString> texts) {
    cells->Set_All(std::move(texts));
}

void fpSpread::Set_ColWidth(int column, int pixels) {
    setColumnHidden(column - 1, pixels == 0);
    setColumnWidth(column - 1, pixels);
    wider_on_paper[static_cast<std::size_t>(column) - 1] = 0;
}

void fpSpread::Narrow_On_Screen(int column, int pixels) {
    wider_on_paper[static_cast<std::size_t>(column) - 1] = columnWidth(column - 1) - pixels;
    setColumnWidth(column - 1, pixels);
}

void fpSpread::Set_Left_Aligned(int column) {
    Cells::Heading& heading = cells->headings[static_cast<std::size_t>(column) - 1];
    heading.side = Side::Left;
    heading.alignment = int(cells->Alignment_Of(column - 1));
    cells->Heading_Changed(column - 1);
    viewport()->update();
}

void fpSpread::Set_Heading_Row(int height) {
    heading_row = true;
    setRowHidden(0, true);
    for (int column = 1; column <= columnCount(); ++column) {
        Set_Heading(column, Text(column, 1));
        cells->headings[static_cast<std::size_t>(column) - 1].alignment =
            int(cells->Alignment_Of(column - 1)) | Qt::TextWordWrap;
    }
    horizontalHeader()->setFixedHeight(height);
    horizontalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    horizontalHeader()->show();
}

void fpSpread::Fit_Rows() {
    constexpr int between_rows = 6;
    const int usual = verticalHeader()->defaultSectionSize();
    for (int row = 0; row < rowCount(); ++row)
        setRowHeight(row, std::max(usual, sizeHintForRow(row) + between_rows));
}

void fpSpread::Set_Marks(const QMap<int, QString>& words_by_row) {
    if (words_by_row.isEmpty() && !verticalHeader()->isVisible()) return;
    cells->Set_Marks(words_by_row);
    verticalHeader()->setFixedWidth(Mark_Width);
    verticalHeader()->setDefaultAlignment(Qt::AlignCenter);
    verticalHeader()->setHighlightSections(false);
    verticalHeader()->setVisible(!words_by_row.isEmpty());
}

QString fpSpread::Mark_Of(int row) const {
    return cells->Mark_Of(row);
}

bool fpSpread::viewportEvent(QEvent* event) {
    if (event->type() != QEvent::ToolTip) return QTableView::viewportEvent(event);
    const auto* help = static_cast<QHelpEvent*>(event);
    const QModelIndex cell = indexAt(help->pos());
    const QString text = QStringList{cell.data().toString(), Mark_Of(cell.row() + 1)}.join(u'\n').trimmed();
    QToolTip::showText(help->globalPos(),
                       text.isEmpty() ? text : Qt::convertFromPlainText(With_Breaks_At_Commas(text)),
                       viewport(), visualRect(cell));
    return true;
}

void fpSpread::Set_Look(const QString& text, const Cell_Look& look) {
    static_cast<Look_Delegate*>(itemDelegate())->looks.insert(text, look);
    viewport()->update();
}

fpSpread::Extent fpSpread::Printed_Extent() const {
    if (!PrintDataOnly) return {columnCount(), rowCount()};
    Extent extent;
    for (int row = 1; row <= rowCount(); ++row)
        for (int column = 1; column <= columnCount(); ++column)
            if (!Text(column, row).trimmed().isEmpty()) { // blanks are no data
                extent.rows = row;
                extent.columns = std::max(extent.columns, column);
            }
    return extent;
}

QStringList fpSpread::Row_Texts(int row, const Extent& extent) const {
    QStringList texts;
    if (PrintRowHeaders) texts.append(row == 0 ? QString() : QString::number(row));
    for (int column = 1; column <= extent.columns; ++column)
        if (!isColumnHidden(column - 1)) texts.append(Text(column, row));
    return texts;
}

Printed_Grid fpSpread::Printed() const {
    const Extent extent = Printed_Extent();
    Printed_Grid printed{{PrintHeader, PrintHeaderValues}, {PrintFooter, {}}, PrintMarginLeft, {}, {}, {}};
    if (PrintRowHeaders) printed.columns.push_back({Row_Numbers_Width, Side::Centre});
    for (int column = 1; column <= extent.columns; ++column) {
        const auto place = static_cast<std::size_t>(column) - 1;
        if (!isColumnHidden(column - 1))
            printed.columns.push_back(
                {columnWidth(column - 1) + wider_on_paper[place], cells->headings[place].side});
    }
    if (PrintColHeaders) printed.heads.push_back(Row_Texts(0, extent));
    for (int row = 1; row <= extent.rows; ++row)
        (heading_row && row == 1 ? printed.heads : printed.rows).push_back(Row_Texts(row, extent));
    return printed;
}

void fpSpread::Set_PrintHeader(const Marked_Text& header) {
    PrintHeader = header.text;
    PrintHeaderValues = header.values;
}

void fpSpread::Action(int action, const Print_Outlet& outlet) {
    if (action != Action_Print || PrintOrientation != Portrait)
        throw basics::Run_Time_Error(basics::errors::Invalid_Property_Value, objectName(),
                                     u"Invalid property value"_s);
    outlet.take(Document_Of(Lay_Out_Sheets(Printed()), outlet.document));
}

} // namespace grid
