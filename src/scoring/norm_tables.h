#pragma once

#include "foundation/access_holder.h"
#include "foundation/installation.h"
#include "platform/basics/bounded.h"
#include "scoring/score_store.h"

#include <QString>

namespace scoring {

// All norms in memory, so that a cohort is scored without reading them again. The bounds are the system's
// limits: beyond them is run-time error 9. Unfilled cells stay 0, which is no score.
struct Norm_Tables {
    using Centiles_By_Raw_Score = basics::Bounded<qint16, 70>;
    using Times_By_Centile = basics::Bounded<qint32, 99>;

    basics::Bounded<basics::Bounded<Centiles_By_Raw_Score, 9>, Normed_Tests>
        Centile_Norms;                                                              // [t][age + 1][raw]
    basics::Bounded<basics::Bounded<Times_By_Centile, 8>, Normed_Tests> Time_Norms; // [t][age][centile]
};

// All sixteen tables; once for each opening of the Reports page.
void Load_All_Norms(foundation::Access_Holder& holder, const foundation::Installation& installation,
                    Norm_Tables& norms);
void Load_Centile_Norms(const QString& table_name, int t, foundation::Access_Holder& holder,
                        const foundation::Installation& installation, Norm_Tables& norms);
void Load_Time_Norms(const QString& table_name, int t, foundation::Access_Holder& holder,
                     const foundation::Installation& installation, Norm_Tables& norms);

// The year of age whose norms hold, "4" to "8". No age is refused: the ends take all beyond them.
QString Age_To_Norm_Column(int months);
QString Age_To_Band_Letter(int months); // "A" to "E", the same years in the keys of Mevo_Means

// Both look up memory and write the slot that Current_Test names.
void Raw_To_Centile(const basics::Value& raw, const QString& table_name, const QString& age_column,
                    const Norm_Tables& norms, Score_Store& scores);
void Time_To_Centile(qint32 time, const QString& table_name, const QString& age_column,
                     const Norm_Tables& norms, Score_Store& scores);

struct Population_Means {
    basics::Value Time_Mean; // milliseconds, as Time_SD
    basics::Value Time_SD;
    basics::Value Correct_Mean;
    basics::Value Correct_SD;
    basics::Value Seq_Errors_Mean;
    basics::Value Seq_Errors_SD;
};

// Reads the row of a test's module text and the age band of that many months; means stay as they are if
// there is none. module becomes the row's key.
void Get_Population_Means(QString& module, int months, Population_Means& means,
                          foundation::Access_Holder& holder, const foundation::Installation& installation);

} // namespace scoring
