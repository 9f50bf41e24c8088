#include "shell/conventions/hot_label.h"

#include "shell/conventions/theme.h"

#include <QKeyEvent>
#include <QPainter>

namespace shell {

constexpr int Side_Margin = 16;
constexpr qreal Corner = 6;

HotLabel::HotLabel(const QString& name, const QString& caption, QWidget* parent, Look look)
    : QAbstractButton(parent), look(look) {
    setObjectName(name);
    setText(caption);
    setFocusPolicy(Qt::StrongFocus);
    setMouseTracking(true);
    setCursor(Qt::PointingHandCursor);
}

QSize HotLabel::sizeHint() const {
    return {fontMetrics().horizontalAdvance(text()) + 2 * Side_Margin, fontMetrics().height() + Side_Margin};
}

namespace {

struct Colours {
    QColor ground;
    QColor edge;
    QColor text;
};

Colours Colours_Of(const HotLabel& label, HotLabel::Look look) {
    const bool strip = look == HotLabel::Look::Strip;
    if (!label.isEnabled()) return {colours::Disabled_Ground, colours::Faint_Edge, colours::Disabled_Text};
    if (label.isDown()) return {colours::Pressed_Ground, colours::Accent, colours::Accent_Dark};
    if (label.isChecked()) return {colours::Accent, colours::Accent_Dark, Qt::white};
    if (strip) return {colours::Hover_Ground, colours::Hover_Ground, colours::Text};
    if (label.underMouse()) return {colours::Hover_Ground, colours::Accent, colours::Accent_Dark};
    return {colours::Card, colours::Edge, colours::Text};
}

} // namespace

void HotLabel::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const Colours chosen = Colours_Of(*this, look);
    const QRectF box = QRectF(rect()).adjusted(1.5, 1.5, -1.5, -1.5);
    painter.setPen(QPen(chosen.edge, 1));
    painter.setBrush(chosen.ground);
    painter.drawRoundedRect(box, Corner, Corner);
    if (hasFocus()) {
        painter.setPen(QPen(colours::Focus, 2));
        painter.setBrush(Qt::NoBrush);
        painter.drawRoundedRect(box, Corner, Corner);
    }
    // A chosen one of two is told apart by its weight as well as by its colour.
    QFont font = this->font();
    font.setBold(isChecked());
    painter.setFont(font);
    painter.setPen(chosen.text);
    const bool centred = look == Look::Command;
    const int margin = centred ? 8 : Side_Margin;
    painter.drawText(rect().adjusted(margin, 0, -margin, 0),
                     (centred ? Qt::AlignHCenter : Qt::AlignLeft) | Qt::AlignVCenter | Qt::TextWordWrap,
                     text());
}

void HotLabel::enterEvent(QEnterEvent* event) {
    QAbstractButton::enterEvent(event);
    update();
}

void HotLabel::leaveEvent(QEvent* event) {
    QAbstractButton::leaveEvent(event);
    update();
}

void HotLabel::keyPressEvent(QKeyEvent* event) {
    // Return acts like the space bar: a page has no default button that it would belong to.
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        click();
    else
        QAbstractButton::keyPressEvent(event);
}

} // namespace shell
