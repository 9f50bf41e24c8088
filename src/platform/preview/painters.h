#pragma once

#include "platform/preview/drawing.h"

#include <QByteArray>
#include <QImage>

class QPainter;

namespace preview {

// Paints a page through a painter whose unit is one twip. All outlets but the metafile come through here.
void Paint(const Drawing& drawing, QPainter& painter);

QByteArray Svg_Of(const Drawing& drawing);
QImage Picture_Of(const Drawing& drawing, int dots_per_inch);

} // namespace preview
