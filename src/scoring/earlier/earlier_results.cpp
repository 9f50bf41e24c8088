#include "scoring/earlier/earlier_results.h"

#include "platform/basics/run_time_error.h"
#include "scoring/score_all_tests.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace scoring {

using keeping::Taking;

struct Earlier_Results::Stores {
    Pupil_Lists lists; // place 1 alone
    Score_Store scores;
    Item_Store items;
    Work_Lists work;
    Scoring scoring;

    Stores(const foundation::Installation& installation, foundation::Access_Holder& holder,
           const Norm_Tables& norms)
        : scoring{installation, holder, lists, norms, scores, items, work} {}
};

namespace {

constexpr int The_Place = 1;

// 0 where the norms have no such score.
int Centile_At(int t, int raw, int months, const Norm_Tables& norms) {
    Score_Store scores;
    scores.Current_Test = t;
    try {
        Raw_To_Centile(raw, Test_At(t).Norm_Table, Age_To_Norm_Column(months), norms, scores);
    } catch (const basics::Run_Time_Error&) {
        return 0;
    }
    return scores.Raw_Centile[t];
}

// What one raw point less, the score itself and one more come to; at the table's ends the score stands for
// its neighbour.
struct Reach {
    int less, itself, more;
};

Reach Reach_Of(int t, const Point_On_The_Norms& point, const Norm_Tables& norms) {
    const auto at = [&](int raw) { return Centile_At(t, raw, point.months, norms); };
    const auto otherwise = [](int centile, int itself) { return centile == 0 ? itself : centile; };
    const int itself = at(point.raw);
    return {otherwise(at(point.raw - 1), itself), itself, otherwise(at(point.raw + 1), itself)};
}

bool Is_Above(const Reach& upper, const Reach& lower) {
    return upper.itself > std::max(lower.more, lower.itself) &&
           lower.itself < std::min(upper.less, upper.itself);
}

void Take_Texts(const Summary_Cells& cells, Scored_Taking& taking) {
    const int row = Summary_Row(taking.test);
    taking.score = cells(row, summary_column::Score);
    taking.centile = cells(row, summary_column::Centile);
    taking.standard_score = cells(row, summary_column::Standard_Score);
    taking.z_score = cells(row, summary_column::ZScore);
}

QString Age_Text(int t, int p, const Pupil_Lists& lists) {
    Summary_Cells cells;
    Fill_SummaryTable_With_Ages(p, lists, cells);
    return cells(Summary_Row(t), summary_column::Test_Age);
}

void Compare(QList<Scored_Taking>& takings, const Norm_Tables& norms) {
    for (qsizetype i = 1; i < takings.size(); ++i) {
        const Scored_Taking& before = takings[i - 1];
        Scored_Taking& after = takings[i];
        if (before.test != after.test || before.centile.isEmpty() || after.centile.isEmpty()) continue;
        after.from_the_one_before = Difference_Between(after.test, {before.score.toInt(), before.months},
                                                       {after.score.toInt(), after.months}, norms);
    }
}

} // namespace

Difference Difference_Between(int t, const Point_On_The_Norms& before, const Point_On_The_Norms& after,
                              const Norm_Tables& norms) {
    const Reach first = Reach_Of(t, before, norms);
    const Reach second = Reach_Of(t, after, norms);
    if (first.itself == 0 || second.itself == 0) return Difference::Not_Compared;
    if (Is_Above(second, first)) return Difference::Higher;
    return Is_Above(first, second) ? Difference::Lower : Difference::None;
}

QString In_Words(Difference difference) {
    switch (difference) {
    case Difference::None:
        return u"no difference"_s;
    case Difference::Higher:
        return u"higher"_s;
    case Difference::Lower:
        return u"lower"_s;
    case Difference::Not_Compared:
        break;
    }
    return {};
}

Earlier_Results::Earlier_Results(const foundation::Installation& installation,
                                 foundation::Access_Holder& holder, const Norm_Tables& norms)
    : installation(installation),
      norms(norms),
      stores(std::make_unique<Stores>(installation, holder, norms)) {
}

Earlier_Results::~Earlier_Results() = default;

// Each by itself: nothing that another left in the stores is in it. A row that can't be scored keeps its date
// and age.
Scored_Taking Earlier_Results::Scored(const Taking& taking) {
    const int t = taking.test;
    Pupil_Lists& lists = stores->lists;
    for (int other = 1; other <= All_Tests; ++other)
        lists.Test_Status[other][The_Place] = other == t ? 1 : 0;
    lists.Test_Age[t][The_Place] = static_cast<qint16>(taking.age);
    Scored_Taking scored;
    scored.test = t;
    scored.status = taking.status;
    scored.months = taking.age;
    scored.date = taking.date;
    scored.age = Age_Text(t, The_Place, lists);
    stores->work = {};
    Clear_Scores(stores->scores);
    try {
        keeping::Kept_Row row(foundation::Database_Named_In(installation.Connection_String), taking);
        Score_One_Test(t, The_Place, row.Row(), stores->scoring);
    } catch (const basics::Run_Time_Error&) {
        return scored;
    }
    Summary_Cells cells;
    Fill_SummaryTable_With_Scores(The_Place, lists, stores->scores, cells);
    Take_Texts(cells, scored);
    return scored;
}

QList<Scored_Taking> Earlier_Results::Present_Takings(int p, const Pupil_Lists& pupils,
                                                      const Summary_Cells& present) {
    QList<Scored_Taking> takings;
    for (int t = 1; t <= All_Tests; ++t) {
        if (pupils.Test_Status[t][p] != 1) continue;
        Scored_Taking now;
        now.test = t;
        now.is_present = true;
        now.status = 1;
        now.months = pupils.Test_Age[t][p];
        now.date = pupils.Test_Date[t][p];
        now.age = Age_Text(t, p, pupils);
        Take_Texts(present, now);
        takings.append(now);
    }
    return takings;
}

QList<Scored_Taking> Earlier_Results::All_Takings(int p, const Pupil_Lists& pupils,
                                                  const Summary_Cells& present) {
    QList<Scored_Taking> takings;
    for (const Taking& taking : keeping::Takings_Of(
             foundation::Database_Named_In(installation.Connection_String), pupils.Student_Code[p]))
        takings.append(Scored(taking));
    takings += Present_Takings(p, pupils, present);
    std::stable_sort(
        takings.begin(), takings.end(),
        [](const Scored_Taking& left, const Scored_Taking& right) { return left.test < right.test; });
    Compare(takings, norms);
    return takings;
}

} // namespace scoring
