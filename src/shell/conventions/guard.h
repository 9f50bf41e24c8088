#pragma once

#include "platform/desktop/ports.h"

#include <QObject>
#include <functional>
#include <utility>

namespace shell {

// Runs an event's work. An error that nothing below has handled is shown by its description, and the program
// ends: no exception crosses the toolkit. While it runs, `window` counts as busy.
void Guarded(desktop::Platform& platform, const std::function<void()>& work, const QWidget* window = nullptr);

// Repaints the windows in the middle of a handler. What the user does waits, and what comes in another way,
// as from a screen reader, is refused.
void Paint_Meanwhile(desktop::Platform& platform);

// The same behind a modal dialog of the handler's own, which goes on taking what the user does; but nothing
// that On has connected is run.
void Paint_And_Listen(desktop::Platform& platform);

// Whether a box or dialog stands before the control's window.
bool Behind_A_Box(const QWidget& control);

// Whether no handler of the control's window runs and nothing stands before it.
bool Is_Idle(const desktop::Platform& platform, const QWidget& control);

// Whether an event of `sender` may reach its owner's handler. The toolkit holds pointer and keys back from
// what is busy or behind a box, but a press by a screen reader comes through any event loop.
bool Takes_Event(const desktop::Platform& platform, const QObject* sender, const QObject* owner);

// The window that an event's owner stands in; null if it is no control.
const QWidget* Window_Of(const QObject* owner);

// Connects an event to its handler, guarded. The handler takes no arguments.
template<class Sender, class Signal, class Handler>
void On(const Sender* sender, Signal signal, QObject* owner, desktop::Platform& platform, Handler handler) {
    QObject::connect(sender, signal, owner, [&platform, sender, owner, handler = std::move(handler)] {
        if (Takes_Event(platform, sender, owner)) Guarded(platform, handler, Window_Of(owner));
    });
}

} // namespace shell
