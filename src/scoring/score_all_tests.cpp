#include "scoring/score_all_tests.h"

#include "platform/basics/run_time_error.h"
#include "scoring/pindo.h"
#include "scoring/sequence_tests.h"
#include "scoring/single_answer_tests.h"

using namespace Qt::StringLiterals;

namespace scoring {

namespace {

using Pass = void (*)(int p, database::Recordset* rs, Scoring& scoring);

struct Test_Passes {
    Pass Score;
    Pass Time;
};

constexpr Test_Passes Passes[Normed_Tests] = {
    {Score_Tolvens, Time_Tolvens}, {Score_BliksFriends, Time_BliksFriends},
    {Score_Karrel, Time_Karrel},   {Score_BliksLetters, Time_BliksLetters},
    {Score_BLN, Time_BLN},         {Score_Drell, Time_Drell},
    {Score_Mirvel, Time_Mirvel},   {Score_Yoon, Time_Yoon},
};

constexpr int Strip_Step = 120; // pixels
constexpr int Strip_At_Rest = 1;

// One pass; a row that can't be scored ends the work under way, and the error names pupil and test.
template<class Step>
void Naming_Pupil(int t, int p, const Pupil_Lists& pupils, Step step) {
    try {
        step();
    } catch (basics::Run_Time_Error& error) {
        if (error.About.isEmpty())
            error.About = u"Pupil: %1, test: %2"_s.arg(Pupil_List_Entry(pupils, p), Test_At(t).Test_Name);
        throw;
    }
}

void Run_Passes(Pass Test_Passes::*pass, int p, const Progress_Strip& show_progress, Scoring& scoring) {
    scoring.scores.Current_Test = 0;
    for (const Test_Passes& test : Passes) {
        const int t = ++scoring.scores.Current_Test; // also for a test not taken: its slot stays empty
        if (scoring.pupils.Test_Status[t][p] == 1)
            Naming_Pupil(t, p, scoring.pupils, [&] { (test.*pass)(p, nullptr, scoring); });
        if (show_progress) show_progress(Strip_Step * t);
    }
}

} // namespace

void Score_All_Tests(int p, const Progress_Strip& show_progress, Scoring& scoring) {
    Run_Passes(&Test_Passes::Score, p, show_progress, scoring);
    if (scoring.pupils.Test_Status[test_index::Pindo][p] == 1)
        Naming_Pupil(test_index::Pindo, p, scoring.pupils, [&] { Score_Pindo(p, scoring); });
}

void Compute_Raw_Scores_Times(int p, const Progress_Strip& show_progress, Scoring& scoring) {
    const auto act = scoring.holder.Begin_Act();
    Run_Passes(&Test_Passes::Time, p, show_progress, scoring);
    if (show_progress) show_progress(Strip_At_Rest);
}

void Time_One_Test(int t, int p, Scoring& scoring) {
    scoring.scores.Current_Test = t;
    if (scoring.pupils.Test_Status[t][p] == 1) Passes[t - 1].Time(p, nullptr, scoring);
}

void Score_One_Test(int t, int p, database::Recordset& row, Scoring& scoring) {
    if (t == test_index::Pindo) return Score_Pindo(p, scoring, &row);
    scoring.scores.Current_Test = t;
    Passes[t - 1].Score(p, &row, scoring);
}

void Score_Chosen_Pupil(int p, Passes_Wanted wanted, const Progress_Strip& show_progress, Scoring& scoring,
                        Summary_Cells& cells) {
    const auto act = scoring.holder.Begin_Act();
    Clear_Scores(scoring.scores);
    scoring.scores.Left_By_A_Batch = false;
    Show_Test_Names(cells);
    Clear_Terminated_Flags(scoring.scores);
    Score_All_Tests(p, show_progress, scoring);
    if (wanted == Passes_Wanted::Raw_And_Time) Compute_Raw_Scores_Times(p, show_progress, scoring);
}

} // namespace scoring
