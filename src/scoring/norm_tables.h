#pragma once

#include "foundation/access_holder.h"
#include "foundation/installation.h"
#include "platform/basics/bounded.h"
#include "scoring/score_store.h"

#include <QString>
#include <limits>

namespace scoring {

inline constexpr int Youngest_Normed = 4; // years: the first and the last norm column
inline constexpr int Oldest_Normed = 8;
inline constexpr int Highest_Place = 70; // of a raw score
inline constexpr int Months_A_Year = 12;

// All norms in memory, so that a cohort is scored without reading them again. The bounds are the system's
// limits: beyond them is run-time error 9. Unfilled cells stay 0, which is no score.
struct Norm_Tables {
    using Centiles_By_Raw_Score = basics::Bounded<qint16, Highest_Place>;
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

// The months of age for which one column of the norms holds. The first band takes all who are younger, the
// last all who are older.
struct Norm_Band {
    QStringView column; // "4" to "8"
    int first_month;
    int last_month;

    bool Is_Youngest() const { return first_month == 0; }
    bool Is_Oldest() const { return last_month == std::numeric_limits<int>::max(); }
};
Norm_Band Norm_Band_Of(int months);

// The year of age whose norms hold, "4" to "8". No age is refused: the ends take all beyond them.
QString Age_To_Norm_Column(int months);
QString Age_To_Band_Letter(int months); // "A" to "E", the same years in the keys of Mevo_Means

// The cell that a raw score was looked up in, and the two beside it in the same column; 0 where there is
// none.
struct Norm_Row {
    int raw = 0;
    qint16 below = 0;
    qint16 centile = 0;
    qint16 above = 0;
};

// How a mean time found its centile.
enum class Time_Match { None, Exact, Faster_Than_All, Slower_Than_All, Nearest, No_Time };
struct Time_Row {
    qint32 time = 0; // milliseconds, as the other three
    Time_Match match = Time_Match::None;
    int centile = 0;
    qint32 slower = 0; // of the centile below
    qint32 at_centile = 0;
    qint32 faster = 0; // of the centile above
};

// Both look up memory and write the slot that Current_Test names. Who passes `used` is told what they used.
void Raw_To_Centile(const basics::Value& raw, const QString& table_name, const QString& age_column,
                    const Norm_Tables& norms, Score_Store& scores, Norm_Row* used = nullptr);
void Time_To_Centile(qint32 time, const QString& table_name, const QString& age_column,
                     const Norm_Tables& norms, Score_Store& scores, Time_Row* used = nullptr);

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
