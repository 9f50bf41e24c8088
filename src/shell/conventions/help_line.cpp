#include "shell/conventions/help_line.h"

#include <QFocusEvent>
#include <QMouseEvent>

using namespace Qt::StringLiterals;

namespace shell {

void Help_Line::Tell(QWidget* control, const QString& text) {
    Tell(control, [text] { return text; });
}

void Help_Line::Tell(QWidget* control, std::function<QString()> text) {
    control->setMouseTracking(true);
    control->installEventFilter(this);
    texts.insert(control, std::move(text));
}

void Help_Line::Clear_Over(QWidget* surface) {
    surface->setMouseTracking(true);
    surface->installEventFilter(this);
    surfaces.append(surface);
}

static bool By_Keyboard(const QEvent* event) {
    if (event->type() != QEvent::FocusIn) return false;
    const Qt::FocusReason reason = static_cast<const QFocusEvent*>(event)->reason();
    return reason == Qt::TabFocusReason || reason == Qt::BacktabFocusReason ||
           reason == Qt::ShortcutFocusReason;
}

bool Help_Line::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::MouseMove && !By_Keyboard(event)) return false;
    if (const auto told = texts.constFind(watched); told != texts.cend()) {
        show((*told)());
    } else if (event->type() == QEvent::MouseMove) {
        // A move that a control left over reaches the surface too, at the control's place.
        auto* surface = static_cast<QWidget*>(watched);
        if (surfaces.contains(surface) && !surface->childAt(static_cast<QMouseEvent*>(event)->pos()))
            show(u""_s);
    }
    return false;
}

} // namespace shell
