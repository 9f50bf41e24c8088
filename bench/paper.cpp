// A batch report of the largest batch, and the full reports of a school, on their way to paper.

#include "full_school.h"
#include "measuring.h"
#include "platform/desktop/qt_printers.h"
#include "platform/preview/text_metrics.h"
#include "platform/preview/view_pro.h"
#include "printing/batch_list.h"
#include "printing/batch_sheets.h"
#include "printing/full_reports.h"

#include <QBuffer>
#include <QPainter>
#include <QPdfWriter>
#include <algorithm>
#include <sys/resource.h>

using namespace Qt::StringLiterals;

namespace bench {
namespace {

// The sheets of all pupils, from their scores.
class Batch {
public:
    explicit Batch(Full_School& school)
        : report(sheets, {school.installation, school.report_state, school.data.pupils, cohort},
                 school.platform),
          count(school.data.pupils.Pupils_Listed) {
        scoring::Load_All_Norms(school.scoring.holder, school.installation, school.data.norms);
        printing::Compute_All_Scores([](const QString&) {}, cohort, school.scoring);
        report.Report_Setup();
    }

    void Build() {
        report.Build_Batch(count, {u"GREY"_s, printing::Pupil_Label::Name, printing::All_Groups()});
    }

    preview::ViewPro sheets;

private:
    scoring::Cohort_Tables cohort;
    printing::Batch_Sheets report;
    int count;
};

// The same texts, lines and rectangles given straight to the toolkit's writer, each with its font and pen.
class Plain_Page {
public:
    explicit Plain_Page(QPainter& painter) : painter(painter) {}

    void operator()(const preview::Text_Operation& text) const {
        painter.setFont(preview::Font_Of(text.style));
        painter.setPen(text.colour);
        painter.drawText(text.x, text.y, text.text);
    }
    void operator()(const preview::Line_Operation& line) const {
        painter.setPen(QPen(line.pen.colour, line.pen.width));
        painter.drawLine(line.x1, line.y1, line.x2, line.y2);
    }
    void operator()(const preview::Rectangle_Operation& rectangle) const {
        if (rectangle.fill)
            painter.fillRect(rectangle.x, rectangle.y, rectangle.width, rectangle.height, *rectangle.fill);
        if (rectangle.outline) {
            painter.setPen(QPen(rectangle.outline->colour, rectangle.outline->width));
            painter.drawRect(rectangle.x, rectangle.y, rectangle.width, rectangle.height);
        }
    }

private:
    QPainter& painter;
};

std::vector<preview::Drawing> Drawings_Of(const preview::ViewPro& sheets) {
    std::vector<preview::Drawing> drawings;
    for (int page = 1; page <= sheets.PageCount(); ++page)
        drawings.push_back(sheets.Page(page));
    return drawings;
}

void Write_Plainly(const std::vector<preview::Drawing>& sheets) {
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    QPdfWriter writer(&buffer);
    writer.setResolution(1440);
    QPainter painter(&writer);
    for (const preview::Drawing& sheet : sheets) {
        if (&sheet != &sheets.front()) writer.newPage();
        for (const preview::Operation& operation : sheet.operations)
            std::visit(Plain_Page(painter), operation);
    }
}

double Peak_Memory_MB() {
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return static_cast<double>(usage.ru_maxrss) / 1024;
}

void Record_Sheets(benchmark::State& state, Full_School& school) {
    Batch batch(school);
    batch.Build();
    const std::vector<preview::Drawing> drawings = Drawings_Of(batch.sheets);
    Measure_Beside(
        state, [&] { batch.Build(); }, [&] { Write_Plainly(drawings); });
    state.counters["sheets"] = batch.sheets.PageCount();
    state.counters["peak_MB"] = Peak_Memory_MB();
}

void Write_Sheets(benchmark::State& state, Full_School& school) {
    Batch batch(school);
    batch.Build();
    const std::vector<preview::Drawing> drawings = Drawings_Of(batch.sheets);
    const QTemporaryDir folder;
    Measure_Beside(
        state,
        [&] {
            desktop::Write_Pdf(batch.sheets.Document(u"batch"_s, 1, batch.sheets.PageCount()),
                               folder.filePath(u"batch.pdf"_s));
        },
        [&] { Write_Plainly(drawings); });
    state.counters["sheets"] = batch.sheets.PageCount();
    state.counters["peak_MB"] = Peak_Memory_MB();
    constexpr double most_times = 1.2;
    state.SetLabel(Limit_At_Most(state, most_times));
}

// The sheet of each pupil, as it would be drawn.
std::vector<preview::Drawing> Full_Sheets(Full_School& school, printing::Full_Reports& reports,
                                          const QList<qint16>& places) {
    std::vector<preview::Drawing> drawings;
    for (const qint16 p : places) {
        const printing::Scored_Pupil pupil = reports.Score(p);
        preview::ViewPro sheet;
        printing::Individual_Sheet drawn(sheet, {school.installation, pupil.state, pupil.scores},
                                         school.platform);
        drawn.Report_Setup();
        drawn.Build_Report({});
        drawings.push_back(sheet.Page(1));
    }
    return drawings;
}

void Write_Full_Reports(benchmark::State& state, Full_School& school, bool a_file_each) {
    constexpr int sheets = 250;
    constexpr double patience_ms = 5000;
    scoring::Load_All_Norms(school.scoring.holder, school.installation, school.data.norms);
    printing::Full_Reports reports(
        {school.installation, school.data.pupils, school.data.norms, school.report_state}, false,
        school.platform);
    QList<qint16> places;
    for (int p = 1; p <= std::min(sheets, school.data.pupils.Pupils_Listed); ++p)
        places.append(static_cast<qint16>(p));
    const std::vector<preview::Drawing> drawings = Full_Sheets(school, reports, places);
    const QTemporaryDir folder;
    const auto go_on = [](const QString&) { return true; };
    printing::Full_Reports_Made made;
    const double mean_ms = Measure_Beside(
        state,
        [&] {
            made = {};
            if (a_file_each)
                reports.Write_A_File_Each(places, folder.path(), go_on, made);
            else
                reports.Write_One_File(places, folder.filePath(u"all.pdf"_s), go_on, made);
        },
        [&] { Write_Plainly(drawings); });
    state.counters["sheets"] = made.sheets;
    state.counters["peak_MB"] = Peak_Memory_MB();
    state.SetLabel(Limit_Below(mean_ms, patience_ms));
}

} // namespace

void Register_Paper(Full_School& school) {
    school.Register("batch_report/record", Record_Sheets)->MinTime(1);
    school.Register("batch_report/pdf", Write_Sheets)->MinTime(1);
    school.Register("full_reports/one_file", Write_Full_Reports, false)->MinTime(1);
    school.Register("full_reports/a_file_each", Write_Full_Reports, true)->MinTime(1);
}

} // namespace bench
