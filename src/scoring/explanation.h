#pragma once

#include "scoring/scoring.h"
#include "scoring/standing.h"
#include "scoring/summary_table.h"

#include <QDate>
#include <optional>

namespace scoring {

// An age by two dates, in the way that the suite counts completed months.
struct Age_By_Dates {
    int completed_months;
    int days; // beyond them
};
// Nothing unless both are dates and the later one isn't before the other.
std::optional<Age_By_Dates> Age_Between(const QString& born, const QString& date);

// One test of one pupil with all that its score was worked out from. Every number in it was told by a step of
// the scoring, or stands in the summary that these steps filled.
struct Explanation {
    int t = 0;
    QString pupil; // as the list of pupils has them: "Grey Anna (204)"
    QString born;  // both as stored
    QString tested;
    int months = 0; // stored with the test; these select the norms
    std::optional<Age_By_Dates> by_dates;
    Standing standing = Standing::Not_Taken; // of Pindo only whether it was taken
    Traced_Test used;
    QStringList cells; // columns 2 to 8 of the summary
    bool has_times = false;
    int last_raw_score = 0; // of the norms' last row
    bool ended_early = false;
    std::optional<int> sequence_errors;
    int attempts = 0; // Pindo's
    QString failure;  // why the answers, or else the times, could not be worked out
};

// Works test t of the pupil at place p out once more, on stores of its own. `page` tells where to read;
// before is what the work lists held when the pupil was chosen, as a list that is too short is compared with
// an earlier one's tail. Throws nothing: what fails is told in the result.
Explanation Explain(int t, int p, const Work_Lists& before, const Scoring& page, desktop::Platform& platform);

} // namespace scoring
