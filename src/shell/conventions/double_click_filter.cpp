#include "shell/conventions/double_click_filter.h"

#include "shell/conventions/page.h"

#include <QCoreApplication>
#include <QEvent>
#include <utility>

namespace shell {

Double_Click_Filter::Double_Click_Filter() {
    QCoreApplication::instance()->installEventFilter(this);
}

// A list that drops down belongs to the page of its box.
static QWidget* Surface_Of(QWidget* control) {
    while (!qobject_cast<Page*>(control) && control->windowType() != Qt::Dialog && control->parentWidget())
        control = control->parentWidget();
    return control;
}

bool Double_Click_Filter::eventFilter(QObject* watched, QEvent* event) {
    if (!watched->isWidgetType()) return false;
    const bool second = event->type() == QEvent::MouseButtonDblClick;
    if (second || event->type() == QEvent::MouseButtonPress) {
        QWidget* surface = Surface_Of(static_cast<QWidget*>(watched));
        passing_over = second && pressed != surface;
        pressed = surface;
        return passing_over;
    }
    return event->type() == QEvent::MouseButtonRelease && std::exchange(passing_over, false);
}

} // namespace shell
