#pragma once

#include "platform/desktop/ports.h"

#include <memory>

namespace desktop {

// The ports as the running program has them. A QApplication must exist.
class Qt_Platform {
public:
    Qt_Platform();
    ~Qt_Platform();
    Qt_Platform(const Qt_Platform&) = delete;
    Qt_Platform& operator=(const Qt_Platform&) = delete;

    Platform& Ports();

private:
    struct Bodies;
    std::unique_ptr<Bodies> bodies;
};

// The value of a key in the text of an initialisation file, read as the system reads it: names without
// regard to case, blanks around the value and one pair of quotes dropped. Null if it isn't there.
QString Ini_Value(const QString& text, const QString& section, const QString& key);

} // namespace desktop
