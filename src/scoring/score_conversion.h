#pragma once

#include <QString>

namespace scoring {

// The z-score of a centile; 0 for 50 and for anything outside 1 to 99. The stored values are the system's
// own and near the ends not those of the rounded normal distribution.
double Centile_To_ZScore(int centile);

// The standard score of a centile as text; "XXX" outside 1 to 99.
QString Centile_To_Standard_Score(int centile);

} // namespace scoring
