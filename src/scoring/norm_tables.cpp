#include "scoring/norm_tables.h"

#include "platform/basics/run_time_error.h"
#include "scoring/score_conversion.h"

#include <algorithm>
#include <iterator>
#include <limits>

using namespace Qt::StringLiterals;

namespace scoring {

namespace {

using basics::Value;
using foundation::Access_Holder;
using foundation::Installation;
using Times_By_Centile = Norm_Tables::Times_By_Centile;

constexpr int Oldest_With_Empty_Cells = 6;
constexpr int Slowest_Centile = 1;
constexpr int Fastest_Centile = 99;

struct Age_Band {
    int months_below;
    QStringView column;
    QStringView letter;
};

constexpr Age_Band Age_Bands[] = {
    {60, u"4", u"A"},
    {72, u"5", u"B"},
    {84, u"6", u"C"},
    {96, u"7", u"D"},
    {std::numeric_limits<int>::max(), u"8", u"E"},
};

const Age_Band& Band_Of(int months) {
    return *std::find_if(std::begin(Age_Bands), std::end(Age_Bands) - 1,
                         [months](const Age_Band& band) { return months < band.months_below; });
}

void Open_Norms(const QString& table_name, Access_Holder& holder, const Installation& installation) {
    holder.ado_Open(installation.Connection_String, u"SELECT * FROM "_s + table_name, u"ReadOnly"_s);
    holder.Rows().MoveFirst();
}

// The younger columns have cells without a value, which read as centile 0, no score; in the older ones
// every cell must hold a number.
qint16 Centile_In(const Value& cell, int age) {
    return age <= Oldest_With_Empty_Cells ? Value(u'0' + cell.Text_Or_Empty()).As_Integer()
                                          : cell.As_Integer();
}

// 0, whose norms are empty, for a name that no test has.
int Test_Of_Table(const QString& table_name, QString Test_Entry::*kind) {
    for (int t = 1; t <= Normed_Tests; ++t)
        if (Test_At(t).*kind == table_name) return t;
    return 0;
}

int Norm_Age(const QString& age_column) {
    bool is_whole = false;
    int age = age_column.toInt(&is_whole);
    if (!is_whole) age = Value(age_column).As_Integer();
    if (age < Youngest_Normed || age > Oldest_Normed) basics::Raise(basics::errors::Subscript_Out_Of_Range);
    return age;
}

// The lowest centile with exactly this time, or 0.
int Exact_Centile(qint32 time, const Times_By_Centile& times) {
    for (int c = Slowest_Centile; c <= Fastest_Centile; ++c)
        if (times[c] == time) return c;
    return 0;
}

// The nearer of the two centiles whose times lie about this one; the middle goes to the slower. There are two
// such, since the time lies between those of the table's ends and equals none.
int Nearer_Centile(qint32 time, const Times_By_Centile& times) {
    for (int n = Fastest_Centile;; --n) {
        const double faster = times[n];
        const double slower = times[n - 1];
        if (time > faster && time < slower) return time < faster + (slower - faster) / 2 ? n : n - 1;
    }
}

struct Found_Centile {
    int centile;
    Time_Match match;
};

Found_Centile Centile_Of_Time(qint32 time, const Times_By_Centile& times) {
    if (const int exact = Exact_Centile(time, times)) return {exact, Time_Match::Exact};
    const qint32 fastest = times[Fastest_Centile];
    const qint32 slowest = times[Slowest_Centile];
    Found_Centile found{0, Time_Match::None};
    if (time < fastest) found = {Fastest_Centile, Time_Match::Faster_Than_All};
    // Wins over the line above in a table in disorder.
    if (time > slowest) found = {Slowest_Centile, Time_Match::Slower_Than_All};
    if (time > fastest && time < slowest) found = {Nearer_Centile(time, times), Time_Match::Nearest};
    return found;
}

Norm_Row Row_Of(int raw, const Norm_Tables::Centiles_By_Raw_Score& centiles) {
    return {raw, raw > 0 ? centiles[raw - 1] : qint16(0), centiles[raw],
            raw < Highest_Place ? centiles[raw + 1] : qint16(0)};
}

Time_Row Row_Of(qint32 time, const Found_Centile& found, const Times_By_Centile& times) {
    const int c = found.centile;
    return {time,     found.match,
            c,        c > Slowest_Centile ? times[c - 1] : 0,
            times[c], c >= Slowest_Centile && c < Fastest_Centile ? times[c + 1] : 0};
}

} // namespace

void Load_All_Norms(Access_Holder& holder, const Installation& installation, Norm_Tables& norms) {
    const auto act = holder.Begin_Act();
    for (int t = 1; t <= Normed_Tests; ++t)
        Load_Centile_Norms(Test_At(t).Norm_Table, t, holder, installation, norms);
    for (int t = 1; t <= Normed_Tests; ++t)
        Load_Time_Norms(Test_At(t).Time_Norm_Table, t, holder, installation, norms);
}

// A row's place, and no field of it, gives its raw score.
void Load_Centile_Norms(const QString& table_name, int t, Access_Holder& holder,
                        const Installation& installation, Norm_Tables& norms) {
    auto& centiles = norms.Centile_Norms[t];
    Open_Norms(table_name, holder, installation);
    for (int r = 1; !holder.Rows().Eof(); ++r, holder.Rows().MoveNext()) {
        centiles[0][r] = static_cast<qint16>(r - 1);
        for (int age = Youngest_Normed; age <= Oldest_Normed; ++age)
            centiles[age + 1][r - 1] = Centile_In(holder.Field(u"Age %1 Centile"_s.arg(age)), age);
    }
    holder.ado_Close();
}

void Load_Time_Norms(const QString& table_name, int t, Access_Holder& holder,
                     const Installation& installation, Norm_Tables& norms) {
    Open_Norms(table_name, holder, installation);
    for (; !holder.Rows().Eof(); holder.Rows().MoveNext()) {
        const int c = holder.Field(u"Centile"_s).As_Integer();
        for (int age = Youngest_Normed; age <= Oldest_Normed; ++age)
            norms.Time_Norms[t][age][c] = holder.Field(u"Raw score %1"_s.arg(age)).As_Long();
    }
    holder.ado_Close();
}

Norm_Band Norm_Band_Of(int months) {
    const Age_Band& band = Band_Of(months);
    constexpr int open_end = std::numeric_limits<int>::max();
    const int first = &band == std::begin(Age_Bands) ? 0 : (&band - 1)->months_below;
    return {band.column, first, band.months_below == open_end ? open_end : band.months_below - 1};
}

QString Age_To_Norm_Column(int months) {
    return Band_Of(months).column.toString();
}

QString Age_To_Band_Letter(int months) {
    return Band_Of(months).letter.toString();
}

void Raw_To_Centile(const Value& raw, const QString& table_name, const QString& age_column,
                    const Norm_Tables& norms, Score_Store& scores, Norm_Row* used) {
    const int test = Test_Of_Table(table_name, &Test_Entry::Norm_Table);
    const int age = Norm_Age(age_column);
    const qint16 centile = norms.Centile_Norms[test][age + 1][raw.As_Integer()];
    if (used) *used = Row_Of(raw.As_Integer(), norms.Centile_Norms[test][age + 1]);
    const int t = scores.Current_Test;
    scores.Raw_Score[t] = raw;
    scores.Raw_Centile[t] = centile;
    scores.Raw_ZScore[t] = Centile_To_ZScore(centile);
}

void Time_To_Centile(qint32 time, const QString& table_name, const QString& age_column,
                     const Norm_Tables& norms, Score_Store& scores, Time_Row* used) {
    const int test = Test_Of_Table(table_name, &Test_Entry::Time_Norm_Table);
    const int age = Norm_Age(age_column);
    Found_Centile found = Centile_Of_Time(time, norms.Time_Norms[test][age]);
    if (time == 0) found = {Slowest_Centile, Time_Match::No_Time};
    const int centile = found.centile;
    if (used) *used = Row_Of(time, found, norms.Time_Norms[test][age]);
    const int t = scores.Current_Test;
    scores.Time_Score[t] = time;
    scores.Time_Centile[t] = centile;
    scores.Time_ZScore[t] = Centile_To_ZScore(centile);
}

void Get_Population_Means(QString& module, int months, Population_Means& means,
                          foundation::Access_Holder& holder, const foundation::Installation& installation) {
    module = (module + u" band "_s + Age_To_Band_Letter(months)).trimmed();
    holder.ado_Open(installation.Connection_String, u"SELECT * FROM Mevo_Means"_s, u"ReadOnly"_s);
    for (; !holder.Rows().Eof(); holder.Rows().MoveNext()) {
        if (!holder.Field(u"Module"_s).Reads(module)) continue;
        means = {holder.Field(u"Time_Mean"_s),       holder.Field(u"Time_SD"_s),
                 holder.Field(u"Correct_Mean"_s),    holder.Field(u"Correct_SD"_s),
                 holder.Field(u"Seq_Errors_Mean"_s), holder.Field(u"Seq_Errors_SD"_s)};
        break;
    }
    holder.ado_Close();
}

} // namespace scoring
