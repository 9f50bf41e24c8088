#pragma once

#include "foundation/installation.h"
#include "platform/desktop/ports.h"
#include "printing/paper_charts.h"
#include "reports/state/report_state.h"
#include "shell/conventions/comment_lines.h"

namespace printing {

// What the sheet shows: the pupil on the Reports page, as scored and as set there.
struct Individual_Sources {
    const foundation::Installation& installation;
    const reports::Report_State& state;
    const scoring::Score_Store& scores;
};

// The parts that can be left out. What stands below one that is left out doesn't move up.
struct Report_Sections {
    bool Summary = true;
    bool Profile = true;
    bool Legend = true;
    bool Comments = true;
};

// Of the comment's paragraph, as the sheet breaks it. All of the sheet moves with "Keep to the margins", the
// foot as well, so that there is the same room with and without it.
shell::Comment_Lines Lines_Of_Comment(const QString& comment);

// Draws the individual report, one sheet, whatever the length of the comment. It writes the hooks of the
// sheet, which must outlive it.
class Individual_Sheet {
public:
    Individual_Sheet(preview::ViewPro& sheet, Individual_Sources sources, desktop::Platform& platform);
    ~Individual_Sheet();
    Individual_Sheet(const Individual_Sheet&) = delete;
    Individual_Sheet& operator=(const Individual_Sheet&) = delete;

    void Report_Setup();
    void Build_Report(const Report_Sections& sections);
    void Draw_Report_Head();
    void Draw_Pupil_Details();
    void Draw_Score_Table();
    void Draw_Profile();
    void Draw_Test_Notes(int x, int y);
    void Draw_Comments();
    void Comments_Paragraph_New(int x, int y, int font_size);

private:
    void Draw_Institution_At_Foot();
    void Clear_Foot_For(const QString& comment);
    void Shade_Cell(int row);
    void Unshade_Cell(int row);

    preview::ViewPro& sheet;
    Individual_Sources sources;
    const desktop::Clock& clock;
    Paper_Charts charts;
    bool Shade_Heading = false; // while a table with a heading is drawn
    QColor unshaded_colour;     // of the sheet, while a cell of the heading is drawn
    bool unshaded_bold = false;
};

// A PDF's title.
QString Individual_Title(const reports::Report_State& state);

} // namespace printing
