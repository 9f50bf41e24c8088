#include "scoring/score_conversion.h"

#include <algorithm>
#include <iterator>

using namespace Qt::StringLiterals;

namespace scoring {

namespace {

// Of centiles 1 to 49; those above 50 mirror them.
constexpr double Lower_ZScores[] = {
    -2.324, -2.054, -1.88,  -1.75,  -1.644, -1.555, -1.476, -1.405, -1.341, -1.282, -1.227, -1.175, -1.126,
    -1.08,  -1.036, -0.995, -0.954, -0.915, -0.878, -0.842, -0.807, -0.772, -0.739, -0.706, -0.674, -0.643,
    -0.613, -0.583, -0.553, -0.525, -0.496, -0.468, -0.44,  -0.413, -0.385, -0.358, -0.332, -0.305, -0.279,
    -0.253, -0.227, -0.202, -0.176, -0.151, -0.126, -0.1,   -0.075, -0.05,  -0.025,
};

struct Standard_Score {
    int last_centile; // of the run that shares the score
    int score;
};

constexpr Standard_Score Standard_Scores[] = {
    {1, 65},   {2, 70},   {3, 72},   {4, 74},   {5, 75},   {6, 77},   {7, 78},   {8, 79},   {9, 80},
    {10, 81},  {12, 82},  {13, 83},  {14, 84},  {16, 85},  {18, 86},  {20, 87},  {22, 88},  {24, 89},
    {26, 90},  {29, 91},  {31, 92},  {34, 93},  {36, 94},  {39, 95},  {41, 96},  {44, 97},  {46, 98},
    {49, 99},  {52, 100}, {54, 101}, {57, 102}, {59, 103}, {62, 104}, {65, 105}, {67, 106}, {69, 107},
    {72, 108}, {74, 109}, {76, 110}, {78, 111}, {80, 112}, {82, 113}, {83, 114}, {85, 115}, {86, 116},
    {88, 117}, {89, 118}, {90, 119}, {91, 120}, {92, 121}, {93, 122}, {94, 124}, {95, 125}, {96, 126},
    {97, 128}, {98, 131}, {99, 135},
};

bool Is_Centile(int centile) {
    return centile >= 1 && centile <= 99;
}

} // namespace

double Centile_To_ZScore(int centile) {
    if (!Is_Centile(centile) || centile == 50) return 0;
    return centile < 50 ? Lower_ZScores[centile - 1] : -Lower_ZScores[99 - centile];
}

QString Centile_To_Standard_Score(int centile) {
    if (!Is_Centile(centile)) return u"XXX"_s;
    const auto* run =
        std::find_if(std::begin(Standard_Scores), std::end(Standard_Scores),
                     [centile](const Standard_Score& row) { return centile <= row.last_centile; });
    return QString::number(run->score);
}

} // namespace scoring
