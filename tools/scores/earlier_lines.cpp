#include "scores/earlier_lines.h"

#include "platform/basics/csv_text.h"
#include "platform/basics/run_time_error.h"
#include "scores/score_lines.h"
#include "scoring/earlier/earlier_results.h"
#include "scoring/score_all_tests.h"

using namespace Qt::StringLiterals;

namespace score_export {

namespace {

const QStringList Earlier_Header = {u"student_code"_s,
                                    u"name"_s,
                                    u"test"_s,
                                    u"taken"_s,
                                    u"date"_s,
                                    u"age_months"_s,
                                    u"raw_score"_s,
                                    u"centile"_s,
                                    u"std_score"_s,
                                    u"z_score"_s,
                                    u"against_the_one_before"_s};

QString Taking_Line(const scoring::Scored_Taking& taking, int p, const scoring::Pupil_Lists& pupils) {
    return basics::Csv_Line(
        {pupils.Student_Code[p], pupils.Pupil_Name_List[p], scoring::Test_At(taking.test).Test_Name,
         taking.is_present ? u"now"_s : u"earlier"_s, taking.date, QString::number(taking.months),
         taking.score, taking.centile, taking.standard_score, taking.z_score,
         scoring::In_Words(taking.from_the_one_before)});
}

QString Written(const foundation::Installation& installation, desktop::Platform& platform) {
    foundation::Access_Holder list_holder(platform);
    foundation::Access_Holder holder(platform);
    scoring::Scoring_Data data;
    scoring::Scoring pass = scoring::Pass_Over(data, installation, holder);
    scoring::Load_All_Norms(holder, installation, data.norms);
    scoring::Load_Pupil_Lists(list_holder, installation, platform.clock, data.pupils);
    scoring::Earlier_Results results(installation, holder, data.norms);
    scoring::Summary_Cells cells;
    QString lines = basics::Csv_Line(Earlier_Header);
    for (int p = 1; p <= data.pupils.Pupils_Listed; ++p) {
        scoring::Score_Chosen_Pupil(p, scoring::Passes_Wanted::Raw, {}, pass, cells);
        scoring::Fill_SummaryTable_With_Scores(p, data.pupils, data.scores, cells);
        for (const scoring::Scored_Taking& taking : results.All_Takings(p, data.pupils, cells))
            lines += Taking_Line(taking, p, data.pupils);
    }
    return lines;
}

} // namespace

QString Earlier_Lines(const QString& database, desktop::Platform& platform) {
    foundation::Installation installation;
    installation.Connection_String = foundation::Connection_String_For(database);
    try {
        return Written(installation, platform);
    } catch (const basics::Run_Time_Error& error) {
        const QString words = keeping::Look_At_Companion(database).words;
        throw Export_Fault(words.isEmpty() ? error.Description : words);
    }
}

} // namespace score_export
