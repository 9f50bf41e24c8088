#pragma once

#include <QFrame>
#include <QLabel>
#include <QString>
#include <QWidget>

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

// A test's column as the keyboard and a screen reader meet it: an item of a list, in words. The Tab key stops
// at one of the eight; the arrow keys lead to the others.
class Chart_Row final : public QWidget {
    Q_OBJECT
public:
    Chart_Row(const QString& name, QWidget* parent);
    void Tell(const QString& words) { setAccessibleName(words); }
    void Make_Stop(bool made); // of the Tab key
    bool Is_Stop() const { return is_stop; }

Q_SIGNALS:
    void Left_By(int key);
    void Focused();
    void Pressed(); // by a key that presses a button

protected:
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    bool is_stop = false;
};

// What to be careful about, on one line: as much of it as has room, and all of it as a tip for the pointer
// and for the keys. It is told in full to a screen reader, and is no stop of the Tab key while it is empty.
class Notice_Line final : public QLabel {
public:
    Notice_Line(const QString& name, QWidget* parent);
    void Tell(const QStringList& notices, bool warns);

protected:
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
};

} // namespace reports
