#include "scoring/pindo.h"

#include "scoring/test_pass.h"

using namespace Qt::StringLiterals;

namespace scoring {

using test_index::Pindo;

static constexpr Word_Pair Colour_Words[] = {
    {u"LBLU", "Sky blue"}, {u"LRED", "Red"},      {u"PURP", "Magenta"},
    {u"YELL", "Yellow"},   {u"DBLU", "Mid blue"}, {u"GREN", "Green"},
};

static constexpr int Body_Parts = 6; // one attempt for each is the optimum

void Score_Pindo(int p, Scoring& scoring, database::Recordset* rs) {
    Load_Items(Pindo, All_Items(Pindo), Item_Load::Answers_And_Times, p, rs, scoring);
    Replace_Words(Colour_Words, Pindo, scoring.items);
    const Test_Items& items = scoring.items[Pindo];
    for (int i = 1; i <= Test_At(Pindo).Items; ++i) { // four tries for each body part, from the hat down
        const bool attempted = Is_Valid_Time(items.Item_Time(i));
        Tell_Item(Pindo, i, Counting::Timed_Try, attempted ? 1 : 0, scoring);
        if (scoring.trace) scoring.trace->Of(Pindo).times.push_back({i, items.Item_Time(i), attempted});
        if (!attempted) continue;
        ++scoring.scores.Pindo_Attempts;
        if (items.Item_Chosen(i) == items.Item_Requested(i)) ++scoring.scores.Pindo_Correct;
    }
}

QString Pindo_Try(int item) {
    static const QString parts[Body_Parts] = {u"Hat"_s,       u"Head"_s,     u"Left arm"_s,
                                              u"Right arm"_s, u"Left leg"_s, u"Right leg"_s};
    static const QString tries[] = {u"1st"_s, u"2nd"_s, u"3rd"_s, u"4th"_s};
    constexpr int of_each = 4;
    return parts[(item - 1) / of_each] + u' ' + tries[(item - 1) % of_each];
}

Pindo_Verdict Verdict_On_Pindo(int p, const Pupil_Lists& pupils, const Score_Store& scores) {
    if (pupils.Test_Status[Pindo][p] != 1 || scores.Pindo_Attempts < Body_Parts) return {};
    if (scores.Pindo_Attempts == Body_Parts)
        return {u"OK"_s, u"Pindo test satisfactorily."_s, u"Satisfactory"_s};
    const QString errors = QString::number(scores.Pindo_Attempts - Body_Parts);
    return {errors + u" errs"_s, u"Pindo test unsatisfactory (Number of errors: "_s + errors + u")."_s,
            u"Unsatisfactory"_s};
}

} // namespace scoring
