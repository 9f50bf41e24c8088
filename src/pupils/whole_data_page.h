#pragma once

#include "printing/why_report.h"
#include "pupils/pupil_records.h"
#include "pupils/whole_data.h"

namespace pupils {

// The print preview of all that is kept of the pupil on the Fine tuning page, over which it lies: on paper,
// or as a file for whoever may ask for it.
class Whole_Data_Page final : public printing::Sheets_Page {
    Q_OBJECT
public:
    Whole_Data_Page(desktop::Platform& platform, shell::Navigator& navigator, Record_Data data);

    void Load() override;
    void SaveData_Click();

private:
    void Draw_Sheets() override;
    QString Document_Name() const override;

    const Pupil_Records& records;
    Whole_Data data;
};

} // namespace pupils
