#pragma once

#include "platform/desktop/ports.h"
#include "platform/desktop/qt_platform.h"

namespace bench {

// A box would wait for an answer that nobody gives: it ends the program with its text instead.
class Refusing_Boxes final : public desktop::Message_Boxes {
public:
    explicit Refusing_Boxes(desktop::Processes& processes) : processes(processes) {}
    desktop::Answer Ask(desktop::Box_Style style, const QString& title, const QString& text) override;

private:
    desktop::Processes& processes;
};

// The pages' timers never fire: what they would do is called, and measured, by itself.
class Timerless_Clock final : public desktop::Clock {
public:
    QDateTime Now() const override { return QDateTime::currentDateTime(); }
    int Timer_Interval(int designed) const override;
};

// The program's own ports but for these two. A QApplication must exist.
class Quiet_Platform {
public:
    desktop::Platform& Ports() { return ports; }

private:
    desktop::Qt_Platform real;
    Refusing_Boxes boxes{real.Ports().processes};
    Timerless_Clock clock;
    desktop::Platform ports{boxes,
                            real.Ports().pointer,
                            clock,
                            real.Ports().sound,
                            real.Ports().documents,
                            real.Ports().processes,
                            real.Ports().ini,
                            real.Ports().files,
                            real.Ports().folders,
                            real.Ports().dialogs};
};

} // namespace bench
