#pragma once

#include <QImage>
#include <algorithm>
#include <cstdlib>

namespace test_support {

// How far two colours are from each other, of 255.
inline int Distance(QRgb one, QRgb other) {
    return std::max({std::abs(qRed(one) - qRed(other)), std::abs(qGreen(one) - qGreen(other)),
                     std::abs(qBlue(one) - qBlue(other))});
}

// The largest distance at one place of both pictures, each brought to that size by the means of its parts:
// edges of letters that fall a little lighter or darker count little.
inline int Largest_Distance(const QImage& one, const QImage& other, const QSize& size) {
    const QImage first = one.scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    const QImage second = other.scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    int largest = 0;
    for (int y = 0; y < size.height(); ++y)
        for (int x = 0; x < size.width(); ++x)
            largest = std::max(largest, Distance(first.pixel(x, y), second.pixel(x, y)));
    return largest;
}

} // namespace test_support
