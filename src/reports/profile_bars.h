#pragma once

#include <optional>

namespace reports {

// Where a bar stands inside the chart: pixels, y growing downwards; 400 from centile 0 to centile 100.
struct Bar {
    int Top;
    int Height;
};

inline constexpr int Chart_Height = 400;
inline constexpr int Middle_Line = 200;

// On the centile scale a bar rises from the bottom edge.
Bar Centile_Bar(int centile);

// On the z-score scale it stands on the middle line, or hangs below it, by the given height.
Bar ZScore_Bar(int centile, int height);

// The length in pixels of a bar for a z-score that Centile_To_ZScore gives; nothing for any other number. It
// comes from the scale of the chart's ground, whose bands aren't quite linear in z, so there is no formula.
std::optional<int> Bar_Height_For(double z);

} // namespace reports
