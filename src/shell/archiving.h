#pragma once

#include "conversion/older_files.h"
#include "shell/archive_acts.h"
#include "shell/conventions/page.h"

class QProgressBar;

namespace shell {

// The Archiving page: saves the working database whole, puts an archive or the empty template in its place,
// and lets the program look at an archive instead of it.
//
// What it saves and replaces is always the working database, also while an archive is in view. What it counts
// is the database that the program looks at.
class Form60 final : public Page {
    Q_OBJECT
public:
    Form60(desktop::Platform& platform, Navigator& navigator, foundation::Installation& installation,
           Menu_Counts& counts, database::File_Copies& copies, conversion::Older_Files& older_files);

    void Load() override;
    void Refresh_Archive_Page(); // recounts the pupils and sets the page
    void Set_Archive_Buttons();  // by the count
    QString Create_Unique_Filename() const;
    void Load_Archived_Database();
    void Clear_Working_Database();
    void View_Archived_Database();

    void HotLabel1_Click(); // back to the menu
    void HotLabel2_Click(); // saves; its failures are told, those of the others end the program
    void HotLabel3_Click(); // views
    void HotLabel4_Click(); // loads
    void HotLabel5_Click(); // starts afresh
    void HotLabel6_Click(); // ends the viewing
    void GoBack_Click();    // to the copies that were kept

private:
    void Lay_Out();
    void Tell_Helps();
    desktop::File_Question File_Dialog(const QString& title, const QString& file_name) const;
    // Empty if none was chosen. For a file of the older format it is the converted copy, once there is one.
    QString Chosen_Archive(const QString& title);
    QString Converted_Copy(const QString& file);
    void Show_Progress(const conversion::Progress& progress);
    QString Why_No_Archive(const QString& file) const; // why the name isn't taken for a save; empty if it is
    void Save_As(const QString& file);

    foundation::Installation& installation;
    Menu_Counts& counts;
    database::File_Copies& copies;
    conversion::Older_Files& older_files;
    foundation::Access_Holder holder;
    Archive_Acts acts;
    QString suggested_file_name; // of the Save dialog

    QTimer* Timer1;
    QProgressBar* conversion_bar;
    QLabel *Label1, *Label13;
    HotLabel *HotLabel1, *HotLabel2, *HotLabel3, *HotLabel4, *HotLabel5, *HotLabel6, *GoBack;
};

} // namespace shell
