#include "reports/profile_bars.h"

#include <cmath>

namespace reports {

namespace {

struct Scale_Mark {
    double z; // without its sign: the bar's direction comes from the centile
    int height;
};

constexpr Scale_Mark Scale[] = {
    {2.324, 200}, {2.054, 183}, {1.88, 167},  {1.75, 159},  {1.644, 152}, {1.555, 143}, {1.476, 137},
    {1.405, 132}, {1.341, 125}, {1.282, 120}, {1.227, 115}, {1.175, 112}, {1.126, 108}, {1.08, 103},
    {1.036, 97},  {0.995, 92},  {0.954, 88},  {0.915, 85},  {0.878, 83},  {0.842, 80},  {0.807, 76},
    {0.772, 73},  {0.739, 69},  {0.706, 67},  {0.674, 64},  {0.643, 61},  {0.613, 59},  {0.583, 55},
    {0.553, 52},  {0.525, 51},  {0.496, 47},  {0.468, 44},  {0.44, 41},   {0.413, 37},  {0.385, 35},
    {0.358, 32},  {0.332, 29},  {0.305, 28},  {0.279, 25},  {0.253, 23},  {0.227, 21},  {0.202, 19},
    {0.176, 16},  {0.151, 13},  {0.126, 11},  {0.1, 9},     {0.075, 7},   {0.05, 5},    {0.025, 3},
    {0, 0},
};

} // namespace

Bar Centile_Bar(int centile) {
    return {Chart_Height - 4 * centile, 4 * centile};
}

Bar ZScore_Bar(int centile, int height) {
    return {centile < 50 ? Middle_Line : Middle_Line - height, height};
}

std::optional<int> Bar_Height_For(double z) {
    for (const Scale_Mark& mark : Scale)
        if (std::fabs(z) == mark.z) return mark.height;
    return std::nullopt;
}

} // namespace reports
