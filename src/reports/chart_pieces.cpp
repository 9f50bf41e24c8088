#include "reports/chart_pieces.h"

#include "shell/conventions/look.h"
#include "shell/conventions/theme.h"

#include <QKeyEvent>
#include <QPainter>
#include <QStyle>
#include <QToolTip>
#include <algorithm>

using namespace Qt::StringLiterals;

namespace reports {

using namespace shell;

constexpr int Mark_Size = 18;

Terminated_Mark::Terminated_Mark(const QString& name, QWidget* parent) : QWidget(parent) {
    setObjectName(name);
    setAccessibleName(u"Terminated"_s);
    setFixedSize(Mark_Size, 2 * Mark_Size);
    hide();
}

void Terminated_Mark::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const int cut_off = std::clamp(-y(), 0, Mark_Size);
    const QRectF badge(1, cut_off + 1, Mark_Size - 2, Mark_Size - 2);
    painter.setPen(QPen(chart_colours::Ink, 1.5));
    painter.setBrush(Qt::white);
    painter.drawRoundedRect(badge, 3, 3);
    QFont font = this->font();
    font.setPixelSize(12);
    font.setBold(true);
    painter.setFont(font);
    painter.drawText(badge, Qt::AlignCenter, u"T"_s);
}

namespace {

class Bar_Frame final : public QFrame {
public:
    Bar_Frame(Measure measure, QWidget* parent) : QFrame(parent), measure(measure) {}

protected:
    void paintEvent(QPaintEvent*) override {
        const bool time = measure == Measure::Time;
        QPainter painter(this);
        painter.fillRect(rect(), Qt::white);
        const QRect inside = rect().adjusted(1, 1, -1, -1);
        painter.fillRect(inside, time ? chart_colours::Time_Bar : chart_colours::Accuracy_Bar);
        if (time) Hatch(painter, inside);
    }

private:
    void Hatch(QPainter& painter, const QRect& inside) const {
        constexpr int step = 7;
        painter.setClipRect(inside);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(QPen(chart_colours::Time_Hatch, 1.5));
        for (int x = inside.left() - inside.height(); x < inside.right(); x += step)
            painter.drawLine(x, inside.bottom() + 1, x + inside.height(), inside.top());
    }

    Measure measure;
};

} // namespace

QFrame* Make_Bar(const QString& name, Measure measure, QWidget* parent) {
    auto* bar = new Bar_Frame(measure, parent);
    bar->setObjectName(name);
    return bar;
}

Chart_Row::Chart_Row(const QString& name, QWidget* parent) : QWidget(parent) {
    setObjectName(name);
    setAttribute(Qt::WA_TransparentForMouseEvents);
}

void Chart_Row::paintEvent(QPaintEvent*) {
    if (!hasFocus()) return;
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    shell::Look::Draw_Focus(painter, rect(), 4);
}

void Chart_Row::keyPressEvent(QKeyEvent* event) {
    switch (event->key()) {
    case Qt::Key_Left:
    case Qt::Key_Up:
    case Qt::Key_Right:
    case Qt::Key_Down:
    case Qt::Key_Home:
    case Qt::Key_End:
        Q_EMIT Left_By(event->key());
        break;
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Space:
        Q_EMIT Pressed();
        break;
    default:
        QWidget::keyPressEvent(event);
    }
}

void Chart_Row::focusInEvent(QFocusEvent* event) {
    QWidget::focusInEvent(event);
    raise(); // its mark stands before the bars
    if (event->reason() != Qt::ActiveWindowFocusReason) Q_EMIT Focused();
}

void Chart_Row::focusOutEvent(QFocusEvent* event) {
    QWidget::focusOutEvent(event);
    QToolTip::hideText();
}

void Chart_Row::Make_Stop(bool made) {
    is_stop = made;
    setFocusPolicy(made ? Qt::TabFocus : Qt::NoFocus);
}

Notice_Line::Notice_Line(const QString& name, QWidget* parent) : QLabel(parent) {
    setObjectName(name);
    shell::Set_Role(*this, Text_Role::Foot);
    setAccessibleDescription(u"What to be careful about in this profile."_s);
}

void Notice_Line::Tell(const QStringList& notices, bool warns) {
    constexpr int edges = 16;
    setText(fontMetrics().elidedText(notices.join(u"  \u00B7  "_s), Qt::ElideRight, width() - edges));
    setToolTip(u"<p style=\"white-space:pre\">%1</p>"_s.arg(notices.join(u'\n').toHtmlEscaped()));
    if (notices.isEmpty()) setToolTip({});
    setAccessibleName(notices.join(u". "_s));
    setFocusPolicy(notices.isEmpty() ? Qt::NoFocus : Qt::TabFocus);
    if (property("warning").toBool() == warns) return;
    setProperty("warning", warns);
    style()->unpolish(this);
    style()->polish(this);
}

void Notice_Line::focusInEvent(QFocusEvent* event) {
    QLabel::focusInEvent(event);
    if (event->reason() != Qt::ActiveWindowFocusReason)
        QToolTip::showText(mapToGlobal(QPoint(0, height())), toolTip(), this);
}

void Notice_Line::focusOutEvent(QFocusEvent* event) {
    QLabel::focusOutEvent(event);
    QToolTip::hideText();
}

} // namespace reports
