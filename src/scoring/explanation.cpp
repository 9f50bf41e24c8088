#include "scoring/explanation.h"

#include "foundation/quiet_reading.h"
#include "platform/basics/age.h"
#include "platform/basics/dates.h"
#include "scoring/norm_check.h"
#include "scoring/score_all_tests.h"
#include "scoring/sequence_totals.h"

using namespace Qt::StringLiterals;

namespace scoring {

std::optional<Age_By_Dates> Age_Between(const QString& born, const QString& date) {
    const auto from = basics::Stored_Date(born);
    const auto to = basics::Stored_Date(date);
    if (!from || !to || from->date() > to->date()) return std::nullopt;
    const int months = basics::Age_In_Months(*from, *to);
    const auto days = from->date().addMonths(months).daysTo(to->date());
    return Age_By_Dates{months, static_cast<int>(days)};
}

namespace {

// The stores of one reckoning, with its listener.
struct Own_Stores {
    Own_Stores(const Work_Lists& before, const Scoring& page, foundation::Access_Holder& holder)
        : work(before),
          pass{page.installation, holder, page.pupils, page.norms, scores, items, work, &trace} {
        work.Heard_By = &trace.pairs;
    }

    Score_Store scores;
    Item_Store items;
    Work_Lists work;
    Trace trace;
    Summary_Cells cells;
    Scoring pass;
};

void Take_Facts(int t, int p, const Pupil_Lists& pupils, Explanation& told) {
    told.t = t;
    told.pupil = Pupil_List_Entry(pupils, p);
    told.born = pupils.Pupil_DOB_List[p];
    told.tested = pupils.Test_Date[t][p];
    told.months = pupils.Test_Age[t][p];
    told.by_dates = Age_Between(told.born, told.tested);
}

template<class Step>
bool Done(foundation::Quiet_Reading& reading, Explanation& told, Step step) {
    try {
        step();
        return true;
    } catch (const std::exception& error) { // without its rows a pass may stumble over anything
        told.failure = reading.Why(error);
        return false;
    }
}

void Take_Scores(int t, int p, Own_Stores& own, Explanation& told) {
    const Scoring& pass = own.pass;
    Fill_SummaryTable_With_Scores(p, pass.pupils, own.scores, own.cells);
    for (int column = summary_column::Score; column <= summary_column::Time_ZScore; ++column)
        told.cells.append(own.cells(Summary_Row(t), column));
    told.attempts = own.scores.Pindo_Attempts;
    told.ended_early = (t == test_index::Tolvens && own.scores.Tolvens_Terminated) ||
                       (t == test_index::Bliks_Friends && own.scores.Friends_Terminated);
}

} // namespace

Explanation Explain(int t, int p, const Work_Lists& before, const Scoring& page,
                    desktop::Platform& platform) {
    Explanation told;
    Take_Facts(t, p, page.pupils, told);
    foundation::Quiet_Reading reading(platform);
    Own_Stores own(before, page, reading.Holder());
    const bool taken = page.pupils.Test_Status[t][p] == 1;
    const bool scored = Done(reading, told, [&] {
        Score_Chosen_Pupil(p, Passes_Wanted::Raw, {}, own.pass, own.cells);
        if (taken && Has_Sequence_Total(t)) told.sequence_errors = Sequence_Total(t, p, own.pass);
    });
    if (taken && scored && t <= Normed_Tests)
        told.has_times = Done(reading, told, [&] { Time_One_Test(t, p, own.pass); });
    Take_Scores(t, p, own, told);
    if (t <= Normed_Tests) {
        told.standing = Standing_Of(t, p, page.pupils, own.scores, page.norms);
        told.last_raw_score = Last_Raw_Score(t, page.norms);
    } else {
        told.standing = taken ? Standing::Scored : Standing::Not_Taken;
    }
    told.used = std::move(own.trace.Of(t));
    return told;
}

} // namespace scoring
