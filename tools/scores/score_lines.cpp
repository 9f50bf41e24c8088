#include "scores/score_lines.h"

#include "platform/basics/csv_text.h"
#include "platform/basics/run_time_error.h"
#include "scoring/cohort.h"
#include "scoring/sequence_totals.h"

using namespace Qt::StringLiterals;

namespace score_export {

namespace {

using basics::Csv_Line;
using basics::Run_Time_Error;
using scoring::All_Tests;
using scoring::Passes_Wanted;
using scoring::Scoring;
using scoring::Summary_Cells;
namespace test_index = scoring::test_index;

const QStringList Header = {
    u"student_code"_s, u"name"_s,         u"test"_s,       u"status"_s,          u"age_months"_s,
    u"raw_score"_s,    u"centile"_s,      u"std_score"_s,  u"z_score"_s,         u"time_seconds"_s,
    u"time_centile"_s, u"time_z_score"_s, u"terminated"_s, u"sequence_errors"_s,
};

QString Terminated_Mark(int t, const scoring::Score_Store& scores) {
    if (t == test_index::Tolvens) return scores.Tolvens_Terminated ? u"1"_s : u"0"_s;
    if (t == test_index::Bliks_Friends) return scores.Friends_Terminated ? u"1"_s : u"0"_s;
    return {};
}

QString Sequence_Errors(int t, int p, const Scoring& pass) {
    if (!scoring::Has_Sequence_Total(t) || pass.pupils.Test_Status[t][p] != 1) return {};
    return QString::number(scoring::Sequence_Total(t, p, pass));
}

QStringList Score_Cells(int t, Passes_Wanted wanted, const Scoring& pass, const Summary_Cells& cells) {
    using namespace scoring::summary_column;
    QStringList texts;
    for (int column = Score; column <= Time_ZScore; ++column) {
        const bool is_filled = column < Time || wanted == Passes_Wanted::Raw_And_Time;
        texts.append(is_filled ? cells(scoring::Summary_Row(t), column) : QString());
    }
    if (t == test_index::Pindo) { // attempts in the score's place, the verdict in the standard score's
        texts[Standard_Score - Score] = texts.first();
        texts.first() = QString::number(pass.scores.Pindo_Attempts);
    }
    return texts;
}

QString Test_Line(int t, int p, Passes_Wanted wanted, const Scoring& pass, const Summary_Cells& cells) {
    QStringList fields = {
        pass.pupils.Student_Code[p],
        pass.pupils.Pupil_Name_List[p],
        scoring::Test_At(t).Test_Name,
        QString::number(pass.pupils.Test_Status[t][p]),
        QString::number(pass.pupils.Test_Age[t][p]),
    };
    fields += Score_Cells(t, wanted, pass, cells);
    fields += {Terminated_Mark(t, pass.scores), Sequence_Errors(t, p, pass)};
    return Csv_Line(fields);
}

QString Pupil_Lines(int p, Passes_Wanted wanted, Scoring& pass, Summary_Cells& cells) {
    scoring::Score_Chosen_Pupil(p, wanted, {}, pass, cells);
    scoring::Fill_SummaryTable_With_Scores(p, pass.pupils, pass.scores, cells);
    QString lines;
    for (int t = 1; t <= All_Tests; ++t)
        lines += Test_Line(t, p, wanted, pass, cells);
    return lines;
}

// Runs a step of the export; its run-time error becomes a line that says what it was about.
template<class Step>
auto Naming(const QString& what, Step step) {
    try {
        return step();
    } catch (const Run_Time_Error& error) {
        throw Export_Fault(what + u": "_s + error.Description);
    }
}

} // namespace

static QString Norms_In_Words(const QString& digest) {
    return u"norms "_s + digest +
           (scoring::Are_Practice_Norms(digest) ? u" (made up, for practice)"_s : QString());
}

scoring::Norm_Check Check_Of(const QString& database, desktop::Platform& platform) {
    foundation::Installation installation;
    installation.Connection_String = foundation::Connection_String_For(database);
    return Naming(u"The norms"_s, [&] {
        foundation::Access_Holder holder(
            platform); // a file that isn't there is told, and not taken for empty
        holder.ado_Open(installation.Connection_String, u"SELECT StudentCode FROM Mevo_Pupils"_s,
                        u"ReadOnly"_s);
        holder.ado_Close();
        return scoring::Check_Norms(platform, installation);
    });
}

QString Norm_Lines(const scoring::Norm_Check& check) {
    QString lines;
    for (const scoring::Norm_Findings& table : check.tables)
        lines += u"%1 (%2): %3\n"_s.arg(table.table, table.size,
                                        table.findings.isEmpty() ? u"in order"_s : table.findings.join(u' '));
    return lines + Norms_In_Words(check.digest) + u'\n';
}

QString Score_Lines(const QString& database, Passes_Wanted wanted, desktop::Platform& platform,
                    Header_Comment comment) {
    foundation::Installation installation;
    installation.Connection_String = foundation::Connection_String_For(database);
    foundation::Access_Holder holder(platform);
    scoring::Scoring_Data data;
    Scoring pass = scoring::Pass_Over(data, installation, holder);

    Naming(u"The norms"_s, [&] { scoring::Load_All_Norms(holder, installation, data.norms); });
    Naming(u"The list of pupils"_s,
           [&] { scoring::Load_Pupil_Lists(holder, installation, platform.clock, data.pupils); });
    Summary_Cells cells;
    QString lines;
    if (comment == Header_Comment::Norms)
        lines += u"# Mevo 5.11, "_s + Norms_In_Words(scoring::Norms_Digest(data.norms)) + u"\r\n"_s;
    lines += Csv_Line(Header);
    const auto act = holder.Begin_Act();
    for (int p = 1; p <= data.pupils.Pupils_Listed; ++p) {
        if (p % scoring::Pupils_A_Lock == 0) holder.End_Shared_Lock();
        lines += Naming(u"Pupil "_s + data.pupils.Student_Code[p],
                        [&] { return Pupil_Lines(p, wanted, pass, cells); });
    }
    return lines;
}

} // namespace score_export
