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

} // namespace desktop
