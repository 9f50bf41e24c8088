// A batch report of the largest batch, on its way to paper.

#include "full_school.h"
#include "measuring.h"
#include "platform/desktop/qt_printers.h"
#include "platform/preview/text_metrics.h"
#include "platform/preview/view_pro.h"
#include "printing/batch_list.h"
#include "printing/batch_sheets.h"

#include <QBuffer>
#include <QPainter>
#include <QPdfWriter>
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

void Write_Plainly(const preview::ViewPro& sheets) {
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    QPdfWriter writer(&buffer);
    writer.setResolution(1440);
    QPainter painter(&writer);
    for (int page = 1; page <= sheets.PageCount(); ++page) {
        if (page > 1) writer.newPage();
        for (const preview::Operation& operation : sheets.Page(page).operations)
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
    Measure_Beside(
        state, [&] { batch.Build(); }, [&] { Write_Plainly(batch.sheets); });
    state.counters["sheets"] = batch.sheets.PageCount();
    state.counters["peak_MB"] = Peak_Memory_MB();
}

void Write_Sheets(benchmark::State& state, Full_School& school) {
    Batch batch(school);
    batch.Build();
    const QTemporaryDir folder;
    Measure_Beside(
        state,
        [&] {
            desktop::Write_Pdf(batch.sheets.Document(u"batch"_s, 1, batch.sheets.PageCount()),
                               folder.filePath(u"batch.pdf"_s));
        },
        [&] { Write_Plainly(batch.sheets); });
    state.counters["sheets"] = batch.sheets.PageCount();
    state.counters["peak_MB"] = Peak_Memory_MB();
}

} // namespace

void Register_Paper(Full_School& school) {
    school.Register("batch_report/record", Record_Sheets)->MinTime(1);
    school.Register("batch_report/pdf", Write_Sheets)->MinTime(1);
}

} // namespace bench
