#include "scores/score_lines.h"

#include "platform/basics/csv_text.h"
#include "platform/basics/run_time_error.h"
#include "scoring/cohort.h"
#include "scoring/score_rows.h"

using namespace Qt::StringLiterals;

namespace score_export {

namespace {

using basics::Csv_Line;
using basics::Run_Time_Error;
using scoring::Passes_Wanted;
using scoring::Scoring;
using scoring::Summary_Cells;

QString Pupil_Lines(int p, Passes_Wanted wanted, Scoring& pass, Summary_Cells& cells) {
    QString lines;
    for (const QStringList& row : scoring::Score_Rows(p, wanted, pass, cells))
        lines += Csv_Line(row);
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
    lines += Csv_Line(scoring::Score_Columns());
    const auto act = holder.Begin_Act();
    for (int p = 1; p <= data.pupils.Pupils_Listed; ++p) {
        if (p % scoring::Pupils_A_Lock == 0) holder.End_Shared_Lock();
        lines += Naming(u"Pupil "_s + data.pupils.Student_Code[p],
                        [&] { return Pupil_Lines(p, wanted, pass, cells); });
    }
    return lines;
}

} // namespace score_export
