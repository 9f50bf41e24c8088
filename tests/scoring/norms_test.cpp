#include "scoring/norm_tables.h"
#include "scoring/score_conversion.h"
#include "scoring/scoring_bench.h"

using namespace Qt::StringLiterals;
using namespace scoring;
using test_support::Error_Number;
using namespace basics::errors;

namespace {

class Norms : public Scoring_Bench {
protected:
    int Load_Error(const QString& change) {
        sample.Run(change);
        return Error_Number([&] { Load_All_Norms(holder, installation, data.norms); });
    }

    qint16 Centile_Of(int raw, const QString& column) {
        data.scores.Current_Test = 1;
        Raw_To_Centile(raw, u"Tolvens_Norms"_s, column, data.norms, data.scores);
        return data.scores.Raw_Centile[1];
    }

    int Centile_Of_Time(int time) {
        data.scores.Current_Test = 1;
        Time_To_Centile(time, u"Tolvens_TimeNorms"_s, u"5"_s, data.norms, data.scores);
        return data.scores.Time_Centile[1].As_Integer();
    }

    qint32& Time_At(int centile) { return data.norms.Time_Norms[1][5][centile]; }
};

} // namespace

TEST_F(Norms, ColumnAndBandChangeOnTheBirthday) {
    const std::tuple<int, QString, QString> cases[] = {
        {-1, u"4"_s, u"A"_s}, {59, u"4"_s, u"A"_s},  {60, u"5"_s, u"B"_s}, {71, u"5"_s, u"B"_s},
        {72, u"6"_s, u"C"_s}, {83, u"6"_s, u"C"_s},  {84, u"7"_s, u"D"_s}, {95, u"7"_s, u"D"_s},
        {96, u"8"_s, u"E"_s}, {130, u"8"_s, u"E"_s},
    };
    for (const auto& [months, column, letter] : cases) {
        SCOPED_TRACE(months);
        EXPECT_EQ(Age_To_Norm_Column(months), column);
        EXPECT_EQ(Age_To_Band_Letter(months), letter);
    }
}

TEST_F(Norms, EmptyCellsAreNoScoreUpToAgeSixAndAFaultBeyond) {
    const QString empty = u"UPDATE Tolvens_Norms SET \"Age %1 Centile\" = NULL WHERE rowid = 1"_s;
    EXPECT_EQ(Load_Error(empty.arg(4)), 0);
    EXPECT_EQ(Load_Error(empty.arg(6)), 0);
    EXPECT_EQ(Centile_Of(0, u"6"_s), 0);
    EXPECT_GT(Centile_Of(1, u"6"_s), 0);
    EXPECT_EQ(Load_Error(empty.arg(7)), Invalid_Use_Of_Null);
}

TEST_F(Norms, TheRowsPlaceGivesTheRawScore) {
    EXPECT_EQ(Load_Error(u"UPDATE Tolvens_Norms SET \"Raw Score\" = 99, \"Age 5 Centile\" = rowid"_s), 0);
    EXPECT_EQ(Centile_Of(0, u"5"_s), 1);
    EXPECT_EQ(Centile_Of(20, u"5"_s), 21);
}

TEST_F(Norms, WhatLiesOutsideTheTablesIsAFaultOrNoScore) {
    Use_Plain_Norms();
    EXPECT_EQ(Centile_Of(70, u"5"_s), 70);
    EXPECT_EQ(Error_Number([&] { Centile_Of(71, u"5"_s); }), Subscript_Out_Of_Range);
    EXPECT_EQ(Error_Number([&] { Centile_Of(1, u"9"_s); }), Subscript_Out_Of_Range);
    EXPECT_EQ(Error_Number([&] { Centile_Of(1, u"3"_s); }), Subscript_Out_Of_Range);
    Raw_To_Centile(7, u"tolvens_norms"_s, u"5"_s, data.norms, data.scores);
    EXPECT_EQ(data.scores.Raw_Centile[1], 0) << "names are compared letter by letter";
}

TEST_F(Norms, TimesGoToTheNearestCentile) {
    Use_Plain_Norms();
    Time_At(40) = Time_At(41) = Time_At(42);
    Time_At(49) = 5101; // an odd step above the 5000 of centile 50
    Time_At(20) = 0;    // a gap
    const std::pair<int, int> cases[] = {
        {Plain_Time(75), 75},
        {Plain_Time(42), 40}, // of equal cells the lowest centile
        {99, 99},
        {9901, 1},
        {2549, 75},
        {2550, 74}, // the middle goes to the slower
        {2551, 74},
        {5050, 50}, // the middle is 5050.5
        {5051, 49},
        {0, 1}, // even where a cell holds it
    };
    for (const auto& [time, centile] : cases) {
        SCOPED_TRACE(time);
        EXPECT_EQ(Centile_Of_Time(time), centile);
    }
}

TEST_F(Norms, TimesWithoutNormsOrInDisorderGoToTheSlowestCentile) {
    EXPECT_EQ(Centile_Of_Time(1500), 1);
    EXPECT_EQ(Centile_Of_Time(0), 1);
    Time_At(1) = 100;
    Time_At(99) = 900;
    EXPECT_EQ(Centile_Of_Time(500), 1) << "faster than the fastest and slower than the slowest";
}

TEST_F(Norms, MeansOfTheBandAreFoundByTheModulesKey) {
    sample.Run(
        u"INSERT INTO Mevo_Means VALUES ('Bliks letter names band C', 1, 2, 3, 4, 5, 6)"_s); // too late
    QString module = u"Bliks letter names"_s;
    Population_Means means;
    Get_Population_Means(module, 83, means, holder, installation);
    EXPECT_EQ(module, u"Bliks letter names band C"_s);
    const QString stored = u"SELECT %1 FROM Mevo_Means WHERE Module = 'Bliks letter names band C'"_s;
    EXPECT_DOUBLE_EQ(means.Time_Mean.As_Double(), sample.Value(stored.arg(u"Time_Mean"_s)).toDouble());
    EXPECT_DOUBLE_EQ(means.Correct_SD.As_Double(), sample.Value(stored.arg(u"Correct_SD"_s)).toDouble());

    module = u"Pindo"_s;
    Population_Means kept;
    kept.Time_SD = u"as before"_s;
    Get_Population_Means(module, 83, kept, holder, installation);
    EXPECT_EQ(kept.Time_SD.As_Text(), u"as before"_s);
    EXPECT_TRUE(kept.Time_Mean.Is_Empty());
}

TEST(ScoreConversion, ZScoresMirrorAboutTheMiddle) {
    for (int c = 1; c <= 49; ++c)
        EXPECT_EQ(Centile_To_ZScore(100 - c), -Centile_To_ZScore(c)) << c;
    EXPECT_EQ(Centile_To_ZScore(1), -2.324); // not the -2.326 of the rounded distribution
    EXPECT_EQ(Centile_To_ZScore(97), 1.88);
    for (const int none : {-1, 0, 50, 100})
        EXPECT_EQ(Centile_To_ZScore(none), 0) << none;
}
