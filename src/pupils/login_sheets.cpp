#include "pupils/login_sheets.h"

#include "printing/product_lines.h"
#include "printing/sheet.h"

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace pupils {

using preview::ViewPro;

namespace {

const QColor Ink(27, 41, 56);
const QColor Quiet_Ink(90, 104, 120);
const QColor Soft_Ground(224, 235, 248);
const QColor Striped(243, 246, 250);
const QColor Cut_Line(130, 130, 130);

const QString Without_Password = u"no password yet"_s;

// A code to be typed letter by letter.
void Draw_Code(ViewPro& sheet, const QRect& place, const QString& code, const printing::Fitting& fitting) {
    sheet.FontFixed = true;
    printing::Draw_Fitted(sheet, place, code, fitting);
    sheet.FontFixed = false;
}

// ---- cards; twips from the corner of the paper

constexpr int Across = 2;
constexpr int Down = 4;
constexpr int Card_Width = 5300;
constexpr int Card_Height = 3840;
constexpr int Cards_Left = 653; // leaves as much at the right
constexpr int Cards_Top = 560;

void Draw_Dashes(ViewPro& sheet, QPoint from, const QPoint& to) {
    constexpr int dash = 110;
    const QPoint step = from.x() == to.x() ? QPoint(0, dash) : QPoint(dash, 0);
    sheet.ForeColor = Cut_Line;
    sheet.LineWidth = 8;
    for (; from.x() <= to.x() && from.y() <= to.y(); from += 2 * step)
        sheet.DrawLine(from.x(), from.y(), from.x() + step.x(), from.y() + step.y());
    sheet.ForeColor = Qt::black;
}

// They reach a little beyond the cards, where the scissors begin.
void Draw_Cut_Lines(ViewPro& sheet, int rows) {
    constexpr int beyond = 170;
    const int right = Cards_Left + Across * Card_Width;
    const int bottom = Cards_Top + rows * Card_Height;
    for (int x = Cards_Left; x <= right; x += Card_Width)
        Draw_Dashes(sheet, {x, Cards_Top - beyond}, {x, bottom + beyond - 1});
    for (int y = Cards_Top; y <= bottom; y += Card_Height)
        Draw_Dashes(sheet, {Cards_Left - beyond, y}, {right + beyond - 1, y});
}

// What is to be typed stands in a frame, beside what it is.
QRect Draw_Entry(ViewPro& sheet, const QRect& place, const QString& caption) {
    constexpr int caption_width = 1180;
    sheet.FontBold = false;
    sheet.TextAlign = 0;
    sheet.ForeColor = Quiet_Ink;
    printing::Draw_Fitted(sheet, {place.x(), place.y(), caption_width - 60, place.height()}, caption,
                          {11, 9});
    const QRect frame = place.adjusted(caption_width, 0, 0, 0);
    sheet.LineWidth = 12;
    sheet.DrawRectangle2(frame.x(), frame.y(), frame.width(), frame.height());
    sheet.FontBold = true;
    sheet.TextAlign = 1;
    sheet.ForeColor = Ink;
    return frame.adjusted(90, 0, -90, 0);
}

void Draw_Password(ViewPro& sheet, const QRect& place, const Login& login) {
    if (login.by_birthday || login.password.isEmpty())
        printing::Draw_Fitted(sheet, place, login.by_birthday ? u"your birthday"_s : Without_Password,
                              {18, 9});
    else
        Draw_Code(sheet, place, login.password, {20, 8});
}

// The forename is what a child knows to read; one without it has the surname there.
void Draw_Name(ViewPro& sheet, const QRect& card, const Login& login) {
    const QString large = login.forename.isEmpty() ? login.surname : login.forename;
    const QString small = login.forename.isEmpty() ? QString() : login.surname;
    sheet.TextAlign = 1;
    sheet.ForeColor = Ink;
    sheet.FontBold = true;
    printing::Draw_Fitted(sheet, {card.x() + 200, card.y() + 640, card.width() - 400, 820}, large,
                          {34, 10, 2});
    sheet.FontBold = false;
    printing::Draw_Fitted(sheet, {card.x() + 200, card.y() + 1440, card.width() - 400, 460}, small,
                          {18, 8, 2});
}

void Draw_Card(ViewPro& sheet, const QPoint& corner, const Login& login, const QString& school) {
    sheet.Bookmark(login.surname + u' ' + login.forename);
    const QRect card(corner, QSize(Card_Width, Card_Height));
    const QRect band(card.x() + 150, card.y() + 150, card.width() - 300, 430);
    printing::Fill(sheet, band, Soft_Ground);
    sheet.TextAlign = 1;
    sheet.ForeColor = Ink;
    sheet.FontBold = true;
    printing::Draw_Fitted(sheet, band.adjusted(100, 0, -100, 0), school, {11, 7, 2});
    Draw_Name(sheet, card, login);
    const auto entry = [&](int top) {
        return QRect(card.x() + 240, card.y() + top, card.width() - 480, 640);
    };
    Draw_Code(sheet, Draw_Entry(sheet, entry(2080), u"User ID"_s), login.user_id, {20, 8});
    Draw_Password(sheet, Draw_Entry(sheet, entry(2870), u"Password"_s), login);
    sheet.ForeColor = Qt::black;
}

void Draw_Cards_Of(const Class_Logins& logins, const QString& school, ViewPro& sheet) {
    constexpr int on_a_sheet = Across * Down;
    const int count = static_cast<int>(logins.pupils.size());
    for (int number = 0; number < count; ++number) {
        const int place = number % on_a_sheet;
        if (place == 0 && number > 0) sheet.NewPage();
        if (place == 0) {
            const int here = std::min(count - number, on_a_sheet);
            Draw_Cut_Lines(sheet, (here + Across - 1) / Across);
        }
        Draw_Card(sheet, {Cards_Left + place % Across * Card_Width, Cards_Top + place / Across * Card_Height},
                  logins.pupils[number], school);
    }
}

// ---- the class sheet; twips from the corner of the margins

constexpr int Body_Width = 10466;
constexpr int Body_Bottom = 14750;
constexpr int Row_Height = 400;

struct Class_Column {
    QString heading;
    int width;
};

const Class_Column Columns[] = {
    {u"Name"_s, 4000}, {u"User ID"_s, 2300}, {u"Password"_s, 2966}, {u"Login List"_s, 1200}};

class Class_Sheet {
public:
    Class_Sheet(const Class_Logins& logins, const QString& today, ViewPro& sheet)
        : logins(logins), today(today), sheet(sheet) {}

    void Draw() {
        Draw_Head();
        for (qsizetype number = 0; number < logins.pupils.size(); ++number) {
            if (top + Row_Height > Body_Bottom) {
                sheet.NewPage();
                Draw_Head();
            }
            Draw_Row(logins.pupils[number], number % 2 == 1);
        }
    }

private:
    QString Who_Is_On_The_List() const {
        const auto off = std::count_if(logins.pupils.begin(), logins.pupils.end(),
                                       [](const Login& one) { return !one.on_list; });
        const QString group = logins.on_list ? QString() : u"The group isn't shown in the Login List. "_s;
        if (off == 0) return group + u"All pupils below are shown in the Login List."_s;
        return group + u"Pupils below who aren't shown in the Login List: %1."_s.arg(off);
    }

    void Draw_Head() {
        printing::Draw_Centred(sheet, 0, 10000, 14, u"Logins: "_s + logins.group);
        sheet.TextAlign = 0;
        sheet.FontSize = 9;
        sheet.FontBold = false;
        sheet.DrawText(0, 480,
                       u"Date printed: "_s + today + u". Keep this sheet safe: it holds passwords."_s);
        sheet.DrawText(0, 710, Who_Is_On_The_List());
        top = 1000;
        printing::Fill(sheet, {0, top, Body_Width, Row_Height}, Soft_Ground);
        sheet.FontBold = true;
        for (const auto& [heading, width] : Columns)
            printing::Draw_Fitted(sheet, Next_Cell(width), heading, {10, 8});
        End_Row();
    }

    void Draw_Row(const Login& login, bool striped) {
        if (striped) printing::Fill(sheet, {0, top, Body_Width, Row_Height}, Striped);
        printing::Draw_Fitted(sheet, Next_Cell(Columns[0].width),
                              (login.surname + u' ' + login.forename).trimmed(), {11, 6, 2});
        Draw_Code(sheet, Next_Cell(Columns[1].width), login.user_id, {11, 6});
        const QRect place = Next_Cell(Columns[2].width);
        if (login.by_birthday)
            printing::Draw_Fitted(sheet, place, u"birthday, "_s + login.born, {11, 6});
        else if (login.password.isEmpty())
            printing::Draw_Fitted(sheet, place, Without_Password, {11, 6});
        else
            Draw_Code(sheet, place, login.password, {11, 5});
        printing::Draw_Fitted(sheet, Next_Cell(Columns[3].width), login.on_list ? u"Yes"_s : u"No"_s,
                              {11, 6});
        End_Row();
    }

    QRect Next_Cell(int width) {
        constexpr int padding = 80;
        const QRect cell(left + padding, top, width - 2 * padding, Row_Height);
        left += width;
        return cell;
    }

    void End_Row() {
        left = 0;
        sheet.LineWidth = 5;
        for (const int edge : {top, top + Row_Height})
            sheet.DrawLine(0, edge, Body_Width, edge);
        top += Row_Height;
        sheet.FontBold = false;
    }

    const Class_Logins& logins;
    const QString& today;
    ViewPro& sheet;
    int top = 0;
    int left = 0; // of the next cell
};

void Draw_Nobody(const Class_Logins& logins, ViewPro& sheet) {
    printing::Draw_Centred(sheet, 1200, 8640, 12,
                           u"There are no pupils in the group "_s + logins.group + u'.');
}

} // namespace

void Draw_Login_Cards(const QList<Class_Logins>& classes, const QString& school, ViewPro& sheet) {
    printing::Set_Up_Sheet(sheet, 0);
    sheet.Keep_To_Margins = false;
    sheet.BeginOutput();
    bool first = true;
    for (const Class_Logins& logins : classes) {
        if (!std::exchange(first, false)) sheet.NewPage();
        printing::Draw_Running_Texts(sheet, {},
                                     u"Cut along the dashed lines.|"_s + printing::Cell(logins.group) + u'|');
        if (logins.pupils.isEmpty()) Draw_Nobody(logins, sheet);
        Draw_Cards_Of(logins, school, sheet);
    }
    sheet.EndOutput();
}

void Draw_Class_Sheets(const QList<Class_Logins>& classes, const QString& school, const desktop::Clock& clock,
                       ViewPro& sheet) {
    const QString today = printing::Today(clock);
    printing::Set_Up_Sheet(sheet, 0);
    sheet.Keep_To_Margins = true;
    sheet.BeginOutput();
    printing::Draw_Running_Texts(sheet, u'|' + printing::Cell(school) + u'|',
                                 u'|' + printing::Short_Product_Line() + u'|');
    bool first = true;
    for (const Class_Logins& logins : classes) {
        if (!std::exchange(first, false)) sheet.NewPage();
        if (logins.pupils.isEmpty())
            Draw_Nobody(logins, sheet);
        else
            Class_Sheet(logins, today, sheet).Draw();
    }
    sheet.EndOutput();
}

} // namespace pupils
