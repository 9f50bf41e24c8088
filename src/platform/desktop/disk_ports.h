#pragma once

#include "platform/desktop/ports.h"

#include <memory>

namespace desktop {

// The ports that want nothing of a desktop: programs without a window have them too.
struct Disk_Ports {
    Disk_Ports();

    std::unique_ptr<Ini_Files> ini;
    std::unique_ptr<Files> files;
    std::unique_ptr<Special_Folders> folders;
};

// The value of a key in the text of an initialisation file, read as the system reads it: names without
// regard to case, blanks around the value and one pair of quotes dropped. Null if it isn't there.
QString Ini_Value(const QString& text, const QString& section, const QString& key);

} // namespace desktop
