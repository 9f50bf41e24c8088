#include "printing/why_report.h"

#include "printing/product_lines.h"
#include "printing/sheet.h"

#include <QHash>
#include <QSignalBlocker>
#include <algorithm>
#include <numeric>
#include <utility>

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

// As wide as the longest text, up to where it is broken into lines; together as wide as the sheet at most.
QString Format_By_Contents(const Why_Section& section) {
    constexpr qsizetype longest_line = 44;
    constexpr int letter = 92; // of the tables' size, in twips
    constexpr int rim = 190;
    QList<int> widths;
    for (const QStringList& row : section.rows + QList<QStringList>{section.headings})
        for (qsizetype column = 0; column < row.size(); ++column) {
            if (column == widths.size()) widths.append(0);
            const int width = rim + letter * static_cast<int>(std::min(longest_line, row[column].size()));
            widths[column] = std::max(widths[column], width);
        }
    const int sum = std::accumulate(widths.begin(), widths.end(), 0);
    QStringList format;
    for (const int width : widths)
        format.append(QString::number(sum > Body_Width ? width * Body_Width / sum : width));
    return format.join(u'|');
}

class Why_Sheets {
public:
    Why_Sheets(preview::ViewPro& sheet, const QString& pupil, Words_Kind kind)
        : sheet(sheet), pupil(pupil), kind(kind) {
        if (kind == Words_Kind::Record) Put_Foot();
    }

    void Draw(const Why_Section& section) {
        const bool is_record = kind == Words_Kind::Record;
        Make_Room(is_record && !section.rows.isEmpty() ? static_cast<int>(section.lines.size()) + 6 : 3);
        Put(section.heading, true, 10);
        for (const QString& line : section.lines)
            Put(line, false, 9);
        sheet.CurrentY += Row_Padding;
        const QString format = Format_Of(section);
        if (!section.headings.isEmpty() && !section.rows.isEmpty()) Put_Row(section.headings, format, true);
        for (const QStringList& row : section.rows) {
            const int page = sheet.PageCount();
            Make_Room(3);
            if (is_record && sheet.PageCount() > page && !section.headings.isEmpty())
                Put_Row(section.headings, format, true);
            Put_Row(row, format, false);
        }
        sheet.CurrentY += sheet.TextHeight() / 2;
    }

private:
    void Make_Room(int lines) {
        if (sheet.CurrentY + lines * sheet.TextHeight() <= Body_Bottom) return;
        sheet.NewPage();
        sheet.CurrentY = 0;
        if (kind == Words_Kind::Record) Put_Foot();
    }

    void Put_Foot() {
        const int size = std::exchange(sheet.FontSize, 9);
        const bool bold = std::exchange(sheet.FontBold, false);
        sheet.FooterText(Cell(pupil) + u'|' + Short_Product_Line() +
                         u"|Page %1"_s.arg(std::max(sheet.PageCount(), 1)));
        sheet.FontSize = size;
        sheet.FontBold = bold;
    }

    void Put(const QString& text, bool bold, int size) {
        sheet.FontSize = size;
        sheet.FontBold = bold;
        sheet.CurrentX = 0;
        sheet.MeasureText(text);
        const int lines = sheet.TextWidth * 11 / 10 / Body_Width + 1; // words don't fill a line to its end
        sheet.TextWidth = Body_Width;
        Make_Room(lines + 1);
        sheet.Paragraph(text);
    }

    QString Format_Of(const Why_Section& section) const {
        static const QHash<qsizetype, QString> of_explanations{{2, u"3000|2400"_s},
                                                               {3, u"2000|2000|3000"_s},
                                                               {5, u"700|3600|3600|1500|1000"_s},
                                                               {6, u"600|2400|2400|1300|900|2800"_s}};
        return kind == Words_Kind::Record ? Format_By_Contents(section)
                                          : of_explanations.value(section.rows.value(0).size());
    }

    void Put_Row(const QStringList& cells, const QString& format, bool bold) {
        sheet.FontSize = 8;
        sheet.FontBold = bold;
        sheet.CurrentX = 0;
        Make_Room(3);
        sheet.TableFormat = format;
        sheet.TableText(Table_Row(cells));
    }

    preview::ViewPro& sheet;
    const QString pupil;
    const Words_Kind kind;
};

} // namespace

void Draw_Why(const scoring::Why_Words& words, const foundation::Installation& installation,
              const desktop::Clock& clock, const QString& norms, preview::ViewPro& sheet, Words_Kind kind) {
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
    Why_Sheets sheets(sheet, words.pupil, kind);
    for (const Why_Section& section : words.sections)
        sheets.Draw(section);
    sheet.EndOutput();
}

// ---- the pages

Why_Report::Why_Report(desktop::Platform& platform, shell::Navigator& navigator,
                       const foundation::Installation& installation, const reports::Report_State& state)
    : Words_Report(platform, navigator, installation), state(state) {
    setObjectName(u"Why_Report"_s);
    Lay_Out(u"Why"_s, u"Why this score: Print Preview"_s, u"Report Main Page"_s);
    Tell_Helps(u"Print out the explanation on A4 sheets."_s);
}

void Why_Report::Draw() {
    Draw_Why(state.why, installation, platform.clock, state.Norms_Digest, ViewPro1);
}

Words_Report::Words_Report(desktop::Platform& platform, shell::Navigator& navigator,
                           const foundation::Installation& installation)
    : Report_Page(platform, navigator, installation) {
}

void Words_Report::Load() {
    const desktop::Wait_Pointer busy(platform.pointer);
    Draw_Anew();
    Set_Zoom(First_Zoom);
}

void Words_Report::Draw_Anew() {
    Draw();
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

void Words_Report::Lay_Out(const QString& name, const QString& title, const QString& way_back) {
    constexpr int left = 16;
    constexpr int preview_width = 804;
    constexpr int right = Right;
    constexpr int right_width = Right_Width;
    constexpr int tick = 28;
    constexpr int height = 26; // of a zoom entry
    constexpr int half = (right_width - 12) / 2;
    Make_Label(name + u"ReportTitle"_s, title, Text_Role::Title, {left, 16, preview_width, 34});
    Make_Preview({left, 54, preview_width, 490});
    Make_Label(name + u"ReportPages"_s, u"Preview Pages"_s, Text_Role::Caption, {right, 16, right_width, 20});
    pages = new QListWidget(Frame1);
    pages->setObjectName(name + u"Pages"_s);
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
    help_text = Make_Label(name + u"ReportHelp"_s, u""_s, Text_Role::Help, {right, 392, right_width, 104});
    help_text->setWordWrap(true);
    help_text->setAccessibleName(u"Help"_s);
    Make_Main_Entry({right, 504, right_width, 40}, way_back);
}

void Words_Report::Tell_Helps(const QString& printing, const std::function<void(shell::Help_Line&)>& others) {
    auto* help = new shell::Help_Line(this, [this](const QString& text) { help_text->setText(text); });
    Tell_Common_Helps(*help, u"Copy the sheet on view to the clipboard as a Windows Metafile (.WMF)"_s);
    help->Tell(HotLabel2, printing);
    help->Tell(pages, u"Select the sheet you wish to view"_s);
    const QString previewing = u"What the printout will look like when it has been printed."_s;
    help->Tell(Preview, previewing);
    help->Tell(Preview->viewport(), previewing);
    if (others) others(*help);
    help->Follow_Focus(*this);
}

} // namespace printing
