#include "scoring/standing.h"

using namespace Qt::StringLiterals;

namespace scoring {

static bool Has_Norms(int t, int months, const Norm_Tables& norms) {
    const auto& centiles = norms.Centile_Norms[t][Norm_Band_Of(months).column.toInt() + 1];
    for (int raw = 0; raw <= Highest_Place; ++raw)
        if (centiles[raw] != 0) return true;
    return false;
}

Standing Standing_Of(int t, int p, const Pupil_Lists& pupils, const Score_Store& scores,
                     const Norm_Tables& norms) {
    const int status = pupils.Test_Status[t][p];
    if (status == 0) return pupils.Test_Date[t][p].isEmpty() ? Standing::Not_Taken : Standing::Retest_Allowed;
    if (status != 1) return Standing::Not_Scored;
    if (scores.Raw_Centile[t] != 0) return Standing::Scored;
    return Has_Norms(t, pupils.Test_Age[t][p], norms) ? Standing::Outside_Norms : Standing::No_Norms;
}

QString In_Words(Standing standing) {
    switch (standing) {
    case Standing::Scored:
        return {};
    case Standing::Not_Taken:
        return u"not taken"_s;
    case Standing::Retest_Allowed:
        return u"retest allowed"_s;
    case Standing::Not_Scored:
        return u"not scored"_s;
    case Standing::No_Norms:
        return u"no norms for this age"_s;
    case Standing::Outside_Norms:
        return u"outside the norms"_s;
    }
    return {};
}

} // namespace scoring
