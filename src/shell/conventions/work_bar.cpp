#include "shell/conventions/work_bar.h"

namespace shell {

Work_Bar::Work_Bar(desktop::Platform& platform, const QString& name, const QString& accessible_name,
                   const QRect& place, QWidget* parent, Look_At_Events look_at_events)
    : QProgressBar(parent), platform(platform), look_at_events(look_at_events) {
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
    look_at_events(platform);
    since_painted.start();
}

} // namespace shell
