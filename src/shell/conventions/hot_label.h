#pragma once

#include <QAbstractButton>

namespace shell {

// The label-like button of every page: a caption, Enabled, a click. To a screen reader it is a push button.
class HotLabel : public QAbstractButton {
    Q_OBJECT
public:
    // How it is drawn: a command is a small button with a centred caption, an entry a wide tile with its
    // caption at the left, a strip a line of text that can be clicked.
    enum class Look { Command, Entry, Strip };

    HotLabel(const QString& name, const QString& caption, QWidget* parent, Look look = Look::Command);

    QString Caption() const { return text(); }
    void Set_Caption(const QString& caption) { setText(caption); }
    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void enterEvent(QEnterEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    Look look;
};

} // namespace shell
