#pragma once

#include "reports/profile_bars.h"

#include <QFrame>
#include <QLabel>
#include <QString>
#include <array>

namespace reports {

// The mark of a test that was ended early. It stands 18 pixels above its bar; near the chart's top edge its
// letter moves down into the bar, so that it is never cut off.
class Terminated_Mark : public QWidget {
    Q_OBJECT
public:
    Terminated_Mark(const QString& name, QWidget* parent);

protected:
    void paintEvent(QPaintEvent* event) override;
};

enum class Measure { Accuracy, Time };

// A bar, or a piece of one for the key. Those of times are hatched, so that nobody needs to tell red from
// blue.
QFrame* Make_Bar(const QString& name, Measure measure, QWidget* parent);

// A test's column as the keyboard and a screen reader meet it: an item of a list, in words. One of the eight
// is on the way of the Tab key; the arrow keys lead to the others.
class Chart_Row final : public QWidget {
    Q_OBJECT
public:
    Chart_Row(const QString& name, QWidget* parent);
    void Tell(const QString& words) { setAccessibleName(words); }

Q_SIGNALS:
    void Left_By(int key);

protected:
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
};

// The chart's ground with its bars, all of them controls of their own: Shape1 to Shape8 for accuracy,
// Shape12(0) to Shape12(7) for time, Image12 and Image13 the marks of the first two tests.
// t is the test, from 1 to 8.
class Profile_Chart : public QFrame {
    Q_OBJECT
public:
    Profile_Chart(const QString& name, QWidget* parent);

    static constexpr int Column_Width = 64;
    static constexpr int Column_Pitch = 84;
    static constexpr int First_Column = 14;
    static constexpr QSize Size{680, Chart_Height};
    static int Column_Left(int t) { return First_Column + (t - 1) * Column_Pitch; }

    // The ground's picture; a missing or unreadable file is a run-time error.
    void Load_Picture(const QString& file);

    QFrame* Shape(int t) const { return accuracy[static_cast<std::size_t>(t)]; }
    QFrame* Time_Shape(int t) const { return time[static_cast<std::size_t>(t)]; } // Shape12(t - 1)
    Terminated_Mark* Image12;
    Terminated_Mark* Image13;
    // Of the first two tests; none of any other.
    Terminated_Mark* Mark(int t) const { return t == 1 ? Image12 : t == 2 ? Image13 : nullptr; }

    static void Place(QFrame* bar, const Bar& place);
    Chart_Row* Row(int t) const { return rows[static_cast<std::size_t>(t)]; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void Move_From(int t, int key);

    std::array<QFrame*, 9> accuracy{};
    std::array<QFrame*, 9> time{};
    std::array<Chart_Row*, 9> rows{};
    QPixmap ground;
};

} // namespace reports
