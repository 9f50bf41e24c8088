#pragma once

#include <QColor>
#include <QImage>

namespace test_support {

// Of two colours, from 1 to 21, by the rule of the accessibility guidelines.
double Contrast(const QColor& one, const QColor& other);

// Between a place's ground, which is its most frequent colour, and what stands out from it most.
double Contrast_Seen(const QImage& picture, const QRect& place);

} // namespace test_support
