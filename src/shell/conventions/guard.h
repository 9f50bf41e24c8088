#pragma once

#include "platform/desktop/ports.h"

#include <QObject>
#include <functional>
#include <utility>

namespace shell {

// Runs an event's work. A run-time error that nothing below has handled is shown by its description, and the
// program ends: no exception crosses the toolkit.
void Guarded(desktop::Platform& platform, const std::function<void()>& work);

// Connects an event to its handler, guarded. The handler takes no arguments.
template<class Sender, class Signal, class Handler>
void On(const Sender* sender, Signal signal, QObject* owner, desktop::Platform& platform, Handler handler) {
    QObject::connect(sender, signal, owner,
                     [&platform, handler = std::move(handler)] { Guarded(platform, handler); });
}

} // namespace shell
