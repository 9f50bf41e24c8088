#include "support/contrast.h"

#include <QHash>
#include <algorithm>
#include <cmath>

namespace test_support {

static double Luminance(const QColor& colour) {
    const auto light = [](float part) {
        return part <= 0.03928F ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * light(colour.redF()) + 0.7152 * light(colour.greenF()) + 0.0722 * light(colour.blueF());
}

double Contrast(const QColor& one, const QColor& other) {
    const auto [darker, lighter] = std::minmax({Luminance(one), Luminance(other)});
    return (lighter + 0.05) / (darker + 0.05);
}

double Contrast_Seen(const QImage& picture, const QRect& place) {
    QHash<QRgb, int> counts;
    for (int y = place.top(); y <= place.bottom(); ++y)
        for (int x = place.left(); x <= place.right(); ++x)
            ++counts[picture.pixel(x, y)];
    const auto ground = std::max_element(counts.cbegin(), counts.cend());
    double most = 1;
    for (auto colour = counts.cbegin(); colour != counts.cend(); ++colour)
        most = std::max(most, Contrast(QColor(colour.key()), QColor(ground.key())));
    return most;
}

} // namespace test_support
