#include "printing/scores_file.h"

#include "foundation/quiet_reading.h"
#include "platform/desktop/wait_pointer.h"
#include "printing/print_outcome.h"
#include "scoring/cohort.h"
#include "scoring/score_rows.h"
#include "shell/conventions/csv_dialog.h"
#include "shell/conventions/guard.h"
#include "shell/conventions/save_as.h"

#include <QElapsedTimer>

using namespace Qt::StringLiterals;

namespace printing {

namespace {

const QString Title = u"Save scores as CSV"_s;

class Scores_File {
public:
    Scores_File(const shell::Csv_Form& form, const scoring::Scoring& page, desktop::Platform& platform)
        : form(form),
          platform(platform),
          reading(platform),
          pass{page.installation, reading.Holder(), page.pupils, page.norms, scores, items, work},
          text(basics::Csv_Mark) {
        Add_Line(form.row_a_pupil ? scoring::Wide_Score_Columns() : scoring::Score_Columns());
    }

    void Add_All(const QList<qint16>& places, const Show_Done& show) {
        const desktop::Wait_Pointer busy(platform.pointer);
        const auto act = reading.Holder().Begin_Act();
        int done = 0;
        for (const qint16 p : places) {
            if (++done % scoring::Pupils_A_Lock == 0) reading.Holder().End_Shared_Lock();
            Show(done, show);
            Add(p);
            if (!failure.isEmpty()) return;
        }
    }

    QString failure; // why the answers can't be read
    QStringList not_scored;
    QByteArray Bytes() const { return text.toUtf8(); }

private:
    void Show(int done, const Show_Done& show) {
        constexpr int frame_ms = 40; // as often as an eye can follow
        if (painted.isValid() && !painted.hasExpired(frame_ms)) return;
        reading.Holder().End_Shared_Lock(); // events are looked at
        show(done);
        shell::Paint_Meanwhile(platform);
        painted.start();
    }

    void Add(int p) {
        QList<QStringList> rows;
        try {
            rows = scoring::Score_Rows(p, scoring::Passes_Wanted::Raw_And_Time, pass, cells);
        } catch (const std::exception& error) { // without its rows a pass may stumble over anything
            if (reading.Has_Failed()) {
                failure = reading.Why(error);
                return;
            }
            reading.Holder().ado_Close();
            rows = scoring::Rows_Without_Scores(p, pass.pupils);
            not_scored.append(scoring::Pupil_List_Entry(pass.pupils, p));
        }
        if (form.row_a_pupil) rows = {scoring::Wide_Score_Row(p, pass.pupils, rows)};
        for (const QStringList& row : rows)
            Add_Line(row);
    }

    void Add_Line(const QStringList& fields) {
        text += basics::Spreadsheet_Line(
            fields, form.row_a_pupil ? scoring::Wide_Score_Texts : scoring::Score_Texts, form.decimal);
    }

    const shell::Csv_Form form;
    desktop::Platform& platform;
    foundation::Quiet_Reading reading;
    scoring::Score_Store scores;
    scoring::Item_Store items;
    scoring::Work_Lists work;
    scoring::Summary_Cells cells;
    scoring::Scoring pass;
    QElapsedTimer painted;
    QString text;
};

void Tell_Who_Is_Missing(const QStringList& not_scored, const QStringList& lost,
                         desktop::Platform& platform) {
    QString told;
    if (!not_scored.isEmpty())
        told += u"\r\rThese pupils can't be scored, and their cells are empty:\r"_s + Named(not_scored);
    if (!lost.isEmpty())
        told +=
            u"\r\rThese pupils aren't found in the list of pupils, and so not in the file:\r"_s + Named(lost);
    if (!told.isEmpty())
        platform.boxes.Ask(desktop::Box_Style::Exclamation, Title, u"The scores have been saved."_s + told);
}

} // namespace

void Save_Scores(const Scores_Wanted& wanted, const scoring::Scoring& page, const Show_Done& show,
                 desktop::Platform& platform) {
    shell::Csv_Form form;
    if (!shell::Ask_Csv_Form(shell::Csv_Rows::As_Chosen, form, platform)) return;
    const QString target = shell::Ask_Where_To_Save(
        {Title, u"Comma-separated values (*.csv)"_s, u"csv"_s, wanted.name}, platform);
    if (target.isEmpty()) return;
    Scores_File file(form, page, platform);
    file.Add_All(wanted.places, show);
    if (!file.failure.isEmpty())
        platform.boxes.Ask(desktop::Box_Style::Critical, Title,
                           u"The scores can't be read, and nothing has been saved.\r"_s + file.failure);
    else if (shell::Save_Whole(target, file.Bytes(), Title, platform))
        Tell_Who_Is_Missing(file.not_scored, wanted.lost, platform);
}

} // namespace printing
