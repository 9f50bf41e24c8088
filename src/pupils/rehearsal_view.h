#pragma once

#include "pupils/import/rehearsal.h"

#include <QAbstractTableModel>
#include <QTableView>
#include <functional>

namespace pupils {

namespace rehearsal_column {
enum { Goes, Line, Kind, Surname, Forename, Gender, Birthday, Age, Group, Password, Words, Count };
}

// The rows of a rehearsal as a table: the six fields can be corrected in place, and each row taken or left
// out.
class Rehearsal_Model final : public QAbstractTableModel {
    Q_OBJECT
public:
    explicit Rehearsal_Model(QObject* parent) : QAbstractTableModel(parent) {}

    // Rows that stay in their places keep what is current in the view.
    void Show(QList<Rehearsed_Row> given);
    const Rehearsed_Row* Row(int place) const; // null if there is none

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;

Q_SIGNALS:
    void Changed();

public:
    // What the user did last, for whom Changed tells of it.
    struct Change {
        int line = 0;
        int field = -1; // -1: whether it goes
        QString text;
        bool goes = false;
    };
    const Change& Last_Change() const { return change; }

private:
    QString Text_Of(const Rehearsed_Row& row, int column) const;

    QList<Rehearsed_Row> rows;
    Change change;
};

// The table on its page. Space takes or leaves out the current row, wherever in it one stands.
class Rehearsal_View final : public QTableView {
public:
    Rehearsal_View(const QString& name, QWidget* parent);
    Rehearsal_Model& Rows() const { return *rows; }

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    Rehearsal_Model* rows;
};

} // namespace pupils
