#include "scoring/norm_check.h"

#include "foundation/quiet_reading.h"
#include "scoring/list_items.h"
#include "scoring/score_conversion.h"
#include "scoring/sequence_totals.h"
#include "scoring/single_answer_tests.h"

#include <QCryptographicHash>
#include <QtEndian>
#include <algorithm>
#include <vector>

using namespace Qt::StringLiterals;

namespace scoring {

namespace {

constexpr int Centiles = 99;

template<class Number>
void Add(Number number, QCryptographicHash& hash) {
    const Number bytes = qToLittleEndian(number);
    hash.addData(QByteArrayView(reinterpret_cast<const char*>(&bytes), sizeof bytes));
}

// "0 to 2, 7"
QString Ranges(const std::vector<int>& numbers) {
    QStringList ranges;
    for (std::size_t from = 0, to = 0; from < numbers.size(); from = to + 1) {
        to = from;
        while (to + 1 < numbers.size() && numbers[to + 1] == numbers[to] + 1)
            ++to;
        const QString first = QString::number(numbers[from]);
        ranges.append(from == to ? first : first + u" to "_s + QString::number(numbers[to]));
    }
    return ranges.join(u", "_s);
}

void Find(const std::vector<int>& places, int age, const QString& what, QStringList& findings) {
    if (!places.empty()) findings.append(u"Age %1: %2 %3."_s.arg(age).arg(what, Ranges(places)));
}

// One column of raw scores, up to the greatest that can be reached.
void Check_Column(int age, int last, int greatest, const Norm_Tables::Centiles_By_Raw_Score& centiles,
                  QStringList& findings) {
    std::vector<int> without, falling, no_standard_score;
    int before = 0;
    for (int raw = 0; raw <= std::max(last, greatest); ++raw) {
        const int centile = raw <= Highest_Place ? centiles[raw] : 0;
        if (centile == 0) {
            if (raw <= greatest) without.push_back(raw);
            continue;
        }
        if (centile < before) falling.push_back(raw);
        before = centile;
        if (Centile_To_Standard_Score(centile) == "XXX"_L1) no_standard_score.push_back(raw);
    }
    if (before == 0) {
        findings.append(u"Age %1: the column is empty."_s.arg(age));
        return;
    }
    Find(without, age, u"no centile for raw score"_s, findings);
    Find(falling, age, u"the centile falls at raw score"_s, findings);
    Find(no_standard_score, age, u"no standard score belongs to the centile of raw score"_s, findings);
}

void Check_Times(int age, const Norm_Tables::Times_By_Centile& times, QStringList& findings) {
    std::vector<int> without, rising;
    for (int c = 1; c <= Centiles; ++c) {
        if (times[c] <= 0)
            without.push_back(c);
        else if (c > 1 && times[c - 1] > 0 && times[c] > times[c - 1])
            rising.push_back(c);
    }
    if (without.size() == Centiles) {
        findings.append(u"Age %1: the column is empty."_s.arg(age));
        return;
    }
    Find(without, age, u"no time for centile"_s, findings);
    Find(rising, age, u"the time rises at centile"_s, findings);
}

// The standard scores and z-scores that the program itself goes by rise with the centile.
bool Scales_Rise() {
    for (int c = 2; c <= Centiles; ++c)
        if (Centile_To_ZScore(c) <= Centile_To_ZScore(c - 1) ||
            Centile_To_Standard_Score(c).toInt() < Centile_To_Standard_Score(c - 1).toInt())
            return false;
    return true;
}

Norm_Findings Check_Raw_Table(int t, const Norm_Tables& norms, const std::array<int, 9>& greatest) {
    const int last = Last_Raw_Score(t, norms);
    Norm_Findings found{Test_At(t).Norm_Table, u"raw scores 0 to %1"_s.arg(last), {}};
    for (int age = Youngest_Normed; age <= Oldest_Normed; ++age) {
        const int reached = greatest[static_cast<std::size_t>(age)];
        Check_Column(age, last, reached > 0 ? reached : last, norms.Centile_Norms[t][age + 1],
                     found.findings);
    }
    if (!Scales_Rise()) found.findings.append(u"Standard scores don't rise with the centiles."_s);
    return found;
}

Norm_Findings Check_Time_Table(int t, const Norm_Tables& norms) {
    Norm_Findings found{Test_At(t).Time_Norm_Table, u"centiles 1 to 99"_s, {}};
    for (int age = Youngest_Normed; age <= Oldest_Normed; ++age)
        Check_Times(age, norms.Time_Norms[t][age], found.findings);
    return found;
}

// Elements asked for in the row at hand; those of items that weren't reached aren't known.
int Elements_Asked(int t, const Item_Store& items, Work_Lists& work) {
    int count = 0;
    for (int i = 1; i <= Test_At(t).Items; ++i) {
        const basics::Value& asked = items[t].Item_Requested(i);
        if (asked.Is_Empty() || asked.Reads(Not_Reached)) continue;
        Split_Requested(asked, work);
        count += work.Requested_Count;
    }
    return count;
}

// The most that any stored row asked for; 0 without a row.
int Longest_Lists(int t, Scoring& scoring) {
    scoring.holder.ado_Open(scoring.installation.Connection_String,
                            u"SELECT * FROM "_s + Test_At(t).Data_Table, u"ReadOnly"_s);
    int most = 0;
    for (database::Recordset& rows = scoring.holder.Rows(); !rows.Eof(); rows.MoveNext()) {
        Load_Items(t, All_Items(t), Item_Load::Answers, 0, &rows, scoring);
        most = std::max(most, Elements_Asked(t, scoring.items, scoring.work));
    }
    scoring.holder.ado_Close();
    return std::min(most, Highest_Place);
}

int Greatest_Score(int t, int age, int longest_lists) {
    if (Has_Sequence_Total(t)) return longest_lists;
    if (t != test_index::Mirvel) return Test_At(t).Items;
    const Item_Range window = Mirvel_Window(age * Months_A_Year);
    return window.Last - window.First + 1;
}

Greatest_Scores Find_Greatest_Scores(Scoring& scoring) {
    Greatest_Scores greatest{};
    for (int t = 1; t <= Normed_Tests; ++t) {
        int longest = 0;
        try {
            if (Has_Sequence_Total(t)) longest = Longest_Lists(t, scoring);
        } catch (const std::exception&) {
            scoring.holder.ado_Close(); // the table is held to its own last row then
        }
        for (int age = Youngest_Normed; age <= Oldest_Normed; ++age)
            greatest[static_cast<std::size_t>(t)][static_cast<std::size_t>(age)] =
                Greatest_Score(t, age, longest);
    }
    return greatest;
}

using Load_Table = void (*)(const QString& table, int t, foundation::Access_Holder& holder,
                            const foundation::Installation& installation, Norm_Tables& norms);

// Empty text, or why the table can't be read.
QString Failure_Of(Load_Table load, const QString& table, int t, foundation::Quiet_Reading& reading,
                   const foundation::Installation& installation, Norm_Tables& norms) {
    try {
        load(table, t, reading.Holder(), installation, norms);
        return {};
    } catch (const std::exception& error) {
        return u"The table can't be read to its end: "_s + reading.Why(error);
    }
}

} // namespace

int Last_Raw_Score(int t, const Norm_Tables& norms) {
    const auto& rows = norms.Centile_Norms[t][0]; // the row's number less one, from row 1
    int last = 0;
    for (int row = 2; row <= Highest_Place; ++row)
        if (rows[row] == row - 1) last = row - 1;
    return last;
}

QString Norms_Digest(const Norm_Tables& norms) {
    QCryptographicHash hash(QCryptographicHash::Sha256);
    for (int t = 1; t <= Normed_Tests; ++t)
        for (int age = Youngest_Normed; age <= Oldest_Normed; ++age) {
            for (int raw = 0; raw <= Highest_Place; ++raw)
                Add(norms.Centile_Norms[t][age + 1][raw], hash);
            for (int c = 0; c <= Centiles; ++c)
                Add(norms.Time_Norms[t][age][c], hash);
        }
    constexpr int group = 4;
    QString digest = QString::fromLatin1(hash.result().toHex().first(4 * group));
    for (int at = 3; at > 0; --at)
        digest.insert(at * group, u'-');
    return digest;
}

bool Are_Practice_Norms(const QString& digest) {
    // As mevo-practice makes them, and as mevo-sampledb does unless told otherwise.
    static constexpr QStringView made_up[] = {u"e52e-cd1f-5ca2-68f5", u"9d9d-eed5-49bc-b0df"};
    return std::find(std::begin(made_up), std::end(made_up), digest) != std::end(made_up);
}

int Norm_Check::Findings() const {
    qsizetype count = 0;
    for (const Norm_Findings& table : tables)
        count += table.findings.size();
    return static_cast<int>(count);
}

Norm_Check Check_Norms(const Norm_Tables& norms, const Greatest_Scores& greatest) {
    Norm_Check check;
    for (int t = 1; t <= Normed_Tests; ++t)
        check.tables.append(Check_Raw_Table(t, norms, greatest[static_cast<std::size_t>(t)]));
    for (int t = 1; t <= Normed_Tests; ++t)
        check.tables.append(Check_Time_Table(t, norms));
    check.digest = Norms_Digest(norms);
    return check;
}

Norm_Check Check_Norms(desktop::Platform& platform, const foundation::Installation& installation) {
    foundation::Quiet_Reading reading(platform);
    Scoring_Data data;
    QStringList failures;
    for (int t = 1; t <= Normed_Tests; ++t)
        failures.append(
            Failure_Of(Load_Centile_Norms, Test_At(t).Norm_Table, t, reading, installation, data.norms));
    for (int t = 1; t <= Normed_Tests; ++t)
        failures.append(
            Failure_Of(Load_Time_Norms, Test_At(t).Time_Norm_Table, t, reading, installation, data.norms));
    Scoring scoring = Pass_Over(data, installation, reading.Holder());
    Norm_Check check = Check_Norms(data.norms, Find_Greatest_Scores(scoring));
    for (qsizetype place = 0; place < failures.size(); ++place)
        if (!failures[place].isEmpty()) check.tables[place].findings.prepend(failures[place]);
    return check;
}

} // namespace scoring
