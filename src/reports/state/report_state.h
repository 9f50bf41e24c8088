#pragma once

#include "platform/basics/value.h"
#include "scoring/summary_table.h"
#include "scoring/why_words.h"

#include <QString>
#include <array>

namespace reports {

struct Comment_In_Hand {
    QString Pupil_Comment;
    qint16 Comment_Changed = 0; // true if the dialog changed the comment; its caller saves it
};

// The pupil on screen and how they are shown. The report pages read it when they open over the Reports page.
struct Report_State {
    qint16 Current_Pupil = 0; // place in the pupil list, from 1
    QString Current_Student_Code;
    QString Pupil_Name;
    basics::Value Pupil_DOB;
    QString Pupil_Age_Text; // the age at test as printed
    Comment_In_Hand comment;

    QString Chart_Mode = QStringLiteral("P");          // "P": centiles, "Z": z-scores
    QString Chart_Background = QStringLiteral("GREY"); // "GREY": bands, "WHITE": plain ground
    bool Show_Time_Bars = false;
    bool Chart_Replaced = false;    // a table has been shown where the chart was
    bool Time_Scores_Ready = false; // the time pass has run for the current pupil

    // "SMIOLI633THJ Smith Oliver": a pupil in the title of a file of their own.
    QString Pupil_In_Titles() const { return Current_Student_Code + u' ' + Pupil_Name; }

    std::array<QString, 9> Test_Table_Title; // captions of the detail tables, set when the page is loaded
    scoring::Summary_Cells summary;          // what the summary grid shows

    scoring::Why_Words why; // the explanation that is to be printed
    QString Norms_Digest;   // of the norms in force, since the page was loaded
};

} // namespace reports
