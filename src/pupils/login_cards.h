#pragma once

#include "foundation/quiet_reading.h"
#include "printing/sheets_page.h"
#include "pupils/login_sheets.h"
#include "pupils/pupil_records.h"
#include "shell/conventions/click_combo.h"

#include <QRadioButton>

namespace pupils {

// The print preview of a group's logins, as cards for the pupils or as a list for the teacher. It lies over
// the Security page, and reads for itself: that page's lists hold choices that were never stored.
class Login_Cards final : public printing::Sheets_Page {
    Q_OBJECT
public:
    Login_Cards(desktop::Platform& platform, shell::Navigator& navigator, Record_Data data);

    void Load() override;

private:
    void Lay_Out();
    void Read_Logins();
    void Take_Pupil();
    void Draw_Sheets() override;
    QString Document_Name() const override;

    Pupil_Records& records;
    foundation::Quiet_Reading reading;
    QList<Class_Logins> classes; // the groups in their own order; who is in none of them comes last

    shell::Click_Combo* Group;
    QRadioButton *Cards, *Class_List;
};

} // namespace pupils
