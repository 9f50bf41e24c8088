// Scoring a whole cohort, from the stored answers to the centiles.

#include "full_school.h"
#include "measuring.h"
#include "scoring/cohort.h"

#include <vector>

using namespace Qt::StringLiterals;

namespace bench {
namespace {

template<class Read>
void For_Each_Test_Done(const Full_School& school, const Read& read) {
    const scoring::Pupil_Lists& pupils = school.data.pupils;
    for (int p = 1; p <= pupils.Pupils_Listed; ++p)
        for (int t = 1; t <= scoring::All_Tests; ++t)
            if (pupils.Test_Status[t][p] == 1) read(t, p);
}

// The rows of the same tests, each by a statement that was prepared once for its table.
void Read_Bound(const Full_School& school) {
    const Plain_Reader reader(school.installation.Current_Database_Path);
    std::vector<Plain_Reader::Statement> statements; // from test 1
    for (int t = 1; t <= scoring::All_Tests; ++t)
        statements.push_back(reader.Prepare(u"SELECT * FROM "_s + scoring::Test_At(t).Data_Table +
                                            u" WHERE StudentCode = ?"_s));
    For_Each_Test_Done(school, [&](int t, int p) {
        reader.Read(statements[static_cast<std::size_t>(t - 1)], school.data.pupils.Student_Code[p].toUtf8());
    });
}

double One_Connection_Each_Ms(const Full_School& school) {
    const double start = Processor_Ms();
    For_Each_Test_Done(school, [&](int t, int p) { school.Read_Row(scoring::Test_At(t).Data_Table, p); });
    return Processor_Ms() - start;
}

void Score_Cohort(benchmark::State& state, Full_School& school) {
    const int count = school.data.pupils.Pupils_Listed;
    scoring::Load_All_Norms(school.scoring.holder, school.installation, school.data.norms);
    scoring::Cohort_Tables cohort;
    for (int n = 1; n <= count; ++n)
        cohort.Cohort_Pupil[n] = static_cast<qint16>(n);
    const double mean_ms = Measure_Beside(
        state,
        [&] {
            scoring::Score_Cohort(
                count, [](const QString&) {}, cohort, school.scoring);
        },
        [&] { Read_Bound(school); });
    constexpr double most_times = 1.15;
    state.SetLabel(Limit_At_Most(state, most_times));
    const double each_ms = One_Connection_Each_Ms(school);
    state.counters["pupils"] = count;
    state.counters["one_connection_each_ms"] = each_ms;
    state.counters["times_faster"] = each_ms / mean_ms;
}

} // namespace

void Register_Scores(Full_School& school) {
    school.Register("score_cohort", Score_Cohort)
        ->Iterations(20); // fixed, so that the slow comparison at its end is made once
}

} // namespace bench
