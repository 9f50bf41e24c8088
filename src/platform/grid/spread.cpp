#include "platform/grid/spread.h"

#include "platform/basics/run_time_error.h"

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

fpSpread::fpSpread(const QString& name, int columns, int rows, QWidget* parent)
    : QTableWidget(std::max(rows, 0), columns, parent),
      rows_as_written(rows == Rows_As_Written),
      sides(static_cast<std::size_t>(columns), Side::Centre),
      wider_on_paper(static_cast<std::size_t>(columns), 0) {
    setObjectName(name);
    setItemDelegate(new Look_Delegate(this));
    for (int column = 1; column <= columns; ++column)
        Set_Heading(column, Column_Letters(column));
    if (columns > 0) Set_Left_Aligned(1);
    horizontalHeader()->hide();
    horizontalHeader()->setHighlightSections(false);
    verticalHeader()->hide();
    verticalHeader()->setDefaultSectionSize(34);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setSelectionMode(QAbstractItemView::NoSelection);
    setTabKeyNavigation(false);
    connect(this, &QTableWidget::cellDoubleClicked, this, [this] { Q_EMIT Double_Click(); });
    connect(horizontalHeader(), &QHeaderView::sectionDoubleClicked, this, [this] { Q_EMIT Double_Click(); });
}

Qt::Alignment fpSpread::Alignment_Of(int column) const {
    const bool left = sides[static_cast<std::size_t>(column) - 1] == Side::Left;
    return (left ? Qt::AlignLeft : Qt::AlignHCenter) | Qt::AlignVCenter;
}

QTableWidgetItem* fpSpread::Item_At(int column, int row) {
    QTableWidgetItem* cell = item(row - 1, column - 1);
    if (!cell) {
        cell = new QTableWidgetItem;
        cell->setTextAlignment(Alignment_Of(column));
        setItem(row - 1, column - 1, cell);
    }
    return cell;
}

void fpSpread::Set_Heading(int column, const QString& text) {
    QTableWidgetItem* heading = horizontalHeaderItem(column - 1);
    if (!heading) {
        heading = new QTableWidgetItem;
        QFont font = this->font();
        font.setBold(true);
        heading->setFont(font);
        setHorizontalHeaderItem(column - 1, heading);
    }
    heading->setText(text);
}

void fpSpread::Set_Text(int column, int row, const QString& text) {
    if (column < 1 || column > columnCount() || row < 0) return;
    if (row == 0) {
        Set_Heading(column, text);
        horizontalHeader()->show();
        return;
    }
    if (row > rowCount() && rows_as_written) setRowCount(row);
    if (row > rowCount()) return;
    Item_At(column, row)->setText(text);
    if (row == 1 && heading_row) Set_Heading(column, text);
}

QString fpSpread::Text(int column, int row) const {
    const QTableWidgetItem* cell = row == 0 ? horizontalHeaderItem(column - 1) : item(row - 1, column - 1);
    return cell ? cell->text() : QString(u""_s);
}

void fpSpread::Set_MaxRows(int rows) {
    setRowCount(rows);
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
    sides[static_cast<std::size_t>(column) - 1] = Side::Left;
    horizontalHeaderItem(column - 1)->setTextAlignment(Alignment_Of(column));
    for (int row = 1; row <= rowCount(); ++row)
        if (QTableWidgetItem* cell = item(row - 1, column - 1)) cell->setTextAlignment(Alignment_Of(column));
}

void fpSpread::Set_Heading_Row(int height) {
    heading_row = true;
    setRowHidden(0, true);
    for (int column = 1; column <= columnCount(); ++column) {
        Set_Heading(column, Text(column, 1));
        horizontalHeaderItem(column - 1)
            ->setData(Qt::TextAlignmentRole, int(Alignment_Of(column)) | Qt::TextWordWrap);
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

bool fpSpread::viewportEvent(QEvent* event) {
    if (event->type() != QEvent::ToolTip) return QTableWidget::viewportEvent(event);
    const auto* help = static_cast<QHelpEvent*>(event);
    const QModelIndex cell = indexAt(help->pos());
    const QString text = cell.data().toString().trimmed();
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
            printed.columns.push_back({columnWidth(column - 1) + wider_on_paper[place], sides[place]});
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

QString fpSpread::Action(int action, const Print_Outlet& outlet) {
    if (action != Action_Print || PrintOrientation != Portrait)
        throw basics::Run_Time_Error(basics::errors::Invalid_Property_Value, objectName(),
                                     u"Invalid property value"_s);
    desktop::Printed_Document document = Document_Of(Lay_Out_Sheets(Printed()), outlet.document);
    document.about = outlet.about;
    return outlet.printers.Print(document, outlet.pdf_folder);
}

} // namespace grid
