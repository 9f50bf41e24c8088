#include "pupils/work_bar.h"

#include <QCoreApplication>

namespace pupils {

Work_Bar::Work_Bar(const QString& name, const QString& accessible_name, const QRect& place, QWidget* parent)
    : QProgressBar(parent) {
    setObjectName(name);
    setAccessibleName(accessible_name);
    setGeometry(place);
    hide();
}

void Work_Bar::Begin(int steps) {
    setMaximum(steps);
    show();
    setValue(0);
    since_painted.start();
}

// The window is painted as often as an eye can follow: a bar that paints itself at each step would take
// longer than storing a pupil.
void Work_Bar::Step() {
    constexpr int frame_ms = 40;
    setUpdatesEnabled(false);
    setValue(value() + 1);
    setUpdatesEnabled(true);
    if (since_painted.elapsed() < frame_ms) return;
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
    since_painted.start();
}

} // namespace pupils
