#include "scoring/score_all_tests.h"
#include "scoring/scoring_bench.h"
#include "scoring/sequence_tests.h"
#include "scoring/single_answer_tests.h"

using namespace Qt::StringLiterals;
using namespace scoring;
using test_support::Error_Number;
using namespace scoring::test_index;
using namespace basics::errors;

namespace {

using Pass = void (*)(int, database::Recordset*, Scoring&);

struct Test_Case {
    int t;
    Pass score;
    Pass time;
};

const Test_Case Normed[] = {
    {Tolvens, Score_Tolvens, Time_Tolvens}, {Bliks_Friends, Score_BliksFriends, Time_BliksFriends},
    {Karrel, Score_Karrel, Time_Karrel},    {Bliks_Letters, Score_BliksLetters, Time_BliksLetters},
    {Letter_Names, Score_BLN, Time_BLN},    {Drell, Score_Drell, Time_Drell},
    {Mirvel, Score_Mirvel, Time_Mirvel},    {Yoon, Score_Yoon, Time_Yoon},
};

constexpr int Younger = 83;
constexpr int Older = 84;

class Passes : public Scoring_Bench {
protected:
    Passes() { Use_Plain_Norms(); }

    void Run(Pass test_pass, int t, int p = 1) {
        data.scores.Current_Test = t;
        test_pass(p, nullptr, pass);
    }

    int Mean_Of(const Test_Case& test) {
        Run(test.time, test.t);
        return data.scores.Time_Score[test.t].As_Long();
    }
};

} // namespace

TEST_F(Passes, RepeatsAndPausesComeFromTheRow) {
    Take(Drell, 1, {u"'1'"_s, u"'1'"_s});
    sample.Run(u"UPDATE Mevo_Drell_data SET RepeatCount = 3, PauseCount = NULL"_s);
    Run(Score_Drell, Drell);
    EXPECT_EQ(data.items[Drell].RepeatCount.As_Integer(), 3);
    EXPECT_TRUE(data.items[Drell].PauseCount.Is_Empty());
    sample.Run(u"UPDATE Mevo_Drell_data SET RepeatCount = 4"_s);
    Run(Time_Drell, Drell);
    EXPECT_EQ(data.items[Drell].RepeatCount.As_Integer(), 3) << "a time pass reads times alone";
}

TEST_F(Passes, AMissingRowIsAnError) {
    data.pupils.Student_Code[1] = u"nobody"_s;
    List(Yoon, 1);
    EXPECT_EQ(Error_Number([&] { Run(Score_Yoon, Yoon); }), 3021);
    Take(Yoon, 2, {u"'cap'"_s, u"'cap'"_s});
    Run(Score_Yoon, Yoon, 2);
    EXPECT_EQ(data.scores.Raw_Score[Yoon].As_Integer(), 25) << "the next query is not held up";
}

TEST_F(Passes, OnlySomeListsMayLackAValue) {
    const std::tuple<Test_Case, int, int> cases[] = {
        {Normed[0], Invalid_Use_Of_Null, 0},
        {Normed[1], Invalid_Use_Of_Null, 0},
        {Normed[3], 0, 11},
        {Normed[5], 0, 8},
    };
    for (const auto& [test, error, raw] : cases) {
        SCOPED_TRACE(test.t);
        Take(test.t, 1, {u"'1'"_s, u"'1'"_s});
        Put(test.t, 1, 1, {u"'2'"_s, u"NULL"_s});
        EXPECT_EQ(Error_Number([this, &one = test] { Run(one.score, one.t); }), error);
        EXPECT_EQ(data.scores.Raw_Score[test.t].As_Integer(), raw);
    }
}

TEST_F(Passes, TwoEmptyFieldsAreARightAnswerInMirvelAlone) {
    for (const int t : {Karrel, Letter_Names, Yoon, Mirvel})
        for (const QString& empty : {u"''"_s, u"NULL"_s}) {
            SCOPED_TRACE(t);
            Take(t, 1, {empty, empty});
            Run(Normed[t - 1].score, t);
            EXPECT_EQ(data.scores.Raw_Score[t].As_Integer(), t == Mirvel ? 8 : 0);
        }
}

