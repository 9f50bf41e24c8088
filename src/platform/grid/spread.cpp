#include "platform/grid/spread.h"

#include <QHeaderView>

using namespace Qt::StringLiterals;

namespace grid {

fpSpread::fpSpread(const QString& name, int columns, int rows, QWidget* parent)
    : QTableWidget(rows, columns, parent) {
    setObjectName(name);
    horizontalHeader()->hide();
    verticalHeader()->hide();
    verticalHeader()->setDefaultSectionSize(34);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setSelectionMode(QAbstractItemView::NoSelection);
    setTabKeyNavigation(false);
    connect(this, &QTableWidget::cellDoubleClicked, this, [this] { Q_EMIT Double_Click(); });
}

QTableWidgetItem* fpSpread::Item_At(int column, int row) {
    QTableWidgetItem* cell = item(row - 1, column - 1);
    if (!cell) {
        cell = new QTableWidgetItem;
        cell->setTextAlignment((column == 1 ? Qt::AlignLeft : Qt::AlignHCenter) | Qt::AlignVCenter);
        setItem(row - 1, column - 1, cell);
    }
    return cell;
}

void fpSpread::Set_Text(int column, int row, const QString& text) {
    if (column < 1 || column > columnCount() || row < 1 || row > rowCount()) return; // as the control does
    Item_At(column, row)->setText(text);
}

QString fpSpread::Text(int column, int row) const {
    const QTableWidgetItem* cell = item(row - 1, column - 1);
    return cell ? cell->text() : QString(u""_s);
}

void fpSpread::Set_MaxRows(int rows) {
    setRowCount(rows);
}

void fpSpread::Set_ColWidth(int column, int pixels) {
    setColumnWidth(column - 1, pixels);
}

void fpSpread::Set_Heading_Row(bool heading) {
    for (int column = 1; column <= columnCount(); ++column) {
        QTableWidgetItem* cell = Item_At(column, 1);
        QFont font = cell->font();
        font.setBold(heading);
        cell->setFont(font);
        cell->setBackground(heading ? QBrush(QColor(0xE4, 0xEA, 0xF1)) : QBrush());
    }
}

} // namespace grid
