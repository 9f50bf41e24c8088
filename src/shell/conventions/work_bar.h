#pragma once

#include "platform/desktop/ports.h"
#include "shell/conventions/guard.h"

#include <QElapsedTimer>
#include <QProgressBar>

namespace shell {

// Shows how far work on many pupils has come, and keeps the window painted meanwhile. What the user does
// waits until the work is over, unless it is shown in a dialog that listens.
class Work_Bar final : public QProgressBar {
public:
    using Look_At_Events = void (*)(desktop::Platform& platform);
    Work_Bar(desktop::Platform& platform, const QString& name, const QString& accessible_name,
             const QRect& place, QWidget* parent, Look_At_Events look_at_events = Paint_Meanwhile);

    void Begin(int steps); // shows the bar, empty
    void Step();           // one of them is done

private:
    desktop::Platform& platform;
    Look_At_Events look_at_events;
    QElapsedTimer since_painted;
};

} // namespace shell
