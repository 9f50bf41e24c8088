#pragma once

#include "foundation/installation.h"
#include "platform/desktop/wait_pointer.h"
#include "platform/preview/preview_window.h"
#include "platform/preview/view_pro.h"
#include "printing/pdf_file.h"
#include "shell/conventions/page.h"

#include <QCheckBox>
#include <array>

namespace printing {

// What the report pages have in common: sheets in a preview, to be printed, copied and looked at closer.
class Report_Page : public shell::Page {
    Q_OBJECT
public:
    void Set_Zoom(int percent);
    void HotLabel1_Click(); // back to the page that lies beneath
    void HotLabel2_Click(); // print all sheets
    void HotLabel3_Click(); // copy the sheet on view
    void SaveAsPdf_Click();
    void KeepToMargins_Click();
    void FitWidth_Click(); // neither ZoomPercent nor Zoom_Now is written: a zoom entry leads back

protected:
    Report_Page(desktop::Platform& platform, shell::Navigator& navigator,
                const foundation::Installation& installation);

    void Make_Preview(const QRect& place);
    void Make_Main_Entry(const QRect& place, const QString& caption = QStringLiteral("Report Main Page"));
    void Make_Margins_Box(const QRect& place);
    void Make_Save_Entry(const QRect& place,
                         QWidget* after); // made last; the key Tab comes to it after that one
    void Make_Copy_Entries(const QRect& print_place, const QRect& copy_place, QWidget* parent);
    // An entry and its tick for each zoom: 100, 67 and 40 percent, and the width of the preview.
    struct Zoom_Entry {
        QString caption;
        QRect place;
        QRect tick_place;
    };
    void Make_Zoom_Entries(const std::array<Zoom_Entry, 4>& entries, QWidget* parent);
    void Tell_Common_Helps(shell::Help_Line& help, const QString& copying);

    virtual void Draw_Anew() = 0; // the sheets that are there

    // The sheets' name in the printer's queue, which names no pupil.
    virtual QString Document_Name() const = 0;
    // The sheets are with the printer, or in a file.
    virtual void Note_Printed(Outlet /*outlet*/) const {}

    static constexpr QSize Frame_Size{1080, 560};
    static constexpr int First_Zoom = 40;

    const foundation::Installation& installation;
    preview::ViewPro ViewPro1;
    preview::Preview_Window* Preview = nullptr;
    shell::HotLabel* HotLabel1 = nullptr; // the way back
    shell::HotLabel* HotLabel2 = nullptr; // Print
    shell::HotLabel* SaveAsPdf = nullptr;
    QCheckBox* KeepToMargins = nullptr; // not on every page
    int Zoom_Now = First_Zoom;

private:
    void Put_Out_Sheets(Outlet outlet);
    void Choose_Zoom(int percent);
    void Show_Ticks();

    shell::HotLabel *HotLabel3, *FitWidth;
    std::array<shell::HotLabel*, 3> zooms; // HotLabel4, HotLabel5, HotLabel6
    std::array<QLabel*, 4> Image1;         // the ticks of the three; the last one keeps the picture
    QLabel* FitTick;
};

} // namespace printing
