#pragma once

#include "foundation/installation.h"
#include "platform/grid/spread.h"
#include "pupils/list_to_import.h"
#include "pupils/new_pupil.h"
#include "shell/conventions/page.h"
#include "shell/conventions/work_bar.h"

#include <QLineEdit>

namespace pupils {

// The Import page: registers many pupils from a text file. A preview validates every record and shows the
// good ones; only when it found none bad can the import be run, which reads the file again.
class Form42 final : public shell::Page {
    Q_OBJECT
public:
    Form42(desktop::Platform& platform, shell::Navigator& navigator,
           const foundation::Installation& installation, List_To_Import& prepared);

    void Load() override; // previews a list that comes prepared

    // line_count: the top of the progress bar on entry, the lines read on return. Each pupil is stored by
    // statements of their own; one that fails leaves the rest to go on.
    void Import_Pupil_File(const QString& file_name, qint16& line_count);
    void Fill_Spread(const QString& surname, const QString& forename, const QString& gender,
                     const QString& date_of_birth, QString code, QString group, const QString& password,
                     int row);

    void PreviewImport_Click();
    void HotLabel1_Click(); // the menu
    void HotLabel3_Click(); // imports
    void HotLabel4_Click(); // prints the preview
    void SaveAsPdf_Click();
    void HotLabel5_Click(); // prepares a list of another form

private:
    void Lay_Out();
    void Lay_Out_Grid();
    void Tell_Helps();
    void Preview_Prepared();
    void Preview(const QString& file_name);
    void Show_Record(const QStringList& fields, int row);
    void Offer_Import(bool offered);
    void Show_Marks();
    void Set_User_Id_Width(int less);
    void Tell_Mark();
    void Note_Import(const QString& file_name, int stored);

    const foundation::Installation& installation;
    List_To_Import& prepared;
    Pupil_Maker maker;
    QMap<int, QString> marks;   // by row: what the import would lose of it without a word
    qint16 Lines_Previewed = 0; // of the last preview that reached its end, or of the import that followed

    QLineEdit* Text1;
    grid::fpSpread* Spread1;
    shell::Work_Bar* ProgressBar1;
    QLabel* Label3; // the help line, and the result of an import
    shell::HotLabel *PreviewImport, *HotLabel1, *HotLabel3, *HotLabel4, *HotLabel5, *SaveAsPdf;
};

} // namespace pupils
