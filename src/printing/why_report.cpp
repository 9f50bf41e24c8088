#include "printing/why_report.h"

#include "printing/product_lines.h"
#include "printing/sheet.h"

#include <QHash>
#include <QSignalBlocker>

using namespace Qt::StringLiterals;

namespace printing {

using scoring::Why_Section;
using shell::Text_Role;

// ---- the sheets; twips from the corner of the margins

namespace {

constexpr int Body_Width = 10400;
constexpr int Body_Bottom = 14750;
constexpr int Cell_Padding = 70;
constexpr int Row_Padding = 24;

class Why_Sheets {
public:
    explicit Why_Sheets(preview::ViewPro& sheet) : sheet(sheet) {}

    void Draw(const Why_Section& section) {
        Make_Room(3);
        Put(section.heading, true, 10);
        for (const QString& line : section.lines)
            Put(line, false, 9);
        sheet.CurrentY += Row_Padding;
        if (!section.headings.isEmpty() && !section.rows.isEmpty()) Put_Row(section.headings, true);
        for (const QStringList& row : section.rows)
            Put_Row(row, false);
        sheet.CurrentY += sheet.TextHeight() / 2;
    }

private:
    void Make_Room(int lines) {
        if (sheet.CurrentY + lines * sheet.TextHeight() <= Body_Bottom) return;
        sheet.NewPage();
        sheet.CurrentY = 0;
    }

    void Put(const QString& text, bool bold, int size) {
        sheet.FontSize = size;
        sheet.FontBold = bold;
        sheet.CurrentX = 0;
        sheet.TextWidth = Body_Width;
        Make_Room(2);
        sheet.Paragraph(text);
    }

    void Put_Row(const QStringList& cells, bool bold) {
        static const QHash<qsizetype, QString> widths{{2, u"3000|2400"_s},
                                                      {3, u"2000|2000|3000"_s},
                                                      {5, u"700|3600|3600|1500|1000"_s},
                                                      {6, u"600|2400|2400|1300|900|2800"_s}};
        sheet.FontSize = 8;
        sheet.FontBold = bold;
        sheet.CurrentX = 0;
        Make_Room(3);
        sheet.TableFormat = widths.value(cells.size());
        sheet.TableText(Table_Row(cells));
    }

    preview::ViewPro& sheet;
};

} // namespace

void Draw_Why(const scoring::Why_Words& words, const foundation::Installation& installation,
              const desktop::Clock& clock, const QString& norms, preview::ViewPro& sheet) {
    Set_Up_Sheet(sheet, Cell_Padding);
    sheet.Keep_To_Margins = true;
    sheet.About = About_Scores(norms);
    sheet.Author = installation.Institution;
    sheet.Title = words.title + u" - "_s + words.pupil;
    sheet.BeginOutput();
    sheet.Bookmark(words.pupil);
    Draw_Running_Texts(sheet, u'|' + Cell(installation.Institution) + u'|',
                       u'|' + Long_Product_Line() + u'|');
    sheet.RowPadding = Row_Padding;
    Draw_Centred(sheet, 0, 8640, 12, words.title);
    Draw_Centred(sheet, 340, 8640, 10, words.pupil);
    sheet.TextAlign = 0;
    sheet.FontSize = 8;
    sheet.FontBold = false;
    sheet.DrawText(0, 640, u"Date printed: "_s + Today(clock));
    sheet.CurrentY = 1000;
    sheet.TableBorders = 1;
    Why_Sheets sheets(sheet);
    for (const Why_Section& section : words.sections)
        sheets.Draw(section);
    sheet.EndOutput();
}

// ---- the page

Why_Report::Why_Report(desktop::Platform& platform, shell::Navigator& navigator,
                       const foundation::Installation& installation, const reports::Report_State& state)
    : Report_Page(platform, navigator, installation), state(state) {
    setObjectName(u"Why_Report"_s);
    Lay_Out();
    Tell_Helps();
}

void Why_Report::Load() {
    const desktop::Wait_Pointer busy(platform.pointer);
    Draw_Anew();
    Set_Zoom(First_Zoom);
}

void Why_Report::Draw_Anew() {
    Draw_Why(state.why, installation, platform.clock, state.Norms_Digest, ViewPro1);
    const QSignalBlocker quiet(pages);
    pages->clear();
    for (int page = 1; page <= ViewPro1.PageCount(); ++page)
        pages->addItem(u"Page %1"_s.arg(page));
    pages->setCurrentRow(Preview->ShownPage() - 1);
    ViewPro1.ShowOutput();
}

QString Why_Report::Document_Name() const {
    return u"Mevo explanation of a score"_s;
}

void Why_Report::Lay_Out() {
    constexpr int left = 16;
    constexpr int preview_width = 804;
    constexpr int right = 832;
    constexpr int right_width = 232;
    constexpr int tick = 28;
    constexpr int half = (right_width - 12) / 2;
    Make_Label(u"WhyReportTitle"_s, u"Why this score: Print Preview"_s, Text_Role::Title,
               {left, 16, preview_width, 34});
    Make_Preview({left, 54, preview_width, 490});
    Make_Label(u"WhyReportPages"_s, u"Preview Pages"_s, Text_Role::Caption, {right, 16, right_width, 20});
    pages = new QListWidget(Frame1);
    pages->setObjectName(u"WhyPages"_s);
    pages->setAccessibleName(u"Preview Pages"_s);
    pages->setGeometry(right, 40, right_width, 122);
    shell::On(pages, &QListWidget::currentRowChanged, this, platform, [this] {
        Preview->Set_ShownPage(pages->currentRow() + 1);
        ViewPro1.ShowOutput();
    });
    const auto zoom = [](const QString& caption, int top) {
        return Zoom_Entry{
            caption, {right + tick + 8, top, right_width - tick - 8, 34}, {right, top, tick, 34}};
    };
    Make_Zoom_Entries({zoom(u"Zoom 100%"_s, 180), zoom(u"Zoom 67%"_s, 220), zoom(u"Zoom 40%"_s, 260)},
                      Frame1);
    Make_Copy_Entries({right, 304, half, 36}, {right + half + 12, 304, half, 36}, Frame1);
    Make_Save_Entry({right, 346, right_width, 36}, HotLabel2);
    HotLabel2->Set_Weight(shell::HotLabel::Weight::Primary);
    help_text = Make_Label(u"WhyReportHelp"_s, u""_s, Text_Role::Help, {right, 392, right_width, 104});
    help_text->setWordWrap(true);
    help_text->setAccessibleName(u"Help"_s);
    Make_Main_Entry({right, 504, right_width, 40});
}

void Why_Report::Tell_Helps() {
    auto* help = new shell::Help_Line(this, [this](const QString& text) { help_text->setText(text); });
    Tell_Common_Helps(*help, u"Copy the sheet on view to the clipboard as a Windows Metafile (.WMF)"_s);
    help->Tell(HotLabel2, u"Print out the explanation on A4 sheets."_s);
    help->Tell(pages, u"Select the sheet you wish to view"_s);
    const QString previewing = u"What the printout will look like when it has been printed."_s;
    help->Tell(Preview, previewing);
    help->Tell(Preview->viewport(), previewing);
    help->Follow_Focus(*this);
}

} // namespace printing
