#pragma once

#include "foundation/access_holder.h"
#include "keeping/change_list.h"
#include "platform/grid/spread.h"
#include "printing/pdf_file.h"
#include "pupils/pupil_records.h"
#include "shell/conventions/click_combo.h"
#include "shell/conventions/page.h"

#include <QLineEdit>

namespace pupils {

// What a school must answer for: what was done with its records, by the list of changes, and whose results it
// still keeps. It lies over the Settings page.
class Changes_Page final : public shell::Page {
    Q_OBJECT
public:
    Changes_Page(desktop::Platform& platform, shell::Navigator& navigator, Record_Data data);

    void Load() override;
    void Show_Changes();  // those that the filters let pass, the latest first
    void Show_Untested(); // pupils whose last test lies back longer than the chosen time

    void HotLabel1_Click(); // back to the Settings page
    void HotLabel2_Click(); // prints what is listed
    void SaveAsPdf_Click();
    void HotLabel3_Click(); // saves the changes that the filters let pass
    void HotLabel4_Click(); // removes older entries
    void HotLabel5_Click(); // lists the pupils
    void HotLabel6_Click(); // hands them over to the Delete page
    void HotLabel7_Click(); // makes a support copy

private:
    void Put_Out_List(printing::Outlet outlet);
    struct Untested_Pupil {
        QString code, name, born, group;
        QDateTime last_test;
    };

    void Lay_Out();
    void Lay_Out_Changes();
    void Lay_Out_Protection();
    void Tell_Helps();
    void Read_Changes();
    void Tell_State();
    void Write_Headings(const QStringList& headings);
    void Write_Row(int row, const QStringList& texts);
    void Offer_Handing_Over();
    bool Passes(const keeping::Change& change) const;
    QList<keeping::Change> Passing() const;
    QList<Untested_Pupil> Untested_Before(const QDateTime& moment);
    QString Save_Place(const QString& title, const QString& filter, const QString& name);

    foundation::Installation& installation;
    Pupil_Records& records;
    foundation::Access_Holder holder;
    QList<keeping::Change> changes;
    QStringList untested; // codes of the pupils listed; none while changes are

    grid::fpSpread* Spread1;
    QLabel *Heading, *Notice;
    QLineEdit* Text1;
    shell::Click_Combo *Combo1, *Combo2, *Combo3;
    shell::HotLabel *HotLabel1, *HotLabel2, *HotLabel3, *HotLabel4, *HotLabel5, *HotLabel6, *HotLabel7,
        *SaveAsPdf;
};

} // namespace pupils
