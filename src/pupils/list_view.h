#pragma once

#include <QTreeWidget>

namespace pupils {

struct List_Column {
    QString caption;
    int width; // pixels
};

// A list in report view: rows under column headings, of which several can be selected at once.
class List_View : public QTreeWidget {
    Q_OBJECT
public:
    List_View(const QString& name, QWidget* parent);

    void Clear(); // items and columns
    void Add_Columns(const QList<List_Column>& columns);
    void Add_Items(const QList<QStringList>& rows); // a text for each column

    int Count() const { return topLevelItemCount(); }
    bool Is_Selected(int i) const; // from 1
    void Select(int i);            // besides those that are
    void Set_All_Selected(bool selected);
    int Selected_Count() const;

Q_SIGNALS:
    // The user clicked in the list, or pressed a key there, which can select as well.
    void Click();

protected:
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
};

} // namespace pupils
