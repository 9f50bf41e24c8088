#pragma once

#include "keeping/earlier_takings.h"
#include "scoring/scoring.h"
#include "scoring/summary_table.h"

#include <QList>
#include <QString>
#include <memory>

namespace scoring {

// A score is called different from the one before only where it isn't within what one raw point more or less
// would have made of either, by the norms of each age.
enum class Difference { Not_Compared, None, Higher, Lower };

struct Point_On_The_Norms {
    int raw = 0;
    int months = 0; // of age at the test
};
Difference Difference_Between(int t, const Point_On_The_Norms& before, const Point_On_The_Norms& after,
                              const Norm_Tables& norms);
// "higher", "lower", "no difference"; empty where nothing is compared.
QString In_Words(Difference difference);

// One test as it was taken once, by the norms of the age then. Texts are those of the summary table, and
// empty where there is no score.
struct Scored_Taking {
    int test = 0; // t
    bool is_present = false;
    int status = 0;
    int months = 0;
    QString date;
    QString age; // "5 y 3 m"
    QString score, centile, standard_score, z_score;
    Difference from_the_one_before = Difference::Not_Compared;
};

// Scores kept takings by the steps that score the database's own rows. Its stores are its own, so that what
// the pages show stays theirs.
class Earlier_Results {
public:
    Earlier_Results(const foundation::Installation& installation, foundation::Access_Holder& holder,
                    const Norm_Tables& norms);
    ~Earlier_Results();

    // Of the pupil at place p, by test, the oldest first and the present one last; tests never taken aren't
    // there. `present` has their scores as the Reports page shows them. Run-time errors as of the companion.
    QList<Scored_Taking> All_Takings(int p, const Pupil_Lists& pupils, const Summary_Cells& present);

    // The same without the earlier ones; nothing is read.
    static QList<Scored_Taking> Present_Takings(int p, const Pupil_Lists& pupils,
                                                const Summary_Cells& present);

private:
    struct Stores;
    Scored_Taking Scored(const keeping::Taking& taking);

    const foundation::Installation& installation;
    const Norm_Tables& norms;
    std::unique_ptr<Stores> stores;
};

} // namespace scoring
