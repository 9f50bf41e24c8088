#include "scoring/cohort.h"
#include "scoring/pindo.h"
#include "scoring/score_all_tests.h"
#include "scoring/scoring_bench.h"
#include "scoring/sequence_totals.h"

using namespace Qt::StringLiterals;
using namespace scoring;
using test_support::Error_Number;
using namespace scoring::test_index;

namespace {

class Drivers : public Scoring_Bench {
protected:
    Drivers() { Use_Plain_Norms(); }

    // All answers right; Tolvens ended early if asked for.
    void Completed(int t, int p, bool unreached_item = false) {
        Take(t, p, {u"'cap'"_s, u"'cap'"_s});
        if (unreached_item) Put(t, p, 13, {u"'-1'"_s, u"'-2'"_s});
    }

    void Tries(int p, int valid) {
        Take(Pindo, p, {u"'LRED'"_s, u"'LRED'"_s, u"0"_s});
        for (int i = 1; i <= valid; ++i)
            Put(Pindo, p, i, {u"'LRED'"_s, u"'GREN'"_s, u"900"_s});
    }

    Summary_Cells cells;
};

} // namespace

TEST_F(Drivers, ATestNotCompletedIsPassedOverButKeepsItsSlot) {
    Completed(Karrel, 1);
    Completed(Drell, 1);
    List(Karrel, 1, 60, 2); // neither 0 nor completed
    data.pupils.Test_Status[Tolvens][1] = 0;
    Score_All_Tests(1, {}, pass);
    for (int t = 1; t <= Normed_Tests; ++t)
        EXPECT_EQ(data.scores.Raw_Centile[t], t == Drell ? 9 : 0) << t;
}

TEST_F(Drivers, ClearingTakesTheCentilesAndLeavesTheScores) {
    Completed(Drell, 1);
    Tries(1, 7);
    Score_Chosen_Pupil(1, Passes_Wanted::Raw_And_Time, {}, pass, cells);
    ASSERT_EQ(data.scores.Time_Centile[Drell].As_Integer(), 90);
    Clear_Scores(data.scores);
    EXPECT_EQ(data.scores.Raw_Centile[Drell], 0);
    EXPECT_EQ(data.scores.Time_Centile[Drell].As_Integer(), 0);
    EXPECT_EQ(data.scores.Pindo_Attempts, 0);
    EXPECT_EQ(data.scores.Raw_Score[Drell].As_Integer(), 9);
    EXPECT_EQ(data.scores.Time_Score[Drell].As_Long(), 1000);
}

TEST_F(Drivers, ChoosingAPupilLeavesNothingOfTheOneBeforeInSight) {
    Completed(Tolvens, 1, true);
    Tries(1, 8);
    Score_Chosen_Pupil(1, Passes_Wanted::Raw_And_Time, {}, pass, cells);
    Fill_SummaryTable_With_Scores(1, data.pupils, data.scores, cells);
    ASSERT_TRUE(data.scores.Tolvens_Terminated);
    ASSERT_EQ(cells(10, 2), u"2 errs"_s);

    Completed(Yoon, 2);
    Score_Chosen_Pupil(2, Passes_Wanted::Raw, {}, pass, cells);
    Fill_SummaryTable_With_Scores(2, data.pupils, data.scores, cells);
    EXPECT_FALSE(data.scores.Tolvens_Terminated);
    for (int t = 1; t <= All_Tests; ++t) {
        EXPECT_EQ(cells(t + 1, 1), Test_At(t).Test_Name);
        EXPECT_EQ(cells(t + 1, 2), t == Yoon ? u"25"_s : u""_s) << t;
    }
    EXPECT_EQ(data.scores.Time_Centile[Yoon].As_Integer(), 0) << "no time pass was asked for";
}

