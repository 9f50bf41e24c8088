#include "printing/full_reports.h"

#include "platform/basics/file_stem.h"
#include "platform/basics/run_time_error.h"
#include "platform/desktop/qt_printers.h"
#include "platform/preview/painters.h"
#include "printing/product_lines.h"
#include "reports/state/pupil_comment.h"
#include "scoring/score_all_tests.h"

#include <QDir>
#include <QSet>
#include <memory>

using namespace Qt::StringLiterals;

namespace printing {

namespace {

// Thrown out of a file that is being written, so that it isn't put in place.
struct Stopped {};

// What one pupil is scored on.
struct Own_Stores {
    scoring::Score_Store scores;
    scoring::Item_Store items;
    scoring::Work_Lists work;
};

void Take_Pupil(int p, const scoring::Pupil_Lists& pupils, reports::Report_State& state) {
    state.Current_Pupil = static_cast<qint16>(p);
    state.Current_Student_Code = pupils.Student_Code[p];
    state.Pupil_Name = pupils.Pupil_Name_List[p];
    state.Pupil_DOB = pupils.Pupil_DOB_List[p];
    state.Pupil_Age_Text.clear(); // no sheet has it
    state.comment = {};
    state.why = {};
}

} // namespace

Full_Reports::Full_Reports(Full_Report_Sources sources, bool keep_to_margins, desktop::Platform& platform)
    : sources(sources), keep_to_margins(keep_to_margins), platform(platform), holder(platform) {
}

Scored_Pupil Full_Reports::Score(int p) {
    const auto& [installation, pupils, norms, settings] = sources;
    const auto act = holder.Begin_Act();
    Own_Stores own;
    scoring::Scoring pass{installation, holder, pupils, norms, own.scores, own.items, own.work};
    Scored_Pupil pupil{settings, {}};
    reports::Report_State& state = pupil.state;
    Take_Pupil(p, pupils, state);
    const auto wanted =
        settings.Show_Time_Bars ? scoring::Passes_Wanted::Raw_And_Time : scoring::Passes_Wanted::Raw;
    scoring::Score_Chosen_Pupil(p, wanted, {}, pass, state.summary);
    scoring::Fill_SummaryTable_With_Scores(p, pupils, own.scores, state.summary);
    scoring::Fill_SummaryTable_With_Ages(p, pupils, state.summary);
    reports::Load_Comment(p, pupils, installation, holder, state.comment);
    pupil.scores = std::move(own.scores);
    return pupil;
}

bool Full_Reports::Score_Next(int p, const Go_On& go_on, std::vector<Scored_Pupil>& scored,
                              Full_Reports_Made& made) {
    holder.End_Shared_Lock(); // events may be looked at
    made.stopped = !go_on(sources.pupils.Pupil_Name_List[p]);
    if (made.stopped) return false;
    try {
        scored.push_back(Score(p));
    } catch (const basics::Run_Time_Error& error) {
        holder.ado_Close();
        made.left_out.append(scoring::Pupil_List_Entry(sources.pupils, p) + u": "_s + error.Description);
    }
    return true;
}

void Full_Reports::Write_One_File(const QList<qint16>& places, const QString& file, const Go_On& go_on,
                                  Full_Reports_Made& made) {
    std::vector<Scored_Pupil> scored;
    {
        const auto act = holder.Begin_Act();
        for (const qint16 p : places)
            if (!Score_Next(p, go_on, scored, made)) return;
    }
    if (scored.empty()) return;
    const int sheets = static_cast<int>(scored.size());
    try {
        desktop::Write_Pdf(Document(u"Mevo individual reports"_s, std::move(scored), go_on), file);
        made.sheets = sheets;
    } catch (const Stopped&) {
        made.stopped = true;
    }
}

void Full_Reports::Write_A_File_Each(const QList<qint16>& places, const QString& folder, const Go_On& go_on,
                                     Full_Reports_Made& made) {
    const QStringList names = File_Names(places);
    const QDir target(folder);
    const auto act = holder.Begin_Act();
    for (qsizetype i = 0; i < places.size(); ++i) {
        std::vector<Scored_Pupil> scored;
        if (!Score_Next(places[i], go_on, scored, made)) return;
        if (scored.empty()) continue;
        holder.End_Shared_Lock(); // nobody's change waits for a file of ours
        desktop::Write_Pdf(Document(u"Mevo individual report"_s, std::move(scored)),
                           target.filePath(names[i]));
        ++made.sheets;
    }
}

QStringList Full_Reports::File_Names(const QList<qint16>& places) const {
    QStringList names;
    QSet<QString> taken;
    for (const qint16 p : places) {
        const QString stem =
            basics::File_Stem(sources.pupils.Student_Code[p] + u' ' + sources.pupils.Pupil_Name_List[p]);
        QString name = stem;
        for (int again = 2; taken.contains(name.toCaseFolded()); ++again)
            name = stem + u" (%1)"_s.arg(again);
        taken.insert(name.toCaseFolded());
        names.append(name + u".pdf"_s);
    }
    return names;
}

desktop::Printed_Document Full_Reports::Document(const QString& name, std::vector<Scored_Pupil> pupils,
                                                 const Go_On& go_on) const {
    desktop::Printed_Document document;
    document.name = name;
    document.pages = static_cast<int>(pupils.size());
    document.about = About_Scores(sources.settings.Norms_Digest);
    document.author = sources.installation.Institution;
    if (pupils.size() == 1) document.title = Individual_Title(pupils.front().state);
    for (const Scored_Pupil& pupil : pupils)
        document.bookmarks.push_back({pupil.state.Pupil_Name + u" - "_s + pupil.state.Current_Student_Code,
                                      static_cast<int>(document.bookmarks.size()) + 1});
    const auto kept = std::make_shared<const std::vector<Scored_Pupil>>(std::move(pupils));
    document.paint = [this, kept, go_on](QPainter& painter, int page) {
        const Scored_Pupil& pupil = kept->at(static_cast<std::size_t>(page - 1));
        if (go_on && !go_on(pupil.state.Pupil_Name)) throw Stopped();
        Paint_Sheet(pupil, painter);
    };
    return document;
}

// With a sheet of its own, as a preview that is opened: no mark or colour is left of another one.
void Full_Reports::Paint_Sheet(const Scored_Pupil& pupil, QPainter& painter) const {
    preview::ViewPro sheet;
    sheet.Keep_To_Margins = keep_to_margins;
    Individual_Sheet report(sheet, {sources.installation, pupil.state, pupil.scores}, platform);
    report.Report_Setup();
    report.Build_Report({});
    preview::Paint(sheet.Page(1), painter);
}

} // namespace printing
