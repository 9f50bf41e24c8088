#include "print/printed_reports.h"

#include "foundation/start_up.h"
#include "platform/basics/run_time_error.h"
#include "platform/desktop/qt_printers.h"
#include "printing/batch_list.h"
#include "printing/batch_sheets.h"
#include "printing/full_reports.h"
#include "scoring/norm_check.h"

#include <QDir>

#include <vector>

using namespace Qt::StringLiterals;

namespace paper_output {

namespace {

// Runs a step; its run-time error becomes a line that says what it was about.
template<class Step>
auto Naming(const QString& what, Step step) {
    try {
        return step();
    } catch (const basics::Run_Time_Error& error) {
        throw Print_Fault(what + u": "_s + error.Description);
    }
}

// What the program holds while its Reports page is open.
class Office {
public:
    Office(const Print_Request& request, desktop::Platform& platform);

    void Print_Individual_Reports(const QStringList& codes, const QString& file);
    void Print_Batch(const QString& group, printing::Pupil_Label label, const QString& file);
    QStringList Print_Each(const QString& group, const QString& folder); // gives who was left out

private:
    int Place_Of(const QString& code) const;
    void Require_Group(const QString& group) const;
    QStringList Entries_Of(const QString& group) const;
    QList<qint16> Found_Places(const QStringList& entries) const;
    void Score_All(scoring::Cohort_Tables& cohort);

    desktop::Platform& platform;
    foundation::Installation installation;
    scoring::Scoring_Data data;
    foundation::Access_Holder scoring_holder;
    foundation::Access_Holder page_holder;
    scoring::Scoring scoring;
    reports::Report_State state;
    bool keep_to_margins;
    printing::Full_Reports full_reports{
        {installation, data.pupils, data.norms, state}, keep_to_margins, platform};
};

Office::Office(const Print_Request& request, desktop::Platform& platform)
    : platform(platform),
      scoring_holder(platform),
      page_holder(platform),
      scoring(scoring::Pass_Over(data, installation, scoring_holder)),
      keep_to_margins(request.keep_to_margins) {
    installation.Connection_String = foundation::Connection_String_For(request.database);
    state.Chart_Mode = request.scale;
    state.Chart_Background = request.ground;
    state.Show_Time_Bars = request.time_bars;
    Naming(u"The product's details"_s, [&] { foundation::Read_Customer_Details(platform, installation); });
    Naming(u"The norms"_s, [&] { scoring::Load_All_Norms(scoring_holder, installation, data.norms); });
    state.Norms_Digest = scoring::Norms_Digest(data.norms);
    Naming(u"The list of pupils"_s,
           [&] { scoring::Load_Pupil_Lists(page_holder, installation, platform.clock, data.pupils); });
}

int Office::Place_Of(const QString& code) const {
    for (int p = 1; p <= data.pupils.Pupils_Listed; ++p)
        if (data.pupils.Student_Code[p] == code) return p;
    throw Print_Fault(u"There is no pupil with the code '"_s + code + u"' who has results."_s);
}

void Office::Print_Individual_Reports(const QStringList& codes, const QString& file) {
    std::vector<int> places; // all of them are looked up before the first is scored
    for (const QString& code : codes)
        places.push_back(Place_Of(code));
    std::vector<printing::Scored_Pupil> pupils;
    for (const int p : places)
        pupils.push_back(
            Naming(u"Pupil "_s + data.pupils.Student_Code[p], [&] { return full_reports.Score(p); }));
    desktop::Write_Pdf(full_reports.Document(u"Mevo individual reports"_s, std::move(pupils)), file);
}

void Office::Require_Group(const QString& group) const {
    bool found = group == printing::All_Groups();
    const bool all_read = printing::Read_Group_Names(
        installation.Connection_String, [&](const QString& name) { found = found || name == group; });
    if (!all_read) throw Print_Fault(u"The groups can't be read."_s);
    if (!found) throw Print_Fault(u"There is no group '"_s + group + u"'."_s);
}

QStringList Office::Entries_Of(const QString& group) const {
    QStringList entries;
    const bool all_read = printing::Read_Pupil_Entries(installation.Connection_String, group,
                                                       [&](const QString& entry) { entries.append(entry); });
    if (!all_read) throw Print_Fault(u"The pupils of the group '"_s + group + u"' can't be read."_s);
    if (entries.isEmpty()) throw Print_Fault(u"No pupil of the group '"_s + group + u"' has scores."_s);
    return entries;
}

QList<qint16> Office::Found_Places(const QStringList& entries) const {
    const QList<qint16> places = printing::Places_Of(entries, data.pupils);
    const qsizetype lost = places.indexOf(-1);
    if (lost >= 0)
        throw Print_Fault(
            u"%1 of the pupils can't be found because of a space-hyphen-space in the surname or a "
            "missing name, the first of them: '%2'"_s.arg(places.count(-1))
                .arg(entries[lost]));
    return places;
}

void Office::Score_All(scoring::Cohort_Tables& cohort) {
    int scored = 0;
    try {
        printing::Compute_All_Scores([&](const QString&) { ++scored; }, cohort, scoring);
    } catch (const basics::Run_Time_Error& error) {
        const QString whom =
            scored > 0 ? u"Pupil "_s + data.pupils.Student_Code[scored] : u"The list of pupils"_s;
        throw Print_Fault(whom + u": "_s + error.Description);
    }
}

void Office::Print_Batch(const QString& group, printing::Pupil_Label label, const QString& file) {
    Require_Group(group);
    const QList<qint16> places = Found_Places(Entries_Of(group));
    scoring::Cohort_Tables cohort;
    Score_All(cohort);
    printing::Take_Batch(places, cohort);
    preview::ViewPro sheets;
    sheets.Keep_To_Margins = keep_to_margins;
    printing::Batch_Sheets report(sheets, {installation, state, data.pupils, cohort}, platform);
    report.Report_Setup();
    report.Build_Batch(static_cast<int>(places.size()), {state.Chart_Background, label, group});
    desktop::Write_Pdf(sheets.Document(u"Mevo batch report"_s, 1, sheets.PageCount()), file);
}

QStringList Office::Print_Each(const QString& group, const QString& folder) {
    Require_Group(group);
    const auto [places, lost] = printing::Find_By_Code(Entries_Of(group), data.pupils);
    if (!QDir(folder).mkpath(u"."_s)) throw Print_Fault(u"The folder '"_s + folder + u"' can't be made."_s);
    printing::Full_Reports_Made made;
    full_reports.Write_A_File_Each(
        places, folder, [](const QString&) { return true; }, made);
    return made.left_out + lost;
}

} // namespace

QStringList Print_Reports(const Print_Request& request, desktop::Platform& platform) {
    Office office(request, platform);
    const QString group = request.group.isEmpty() ? printing::All_Groups() : request.group;
    switch (request.kind) {
    case Report_Kind::Individual:
        office.Print_Individual_Reports(request.codes, request.out);
        return {};
    case Report_Kind::Batch:
        office.Print_Batch(
            group, request.label_by_name ? printing::Pupil_Label::Name : printing::Pupil_Label::User_ID,
            request.out);
        return {};
    case Report_Kind::Each:
        return office.Print_Each(group, request.out);
    }
    return {};
}

} // namespace paper_output
