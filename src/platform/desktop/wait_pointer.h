#pragma once

#include "platform/desktop/ports.h"

namespace desktop {

// The hourglass until its work is done, or has failed: an error on its way out gives the pointer back as
// well.
class Wait_Pointer {
public:
    explicit Wait_Pointer(Pointer& pointer) : pointer(pointer) { pointer.Set(Pointer_Shape::Hourglass); }
    ~Wait_Pointer() { pointer.Set(Pointer_Shape::Default); }
    Wait_Pointer(const Wait_Pointer&) = delete;
    Wait_Pointer& operator=(const Wait_Pointer&) = delete;

private:
    Pointer& pointer;
};

} // namespace desktop
