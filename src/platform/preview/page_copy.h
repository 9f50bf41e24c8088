#pragma once

#include "platform/desktop/printers.h"
#include "platform/preview/drawing.h"

namespace preview {

// The page in each form that a program may ask the clipboard for.
desktop::Page_Copy Copy_Of(const Drawing& drawing);

} // namespace preview
