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

    // How much it stands out: the one that a page is for, and those that lose data.
    enum class Weight { Usual, Primary, Destructive };

    HotLabel(const QString& name, const QString& caption, QWidget* parent, Look look = Look::Command);

    QString Caption() const { return text(); }
    void Set_Caption(const QString& caption);
    void Set_Weight(Weight given);
    // A line drawing of the theme, left of an entry's caption and in its ink.
    void Set_Icon(const QString& icon);
    // The letter of the caption that clicks it together with Alt; it is underlined. A caption without it has
    // none.
    void Set_Mnemonic(QChar letter);
    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void enterEvent(QEnterEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void Draw_Caption(QPainter& painter, const QColor& ink) const;
    qsizetype Mnemonic_Place() const;

    Look look;
    Weight weight = Weight::Usual;
    QByteArray icon; // an SVG whose lines are black
    QChar mnemonic;
};

// Gives the commands and entries of a page or dialog letters of their own, as far as the captions have them.
void Give_Mnemonics(QWidget& surface);

} // namespace shell
