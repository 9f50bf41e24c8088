#pragma once

#include "platform/preview/drawing.h"

namespace preview {

// A line that every page carries in a margin: "left|centre|right".
struct Running_Text {
    QString text;
    Text_Style style;
    QColor colour;
};

struct Band {
    int left = 0;
    int right = 0;
    int top = 0;
    int bottom = 0;
};

// Adds the line to a page that is otherwise complete. Reports write their titles into the top margin too,
// each page its own, so the line takes the highest strip of the band that no other text touches.
void Add_Running_Text(const Running_Text& running, const Band& band, Drawing& page);

} // namespace preview
