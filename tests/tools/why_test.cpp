// Each number that an explanation gives is the one that mevo-scores writes for the same pupil, with the same
// pupils before them.

#include "sampledb/sample_data.h"
#include "scores/score_lines.h"
#include "scoring/norm_check.h"
#include "scoring/why_words.h"
#include "support/sample_file.h"
#include "support/scripted_platform.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <limits>
#include <numeric>

using namespace Qt::StringLiterals;
using namespace scoring;

namespace {

constexpr int Pupils = 340; // of whom some have done no test
constexpr int Needed = 300;
constexpr quint32 Practice_Seed = 13; // of the practice school
constexpr int Cells = 5; // columns of a line: where the score begins, "terminated", "sequence_errors"
constexpr int Terminated = 12;
constexpr int Sequence_Errors = 13;

class Why : public testing::Test {
protected:
    Why() {
        const QString lines =
            score_export::Score_Lines(sample.Path(), Passes_Wanted::Raw_And_Time, outside.platform);
        for (const QString& line : lines.split(u"\r\n"_s, Qt::SkipEmptyParts))
            written.append(line.split(u','));
        Load_All_Norms(holder, installation, data.norms);
        Load_Pupil_Lists(holder, installation, outside.platform.clock, data.pupils);
    }

    const QStringList& Line_Of(int t, int p) const { return written[(p - 1) * All_Tests + t]; }

    test_support::Sample_File sample{Pupils};
    test_support::Scripted_Platform outside;
    foundation::Installation installation = sample.Installed();
    foundation::Access_Holder holder{outside.platform};
    Scoring_Data data;
    Scoring page = Pass_Over(data, installation, holder);
    QList<QStringList> written;
};

int Sum_Of_Points(const Explanation& told) {
    return std::accumulate(told.used.items.begin(), told.used.items.end(), 0,
                           [](int sum, const Traced_Item& item) { return sum + item.points; });
}

QString Told(const Why_Words& words, const QString& name) {
    for (const Why_Section& section : words.sections)
        for (const QStringList& row : section.rows)
            if (row.first() == name) return row.value(section.heading == "Items"_L1 ? 3 : 1);
    return {};
}

void Expect_Same_Scores(const Explanation& told, const QStringList& line) {
    const QStringList names{u"Raw score"_s,  u"Centile"_s,      u"Standard score"_s, u"Z-score"_s,
                            u"Time (sec)"_s, u"Time centile"_s, u"Time z-score"_s};
    const Why_Words words = Put_In_Words(told, {});
    const bool scored = told.standing == Standing::Scored;
    EXPECT_EQ(Told(words, names[0]), scored ? line[Cells] : QString::number(told.used.raw_total));
    for (int at = 1; at < names.size(); ++at)
        EXPECT_EQ(Told(words, names[at]), line[Cells + at]) << names[at].toStdString();
    EXPECT_EQ(told.used.norm.centile, line[Cells + 1].toInt());
    EXPECT_EQ(told.used.raw_total, Sum_Of_Points(told));
    EXPECT_EQ(Told(words, u"Sum"_s), QString::number(told.used.raw_total));
    if (scored) {
        EXPECT_EQ(told.used.raw_total, line[Cells].toInt());
        EXPECT_EQ(told.used.time->centile, line[Cells + 5].toInt());
    }
    EXPECT_EQ(told.ended_early, line[Terminated] == "1"_L1);
}

// By years of twelve months, and not by the table of bands that the scoring goes by.
void Expect_Right_Band(const Norm_Band& band, int months) {
    const int year = std::clamp(months / 12, 4, 8);
    EXPECT_EQ(band.column, QString::number(year));
    EXPECT_EQ(band.first_month, year == 4 ? 0 : 12 * year) << months;
    EXPECT_EQ(band.last_month, year == 8 ? std::numeric_limits<int>::max() : 12 * year + 11) << months;
}

void Expect_Same_Sequence_Errors(const Explanation& told, const QStringList& line) {
    int errors = 0;
    for (const Traced_Item& item : told.used.items) {
        errors += item.sequence_errors;
        EXPECT_EQ(item.sequence_pairs.size(), static_cast<std::size_t>(item.sequence_errors));
    }
    EXPECT_EQ(errors, line[Sequence_Errors].toInt());
    EXPECT_EQ(told.sequence_errors.has_value(), !line[Sequence_Errors].isEmpty());
}

} // namespace

TEST_F(Why, EveryNumberIsTheOneThatIsWrittenForThePupil) {
    ASSERT_GE(data.pupils.Pupils_Listed, Needed);
    int scored = 0;
    Summary_Cells cells;
    for (int p = 1; p <= data.pupils.Pupils_Listed; ++p) {
        const Work_Lists before = data.work;
        Score_Chosen_Pupil(p, Passes_Wanted::Raw, {}, page, cells);
        for (int t = 1; t <= All_Tests; ++t) {
            const QStringList& line = Line_Of(t, p);
            SCOPED_TRACE(line.join(u' ').toStdString());
            const Explanation told = Explain(t, p, before, page, outside.platform);
            if (t == test_index::Pindo) {
                EXPECT_EQ(Sum_Of_Points(told), line[Cells].toInt());
            } else if (data.pupils.Test_Status[t][p] == 1) {
                ++scored;
                Expect_Same_Scores(told, line);
                Expect_Right_Band(told.used.band.value(), line[Cells - 1].toInt());
                Expect_Same_Sequence_Errors(told, line);
            } else {
                EXPECT_TRUE(told.used.items.empty() && !told.used.band);
            }
        }
    }
    EXPECT_GT(scored, Needed);
}

TEST_F(Why, PracticeNormsAreKnownByTheirDigest) {
    EXPECT_TRUE(Are_Practice_Norms(Norms_Digest(data.norms))) << Norms_Digest(data.norms).toStdString();
    const QString practice = sample.Folder() + u"/practice.mdb"_s;
    sample_data::Write_Template(practice, Practice_Seed);
    installation.Connection_String = foundation::Connection_String_For(practice);
    Load_All_Norms(holder, installation, data.norms);
    const QString digest = Norms_Digest(data.norms);
    EXPECT_TRUE(Are_Practice_Norms(digest)) << digest.toStdString();
    data.norms.Time_Norms[8][8][99] += 1;
    EXPECT_FALSE(Are_Practice_Norms(Norms_Digest(data.norms)));
}
