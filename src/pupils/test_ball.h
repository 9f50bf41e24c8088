#pragma once

#include <QAbstractButton>
#include <QPixmap>

namespace pupils {

// How a test stands, as the page shows it. Each has a picture of its own shape, so that nobody needs to tell
// red from green.
enum class Test_State {
    Not_Attempted, // an empty ring
    Completed,     // a red ball
    Allow_Retest,  // a green disc with an arrow that turns back
};

QString Words_Of(Test_State state);
QPixmap Picture_Of(Test_State state, int side, qreal ratio); // side in pixels

// The ball of one test: a picture that can be clicked.
class Test_Ball final : public QAbstractButton {
    Q_OBJECT
public:
    Test_Ball(const QString& name, const QString& test, QWidget* parent);

    Test_State State() const { return state; }
    void Set_State(Test_State shown);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QString test;
    Test_State state = Test_State::Not_Attempted;
};

} // namespace pupils
