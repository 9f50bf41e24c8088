#pragma once

#include <QString>

namespace desktop {

// Plays a wave file that exists, and returns when it has ended; at once where there is no sound device.
// `path` is in the system's own form. Presses of keys and buttons wait until then.
void Play_To_Its_End(const QString& path);

} // namespace desktop
