#pragma once

#include "foundation/installation.h"
#include "platform/desktop/ports.h"
#include "printing/paper_charts.h"
#include "reports/state/report_state.h"
#include "scoring/cohort.h"

#include <QRect>

namespace printing {

// What the sheets show: the pupils in Cohort_Pupil by their rank in the batch, scored in the rows of their
// places in the list, on the scale of the Reports page.
struct Batch_Sources {
    const foundation::Installation& installation;
    const reports::Report_State& state;
    const scoring::Pupil_Lists& pupils;
    const scoring::Cohort_Tables& cohort;
};

enum class Pupil_Label { Name, User_ID };

struct Batch_Options {
    QString ground; // "GREY" or "WHITE"
    Pupil_Label label = Pupil_Label::Name;
    QString group; // as the head of each sheet names it
};

inline constexpr int Miniatures_A_Sheet = 8;

int Sheets_For(int count); // of that many pupils, and the sheet that the last of them is on
// Where the miniature of that rank stands on its sheet, with its line and its scales; twips.
QRect Miniature_Place(int rank);

// Draws the batch report, eight miniature profiles to a sheet.
class Batch_Sheets {
public:
    Batch_Sheets(preview::ViewPro& sheet, Batch_Sources sources, desktop::Platform& platform);

    void Report_Setup();
    void Build_Batch(int count, const Batch_Options& chosen);
    void Draw_Batch_Head(int page);
    void Draw_Miniature(int rank, int count, int x, int y); // nothing beyond the last of the batch
    void Draw_Mini_Label(int rank, int x, int y);

private:
    void Draw_Sheet(int page, int count);
    QString Label_Of(int p) const;

    preview::ViewPro& sheet;
    Batch_Sources sources;
    const desktop::Clock& clock;
    Paper_Charts charts; // its mark is never reset: once set, all later sheets and rebuilds have the note
    Batch_Options options;
};

} // namespace printing
