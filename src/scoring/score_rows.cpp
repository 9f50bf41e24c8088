#include "scoring/score_rows.h"

#include "scoring/sequence_totals.h"

using namespace Qt::StringLiterals;

namespace scoring {

namespace {

namespace column { // from 0
constexpr int Test = 2;
constexpr int Centile = 6;
constexpr int Z_Score = 8;
constexpr int Time_Z_Score = 11;
constexpr int Terminated = 12;
constexpr int Sequence_Errors = 13;
} // namespace column

QString Terminated_Mark(int t, const Score_Store& scores) {
    if (t == test_index::Tolvens) return scores.Tolvens_Terminated ? u"1"_s : u"0"_s;
    if (t == test_index::Bliks_Friends) return scores.Friends_Terminated ? u"1"_s : u"0"_s;
    return {};
}

QString Sequence_Errors(int t, int p, const Scoring& pass) {
    if (!Has_Sequence_Total(t) || pass.pupils.Test_Status[t][p] != 1) return {};
    return QString::number(Sequence_Total(t, p, pass));
}

QStringList Score_Cells(int t, Passes_Wanted wanted, const Scoring& pass, const Summary_Cells& cells) {
    using namespace summary_column;
    QStringList texts;
    for (int column = Score; column <= Time_ZScore; ++column) {
        const bool is_filled = column < Time || wanted == Passes_Wanted::Raw_And_Time;
        texts.append(is_filled ? cells(Summary_Row(t), column) : QString());
    }
    if (t == test_index::Pindo) { // attempts in the score's place, the verdict in the standard score's
        texts[Standard_Score - Score] = texts.first();
        texts.first() = QString::number(pass.scores.Pindo_Attempts);
    }
    return texts;
}

QStringList Who_And_Which(int t, int p, const Pupil_Lists& pupils) {
    return {pupils.Student_Code[p], pupils.Pupil_Name_List[p], Test_At(t).Test_Name,
            QString::number(pupils.Test_Status[t][p]), QString::number(pupils.Test_Age[t][p])};
}

bool Can_Fill(int t, int at) {
    if (at == column::Terminated) return t == test_index::Tolvens || t == test_index::Bliks_Friends;
    if (at == column::Sequence_Errors) return Has_Sequence_Total(t);
    const bool normed = at == column::Centile || (at >= column::Z_Score && at <= column::Time_Z_Score);
    return !normed || t != test_index::Pindo;
}

// Calls with each test and each of the columns that it can fill, in the order of the wide form.
template<class Take>
void For_Each_Wide_Column(Take take) {
    for (int t = 1; t <= All_Tests; ++t)
        for (int at = column::Test + 1; at < Score_Columns().size(); ++at)
            if (Can_Fill(t, at)) take(t, at);
}

QStringList Make_Wide_Columns() {
    QStringList names{Score_Columns()[0], Score_Columns()[1], u"group"_s};
    For_Each_Wide_Column(
        [&](int t, int at) { names.append(Test_At(t).Status_Column + u'_' + Score_Columns()[at]); });
    return names;
}

} // namespace

const QStringList& Score_Columns() {
    static const QStringList names{
        u"student_code"_s, u"name"_s,         u"test"_s,       u"status"_s,          u"age_months"_s,
        u"raw_score"_s,    u"centile"_s,      u"std_score"_s,  u"z_score"_s,         u"time_seconds"_s,
        u"time_centile"_s, u"time_z_score"_s, u"terminated"_s, u"sequence_errors"_s,
    };
    return names;
}

const QStringList& Wide_Score_Columns() {
    static const QStringList names = Make_Wide_Columns();
    return names;
}

QList<QStringList> Score_Rows(int p, Passes_Wanted wanted, Scoring& pass, Summary_Cells& cells) {
    Score_Chosen_Pupil(p, wanted, {}, pass, cells);
    Fill_SummaryTable_With_Scores(p, pass.pupils, pass.scores, cells);
    QList<QStringList> rows;
    for (int t = 1; t <= All_Tests; ++t)
        rows.append(Who_And_Which(t, p, pass.pupils) + Score_Cells(t, wanted, pass, cells) +
                    QStringList{Terminated_Mark(t, pass.scores), Sequence_Errors(t, p, pass)});
    return rows;
}

QList<QStringList> Rows_Without_Scores(int p, const Pupil_Lists& pupils) {
    QList<QStringList> rows;
    for (int t = 1; t <= All_Tests; ++t) {
        rows.append(Who_And_Which(t, p, pupils));
        rows.last().resize(Score_Columns().size());
    }
    return rows;
}

QStringList Wide_Score_Row(int p, const Pupil_Lists& pupils, const QList<QStringList>& rows) {
    QStringList row{pupils.Student_Code[p], pupils.Pupil_Name_List[p], pupils.Pupil_Class_List[p]};
    For_Each_Wide_Column([&](int t, int at) { row.append(rows[t - 1][at]); });
    return row;
}

} // namespace scoring
