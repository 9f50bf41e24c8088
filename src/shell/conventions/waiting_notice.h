#pragma once

#include <QLabel>
#include <QObject>
#include <QPointer>

namespace shell {

// Says over the window, or over the dialog before it, that another workstation keeps the database locked, and
// counts the seconds down that it is still waited for. It is painted in the middle of the wait, and nothing
// that the user does gets through meanwhile.
class Waiting_Notice final : public QObject {
    Q_OBJECT
public:
    explicit Waiting_Notice(QWidget& window);
    ~Waiting_Notice() override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void Show(int seconds_left);
    void Put_Away();

    QWidget& window;
    QPointer<QLabel> panel; // gone with the dialog that it was shown over
};

} // namespace shell