TEST_F(Drivers, ACohortPutsTheCentilesBackAndNoMore) {
    Completed(Drell, 1);
    Completed(Yoon, 2);
    Completed(Drell, 3);
    Put(Drell, 3, 1, {u"'cap'"_s, u"'van'"_s});
    Score_Chosen_Pupil(1, Passes_Wanted::Raw_And_Time, {}, pass, cells);

    Cohort_Tables cohort;
    cohort.Cohort_Pupil[1] = 2;
    cohort.Cohort_Pupil[2] = 3;
    QStringList labels;
    Score_Cohort(
        2, [&](const QString& text) { labels.append(text); }, cohort, pass);
    EXPECT_EQ(labels, (QStringList{u"Scoring student 1/2"_s, u"Scoring student 2/2"_s}));
    for (const auto& [pupil, yoon, drell] : {std::tuple(1, 25, 0), {2, 0, 8}}) {
        EXPECT_EQ(cohort.Cohort_Raw_Centile[pupil][Yoon], yoon);
        EXPECT_EQ(cohort.Cohort_Raw_Centile[pupil][Drell], drell);
    }
    EXPECT_FLOAT_EQ(cohort.Cohort_Raw_ZScore[2][Drell], -1.405F);
    EXPECT_EQ(cohort.Cohort_Raw_ZScore[2][Yoon], 0);
    EXPECT_EQ(cohort.Cohort_Time_Centile[2][Drell], 0);

    EXPECT_EQ(data.scores.Raw_Centile[Drell], 9);
    EXPECT_EQ(data.scores.Raw_Centile[Yoon], 0);
    EXPECT_EQ(data.scores.Time_Centile[Drell].As_Integer(), 90);
    EXPECT_EQ(data.scores.Raw_Score[Drell].As_Integer(), 8) << "the last of the batch";
}

TEST_F(Drivers, OneWhoDidNotTakeTheTestInheritsTheFlagInACohort) {
    Completed(Tolvens, 1, true);
    Completed(Yoon, 2);
    Completed(Tolvens, 3);
    Cohort_Tables cohort;
    for (int i = 1; i <= 3; ++i)
        cohort.Cohort_Pupil[i] = static_cast<qint16>(i);
    Score_Cohort(
        3, [](const QString&) {}, cohort, pass);
    EXPECT_TRUE(cohort.Cohort_Tolvens_Terminated[1]);
    EXPECT_TRUE(cohort.Cohort_Tolvens_Terminated[2]);
    EXPECT_FALSE(cohort.Cohort_Tolvens_Terminated[3]);
    EXPECT_EQ(Error_Number([&] { cohort.Cohort_Pupil[2001] = 1; }), basics::errors::Subscript_Out_Of_Range);
}

TEST_F(Drivers, PindosVerdictIsByTheTriesWithATime) {
    const std::tuple<int, QString, QString, QString> cases[] = {
        {5, u""_s, u""_s, u""_s},
        {6, u"OK"_s, u"Pindo test satisfactorily."_s, u"Satisfactory"_s},
        {8, u"2 errs"_s, u"Pindo test unsatisfactory (Number of errors: 2)."_s, u"Unsatisfactory"_s},
    };
    for (const auto& [valid, cell, text, word] : cases) {
        SCOPED_TRACE(valid);
        Tries(1, valid);
        Score_Chosen_Pupil(1, Passes_Wanted::Raw, {}, pass, cells);
        const Pindo_Verdict verdict = Verdict_On_Pindo(1, data.pupils, data.scores);
        EXPECT_EQ(verdict.Summary_Cell, cell);
        EXPECT_EQ(verdict.Page_Text, text);
        EXPECT_EQ(verdict.Table_Word, word);
        data.pupils.Test_Status[Pindo][1] = 0;
        EXPECT_EQ(Verdict_On_Pindo(1, data.pupils, data.scores).Page_Text, u""_s);
    }
}

TEST_F(Drivers, PindoShowsWordsAndNeverForgetsRightColours) {
    Tries(1, 0);
    Put(Pindo, 1, 1, {u"'LBLU'"_s, u"'LBLU'"_s, u"900"_s});
    Put(Pindo, 1, 24, {u"'DBLU'"_s, u"'TEAL'"_s, u"900"_s});
    for (const int times : {1, 2}) {
        Clear_Scores(data.scores);
        Score_All_Tests(1, {}, pass);
        EXPECT_EQ(data.scores.Pindo_Attempts, 2);
        EXPECT_EQ(data.scores.Pindo_Correct, times);
    }
    EXPECT_EQ(data.items[Pindo].Item_Chosen(1).As_Text(), u"Sky blue"_s);
    EXPECT_EQ(data.items[Pindo].Item_Requested(24).As_Text(), u"Mid blue"_s);
    EXPECT_EQ(data.items[Pindo].Item_Chosen(24).As_Text(), u"TEAL"_s) << "a code that nobody knows";
}

