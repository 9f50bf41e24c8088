#include "pupils/work_bar.h"

#include "shell/conventions/guard.h"

namespace pupils {

Work_Bar::Work_Bar(desktop::Platform& platform, const QString& name, const QString& accessible_name,
                   const QRect& place, QWidget* parent)
    : QProgressBar(parent), platform(platform) {
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
    shell::Paint_Meanwhile(platform);
    since_painted.start();
}

} // namespace pupils
