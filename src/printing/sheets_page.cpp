#include "printing/sheets_page.h"

#include <QSignalBlocker>
#include <algorithm>

using namespace Qt::StringLiterals;

namespace printing {

using shell::Text_Role;

Sheets_Page::Sheets_Page(desktop::Platform& platform, shell::Navigator& navigator,
                         const foundation::Installation& installation, const Words& words)
    : Report_Page(platform, navigator, installation) {
    Lay_Out(words);
    const Help made = Make_Help(u"SheetsHelp"_s, {832, 390, 232, 104});
    help = made.line;
    Tell_Common_Helps(*help, u"Copy the sheet on view to the clipboard as a Windows Metafile (.WMF)"_s);
    help->Tell(HotLabel1, words.back_help);
    help->Tell(HotLabel2, words.print_help);
}

void Sheets_Page::Load() {
    const desktop::Wait_Pointer busy(platform.pointer);
    Draw_Anew();
    Set_Zoom(First_Zoom);
}

void Sheets_Page::Draw_Anew() {
    Draw_Sheets();
    const int last = std::max(ViewPro1.PageCount(), 1);
    Preview->Set_ShownPage(std::min(Preview->ShownPage(), last));
    const QSignalBlocker quiet(pages);
    pages->clear();
    for (int page = 1; page <= ViewPro1.PageCount(); ++page)
        pages->addItem(u"Page %1"_s.arg(page));
    pages->setCurrentRow(Preview->ShownPage() - 1);
    ViewPro1.ShowOutput();
}

void Sheets_Page::Lay_Out(const Words& words) {
    constexpr int right = 832;
    constexpr int right_width = 232;
    constexpr int tick = 28;
    constexpr int height = 26; // of a zoom entry
    constexpr int half = (right_width - 12) / 2;
    Make_Label(u"SheetsTitle"_s, words.title, Text_Role::Title, {Left, 16, words.title_width, 34});
    Make_Preview({Left, 54, Preview_Width, 490});
    Make_Label(u"SheetsLabel"_s, u"Preview Pages"_s, Text_Role::Caption, {right, 16, right_width, 20});
    pages = new QListWidget(Frame1);
    pages->setObjectName(u"SheetsList"_s);
    pages->setAccessibleName(u"Preview Pages"_s);
    pages->setGeometry(right, 40, right_width, 122);
    shell::On(pages, &QListWidget::currentRowChanged, this, platform, [this] {
        Preview->Set_ShownPage(pages->currentRow() + 1);
        ViewPro1.ShowOutput();
    });
    shell::On(Preview, &preview::Preview_Window::Turned, this, platform,
              [this] { pages->setCurrentRow(Preview->ShownPage() - 1); });
    const auto zoom = [](const QString& caption, int top) {
        return Zoom_Entry{
            caption, {right + tick + 8, top, right_width - tick - 8, height}, {right, top, tick, height}};
    };
    Make_Zoom_Entries({zoom(u"Zoom 100%"_s, 180), zoom(u"Zoom 67%"_s, 211), zoom(u"Zoom 40%"_s, 242),
                       zoom(u"Fit to width"_s, 273)},
                      Frame1);
    Make_Copy_Entries({right, 304, half, 36}, {right + half + 12, 304, half, 36}, Frame1);
    Make_Save_Entry({right, 346, right_width, 36}, HotLabel2);
    HotLabel2->Set_Weight(shell::HotLabel::Weight::Primary);
    Make_Main_Entry({right, 504, right_width, 40}, words.back);
}

void Sheets_Page::Tell_Helps(const QList<std::pair<QWidget*, QString>>& own) {
    help->Tell(pages, u"Select the sheet you wish to view"_s);
    const QString previewing = u"What the printout will look like when it has been printed."_s;
    help->Tell(Preview, previewing);
    help->Tell(Preview->viewport(), previewing);
    for (const auto& [control, text] : own)
        help->Tell(control, text);
    help->Follow_Focus(*this);
}

} // namespace printing
