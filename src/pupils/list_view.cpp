#include "pupils/list_view.h"

#include <QHeaderView>

namespace pupils {
namespace {

// A row of texts; an item of the toolkit's would keep each in objects of its own.
class Text_Row final : public QTreeWidgetItem {
public:
    explicit Text_Row(const QStringList& texts) : texts(texts) {}
    QVariant data(int column, int role) const override {
        const bool is_text = role == Qt::DisplayRole && column < texts.size();
        return is_text ? texts[column] : QTreeWidgetItem::data(column, role);
    }

private:
    QStringList texts;
};

} // namespace

List_View::List_View(const QString& name, QWidget* parent) : QTreeWidget(parent) {
    setObjectName(name);
    setSelectionMode(QAbstractItemView::ExtendedSelection);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setRootIsDecorated(false);
    setUniformRowHeights(true);
    setAllColumnsShowFocus(true);
    setTabKeyNavigation(false);
    header()->setSectionsMovable(false);
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
        items.append(new Text_Row(row));
    addTopLevelItems(items);
}

void List_View::Select(int i) {
    topLevelItem(i - 1)->setSelected(true);
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
