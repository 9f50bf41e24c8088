#include "printing/report_page.h"

#include "foundation/school_settings.h"
#include "printing/print_outcome.h"

#include <QPainter>
#include <QPainterPath>

using namespace Qt::StringLiterals;

namespace printing {

using shell::HotLabel;

const QString Margins_Setting = u"Reports/Keep_To_Margins"_s;
constexpr std::array<int, 3> Zooms{100, 67, 40}; // percent

Report_Page::Report_Page(desktop::Platform& platform, shell::Navigator& navigator,
                         const foundation::Installation& installation)
    : Page(platform, navigator, Frame_Size), installation(installation) {
}

void Report_Page::Make_Preview(const QRect& place) {
    Preview = new preview::Preview_Window(ViewPro1, platform.clipboard, Frame1);
    Preview->setObjectName(u"ViewPro1"_s);
    Preview->setProperty("preview", true);
    Preview->setGeometry(place);
}

void Report_Page::Make_Main_Entry(const QRect& place, const QString& caption) {
    HotLabel1 = Make_HotLabel(u"HotLabel1"_s, caption, place, [this] { HotLabel1_Click(); });
}

void Report_Page::Make_Copy_Entries(const QRect& print_place, const QRect& copy_place, QWidget* parent) {
    HotLabel2 = Make_HotLabel(
        u"HotLabel2"_s, u"Print"_s, print_place, [this] { HotLabel2_Click(); }, HotLabel::Look::Command,
        parent);
    HotLabel3 = Make_HotLabel(
        u"HotLabel3"_s, u"Copy"_s, copy_place, [this] { HotLabel3_Click(); }, HotLabel::Look::Command,
        parent);
}

void Report_Page::Make_Save_Entry(const QRect& place, QWidget* after) {
    SaveAsPdf = Make_HotLabel(u"SaveAsPdf"_s, u"Save as PDF..."_s, place, [this] { SaveAsPdf_Click(); });
    setTabOrder(after, SaveAsPdf);
}

// Both pages begin with what was chosen last on either, at first with what the school settled.
void Report_Page::Make_Margins_Box(const QRect& place) {
    KeepToMargins = new QCheckBox(u"Keep to the margins"_s, Frame1);
    KeepToMargins->setObjectName(u"KeepToMargins"_s);
    KeepToMargins->setGeometry(place);
    const QString of_school = foundation::Margins_Of_School(platform, installation);
    KeepToMargins->setChecked(platform.settings.Is_On(Margins_Setting, of_school));
    ViewPro1.Keep_To_Margins = KeepToMargins->isChecked();
    shell::On(KeepToMargins, &QCheckBox::clicked, this, platform, [this] { KeepToMargins_Click(); });
}

static QPixmap Tick_Picture(const QSize& size, qreal ratio) {
    QPixmap picture(size * ratio);
    picture.setDevicePixelRatio(ratio);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(shell::Colours_In_Force().Accent, 3, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    QPainterPath tick(QPointF(size.width() * 0.2, size.height() * 0.55));
    tick.lineTo(size.width() * 0.42, size.height() * 0.78);
    tick.lineTo(size.width() * 0.82, size.height() * 0.24);
    painter.drawPath(tick);
    return picture;
}

void Report_Page::Make_Zoom_Entries(const std::array<Zoom_Entry, 4>& entries, QWidget* parent) {
    const auto tick = [parent](const QString& name, const QRect& place) {
        auto* label = new QLabel(parent);
        label->setObjectName(name);
        label->setGeometry(place);
        label->setAlignment(Qt::AlignCenter);
        return label;
    };
    for (std::size_t i = 0; i < zooms.size(); ++i) {
        zooms[i] = Make_HotLabel(
            u"HotLabel%1"_s.arg(i + 4), entries[i].caption, entries[i].place,
            [this, i] { Choose_Zoom(Zooms[i]); }, HotLabel::Look::Command, parent);
        Image1[i] = tick(u"Image1(%1)"_s.arg(i), entries[i].tick_place);
    }
    const Zoom_Entry& fit = entries.back();
    FitWidth = Make_HotLabel(
        u"FitWidth"_s, fit.caption, fit.place, [this] { FitWidth_Click(); }, HotLabel::Look::Command, parent);
    FitWidth->setAccessibleName(u"Fit to width"_s);
    FitTick = tick(u"FitTick"_s, fit.tick_place);
    Image1.back() = tick(u"Image1(3)"_s, entries[0].tick_place);
    Image1.back()->setPixmap(Tick_Picture({22, 22}, devicePixelRatioF()));
    Image1.back()->hide();
    shell::On(Preview, &preview::Preview_Window::Zoomed, this, platform, [this] { Show_Ticks(); });
}

void Report_Page::Tell_Common_Helps(shell::Help_Line& help, const QString& copying) {
    help.Tell(HotLabel1, u"Return to the main reports page"_s);
    help.Tell(HotLabel2, u"Print out the report as one A4 sheet."_s);
    help.Tell(HotLabel3, copying);
    help.Tell(SaveAsPdf, u"Save all sheets in one PDF file, where you choose."_s);
    if (KeepToMargins)
        help.Tell(
            KeepToMargins,
            u"Move all that is drawn inside the paper's margins, so that it is centred and the school's name stands alone at the top."_s);
    help.Tell(
        zooms[0],
        u"Show the report at full size. You can use the mouse drag the report around within the Preview window."_s);
    help.Tell(zooms[1], u"Reduce the report to two thirds of full size."_s);
    help.Tell(zooms[2], u"Reduce the report to 40% of full size to view the whole page."_s);
    help.Tell(FitWidth, u"Show the report as wide as the preview."_s);
}

void Report_Page::Set_Zoom(int percent) {
    Preview->Set_ZoomPercent(percent);
    Zoom_Now = percent;
    Show_Ticks();
}

void Report_Page::Show_Ticks() {
    const auto show = [this](QLabel* tick, bool chosen) {
        tick->setPixmap(chosen ? Image1.back()->pixmap() : QPixmap());
        tick->setAccessibleName(chosen ? u"Zoom in force"_s : QString());
    };
    const bool fitted = Preview->Is_Width_Fitted();
    for (std::size_t i = 0; i < Zooms.size(); ++i)
        show(Image1[i], !fitted && Zooms[i] == Zoom_Now);
    show(FitTick, fitted);
}

void Report_Page::Choose_Zoom(int percent) {
    if (Preview->Is_Width_Fitted()) Preview->Fit_Width(false);
    Set_Zoom(percent);
}

void Report_Page::FitWidth_Click() {
    Preview->Fit_Width(true);
    Show_Ticks();
}

void Report_Page::HotLabel1_Click() {
    navigator.Close_Page();
}

void Report_Page::Put_Out_Sheets(Outlet outlet) {
    const int pages = ViewPro1.PageCount();
    if (pages == 0) return; // no report has been created
    Telling_Printer_Errors(platform, [&] {
        Preview->PrintPages(Document_Name(), 1, pages, [&](desktop::Printed_Document sheets) {
            sheets.author = installation.Institution;
            if (Put_Out(sheets, outlet, platform)) Note_Printed(outlet);
        });
    });
}

void Report_Page::HotLabel2_Click() {
    Put_Out_Sheets(Outlet::Printer);
}

void Report_Page::SaveAsPdf_Click() {
    Put_Out_Sheets(Outlet::Pdf_File);
}

void Report_Page::HotLabel3_Click() {
    if (ViewPro1.PageCount() > 0) Preview->CopyPage();
}

void Report_Page::KeepToMargins_Click() {
    ViewPro1.Keep_To_Margins = KeepToMargins->isChecked();
    platform.settings.Turn(Margins_Setting, ViewPro1.Keep_To_Margins);
    Draw_Anew();
}

} // namespace printing
