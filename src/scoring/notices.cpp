#include "scoring/notices.h"

#include "platform/basics/age.h"
#include "platform/basics/dates.h"
#include "scoring/explanation.h"
#include "scoring/list_items.h"
#include "scoring/single_answer_tests.h"
#include "scoring/standing.h"

#include <algorithm>
#include <cstdlib>

using namespace Qt::StringLiterals;

namespace scoring {

namespace {

constexpr int First_Normed_Month = Youngest_Normed * Months_A_Year;
constexpr int Behind_Last_Normed_Month = (Oldest_Normed + 1) * Months_A_Year;

bool Is_Taken(int t, int p, const Pupil_Lists& pupils) {
    return pupils.Test_Status[t][p] == 1;
}

bool Is_Possible(const std::optional<QDateTime>& date, const QDate& today) {
    return date && date->date() <= today;
}

void Look_At_Dates(int p, const QDate& today, const Pupil_Lists& pupils, QList<Notice>& notices) {
    const auto born = basics::Stored_Date(pupils.Pupil_DOB_List[p]);
    if (!Is_Possible(born, today)) {
        notices.append({0, u"The birthday can't be right"_s});
        return;
    }
    for (int t = 1; t <= All_Tests; ++t) {
        if (!Is_Taken(t, p, pupils)) continue;
        const auto tested = basics::Stored_Date(pupils.Test_Date[t][p]);
        if (!Is_Possible(tested, today) || tested->date() <= born->date())
            notices.append({t, u"Birthday or test date can't be right"_s});
        // One month may lie in how a module counts.
        else if (std::abs(basics::Age_In_Months(*born, *tested) - pupils.Test_Age[t][p]) > 1)
            notices.append({t, u"The age stored with the test isn't that of birthday and test date"_s});
    }
}

void Look_At_Age(int t, int months, QList<Notice>& notices) {
    if (months < First_Normed_Month || months >= Behind_Last_Normed_Month)
        notices.append({t, u"Age at test outside the norms' ages of 4 to 8 years"_s});
}

bool Is_Answered(const Test_Items& items, int i) {
    const basics::Value& chosen = items.Item_Chosen(i);
    return !chosen.Reads(u"") && !chosen.Reads(No_Answer) && !items.Item_Requested(i).Reads(Not_Reached);
}

void Look_At_Answers(int t, int months, const Item_Store& store, QList<Notice>& notices) {
    constexpr int share = 3;
    const Item_Range range = t == test_index::Mirvel ? Mirvel_Window(months) : All_Items(t);
    const int items = range.Last - range.First + 1;
    int answered = 0;
    for (int i = range.First; i <= range.Last; ++i)
        if (Is_Answered(store[t], i)) ++answered;
    if (answered * share < items) notices.append({t, u"Fewer than a third of the items answered"_s});
}

// The highest centile of the column has been reached: more right answers would change nothing.
void Look_At_Tables_End(int t, int months, const Scoring& scoring, QList<Notice>& notices) {
    const auto& centiles = scoring.norms.Centile_Norms[t][Norm_Band_Of(months).column.toInt() + 1];
    qint16 highest = 0;
    for (int raw = 0; raw <= Highest_Place; ++raw)
        highest = std::max(highest, centiles[raw]);
    if (scoring.scores.Raw_Centile[t] == highest)
        notices.append({t, u"At or above the highest value in the norms"_s});
}

// Days from the test to the one on which another column of the norms would have held; nothing beyond 14.
std::optional<int> Days_To_Next_Band(int t, int p, int last_month, const Pupil_Lists& pupils) {
    constexpr int near = 14;
    const auto born = basics::Stored_Date(pupils.Pupil_DOB_List[p]);
    const auto tested = basics::Stored_Date(pupils.Test_Date[t][p]);
    if (!born || !tested || basics::Age_In_Months(*born, *tested) > last_month) return std::nullopt;
    if (basics::Age_In_Months(*born, tested->addDays(near)) <= last_month) return std::nullopt;
    for (int days = 1; days < near; ++days)
        if (basics::Age_In_Months(*born, tested->addDays(days)) > last_month) return days;
    return near;
}

void Look_At_Next_Band(int t, int p, const Scoring& scoring, QList<Notice>& notices) {
    const Norm_Band band = Norm_Band_Of(scoring.pupils.Test_Age[t][p]);
    if (band.Is_Oldest()) return;
    const auto days = Days_To_Next_Band(t, p, band.last_month, scoring.pupils);
    if (!days) return;
    Score_Store there;
    there.Current_Test = t;
    const QString column = Age_To_Norm_Column(band.last_month + 1);
    Raw_To_Centile(scoring.scores.Raw_Score[t], Test_At(t).Norm_Table, column, scoring.norms, there);
    const int centile = there.Raw_Centile[t];
    const QString told = centile == 0 ? u"no score"_s : u"centile %1"_s.arg(centile);
    notices.append({t, u"%1 before the norms of age %2, which give %3"_s.arg(
                           *days == 1 ? u"1 day"_s : u"%1 days"_s.arg(*days), column, told)});
}

void Look_At_Ended_Early(const Score_Store& scores, QList<Notice>& notices) {
    const QString ended = u"Ended early"_s;
    if (scores.Tolvens_Terminated) notices.append({test_index::Tolvens, ended});
    if (scores.Friends_Terminated) notices.append({test_index::Bliks_Friends, ended});
}

} // namespace

QList<Notice> Notices_On(int p, const QDate& today, const Scoring& scoring) {
    QList<Notice> notices;
    Look_At_Dates(p, today, scoring.pupils, notices);
    Look_At_Ended_Early(scoring.scores, notices);
    for (int t = 1; t <= Normed_Tests; ++t) {
        if (!Is_Taken(t, p, scoring.pupils)) continue;
        const int months = scoring.pupils.Test_Age[t][p];
        Look_At_Age(t, months, notices);
        Look_At_Answers(t, months, scoring.items, notices);
        Look_At_Next_Band(t, p, scoring, notices);
        if (scoring.scores.Raw_Centile[t] != 0) Look_At_Tables_End(t, months, scoring, notices);
    }
    return notices;
}

QStringList Gathered(const QList<Notice>& notices) {
    constexpr int most_named = 4;
    QStringList texts;
    QList<QStringList> tests;
    for (const Notice& notice : notices) {
        qsizetype at = texts.indexOf(notice.text);
        if (at < 0) {
            at = texts.size();
            texts.append(notice.text);
            tests.append(QStringList());
        }
        if (notice.t != 0) tests[at].append(Test_At(notice.t).Test_Name);
    }
    for (qsizetype at = 0; at < texts.size(); ++at)
        if (!tests[at].isEmpty())
            texts[at] += u": "_s + (tests[at].size() > most_named ? u"%1 tests"_s.arg(tests[at].size())
                                                                  : tests[at].join(u", "_s));
    return texts;
}

} // namespace scoring