TEST_F(Drivers, TheSummaryShowsScoresInTheirForms) {
    List(Drell, 1, 87);
    data.pupils.Test_Date[Drell][1] = u"03/02/2010"_s;
    Put(Drell, 1, 0, {u"'cap'"_s, u"'cap'"_s, u"1005"_s});
    Show_Test_Names(cells);
    Score_All_Tests(1, {}, pass);
    Fill_SummaryTable_With_Scores(1, data.pupils, data.scores, cells);
    EXPECT_EQ(cells(7, 6), u"0.00"_s) << "before the time pass";
    Compute_Raw_Scores_Times(1, {}, pass);
    Fill_SummaryTable_With_Scores(1, data.pupils, data.scores, cells);
    Fill_SummaryTable_With_Ages(1, data.pupils, cells);
    const QStringList row = {u"Drell"_s, u"9"_s,  u"9"_s,     u"80"_s,         u"-1.341"_s,
                             u"1.01"_s,  u"90"_s, u"1.282"_s, u"03/02/2010"_s, u" 7 y  3 m"_s};
    for (int column = 1; column <= 10; ++column)
        EXPECT_EQ(cells(7, column), row[column - 1]) << column;
    EXPECT_EQ(cells(8, 10), u""_s) << "no age, as the test was not taken";
    EXPECT_EQ(cells(1, 6), u"Time (sec)"_s);
}

TEST_F(Drivers, ATestWithoutANormForTheAgeShowsDateAndAgeAlone) {
    Completed(Yoon, 1);
    data.norms.Centile_Norms[Yoon][5 + 1][25] = 0;
    data.pupils.Test_Date[Yoon][1] = u"03/02/2010"_s;
    Score_Chosen_Pupil(1, Passes_Wanted::Raw_And_Time, {}, pass, cells);
    Fill_SummaryTable_With_Scores(1, data.pupils, data.scores, cells);
    Fill_SummaryTable_With_Ages(1, data.pupils, cells);
    for (int column = 2; column <= 8; ++column)
        EXPECT_EQ(cells(9, column), u""_s) << column;
    EXPECT_EQ(cells(9, 9), u"03/02/2010"_s);
    EXPECT_EQ(cells(9, 10), u" 5 y  0 m"_s);
}

TEST_F(Drivers, TolvensTotalsTheRowsThatItsTableShows) {
    Completed(Tolvens, 1);
    for (const int item : {1, 10, 11})
        Put(Tolvens, 1, item, {u"'3,1,2'"_s, u"'1,3,2'"_s});
    Put(Tolvens, 1, 2, {u"'-2,-2,5'"_s, u"'-2'"_s}); // would count, were it an answer
    for (const auto& [months, total] : {std::pair(83, 4), std::pair(84, 6)}) {
        SCOPED_TRACE(months);
        List(Tolvens, 1, months);
        Score_All_Tests(1, {}, pass);
        EXPECT_EQ(Sequence_Total(Tolvens, 1, pass), total);
    }
}

TEST_F(Drivers, AnItemTooLongToCountAddsNothingToTheFriendsTotal) {
    Completed(Bliks_Friends, 1);
    Put(Bliks_Friends, 1, 1, {u"'1,2,3,4,5,6,7,8,9,10,11,12'"_s, u"'12,11,10,9,8,7,6,5,4,3,2,1'"_s});
    Put(Bliks_Friends, 1, 15, {u"'3,1,2'"_s, u"'1,3,2'"_s});
    Score_All_Tests(1, {}, pass);
    EXPECT_EQ(Sequence_Total(Bliks_Friends, 1, pass), 2);
}

TEST_F(Drivers, TotalsMeetTheListsThatTheWholePassLeft) {
    Completed(Tolvens, 1);
    Put(Tolvens, 1, 1, {u"'5,6,7'"_s, u"'5'"_s});
    Put(Tolvens, 1, 10, {u"'1,2,3'"_s, u"'1,2,3'"_s});
    Completed(Drell, 1);
    Put(Drell, 1, 9, {u"'5,7,6'"_s, u"'5,7,6'"_s});
    Score_All_Tests(1, {}, pass);
    EXPECT_EQ(Sequence_Total(Tolvens, 1, pass), 2) << "the tail 7, 6 is Drell's last order";
    EXPECT_EQ(Sequence_Total(Tolvens, 1, pass), 2) << "asking has left no tail of its own";
}
