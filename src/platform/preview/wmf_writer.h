#pragma once

#include "platform/preview/drawing.h"

#include <QByteArray>

namespace preview {

// The page as a placeable Windows metafile, as word processors take it: text stays text, with each character
// at its measured place.
QByteArray Wmf_Of(const Drawing& drawing);

} // namespace preview
