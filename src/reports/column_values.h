#pragma once

#include <QList>
#include <QWidget>

namespace reports {

// A few words on the chart: a value at its bar, or why a column has none.
struct Column_Text {
    QRect place; // inside the chart
    QString text;
    bool is_value;
};

// Stands before the bars and takes no pointer: bars, marks and columns stay what they are.
class Column_Values final : public QWidget {
public:
    Column_Values(const QString& name, QWidget* chart);
    void Show_Texts(const QList<Column_Text>& shown);
    const QList<Column_Text>& Texts() const { return texts; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QList<Column_Text> texts;
};

// Where the value of a bar stands: at the bar's end, or inside it where there is no room. mark_bottom is
// where the mark of a test ended early ends, which stands at the bar's upper end; 0 without one. Pixels in
// the chart.
QRect Value_Place(const QRect& bar, bool hangs, int mark_bottom);

// At the foot of the column of test t.
QRect Foot_Place(int column_left, int column_width);

} // namespace reports
