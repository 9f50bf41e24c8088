#pragma once

#include <QTableWidget>

namespace grid {

// The grid control: cells addressed by column and row from 1, filled by the program and read by the user. A
// double click on it is told to its page.
class fpSpread : public QTableWidget {
    Q_OBJECT
public:
    fpSpread(const QString& name, int columns, int rows, QWidget* parent);

    void Set_Text(int column, int row, const QString& text);
    QString Text(int column, int row) const; // empty text for a cell never written
    void Set_MaxRows(int rows);
    void Set_ColWidth(int column, int pixels);
    // Row 1 is the heading: drawn apart from the others.
    void Set_Heading_Row(bool heading);

Q_SIGNALS:
    void Double_Click();

private:
    QTableWidgetItem* Item_At(int column, int row);
};

} // namespace grid
