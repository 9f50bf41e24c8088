#include "printing/why_report.h"

#include "printing/product_lines.h"
#include "printing/sheet.h"

#include <QHash>
#include <algorithm>
#include <numeric>
#include <utility>

using namespace Qt::StringLiterals;

namespace printing {

using scoring::Why_Section;

// ---- the sheets; twips from the corner of the margins

namespace {

constexpr int Body_Width = 10400;
constexpr int Body_Bottom = 14750;
constexpr int Cell_Padding = 70;
constexpr int Row_Padding = 24;

// As wide as the longest text, up to where it is broken into lines; together as wide as the sheet at most.
QString Format_By_Contents(const Why_Section& section) {
    constexpr qsizetype longest_line = 44;
    constexpr int letter = 92;       // of the tables' size, in twips
    constexpr int bold_letter = 108; // of a heading
    constexpr int rim = 190;
    QList<int> widths;
    const auto make_room_for = [&](const QStringList& row, int of_a_letter) {
        for (qsizetype column = 0; column < row.size(); ++column) {
            if (column == widths.size()) widths.append(0);
            const int letters = static_cast<int>(std::min(longest_line, row[column].size()));
            widths[column] = std::max(widths[column], rim + of_a_letter * letters);
        }
    };
    make_room_for(section.headings, bold_letter);
    for (const QStringList& row : section.rows)
        make_room_for(row, letter);
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

// ---- the page

Why_Report::Why_Report(desktop::Platform& platform, shell::Navigator& navigator,
                       const foundation::Installation& installation, const reports::Report_State& state)
    : Sheets_Page(platform, navigator, installation,
                  {u"Why this score: Print Preview"_s, Preview_Width, u"Report Main Page"_s,
                   u"Return to the main reports page"_s, u"Print out the explanation on A4 sheets."_s}),
      state(state) {
    setObjectName(u"Why_Report"_s);
    Tell_Helps({});
}

void Why_Report::Draw_Sheets() {
    Draw_Why(state.why, installation, platform.clock, state.Norms_Digest, ViewPro1);
}

QString Why_Report::Document_Name() const {
    return u"Mevo explanation of a score"_s;
}

} // namespace printing
