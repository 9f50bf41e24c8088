#pragma once

#include <array>

// Where the bands of the profile chart lie, as fractions of its height from the top. Two scales share
// the ground: centiles, and z-scores.
namespace backgrounds {

struct Shade {
    int level; // grey from 0, black, to 255, white
};

constexpr Shade Black{0};
constexpr Shade Dark{128};
constexpr Shade Light{192};
constexpr Shade Paper{255};

struct Band {
    double top;
    double height;
    Shade shade;
};

// What no band covers stays white.
constexpr std::array<Band, 6> Centile_Bands = {{
    {0.0, 1.0 / 20, Black},
    {1.0 / 20, 3.0 / 20, Dark},
    {1.0 / 5, 3.0 / 20, Light},
    {13.0 / 20, 3.0 / 20, Light},
    {4.0 / 5, 3.0 / 20, Dark},
    {19.0 / 20, 1.0 / 20, Black},
}};

// No mirror image: below -2.0 the ground stays white, here as on the printed chart.
constexpr std::array<Band, 5> ZScore_Bands = {{
    {0.0, 0.106, Black},
    {0.106, 0.197, Dark},
    {0.303, 0.197, Light},
    {0.5, 0.197, Light},
    {0.697, 0.197, Dark},
}};

constexpr std::array<double, 6> Centile_Lines = {1.0 / 20, 1.0 / 5, 7.0 / 20, 13.0 / 20, 4.0 / 5, 19.0 / 20};
constexpr std::array<double, 6> ZScore_Lines = {0.008, 0.106, 0.303, 0.697, 0.894, 0.992};

constexpr double Middle_Line = 0.5;

} // namespace backgrounds
