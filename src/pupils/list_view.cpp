#include "pupils/list_view.h"

#include "shell/conventions/theme.h"

#include <QHeaderView>

using namespace Qt::StringLiterals;

namespace pupils {

static QString Look() {
    using namespace shell::colours;
    return u"QTreeWidget { border: 1px solid %1; } QTreeWidget::item { padding: 5px 0; } "
           "QTreeWidget::item:selected { background: %2; color: white; } "
           "QHeaderView::section { background: %3; border: none; border-right: 1px solid %1; "
           "padding: 6px 5px; font-weight: 600; }"_s.arg(Edge.name(), Accent.name(), Hover_Ground.name());
}

List_View::List_View(const QString& name, QWidget* parent) : QTreeWidget(parent) {
    setObjectName(name);
    setSelectionMode(QAbstractItemView::ExtendedSelection);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setRootIsDecorated(false);
    setUniformRowHeights(true);
    setAllColumnsShowFocus(true);
    setTabKeyNavigation(false);
    header()->setSectionsMovable(false);
    setStyleSheet(Look());
}

void List_View::Clear() {
    clear();
    setColumnCount(0);
}

void List_View::Add_Columns(const QList<List_Column>& columns) {
    QStringList captions;
    for (const List_Column& column : columns)
        captions.append(column.caption);
    setColumnCount(static_cast<int>(columns.size()));
    setHeaderLabels(captions);
    for (int i = 0; i < columns.size(); ++i)
        setColumnWidth(i, columns[i].width);
}

void List_View::Add_Items(const QList<QStringList>& rows) {
    QList<QTreeWidgetItem*> items;
    items.reserve(rows.size());
    for (const QStringList& row : rows)
        items.append(new QTreeWidgetItem(row));
    addTopLevelItems(items);
}

bool List_View::Is_Selected(int i) const {
    return topLevelItem(i - 1)->isSelected();
}

void List_View::Set_All_Selected(bool selected) {
    if (selected)
        selectAll();
    else
        clearSelection();
}

int List_View::Selected_Count() const {
    return static_cast<int>(selectionModel()->selectedRows().size());
}

void List_View::mouseReleaseEvent(QMouseEvent* event) {
    QTreeWidget::mouseReleaseEvent(event);
    Q_EMIT Click();
}

void List_View::keyReleaseEvent(QKeyEvent* event) {
    QTreeWidget::keyReleaseEvent(event);
    Q_EMIT Click();
}

} // namespace pupils
