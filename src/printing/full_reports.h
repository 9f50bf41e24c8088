#pragma once

#include "printing/individual_sheet.h"
#include "scoring/scoring.h"

#include <QList>
#include <QStringList>
#include <functional>
#include <vector>

namespace printing {

// What full reports are made from. Scale, ground and time bars are those of `settings`, whoever is in it.
struct Full_Report_Sources {
    const foundation::Installation& installation;
    const scoring::Pupil_Lists& pupils;
    const scoring::Norm_Tables& norms;
    const reports::Report_State& settings;
};

// A pupil as their sheet shows them.
struct Scored_Pupil {
    reports::Report_State state;
    scoring::Score_Store scores;
};

// How far the making came.
struct Full_Reports_Made {
    int sheets = 0;
    QStringList left_out; // who can't be scored, and why: "Grey Anna (204): Invalid use of Null"
    bool stopped = false;
};

// Makes the individual reports of many pupils, each as the preview would open for them alone: they are scored
// on stores of their own, so that nothing of one pupil comes to another's sheet or to a page.
class Full_Reports {
public:
    // Called with the pupil's name before each of them is scored, and once more before a sheet of a common
    // file is painted. False ends the work.
    using Go_On = std::function<bool(const QString& pupil)>;

    // All of the sources live longer than what is made of them.
    Full_Reports(Full_Report_Sources sources, bool keep_to_margins, desktop::Platform& platform);

    // By places in the list of pupils. Who can't be scored is left out; a file that can't be written throws
    // basics::Run_Time_Error, with what had been made before it in `made`.
    void Write_One_File(const QList<qint16>& places, const QString& file, const Go_On& go_on,
                        Full_Reports_Made& made);
    // Each in a file of their own in that folder; what is there under such a name is replaced.
    void Write_A_File_Each(const QList<qint16>& places, const QString& folder, const Go_On& go_on,
                           Full_Reports_Made& made);
    // The names of those files, by User ID and name, no two of them the same to any file system.
    QStringList File_Names(const QList<qint16>& places) const;

    Scored_Pupil Score(int p); // throws basics::Run_Time_Error
    // A sheet each. They are drawn as they are painted: a school's sheets together would fill the memory.
    desktop::Printed_Document Document(const QString& name, std::vector<Scored_Pupil> pupils,
                                       const Go_On& go_on = {}) const;

private:
    bool Score_Next(int p, const Go_On& go_on, std::vector<Scored_Pupil>& scored, Full_Reports_Made& made);
    void Paint_Sheet(const Scored_Pupil& pupil, QPainter& painter) const;

    Full_Report_Sources sources;
    bool keep_to_margins;
    desktop::Platform& platform;
    foundation::Access_Holder holder;
};

} // namespace printing
