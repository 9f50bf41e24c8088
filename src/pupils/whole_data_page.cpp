#include "pupils/whole_data_page.h"

#include "shell/conventions/csv_dialog.h"
#include "shell/conventions/save_as.h"

using namespace Qt::StringLiterals;

namespace pupils {

Whole_Data_Page::Whole_Data_Page(desktop::Platform& platform, shell::Navigator& navigator, Record_Data data)
    : Words_Report(platform, navigator, data.installation), records(data.records) {
    setObjectName(u"Whole_Data_Page"_s);
    Lay_Out(u"Data"_s, u"All data of a pupil: Print Preview"_s, u"Fine tuning"_s);
    shell::HotLabel* save = Make_HotLabel(u"SaveData"_s, u"Save as CSV..."_s,
                                          {Right + Right_Width / 2 + 6, 346, Right_Width / 2 - 6, 36},
                                          [this] { SaveData_Click(); });
    SaveAsPdf->resize(save->size()); // both in one row
    Tell_Helps(u"Print out all data of the pupil on A4 sheets."_s, [&](shell::Help_Line& help) {
        help.Tell(HotLabel1, u"Return to the Fine tuning page, which is as you left it"_s);
        help.Tell(save, u"Save all data of the pupil for a spreadsheet or another program."_s);
    });
}

void Whole_Data_Page::Load() {
    const desktop::Wait_Pointer busy(platform.pointer);
    data = All_Data_Of(records.To_Be_Shown, installation, platform);
    Words_Report::Load();
}

void Whole_Data_Page::Draw() {
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
