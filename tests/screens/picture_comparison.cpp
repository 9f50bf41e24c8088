#include "screens/picture_comparison.h"

#include <QColor>
#include <algorithm>
#include <array>
#include <cstdlib>

namespace screens {
namespace {

constexpr int Square = 8;

using Sums = std::array<double, 3>;

void Add(Sums& sums, QRgb colour, int sign) {
    sums[0] += sign * qRed(colour);
    sums[1] += sign * qGreen(colour);
    sums[2] += sign * qBlue(colour);
}

int Distance(QRgb one, QRgb other) {
    return std::max({std::abs(qRed(one) - qRed(other)), std::abs(qGreen(one) - qGreen(other)),
                     std::abs(qBlue(one) - qBlue(other))});
}

// Between the mean colours of a square of both.
double Distance_Of_Means(const QImage& one, const QImage& other, const QRect& square) {
    Sums sums{};
    for (int y = square.top(); y <= square.bottom(); ++y)
        for (int x = square.left(); x <= square.right(); ++x) {
            Add(sums, one.pixel(x, y), 1);
            Add(sums, other.pixel(x, y), -1);
        }
    double most = 0;
    for (const double sum : sums)
        most = std::max(most, std::abs(sum) / (square.width() * square.height()));
    return most;
}

} // namespace

Difference Compare(const QImage& one, const QImage& other) {
    Difference found;
    for (int y = 0; y < one.height(); ++y)
        for (int x = 0; x < one.width(); ++x)
            found.mean += Distance(one.pixel(x, y), other.pixel(x, y));
    found.mean /= double(one.width()) * one.height();
    for (int y = 0; y < one.height(); y += Square)
        for (int x = 0; x < one.width(); x += Square)
            found.local = std::max(found.local,
                                   Distance_Of_Means(one, other, QRect(x, y, Square, Square) & one.rect()));
    return found;
}

QImage Picture_Of_Difference(const QImage& one, const QImage& other) {
    QImage picture(one.size().expandedTo(other.size()), QImage::Format_Grayscale8);
    picture.fill(Qt::black);
    const QRect both = one.rect() & other.rect();
    for (int y = both.top(); y <= both.bottom(); ++y)
        for (int x = both.left(); x <= both.right(); ++x) {
            constexpr int stronger = 3;
            const int grey = 255 - std::min(255, stronger * Distance(one.pixel(x, y), other.pixel(x, y)));
            picture.setPixel(x, y, qRgb(grey, grey, grey));
        }
    return picture;
}

} // namespace screens
