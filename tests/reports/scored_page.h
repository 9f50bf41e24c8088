#pragma once

#include "reports/state/report_state.h"
#include "scoring/scoring.h"
#include "support/page_fixture.h"

namespace test_support {

using namespace Qt::StringLiterals;

inline const QString All_Normed =
    u"Tolvens = 1 AND BliksFriends = 1 AND Karrel = 1 AND BliksLetters = 1 AND BliksLetterNames = 1 AND "
    u"Drell = 1 AND Mirvel = 1 AND Yoon = 1 "
    "AND Karrel_age >= 60 AND BliksLetters_age >= 60"_s; // a younger pupil can score below the norms

// A page that shows the scores of the pupils in its database.
class Scored_Page : public Page_Fixture {
protected:
    QString Code_Where(const QString& condition) const {
        return sample.Value(u"SELECT StudentCode FROM Mevo_Pupils WHERE "_s + condition +
                            u" ORDER BY StudentCode LIMIT 1"_s);
    }
    void Set(const QString& code, const QString& assignments, const QString& table = u"Mevo_Pupils"_s) const {
        sample.Run(u"UPDATE %1 SET %2 WHERE StudentCode = '%3'"_s.arg(table, assignments, code));
    }

    scoring::Scoring_Data scores;
    foundation::Access_Holder scoring_holder{outside.platform};
    scoring::Scoring scoring = scoring::Pass_Over(scores, installation, scoring_holder);
    reports::Report_State state;
};

} // namespace test_support