TEST_F(Passes, OnlyTimesWithinTheBoundsCount) {
    Take(Drell, 1, {u"'1'"_s, u"'1'"_s, u"NULL"_s});
    EXPECT_EQ(Error_Number([&] { Mean_Of(Normed[5]); }), Division_By_Zero);
    const std::tuple<QString, QString, int> cases[] = {
        {u"0"_s, u"700"_s, 700},  {u"1000000"_s, u"700"_s, 700}, {u"-5"_s, u"700"_s, 700},
        {u"''"_s, u"700"_s, 700}, {u"999999"_s, u"1"_s, 500000}, {u"2"_s, u"3"_s, 2},
        {u"3"_s, u"4"_s, 4}, // means of 2.5 and 3.5
    };
    for (const auto& [one, other, mean] : cases) {
        SCOPED_TRACE(one.toStdString());
        Put_Field(Drell, 1, 1, Item_Field::Time, one);
        Put_Field(Drell, 1, 9, Item_Field::Time, other);
        EXPECT_EQ(Mean_Of(Normed[5]), mean);
    }
}

TEST_F(Passes, AnUnreachedItemTerminatesItsOwnTestOnly) {
    for (const int t : {Tolvens, Bliks_Friends}) {
        Take(t, 1, {u"'3,1'"_s, u"'3,1'"_s});
    }
    Put(Tolvens, 1, 13, {u"'-1'"_s, u"'-2'"_s});
    Score_All_Tests(1, {}, pass);
    EXPECT_TRUE(data.scores.Tolvens_Terminated);
    EXPECT_FALSE(data.scores.Friends_Terminated);
    EXPECT_EQ(data.scores.Raw_Score[Tolvens].As_Integer(), 24);

    Put(Tolvens, 1, 13, {u"'3,1'"_s, u"'-2'"_s});
    Put(Bliks_Friends, 1, 1, {u"'-1'"_s, u"'-2'"_s});
    Score_All_Tests(1, {}, pass);
    EXPECT_FALSE(data.scores.Tolvens_Terminated);
    EXPECT_TRUE(data.scores.Friends_Terminated);
    EXPECT_EQ(data.scores.Raw_Score[Bliks_Friends].As_Integer(), 28)
        << "items behind the unreached one count";
}

TEST_F(Passes, LettersAndDrellCountSequenceErrorsWithTheRawScore) {
    for (const int t : {Bliks_Letters, Drell}) {
        Take(t, 1, {u"'3,1,2'"_s, u"'3,1,2'"_s});
        Put(t, 1, 1, {u"'3,1,2'"_s, u"'1,3,2'"_s});
        Put(t, 1, 2, {u"'5,5,6'"_s, u"'5,6,5'"_s});
    }
    Run(Score_BliksLetters, Bliks_Letters);
    Run(Score_Drell, Drell);
    EXPECT_EQ(data.scores.Raw_Score[Bliks_Letters].As_Integer(), 10 * 3 + 1 + 1);
    EXPECT_EQ(data.items[Bliks_Letters].Sequence_Errors, 2 + 2);
    EXPECT_EQ(data.items[Drell].Sequence_Errors, (3 - 1) + (5 - 1) + 7 * (3 - 3));
    Run(Score_Drell, Drell);
    EXPECT_EQ(data.items[Drell].Sequence_Errors, 6) << "the sum starts anew";
}

