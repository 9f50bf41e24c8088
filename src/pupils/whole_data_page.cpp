#include "pupils/whole_data_page.h"

#include "shell/conventions/csv_dialog.h"
#include "shell/conventions/save_as.h"

using namespace Qt::StringLiterals;

namespace pupils {

constexpr int Save_Width = 190;

Whole_Data_Page::Whole_Data_Page(desktop::Platform& platform, shell::Navigator& navigator, Record_Data data)
    : Sheets_Page(platform, navigator, data.installation,
                  {u"All data of a pupil: Print Preview"_s, Preview_Width - Save_Width - 12, u"Fine tuning"_s,
                   u"Return to the Fine tuning page, which is as you left it"_s,
                   u"Print out all data of the pupil on A4 sheets."_s}),
      records(data.records) {
    setObjectName(u"Whole_Data_Page"_s);
    shell::HotLabel* save =
        Make_HotLabel(u"SaveData"_s, u"Save as CSV..."_s,
                      {Left + Preview_Width - Save_Width, 16, Save_Width, 32}, [this] { SaveData_Click(); });
    Tell_Helps({{save, u"Save all data of the pupil for a spreadsheet or another program."_s}});
}

void Whole_Data_Page::Load() {
    const desktop::Wait_Pointer busy(platform.pointer);
    data = All_Data_Of(records.To_Be_Shown, installation, platform);
    Sheets_Page::Load();
}

void Whole_Data_Page::Draw_Sheets() {
    printing::Draw_Why(data.words, installation, platform.clock, data.norms, ViewPro1,
                       printing::Words_Kind::Record);
}

QString Whole_Data_Page::Document_Name() const {
    return u"Mevo data of a pupil"_s;
}

void Whole_Data_Page::SaveData_Click() {
    const QString title = u"Save all data as CSV"_s;
    shell::Csv_Form form;
    if (!shell::Ask_Csv_Form(shell::Csv_Rows::Of_One_Form, form, platform)) return;
    const QString file = shell::Ask_Where_To_Save(
        {title, u"Comma-separated values (*.csv)"_s, u"csv"_s, u"Mevo data "_s + data.words.pupil}, platform);
    if (!file.isEmpty()) shell::Save_Whole(file, As_Csv(data.words, form.decimal), title, platform);
}

} // namespace pupils
