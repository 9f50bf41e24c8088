#pragma once

#include "platform/desktop/ports.h"

#include <QElapsedTimer>
#include <QProgressBar>

namespace pupils {

// Shows how far work on many pupils has come, and keeps the window painted meanwhile. What the user does
// waits until the work is over.
class Work_Bar final : public QProgressBar {
public:
    Work_Bar(desktop::Platform& platform, const QString& name, const QString& accessible_name,
             const QRect& place, QWidget* parent);

    void Begin(int steps); // shows the bar, empty
    void Step();           // one of them is done

private:
    desktop::Platform& platform;
    QElapsedTimer since_painted;
};

} // namespace pupils
