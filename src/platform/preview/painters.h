#pragma once

#include "platform/preview/drawing.h"

#include <QByteArray>
#include <QImage>
#include <vector>

class QPainter;

namespace preview {

// What is painted of a page, in order. A text that stands at its place already, with nothing painted over it
// since, isn't painted once more: that would only darken the edges of its letters.
std::vector<const Operation*> Painted_Operations(const Drawing& drawing);

// Paints a page through a painter whose unit is one twip. All outlets but the metafile come through here.
void Paint(const Drawing& drawing, QPainter& painter);

QByteArray Svg_Of(const Drawing& drawing);
QImage Picture_Of(const Drawing& drawing, int dots_per_inch);

} // namespace preview