TEST_F(Passes, KarrelShowsPatternsFromEightyFourMonthsOn) {
    Put(Karrel, 1, 0, {u"'Red'"_s, u"'Blue'"_s});
    Put(Karrel, 1, 1, {u"'Cyan'"_s, u"'Cyan'"_s});
    Put(Karrel, 1, 2, {u"'red'"_s, u"'red'"_s});
    const std::tuple<int, QString, QString, QString> cases[] = {
        {Younger, u"Red"_s, u"Blue"_s, u"Cyan"_s}, {Older, u"Checkers"_s, u"Stripes"_s, u"Triangles"_s}};
    for (const auto& [months, requested, chosen, right] : cases) {
        SCOPED_TRACE(months);
        List(Karrel, 1, months);
        Run(Score_Karrel, Karrel);
        const Test_Items& items = data.items[Karrel];
        EXPECT_EQ(items.Item_Requested(25).As_Text(), requested);
        EXPECT_EQ(items.Item_Chosen(25).As_Text(), chosen);
        EXPECT_EQ(items.Item_Requested(1).As_Text(), right);
        EXPECT_EQ(items.Item_Chosen(2).As_Text(), u"red"_s);
        EXPECT_EQ(data.scores.Raw_Score[Karrel].As_Integer(), 2);
    }
}

TEST_F(Passes, KarrelsTimePassGoesOnWithTheSumThatTheRawPassCleared) {
    Take(Karrel, 1, {u"'Red'"_s, u"'Red'"_s, u"1000"_s});
    Put(Karrel, 1, 1, {u"'Red'"_s, u"'Red'"_s, u"1000000"_s});
    Run(Score_Karrel, Karrel);
    EXPECT_EQ(data.items[Karrel].Time_Count, 24) << "the attempts";
    EXPECT_EQ(data.items[Karrel].Raw_Total, 25);
    EXPECT_EQ(Mean_Of(Normed[2]), 1000);
    EXPECT_EQ(data.items[Karrel].Raw_Total, 0);
    EXPECT_EQ(data.scores.Raw_Score[Karrel].As_Integer(), 25);
    EXPECT_EQ(Mean_Of(Normed[2]), 2000) << "a second pass adds to the first";
    Run(Score_Karrel, Karrel);
    EXPECT_EQ(data.items[Karrel].Time_Sum, 0);
    EXPECT_EQ(Mean_Of(Normed[2]), 1000);
}

TEST_F(Passes, TheLetterNamesTimePassClearsBothTotals) {
    Take(Letter_Names, 1, {u"'dap'"_s, u"'dap'"_s, u"1000"_s});
    Run(Score_BLN, Letter_Names);
    EXPECT_EQ(data.items[Letter_Names].Raw_Total, 12);
    EXPECT_EQ(Mean_Of(Normed[4]), 1000);
    EXPECT_EQ(Mean_Of(Normed[4]), 1000);
    EXPECT_EQ(data.items[Letter_Names].Raw_Total, 0);
    EXPECT_EQ(data.scores.Raw_Score[Letter_Names].As_Integer(), 12);
}

TEST_F(Passes, MirvelsWindowMovesWithAgeAndLeavesTheRestAsItWas) {
    Put(Mirvel, 1, 0, {u"'cap'"_s, u"'cap'"_s, u"1000"_s});
    Put(Mirvel, 2, 0, {u"'van'"_s, u"'van'"_s, u"3000"_s});
    List(Mirvel, 1, Younger);
    List(Mirvel, 2, Older);
    Run(Score_Mirvel, Mirvel, 1);
    EXPECT_EQ(data.scores.Raw_Score[Mirvel].As_Integer(), 8);
    EXPECT_TRUE(data.items[Mirvel].Item_Requested(9).Is_Empty());
    Run(Score_Mirvel, Mirvel, 2);
    Run(Time_Mirvel, Mirvel, 2);
    const Test_Items& items = data.items[Mirvel];
    EXPECT_EQ(data.scores.Raw_Score[Mirvel].As_Integer(), 12);
    EXPECT_EQ(items.Time_Count, 12);
    EXPECT_EQ(items.Item_Chosen(4).As_Text(), u"cap"_s) << "still the younger pupil's";
    EXPECT_EQ(items.Item_Chosen(5).As_Text(), u"van"_s);
    EXPECT_EQ(items.Item_Chosen(16).As_Text(), u"van"_s);
    EXPECT_EQ(Error_Number([&] { items.Item_Chosen(21); }), Subscript_Out_Of_Range);
}
