#include "shell/tick_list.h"

#include "printing/product_lines.h"
#include "printing/sheet.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace shell {

// ---- the sheets; twips from the corner of the margins

namespace {

constexpr int Body_Width = 10466;
constexpr int Test_Width = 830;
constexpr int Headings_Top = 940;
constexpr int Rows_Top = 1280;
constexpr int Rows_Bottom = 14750;
constexpr int Lowest_Row = 430;
constexpr int Highest_Row = 580;
constexpr int Name_Font = 13;
constexpr int Smallest_Font = 7;
const QColor Ink(40, 40, 40);
const QColor Striped(240, 243, 247);

class Tick_Sheets {
public:
    Tick_Sheets(const Ticks& ticks, preview::ViewPro& sheet)
        : ticks(ticks),
          sheet(sheet),
          rows_on_a_sheet((Rows_Bottom - Rows_Top) / Lowest_Row),
          row_height(
              std::clamp((Rows_Bottom - Rows_Top) / std::max(Rows_At_Most(), 1), Lowest_Row, Highest_Row)),
          names_width(Body_Width - Test_Width * static_cast<int>(ticks.tests.size())) {}

    void Draw() {
        Draw_Headings();
        int on_sheet = 0;
        for (const Ticks::Row& row : ticks.rows) {
            if (on_sheet == rows_on_a_sheet) {
                sheet.NewPage();
                Draw_Headings();
                on_sheet = 0;
            }
            Draw_Row(row, Rows_Top + row_height * on_sheet, on_sheet % 2 == 1);
            ++on_sheet;
        }
    }

private:
    int Rows_At_Most() const { return std::min(static_cast<int>(ticks.rows.size()), rows_on_a_sheet); }

    void Draw_Headings() {
        printing::Draw_Centred(sheet, 0, 10000, 18, ticks.title);
        printing::Draw_Centred(sheet, 480, 8640, 10, ticks.subtitle);
        sheet.FontBold = true;
        int x = names_width;
        for (const QString& test : ticks.tests) {
            printing::Draw_Fitted(sheet, {x + 30, Headings_Top, Test_Width - 60, Rows_Top - Headings_Top},
                                  test, {9, 9});
            x += Test_Width;
        }
        sheet.LineWidth = 20;
        sheet.DrawLine(0, Rows_Top, Body_Width, Rows_Top);
        sheet.FontBold = false;
    }

    void Draw_Row(const Ticks::Row& row, int top, bool striped) {
        if (striped) printing::Fill(sheet, {0, top, Body_Width, row_height}, Striped);
        sheet.TextAlign = 0;
        printing::Draw_Fitted(sheet, {80, top, names_width - 160, row_height}, row.name,
                              {Name_Font, Smallest_Font, 2});
        sheet.TextAlign = 1;
        int x = names_width;
        for (const bool done : row.done) {
            Draw_Box(x + Test_Width / 2, top + row_height / 2, done);
            x += Test_Width;
        }
        sheet.LineWidth = 5;
        for (const int edge : {top, top + row_height})
            sheet.DrawLine(0, edge, Body_Width, edge);
    }

    void Draw_Box(int centre_x, int centre_y, bool ticked) {
        constexpr int half = 150;
        sheet.LineWidth = 20;
        sheet.ForeColor = Ink;
        sheet.DrawRectangle2(centre_x - half, centre_y - half, 2 * half, 2 * half);
        if (ticked) {
            sheet.LineWidth = 60;
            sheet.DrawLine(centre_x - 90, centre_y, centre_x - 20, centre_y + 80);
            sheet.DrawLine(centre_x - 40, centre_y + 80, centre_x + 110, centre_y - 90);
        }
        sheet.ForeColor = Qt::black;
    }

    const Ticks& ticks;
    preview::ViewPro& sheet;
    int rows_on_a_sheet;
    int row_height;
    int names_width;
};

} // namespace

void Draw_Tick_List(const Ticks& ticks, const foundation::Installation& installation,
                    preview::ViewPro& sheet) {
    printing::Set_Up_Sheet(sheet, 0);
    sheet.Keep_To_Margins = true;
    sheet.BeginOutput();
    printing::Draw_Running_Texts(sheet, u'|' + printing::Cell(installation.Institution) + u'|',
                                 u'|' + printing::Short_Product_Line() + u'|');
    sheet.Title = u"Mevo tick list - "_s + ticks.title;
    Tick_Sheets(ticks, sheet).Draw();
    sheet.EndOutput();
}

// ---- the page

Tick_List::Tick_List(desktop::Platform& platform, Navigator& navigator,
                     const foundation::Installation& installation, const Ticks& ticks)
    : Sheets_Page(platform, navigator, installation,
                  {u"Tick list: Print Preview"_s, Preview_Width, u"Testing progress"_s,
                   u"Return to the testing progress"_s, u"Print out the tick list on A4 sheets."_s}),
      ticks(ticks) {
    setObjectName(u"Tick_List"_s);
    Tell_Helps({});
}

} // namespace shell
