#include "platform/preview/preview_window.h"

#include "platform/basics/code_page.h"
#include "platform/desktop/qt_printers.h"
#include "platform/preview/page_copy.h"
#include "platform/preview/painters.h"
#include "platform/preview/text_metrics.h"
#include "platform/preview/view_pro.h"
#include "support/printing.h"
#include "support/scripted_platform.h"

#include <QDataStream>
#include <QPainter>
#include <QProcess>
#include <QRegularExpression>
#include <QScrollBar>
#include <QStandardPaths>
#include <QSvgRenderer>
#include <QTemporaryDir>
#include <QTest>
#include <gtest/gtest.h>
#include <numeric>

using namespace Qt::StringLiterals;
using preview::Drawing;
using preview::Line_Operation;
using preview::Rectangle_Operation;
using preview::Text_Operation;
using preview::Text_Style;
using preview::ViewPro;

namespace {

constexpr double Twips_Per_Inch = 1440;

template<class Kind>
std::vector<Kind> All(const Drawing& drawing) {
    std::vector<Kind> found;
    for (const preview::Operation& operation : drawing.operations)
        if (const auto* one = std::get_if<Kind>(&operation)) found.push_back(*one);
    return found;
}

QStringList Lines_On(const Drawing& drawing) {
    QStringList lines;
    for (const Text_Operation& text : All<Text_Operation>(drawing))
        lines.append(text.text);
    return lines;
}

Text_Operation The_Text(const Drawing& drawing, const QString& wanted) {
    for (const Text_Operation& text : All<Text_Operation>(drawing))
        if (text.text == wanted) return text;
    throw std::runtime_error("no text " + wanted.toStdString() + " among " +
                             Lines_On(drawing).join(u" / "_s).toStdString());
}

double Width_Of(const Text_Operation& text) {
    return preview::Text_Width(text.style, text.text) * text.squeeze;
}

ViewPro New_Page() {
    ViewPro page;
    page.Set_PageMargins(720, 720, 720, 1080);
    page.BeginOutput();
    return page;
}

// ---- pictures

QImage Picture_Of_Part(const Drawing& drawing, const QRect& twips, double twips_per_pixel) {
    QImage picture(int(twips.width() / twips_per_pixel), int(twips.height() / twips_per_pixel),
                   QImage::Format_RGB32);
    picture.fill(Qt::white);
    QPainter painter(&picture);
    painter.scale(1 / twips_per_pixel, 1 / twips_per_pixel);
    painter.translate(-twips.topLeft());
    preview::Paint(drawing, painter);
    return picture;
}

bool Dark(const QImage& picture, int x, int y) {
    return qGray(picture.pixel(x, y)) < 128;
}

QRect Ink(const QImage& picture) {
    QRect ink;
    for (int y = 0; y < picture.height(); ++y)
        for (int x = 0; x < picture.width(); ++x)
            if (Dark(picture, x, y)) ink |= QRect(x, y, 1, 1);
    return ink;
}

// The colours met along a row of pixels, each once as long as it lasts.
QStringList Colours_Along(const QImage& picture, int y) {
    QStringList colours;
    for (int x = 0; x < picture.width(); ++x) {
        const QString colour = picture.pixelColor(x, y).name();
        if (colours.isEmpty() || colours.last() != colour) colours.append(colour);
    }
    return colours;
}

// How much two pictures of a page differ in the darkness of their blocks: 0 for the same, 1 for black on
// white.
double Largest_Difference(const QImage& one, const QImage& other) {
    const QSize blocks(40, 56);
    const auto darkness = [&](const QImage& picture) {
        return picture.convertToFormat(QImage::Format_Grayscale8)
            .scaled(blocks, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    };
    const QImage first = darkness(one);
    const QImage second = darkness(other);
    double largest = 0;
    for (int y = 0; y < blocks.height(); ++y)
        for (int x = 0; x < blocks.width(); ++x)
            largest =
                std::max(largest, std::abs(qGray(first.pixel(x, y)) - qGray(second.pixel(x, y))) / 255.0);
    return largest;
}

QImage Painted_Svg(const QByteArray& svg, const QSize& size) {
    QSvgRenderer renderer(svg);
    QImage picture(size, QImage::Format_RGB32);
    picture.fill(Qt::white);
    QPainter painter(&picture);
    renderer.render(&painter, QRectF(QPointF(0, 0), QSizeF(size)));
    return picture;
}

// ---- what other programs make of a page

bool Missing(const QString& tool) {
    return QStandardPaths::findExecutable(tool).isEmpty();
}

QByteArray Output_Of(const QString& tool, const QStringList& arguments) {
    QProcess process;
    process.start(tool, arguments);
    if (!process.waitForFinished()) throw std::runtime_error(tool.toStdString() + " doesn't end");
    if (process.exitCode() != 0)
        throw std::runtime_error(tool.toStdString() + ": " + process.readAllStandardError().toStdString());
    return process.readAllStandardOutput();
}

struct Word {
    QString text;
    QRectF place; // twips
};

class Written_Pdf {
public:
    explicit Written_Pdf(const ViewPro& page) {
        desktop::Write_Pdf(page.Document(u"Report"_s, 1, page.PageCount()), file);
    }

    QList<Word> Words() const {
        const QString found = QString::fromUtf8(Output_Of(u"pdftotext"_s, {u"-bbox"_s, file, u"-"_s}));
        static const QRegularExpression word(
            u"<word xMin=\"([\\d.]+)\" yMin=\"([\\d.]+)\" xMax=\"([\\d.]+)\" yMax=\"([\\d.]+)\">(.*)</word>"_s);
        constexpr double twips_per_point = 20;
        QList<Word> words;
        for (const QRegularExpressionMatch& match : word.globalMatch(found)) {
            const auto edge = [&match](int number) {
                return match.captured(number).toDouble() * twips_per_point;
            };
            words.append({match.captured(5), QRectF(QPointF(edge(1), edge(2)), QPointF(edge(3), edge(4)))});
        }
        return words;
    }

    QStringList Font_Lines() const {
        return QString::fromUtf8(Output_Of(u"pdffonts"_s, {file})).split(u'\n', Qt::SkipEmptyParts).sliced(2);
    }

    QImage Picture(int dots_per_inch) const {
        const QString stem = folder.filePath(u"page"_s);
        Output_Of(u"pdftoppm"_s,
                  {u"-r"_s, QString::number(dots_per_inch), u"-png"_s, u"-singlefile"_s, file, stem});
        return QImage(stem + u".png"_s);
    }

private:
    QTemporaryDir folder;
    QString file = folder.filePath(u"report.pdf"_s);
};

// A page with something of everything that reports draw.
ViewPro Sample_Report() {
    ViewPro page = New_Page();
    page.FontSize = 16;
    page.FontBold = true;
    page.HeaderText(u"|Greyfriars Primary School|"_s);
    page.CurrentX = 913;
    page.CurrentY = 180;
    page.TextWidth = 8640;
    page.TextAlign = 1;
    page.FontSize = 12;
    page.Text(u"Summary Sheet and Cognitive Profile"_s);
    page.FontSize = 8;
    page.FontBold = false;
    page.TableBorders = 1;
    page.TableFormat = u"1440|720|1140"_s;
    page.ObjectBKColor = QColor(192, 192, 192);
    page.CurrentX = 792;
    page.CurrentY = 1512;
    page.TableText(u"Module|Score|Test date;Tolvens|12|12/05/2026;"_s);
    page.FillStyle = 1;
    page.FillColor = Qt::black;
    page.DrawRectangle2(1200, 4320, 8000, 250);
    page.FillColor = Qt::blue;
    page.DrawRectangle2(1680, 9320, 720, -2500);
    page.CurrentX = 1200;
    page.CurrentY = 4320;
    page.LineWidth = 15;
    page.DrawBoxTo(9200, 9320);
    page.TextAngle = 900;
    page.FontSize = 10;
    page.DrawText(400, 7000, u"Centiles"_s);
    page.TextAngle = 0;
    page.DrawLine(0, 11192, 10466, 11192);
    page.TextAlign = 0;
    page.CurrentX = 144;
    page.CurrentY = 11480;
    page.TextWidth = 10080;
    page.Paragraph(u"Worked with care and asked for a break towards the end of the session. "_s.repeated(6));
    page.EndOutput();
    return page;
}

} // namespace

// ---- measures

TEST(PreviewMeasures, AreTheSameAtEveryResolution) {
    ViewPro page = New_Page();
    page.FontSize = 9;
    page.DrawText(500, 500, u"Hamburgefonstiv 0123456789 H"_s);
    page.MeasureText(u"Hamburgefonstiv 0123456789 H"_s);
    EXPECT_GT(page.TextWidth, 2000);
    for (const int dots_per_inch : {72, 96, 300, 1200}) {
        SCOPED_TRACE(dots_per_inch);
        const double pixel = Twips_Per_Inch / dots_per_inch;
        const QRect ink = Ink(Picture_Of_Part(page.Page(1), QRect(0, 0, 4000, 1000), pixel));
        EXPECT_NEAR((ink.right() + 1) * pixel, 500 + page.TextWidth, pixel + 20);
        EXPECT_NEAR(ink.left() * pixel, 500, pixel + 20);
    }
}

TEST(PreviewMeasures, GrowWithTheFontSize) {
    ViewPro page;
    page.FontSize = 8;
    const int small_height = page.TextHeight();
    page.MeasureText(u"Centiles"_s);
    const int small_width = page.TextWidth;
    page.FontSize = 16;
    page.MeasureText(u"Centiles"_s);
    EXPECT_NEAR(page.TextWidth, 2 * small_width, 3);
    EXPECT_NEAR(page.TextHeight(), 2 * small_height, 2);
    EXPECT_NEAR(small_height, 8 * 20 * 1.15, 2) << "Arial's line is 1.15 of its size";
    page.MeasureText(u"Centiles "_s);
    EXPECT_NEAR(page.TextWidth, 2 * small_width + 16 * 20 * 0.278, 3) << "a blank behind a word counts";
}

// ---- text

TEST(PreviewText, StandsInItsBoxAndMovesDown) {
    ViewPro page = New_Page();
    page.CurrentX = 1000;
    page.CurrentY = 2000;
    page.TextWidth = 5000;
    page.TextAlign = 1;
    page.Text(u"Profile"_s);
    EXPECT_EQ(page.CurrentY, 2000 + page.TextHeight());
    page.TextAlign = 0;
    page.Text(u"Left"_s);
    const Text_Operation centred = The_Text(page.Page(1), u"Profile"_s);
    EXPECT_NEAR(centred.x + Width_Of(centred) / 2, 1000 + 5000 / 2.0, 1);
    EXPECT_EQ(centred.y, 2000);
    const Text_Operation left = The_Text(page.Page(1), u"Left"_s);
    EXPECT_EQ(left.x, 1000);
    EXPECT_EQ(left.y, 2000 + page.TextHeight());
}

TEST(PreviewText, ALittleTooWideStaysOnItsLine) {
    ViewPro page = New_Page();
    const QString title = u"Mevo multiple graphical profiles (Y-axis in Standard Deviation Units)"_s;
    page.MeasureText(title);
    page.CurrentX = 900;
    page.TextWidth = int(page.TextWidth * 0.97);
    const int room = page.TextWidth;
    page.Text(title);
    EXPECT_EQ(Lines_On(page.Page(1)), QStringList{title});
    EXPECT_LE(Width_Of(The_Text(page.Page(1), title)), room + 1);
    const QRect ink = Ink(Picture_Of_Part(page.Page(1), QRect(0, 0, page.PageWidth(), 1000), 5));
    EXPECT_NEAR((ink.right() + 1) * 5, 900 + room, 25);

    page.TextWidth = room / 2;
    page.CurrentY = 3000;
    page.Text(title);
    EXPECT_GE(All<Text_Operation>(page.Page(1)).size(), 3U);
    for (const Text_Operation& line : All<Text_Operation>(page.Page(1))) {
        if (line.y < 3000) continue;
        EXPECT_LE(Width_Of(line), room / 2 + 1) << line.text.toStdString();
    }
}

TEST(PreviewText, ParagraphFillsLinesOfAnyWidthAndBreaksAtBlanks) {
    const QString comment =
        u"Élodie was tired towards the end of the session and asked for a break. "_s.repeated(3);
    for (int width = 1500; width < 6000; width += 25) {
        SCOPED_TRACE(width);
        ViewPro page = New_Page();
        page.TextWidth = width;
        page.CurrentX = 144;
        page.CurrentY = 11480;
        page.Paragraph(comment);
        ASSERT_EQ(Lines_On(page.Page(1)).join(u' '), comment.trimmed()) << "no word is broken";
        const auto lines = All<Text_Operation>(page.Page(1));
        ASSERT_GE(lines.size(), 2U);
        for (size_t line = 0; line < lines.size(); ++line) {
            ASSERT_LE(Width_Of(lines[line]), width);
            ASSERT_EQ(lines[line].squeeze, 1) << "it is broken, not set narrower";
            ASSERT_EQ(QPoint(lines[line].x, lines[line].y),
                      QPoint(144, 11480 + int(line) * page.TextHeight()));
            if (line == 0) continue;
            const QString longer = lines[line - 1].text + u' ' + lines[line].text.section(u' ', 0, 0);
            ASSERT_GT(preview::Text_Width(lines[line].style, longer), width) << longer.toStdString();
        }
        ASSERT_EQ(page.CurrentY, 11480 + int(lines.size()) * page.TextHeight());
    }
}

TEST(PreviewText, ParagraphKeepsLineBreaksAndBreaksLongWords) {
    ViewPro page = New_Page();
    page.TextWidth = 3000;
    page.CurrentY = 0;
    page.Paragraph(u"One\r\n\r\nThree\rFour"_s);
    EXPECT_EQ(Lines_On(page.Page(1)), (QStringList{u"One"_s, u"Three"_s, u"Four"_s}));
    EXPECT_EQ(The_Text(page.Page(1), u"Three"_s).y, 2 * page.TextHeight()) << "an empty line takes its room";

    ViewPro other = New_Page();
    other.TextWidth = 3000;
    const QString word = QString(200, u'w') + QString(200, u'é');
    other.Paragraph(u"A "_s + word + u" B"_s);
    for (const Text_Operation& line : All<Text_Operation>(other.Page(1))) {
        EXPECT_LE(Width_Of(line), 3000);
        EXPECT_EQ(line.squeeze, 1);
    }
    EXPECT_EQ(Lines_On(other.Page(1)).join(QString()).remove(u' '), u'A' + word + u'B');
}

TEST(PreviewText, TurnedTextReadsUpwardsFromItsPlace) {
    ViewPro page = New_Page();
    page.FontSize = 20;
    page.TextAngle = 900;
    page.DrawText(1000, 3000, u"W......"_s); // its ink is at its beginning
    page.MeasureText(u"W......"_s);
    constexpr int pixel = 5;
    const QImage picture = Picture_Of_Part(page.Page(1), QRect(0, 0, 3000, 4000), pixel);
    const QRect ink = Ink(picture);
    EXPECT_GE(ink.left() * pixel, 1000);
    EXPECT_LE(ink.right() * pixel, 1000 + page.TextHeight());
    EXPECT_NEAR(ink.bottom() * pixel, 3000, 40);
    EXPECT_NEAR(ink.top() * pixel, 3000 - page.TextWidth, 40);
    int widest_row = 0;
    int widest_ink = 0;
    for (int y = ink.top(); y <= ink.bottom(); ++y) {
        const QRect row = Ink(picture.copy(0, y, picture.width(), 1));
        if (row.width() > widest_ink) widest_row = y;
        widest_ink = std::max(widest_ink, row.width());
    }
    EXPECT_GT(widest_row, ink.center().y()) << "the tall letter comes first, at the bottom";
}

// ---- lines and rectangles

// A bar over a grey band: nothing of the band may show between the frame and the colour.
TEST(PreviewRectangles, ABarIsABlackFrameAroundItsColour) {
    for (const int height : {2000, -2000}) {
        SCOPED_TRACE(height);
        ViewPro page = New_Page();
        page.LineWidth = 15;
        page.FillStyle = 1;
        page.FillColor = page.ForeColor = QColor(128, 128, 128);
        page.DrawRectangle2(0, 0, 3000, 6000);
        page.ObjectBKColor = Qt::red;
        page.ForeColor = page.FillColor = Qt::black;
        page.FillStyle = 0;
        page.DrawRectangle2(1000, 3000, 360, height);
        page.FillStyle = 1;
        page.ForeColor = page.FillColor = Qt::red;
        const int inwards = height > 0 ? 20 : -20;
        page.DrawRectangle2(1020, 3000 + inwards, 320, height - 2 * inwards);
        const QImage picture = Picture_Of_Part(page.Page(1), QRect(0, 3000 + height / 2, 2000, 100), 5);
        EXPECT_EQ(Colours_Along(picture, 10),
                  (QStringList{u"#808080"_s, u"#000000"_s, u"#ff0000"_s, u"#000000"_s, u"#808080"_s}));
    }
}

TEST(PreviewRectangles, AFilledOneEndsWhereItIsTold) {
    ViewPro page = New_Page();
    page.LineWidth = 15;
    page.FillStyle = 1;
    page.FillColor = Qt::black;
    page.DrawRectangle2(200, 200, 500, 300);
    const QRect ink = Ink(Picture_Of_Part(page.Page(1), QRect(0, 0, 1000, 1000), 1));
    EXPECT_EQ(ink, QRect(200, 200, 500, 300));
}

TEST(PreviewRectangles, ABoxIsOnlyItsOutline) {
    ViewPro page = New_Page();
    page.FillStyle = 1;
    page.FillColor = Qt::blue;
    page.DrawRectangle2(0, 0, 1000, 1000);
    page.FillStyle = 0;
    page.ObjectBKColor = Qt::white;
    page.CurrentX = 800;
    page.CurrentY = 800;
    page.DrawBoxTo(200, 200);
    const QImage picture = Picture_Of_Part(page.Page(1), QRect(0, 0, 1000, 1000), 5);
    EXPECT_EQ(Colours_Along(picture, 100),
              (QStringList{u"#0000ff"_s, u"#000000"_s, u"#0000ff"_s, u"#000000"_s, u"#0000ff"_s}));
    EXPECT_EQ(page.CurrentX, 800);
}

// ---- tables

TEST(PreviewTables, CellsStandInTheirColumnsAndRows) {
    ViewPro page = New_Page();
    page.CurrentX = 500;
    page.CurrentY = 1000;
    page.CellPadding = 90;
    page.RowPadding = 30;
    page.TableBorders = 1;
    page.TableFormat = u"1440|720|900"_s;
    page.TableText(u"a|b|c;d||f;"_s);
    const int row_height = page.TextHeight() + 2 * 30;
    const std::tuple<QString, int, int> cells[] = {
        {u"a"_s, 500, 0}, {u"b"_s, 1940, 0}, {u"c"_s, 2660, 0}, {u"d"_s, 500, 1}, {u"f"_s, 2660, 1}};
    for (const auto& [text, left, row] : cells) {
        SCOPED_TRACE(text.toStdString());
        EXPECT_EQ(The_Text(page.Page(1), text).x, left + 90);
        EXPECT_EQ(The_Text(page.Page(1), text).y, 1000 + row * row_height + 30);
    }
    EXPECT_EQ(page.CurrentY, 1000 + 2 * row_height);
    EXPECT_EQ(page.CurrentX, 500);

    QRect frame;
    for (const Line_Operation& line : All<Line_Operation>(page.Page(1)))
        frame |= QRect(QPoint(line.x1, line.y1), QPoint(line.x2, line.y2));
    EXPECT_EQ(frame, QRect(QPoint(500, 1000), QPoint(3560, 1000 + 2 * row_height)));
    EXPECT_EQ(All<Line_Operation>(page.Page(1)).size(), 3U + 4U);
}

TEST(PreviewTables, WithoutBordersThereIsOnlyTextAndWithoutRowsNothing) {
    ViewPro page = New_Page();
    int hooks = 0;
    page.Before_Cell = [&hooks](int) { ++hooks; };
    page.TableBorders = 1;
    page.TableFormat = u"1440|720"_s;
    const int top = page.CurrentY;
    page.TableTextHooked(u""_s);
    EXPECT_EQ(page.CurrentY, top);
    EXPECT_EQ(hooks, 0);
    page.TableBorders = 0;
    page.ObjectBKColor = QColor(148, 240, 240);
    page.TextAlign = 1;
    page.TableText(u"a|b;"_s);
    EXPECT_EQ(page.Page(1).operations.size(), 2U);
    const Text_Operation b = The_Text(page.Page(1), u"b"_s);
    EXPECT_NEAR(b.x + Width_Of(b) / 2, 1440 + 360, 1);
}

// The rows of the score table must end above the note that stands 160 twips above the chart.
TEST(PreviewTables, AScoreTableFitsAboveItsChart) {
    ViewPro page = New_Page();
    page.FontSize = 8;
    page.CurrentX = 792;
    page.CurrentY = 1512;
    page.TextAlign = 1;
    page.RowPadding = 30;
    page.TableBorders = 1;
    page.TableFormat = u"1440|720|720|720|840|720|720|840|1140|1020"_s;
    bool heading = false;
    page.Before_Cell = [&](int row) { page.FontBold = heading = row == 1; };
    const QString row =
        u" Blik's Letter Names| 12| 50| 100| -0.25| 1234.56| 45| 0.10| 12/05/2026| 7 yrs 3 mths;"_s;
    page.TableTextHooked(
        u"Module|Score|Centile|Std score|Z Score|Time (sec)|Time Centile|Time ZScore|Test date|Test age;"_s +
        row.repeated(9));
    EXPECT_LE(page.CurrentY, 4160);
    EXPECT_EQ(The_Text(page.Page(1), u"Time"_s).y + page.TextHeight(), The_Text(page.Page(1), u"(sec)"_s).y);
    const int edges[] = {792, 2232, 2952, 3672, 4392, 5232, 5952, 6672, 7512, 8652, 9672};
    for (const Text_Operation& text : All<Text_Operation>(page.Page(1))) {
        SCOPED_TRACE(text.text.toStdString());
        const int* right = std::upper_bound(std::begin(edges), std::end(edges), text.x);
        EXPECT_GT(text.x, *(right - 1));
        EXPECT_LT(text.x + Width_Of(text), *right);
    }
}

// A label stands above a small chart, which would hide a second line.
TEST(PreviewTables, WhatIsTooLongForItsCellIsCutOrSetNarrower) {
    const QString name = u"Wolfeschlegelsteinhausen, Bartholomew"_s;
    for (const auto& [borders, text] : {std::pair{0, QString(60, u'W')}, {1, QString(60, u'W')}, {0, name}}) {
        SCOPED_TRACE(text.toStdString() + std::to_string(borders));
        ViewPro page = New_Page();
        page.FontSize = 6;
        page.CellPadding = 14;
        page.TableBorders = borders;
        page.TableFormat = u"1720|1720"_s;
        const int top = page.CurrentY;
        page.TableText(text + u"|DOB: 12/03/2019;"_s);
        const auto texts = All<Text_Operation>(page.Page(1));
        ASSERT_EQ(texts.size(), 2U);
        EXPECT_LE(texts[0].x + Width_Of(texts[0]), 1720);
        EXPECT_EQ(texts[0].squeeze < 1, text == name);
        if (text == name)
            EXPECT_EQ(texts[0].text, name);
        else
            EXPECT_TRUE(texts[0].text.startsWith(u"WWWW"_s) && texts[0].text.endsWith(QChar(0x2026)));
        EXPECT_EQ(page.CurrentY, top + page.TextHeight() + 2 * page.RowPadding);
    }
}

TEST(PreviewTables, HooksComeAroundEachCellAndHoldForIt) {
    ViewPro page = New_Page();
    page.TableBorders = 1;
    page.TableFormat = u"900|900"_s;
    QStringList calls;
    QColor saved_ground;
    page.Before_Cell = [&](int row) {
        calls.append(u"before %1"_s.arg(row));
        saved_ground = page.ObjectBKColor;
        if (row == 1) page.ObjectBKColor = QColor(192, 192, 192);
        page.FontBold = row == 1;
    };
    page.After_Cell = [&](int row) {
        calls.append(u"after %1"_s.arg(row));
        page.ObjectBKColor = saved_ground;
        page.FontBold = false;
    };
    page.TableText(u"plain|x;"_s);
    EXPECT_TRUE(calls.isEmpty());
    page.TableTextHooked(u"head|y;row|z;"_s);
    EXPECT_EQ(calls, (QStringList{u"before 1"_s, u"after 1"_s, u"before 1"_s, u"after 1"_s, u"before 2"_s,
                                  u"after 2"_s, u"before 2"_s, u"after 2"_s}));
    const std::pair<QString, bool> shaded[] = {{u"plain"_s, false}, {u"head"_s, true}, {u"row"_s, false}};
    for (const auto& [text, bold] : shaded)
        EXPECT_EQ(The_Text(page.Page(1), text).style.bold, bold) << text.toStdString();
    QStringList grounds;
    for (const Rectangle_Operation& ground : All<Rectangle_Operation>(page.Page(1)))
        grounds.append(ground.fill.value_or(Qt::black).name());
    EXPECT_EQ(grounds, (QStringList{u"#ffffff"_s, u"#ffffff"_s, u"#c0c0c0"_s, u"#c0c0c0"_s, u"#ffffff"_s,
                                    u"#ffffff"_s}));
}

// ---- the document

TEST(PreviewDocument, OnlyTheOutermostBeginStartsAnew) {
    ViewPro page = New_Page();
    page.HeaderText(u"|Old School|"_s);
    page.DrawText(100, 1500, u"first"_s);
    page.BeginOutput();
    page.DrawText(100, 2000, u"inner"_s);
    page.EndOutput();
    page.NewPage();
    page.DrawText(100, 1500, u"second"_s);
    page.EndOutput();
    ASSERT_EQ(page.PageCount(), 2);
    EXPECT_EQ(Lines_On(page.Page(1)), (QStringList{u"first"_s, u"inner"_s, u"Old School"_s}));
    EXPECT_EQ(Lines_On(page.Page(2)), (QStringList{u"second"_s, u"Old School"_s}));

    page.BeginOutput();
    page.DrawText(100, 1500, u"again"_s);
    page.EndOutput();
    ASSERT_EQ(page.PageCount(), 1);
    EXPECT_EQ(Lines_On(page.Page(1)), QStringList{u"again"_s});
}

TEST(PreviewDocument, RunningTextsStandInTheMarginsOfTheirPage) {
    ViewPro page = New_Page();
    page.FontSize = 16;
    page.FontBold = true;
    page.HeaderText(u"|Greyfriars|"_s);
    for (const int number : {1, 2}) {
        page.FontSize = 9;
        page.FontBold = false;
        page.FooterText(u"Left|A product line of some length|Page %1"_s.arg(number));
        if (number == 1) page.NewPage();
    }
    page.EndOutput();
    for (const int number : {1, 2}) {
        SCOPED_TRACE(number);
        const Text_Operation head = The_Text(page.Page(number), u"Greyfriars"_s);
        EXPECT_EQ(head.style, (Text_Style{16, true}));
        EXPECT_GT(head.y, 0);
        EXPECT_LT(head.y + preview::Line_Height(head.style), 1080);
        EXPECT_NEAR(head.x + Width_Of(head) / 2, page.PageWidth() / 2.0, 1);
        const Text_Operation last = The_Text(page.Page(number), u"Page %1"_s.arg(number));
        EXPECT_GT(last.y, page.PageHeight() - 720);
        EXPECT_LT(last.y + preview::Line_Height(last.style), page.PageHeight());
        EXPECT_NEAR(last.x + Width_Of(last), page.PageWidth() - 720, 1);
        EXPECT_EQ(The_Text(page.Page(number), u"Left"_s).x, 720);
    }
}

// Report pages write their own titles into the top margin, each page elsewhere.
TEST(PreviewDocument, TheHeadTouchesNoOtherText) {
    struct Title {
        int y;
        int font_size;
        bool bold;
        bool centred;
        QString text;
    };
    const QList<Title> single{
        {180, 12, true, true, u"Individual Mevo Summary Sheet and Cognitive Profile"_s},
        {520, 10, true, true, u"Georgina Featherstonehaugh"_s},
        {1014, 9, false, false, u"ID: GFEA12345678       D.O.B: 12/03/2019     Date"_s}};
    const QList<Title> batch{
        {72, 9, true, true, u"Mevo multiple graphical profiles. Printed on: 15/06/2026"_s},
        {312, 8, true, true, u"Class or Group represented is: ALL"_s},
        {480, 6, false, false, u"Trm - Tests which were terminated early (Tolvens or B)"_s},
        {850, 6, false, false, QString(400, u'|')}};
    for (const QList<Title>& titles : {single, batch}) {
        SCOPED_TRACE(titles.first().text.toStdString());
        ViewPro page = New_Page();
        page.FontSize = 16;
        page.FontBold = true;
        const QString school = u"Greyfriars Primary School, Long Eaton"_s;
        page.HeaderText(u'|' + school + u'|');
        for (const Title& title : titles) {
            page.FontSize = title.font_size;
            page.FontBold = title.bold;
            page.TextAlign = title.centred ? 1 : 0;
            page.CurrentX = title.centred ? 913 : 500;
            page.CurrentY = title.y;
            page.TextWidth = title.centred ? 8640 : 11000;
            page.Text(title.text);
        }
        page.EndOutput();
        Drawing head = page.Page(1);
        head.operations = {The_Text(page.Page(1), school)};
        Drawing others = page.Page(1);
        others.operations.pop_back();
        const QRect margin(0, 0, page.PageWidth(), 1300);
        const QImage head_ink = Picture_Of_Part(head, margin, 5);
        const QImage other_ink = Picture_Of_Part(others, margin, 5);
        int touching = 0;
        for (int y = 0; y < head_ink.height(); ++y)
            for (int x = 0; x < head_ink.width(); ++x)
                touching += Dark(head_ink, x, y) && Dark(other_ink, x, y);
        EXPECT_EQ(touching, 0);
        EXPECT_LT(Ink(head_ink).bottom() * 5, 1080);
    }
}

TEST(PreviewDocument, KeepsItsPagesWhileItIsPrinted) {
    ViewPro page = New_Page();
    for (const QString& text : {u"one"_s, u"two"_s, u"three"_s}) {
        page.FontSize = 40;
        page.DrawText(1000, 2000, text);
        if (text != u"three"_s) page.NewPage();
    }
    page.EndOutput();
    const desktop::Printed_Document last_two = page.Document(u"Batch"_s, 2, 9);
    EXPECT_EQ(last_two.pages, 2);
    EXPECT_EQ(page.Document(u"Batch"_s, 4, 9).pages, 0);
    const QImage second = preview::Picture_Of(page.Page(2), 96);
    page.BeginOutput();
    page.EndOutput();
    QImage printed(second.size(), QImage::Format_RGB32);
    printed.fill(Qt::white);
    QPainter painter(&printed);
    painter.scale(96 / Twips_Per_Inch, 96 / Twips_Per_Inch);
    last_two.paint(painter, 1);
    painter.end();
    EXPECT_FALSE(Ink(printed).isEmpty());
    EXPECT_EQ(Ink(printed), Ink(second));
}

// ---- what other programs read

TEST(PreviewPdf, HoldsEachTextWhereItsTwipsSay) {
    if (Missing(u"pdftotext"_s)) GTEST_SKIP() << "pdftotext isn't installed";
    ViewPro page = New_Page();
    struct Placed {
        QString text;
        int x;
        int y;
        int font_size;
        bool bold;
    };
    const Placed texts[] = {{u"Excellent"_s, 9290, 4353, 8, false}, {u"Tolvens"_s, 1640, 9680, 7, true},
                            {u"Accuracy"_s, 440, 9560, 8, true},    {u"Trm"_s, 500, 480, 6, false},
                            {u"Profile"_s, 72, 72, 24, true},       {u"comments"_s, 144, 16000, 10, false}};
    for (const Placed& placed : texts) {
        page.FontSize = placed.font_size;
        page.FontBold = placed.bold;
        page.DrawText(placed.x, placed.y, placed.text);
    }
    page.EndOutput();
    const QList<Word> words = Written_Pdf(page).Words();
    ASSERT_EQ(words.size(), qsizetype(std::size(texts)));
    for (const Placed& placed : texts) {
        SCOPED_TRACE(placed.text.toStdString());
        const auto word = std::find_if(words.begin(), words.end(),
                                       [&placed](const Word& one) { return one.text == placed.text; });
        ASSERT_NE(word, words.end());
        EXPECT_NEAR(word->place.left(), placed.x, 4);
        EXPECT_NEAR(word->place.top(), placed.y, 4 + placed.font_size * 20 * 0.02);
        EXPECT_NEAR(word->place.width(), preview::Text_Width({placed.font_size, placed.bold}, placed.text),
                    4);
    }
}

TEST(PreviewPdf, EmbedsArialOrItsMetricTwin) {
    if (Missing(u"pdffonts"_s)) GTEST_SKIP() << "pdffonts isn't installed";
    const QStringList fonts = Written_Pdf(Sample_Report()).Font_Lines();
    EXPECT_EQ(fonts.size(), 2) << "a plain and a bold one";
    for (const QString& font : fonts) {
        EXPECT_TRUE(font.contains(u"Arial"_s) || font.contains(u"LiberationSans"_s)) << font.toStdString();
        static const QRegularExpression embedded(u"Identity-H +yes|WinAnsi +yes|Custom +yes"_s);
        EXPECT_TRUE(font.contains(embedded)) << font.toStdString();
    }
}

TEST(PreviewCopies, LookLikeThePdf) {
    if (Missing(u"pdftoppm"_s) || Missing(u"wmf2svg"_s))
        GTEST_SKIP() << "pdftoppm or wmf2svg isn't installed";
    const ViewPro report = Sample_Report();
    const QImage pdf = Written_Pdf(report).Picture(96);
    const desktop::Page_Copy copy = preview::Copy_Of(report.Page(1));
    QTemporaryDir folder;
    QFile file(folder.filePath(u"page.wmf"_s));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(copy.wmf);
    file.close();
    const QByteArray metafile = Output_Of(u"wmf2svg"_s, {file.fileName()});
    EXPECT_LT(Largest_Difference(pdf, copy.picture), 0.1) << "the picture";
    EXPECT_LT(Largest_Difference(pdf, Painted_Svg(copy.svg, pdf.size())), 0.1) << "the SVG";
    EXPECT_LT(Largest_Difference(pdf, Painted_Svg(metafile, pdf.size())), 0.2) << "the metafile";
    EXPECT_NEAR(copy.picture.width() / (copy.picture.dotsPerMeterX() / 1000.0), 210, 1) << "millimetres";
    QImage blank = pdf;
    blank.fill(Qt::white);
    EXPECT_GT(Largest_Difference(pdf, blank), 0.5) << "the measure itself";
}

// ---- the metafile's own form

namespace {

struct Wmf_Record {
    quint16 function;
    QByteArray parameters;
};

constexpr quint16 Wmf_Extended_Text = 0x0A32;
constexpr quint16 Wmf_Delete_Object = 0x01F0;
constexpr quint16 Wmf_Create_Font = 0x02FB;

bool Creates_Object(const Wmf_Record& record) {
    return record.function == 0x02FA || record.function == Wmf_Create_Font || record.function == 0x02FC;
}

qint16 Number_At(const QByteArray& bytes, int word) {
    return qint16(quint8(bytes[2 * word]) | quint8(bytes[2 * word + 1]) << 8);
}

QList<QByteArray> Of_Kind(const std::vector<Wmf_Record>& records, quint16 function) {
    QList<QByteArray> found;
    for (const Wmf_Record& one : records)
        if (one.function == function) found.append(one.parameters);
    return found;
}

// Reads a metafile by its header and its records, and checks what the header says of them.
std::vector<Wmf_Record> Records_Of(const QByteArray& wmf) {
    EXPECT_EQ(wmf.size() % 2, 0);
    QDataStream stream(wmf);
    stream.setByteOrder(QDataStream::LittleEndian);
    quint16 checksum = 0;
    for (int word = 0; word < 10; ++word)
        checksum ^= quint16(Number_At(wmf, word));
    EXPECT_EQ(checksum, quint16(Number_At(wmf, 10)));
    stream.skipRawData(22);
    quint16 type, header_words, version, objects, unused;
    quint32 file_words, longest;
    stream >> type >> header_words >> version >> file_words >> objects >> longest >> unused;
    EXPECT_EQ(type, 1);
    EXPECT_EQ(header_words, 9);
    EXPECT_EQ(version, 0x0300);
    EXPECT_EQ(int(file_words) * 2, wmf.size() - 22);
    std::vector<Wmf_Record> records;
    quint32 longest_met = 0;
    while (!stream.atEnd()) {
        quint32 words = 0;
        Wmf_Record record;
        stream >> words >> record.function;
        record.parameters.resize(qsizetype(words) * 2 - 6);
        stream.readRawData(record.parameters.data(), int(record.parameters.size()));
        EXPECT_EQ(stream.status(), QDataStream::Ok);
        if (stream.status() != QDataStream::Ok) break;
        longest_met = std::max(longest_met, words);
        records.push_back(record);
    }
    EXPECT_EQ(longest, longest_met);
    EXPECT_EQ(std::count_if(records.begin(), records.end(), Creates_Object), objects);
    EXPECT_EQ(int(Of_Kind(records, Wmf_Delete_Object).size()), objects);
    EXPECT_EQ(records.back().function, 0) << "the last record ends the file";
    return records;
}

} // namespace

TEST(PreviewMetafile, IsPlaceableAndWhole) {
    const QByteArray wmf = preview::Copy_Of(Sample_Report().Page(1)).wmf;
    EXPECT_TRUE(wmf.startsWith("\xD7\xCD\xC6\x9A"));
    EXPECT_EQ(Number_At(wmf, 5), 11906);
    EXPECT_EQ(Number_At(wmf, 6), 16838);
    EXPECT_EQ(Number_At(wmf, 7), 1440);
    EXPECT_GT(Records_Of(wmf).size(), 50U);
}

TEST(PreviewMetafile, SetsEachCharacterAtItsMeasuredPlace) {
    ViewPro page = New_Page();
    page.FontSize = 9;
    page.DrawText(3000, 4000, u"Zoë Włodarczyk – 7"_s);
    page.MeasureText(u"Zoë Włodarczyk – 7"_s);
    const auto texts = Of_Kind(Records_Of(preview::Copy_Of(page.Page(1)).wmf), Wmf_Extended_Text);
    ASSERT_EQ(texts.size(), 1);
    const QByteArray& parameters = texts[0];
    EXPECT_NEAR(Number_At(parameters, 0), 4000 + 9 * 20 * 0.905, 2) << "the baseline";
    EXPECT_EQ(Number_At(parameters, 1), 3000);
    const int length = Number_At(parameters, 2);
    ASSERT_EQ(length, 18);
    EXPECT_EQ(parameters.sliced(8, length), "Zo\xEB Wlodarczyk \x96 7");
    int steps = 0;
    for (int character = 0; character < length; ++character)
        steps += Number_At(parameters, 4 + length / 2 + character);
    EXPECT_NEAR(steps, page.TextWidth, 1);
}

TEST(PreviewMetafile, TurnsAFontToReadUpwards) {
    ViewPro page = New_Page();
    page.TextAngle = 900;
    page.DrawText(1000, 7000, u"Centiles"_s);
    const std::vector<Wmf_Record> records = Records_Of(preview::Copy_Of(page.Page(1)).wmf);
    const auto fonts = Of_Kind(records, Wmf_Create_Font);
    const auto texts = Of_Kind(records, Wmf_Extended_Text);
    ASSERT_TRUE(!fonts.isEmpty() && !texts.isEmpty());
    EXPECT_EQ(Number_At(fonts[0], 0), -200);
    EXPECT_EQ(Number_At(fonts[0], 2), 900);
    EXPECT_EQ(Number_At(fonts[0], 3), 900);
    EXPECT_EQ(Number_At(texts[0], 0), 7000);
    EXPECT_NEAR(Number_At(texts[0], 1), 1000 + 200 * 0.905, 2) << "the baseline";
}

TEST(PreviewMetafile, StaysWholeWithOddContent) {
    ViewPro page = New_Page();
    preview::Copy_Of(page.Page(1));
    Records_Of(preview::Copy_Of(page.Page(1)).wmf);
    page.DrawText(0, 0, QString(100000, u'x'));
    page.DrawText(1000000, -1000000, u"far"_s);
    page.DrawText(0, 0, QString(QChar(0x0301)));
    page.DrawText(0, 0, QString::fromUcs4(U"\U0001F600\u4E2D"));
    page.DrawLine(-1000000, 0, 1000000, 0);
    page.DrawRectangle2(0, 0, 0, -1000000);
    page.FontSize = 100000;
    page.DrawText(0, 0, u"huge"_s);
    page.FontSize = 0;
    page.DrawText(0, 0, u"none"_s);
    EXPECT_EQ(Of_Kind(Records_Of(preview::Copy_Of(page.Page(1)).wmf), Wmf_Extended_Text).size(), 5)
        << "all but the accent that has no letter";
}

TEST(PreviewMetafile, WritesTheNearestWesternLetter) {
    const std::pair<char32_t, QByteArray> cases[] = {{U'A', "A"},      {U'é', "\xE9"},
                                                     {U'€', "\x80"},   {U'’', "\x92"},
                                                     {U'ž', "\x9E"},   {U'ő', "o"},
                                                     {U'Ž', "\x8E"},   {U'ł', "l"},
                                                     {U'ș', "s"},      {U'ế', "\xEA"},
                                                     {U'中', "?"},     {U'\u2011', "-"},
                                                     {U'\t', " "},     {char32_t(0x0301), ""},
                                                     {U'\u037E', ";"}, {U'\u0081', "?"}};
    for (const auto& [character, bytes] : cases)
        EXPECT_EQ(basics::To_Code_Page_1252(character).toHex(), bytes.toHex())
            << "U+" << std::hex << int(character);
}

// ---- the window

namespace {

class PreviewWindow : public ::testing::Test {
protected:
    PreviewWindow() {
        window.resize(600, 500);
        window.show();
        for (const QString& text : {u"first"_s, u"second"_s}) {
            if (text == u"second"_s)
                document.NewPage();
            else
                document.BeginOutput();
            document.FillStyle = 1;
            document.FillColor = text == u"first"_s ? Qt::red : Qt::blue;
            document.DrawRectangle2(0, 0, document.PageWidth(), document.PageHeight());
            document.FontSize = 20;
            document.DrawText(1000, 1000, text);
        }
        document.EndOutput();
        document.ShowOutput();
    }

    // Where the sheet lies in the window, seen by its colour.
    QRect Sheet(const QColor& colour) {
        const QImage seen = window.viewport()->grab().toImage();
        QRect sheet;
        for (int y = 0; y < seen.height(); ++y)
            for (int x = 0; x < seen.width(); ++x)
                if (seen.pixelColor(x, y) == colour) sheet |= QRect(x, y, 1, 1);
        return sheet;
    }

    QPoint Scrolled() const {
        return {window.horizontalScrollBar()->value(), window.verticalScrollBar()->value()};
    }

    ViewPro document;
    test_support::Scripted_Platform scripted;
    preview::Preview_Window window{document, scripted.printers, scripted.clipboard};
};

} // namespace

TEST_F(PreviewWindow, ShowsTheSheetAtItsSize) {
    const double real_width = document.PageWidth() / Twips_Per_Inch * window.logicalDpiX();
    for (const int percent : {40, 67}) {
        SCOPED_TRACE(percent);
        window.resize(1200, 1200);
        window.Set_ZoomPercent(percent);
        EXPECT_NEAR(Sheet(Qt::red).width(), real_width * percent / 100, 1);
        EXPECT_NEAR(Sheet(Qt::red).center().x(), window.viewport()->width() / 2.0, 2);
    }
    window.resize(600, 500);
    window.Set_ZoomPercent(100);
    EXPECT_NEAR(window.horizontalScrollBar()->maximum() + window.viewport()->width(), real_width, 60);
}

TEST_F(PreviewWindow, ShowsOnePageAndKeepsItUntilTheNewOneIsShown) {
    window.Set_ZoomPercent(40);
    window.Set_ShownPage(2);
    EXPECT_FALSE(Sheet(Qt::blue).isEmpty());
    EXPECT_TRUE(Sheet(Qt::red).isEmpty());
    EXPECT_TRUE(window.accessibleDescription().contains(u"second"_s));
    window.Set_ShownPage(99);
    EXPECT_EQ(window.ShownPage(), 2);
    document.BeginOutput();
    document.FillColor = Qt::green;
    document.DrawRectangle2(0, 0, document.PageWidth(), document.PageHeight());
    document.EndOutput();
    EXPECT_FALSE(Sheet(Qt::blue).isEmpty());
    document.ShowOutput();
    EXPECT_FALSE(Sheet(Qt::green).isEmpty());
    EXPECT_EQ(window.ShownPage(), 1) << "the new document has one page only";
}

TEST_F(PreviewWindow, DoubleClickEnlargesAndComesBack) {
    window.Set_ZoomPercent(67);
    for (const int percent : {100, 150, 200, 67, 100}) {
        QTest::mouseDClick(window.viewport(), Qt::LeftButton, {}, QPoint(300, 250));
        EXPECT_EQ(window.ZoomPercent(), percent);
    }
}

TEST_F(PreviewWindow, DoubleClickKeepsWhatIsUnderIt) {
    window.Set_ZoomPercent(100);
    window.horizontalScrollBar()->setValue(100);
    window.verticalScrollBar()->setValue(300);
    const QPoint held(200, 150);
    const double x = (Scrolled().x() + held.x() - 18) / 100.0;
    const double y = (Scrolled().y() + held.y() - 18) / 100.0;
    QTest::mouseDClick(window.viewport(), Qt::LeftButton, {}, held);
    ASSERT_EQ(window.ZoomPercent(), 150);
    EXPECT_NEAR((Scrolled().x() + held.x() - 18) / 150.0, x, 0.03);
    EXPECT_NEAR((Scrolled().y() + held.y() - 18) / 150.0, y, 0.03);
}

TEST_F(PreviewWindow, TheMouseAndTheKeyboardReachAll) {
    window.Set_ZoomPercent(100);
    QTest::mousePress(window.viewport(), Qt::LeftButton, {}, QPoint(300, 300));
    QTest::mouseMove(window.viewport(), QPoint(250, 180));
    QTest::mouseRelease(window.viewport(), Qt::LeftButton, {}, QPoint(250, 180));
    EXPECT_EQ(Scrolled(), QPoint(50, 120));
    const int bottom = window.verticalScrollBar()->maximum();
    const std::pair<Qt::Key, std::function<bool()>> keys[] = {
        {Qt::Key_Home, [this] { return Scrolled().y() == 0; }},
        {Qt::Key_Down, [this] { return Scrolled().y() > 0; }},
        {Qt::Key_Right, [this] { return Scrolled().x() > 50; }},
        {Qt::Key_End, [&] { return Scrolled().y() == bottom; }},
        {Qt::Key_Plus, [this] { return window.ZoomPercent() == 150; }},
        {Qt::Key_Minus, [this] { return window.ZoomPercent() == 100; }},
    };
    for (const auto& [key, reached] : keys) {
        QTest::keyClick(&window, key);
        EXPECT_TRUE(reached()) << key;
    }
}

TEST_F(PreviewWindow, IsSharpOnAFineScreen) {
    document.BeginOutput();
    document.LineWidth = 8;
    for (int x = 1000; x < 3000; x += 16) // about a pixel apart at real size
        document.DrawLine(x, 500, x, 5000);
    document.EndOutput();
    document.ShowOutput();
    window.Set_ZoomPercent(100);
    QImage fine(window.viewport()->size() * 2, QImage::Format_RGB32);
    fine.setDevicePixelRatio(2);
    window.viewport()->render(&fine);
    int changes = 0;
    for (int x = 201; x < 400; ++x)
        changes += Dark(fine, x, 200) != Dark(fine, x - 1, 200);
    EXPECT_GT(changes, 100) << "the lines stand apart";
}

TEST_F(PreviewWindow, PrintsThePagesThatAreAskedFor) {
    scripted.printers.says_pdf = u"/archives/report.pdf"_s;
    EXPECT_EQ(window.PrintPages(u"Report"_s, 1, 2, u"/archives"_s), u"/archives/report.pdf"_s);
    EXPECT_EQ(scripted.printers.pdf_folders, QStringList{u"/archives"_s});
    ASSERT_EQ(scripted.printers.pages.size(), 2);
    EXPECT_EQ(scripted.printers.pages[0].pixelColor(400, 900), QColor(Qt::red));
    EXPECT_EQ(scripted.printers.pages[1].pixelColor(400, 900), QColor(Qt::blue));
}

TEST_F(PreviewWindow, CopiesTheShownPage) {
    window.Set_ShownPage(2);
    window.CopyPage();
    ASSERT_EQ(scripted.clipboard.copied.size(), 1);
    const desktop::Page_Copy& copy = scripted.clipboard.copied[0];
    EXPECT_TRUE(copy.wmf.contains("second") && !copy.wmf.contains("first"));
    EXPECT_EQ(copy.picture.pixelColor(10, 10), QColor(Qt::blue));
}

TEST(PreviewWindowAlone, GoesBeforeItsDocument) {
    ViewPro document;
    test_support::Scripted_Platform scripted;
    {
        preview::Preview_Window window(document, scripted.printers, scripted.clipboard);
        window.Show_Output();
        EXPECT_TRUE(window.accessibleDescription().isEmpty()) << "no page yet";
    }
    document.BeginOutput();
    document.EndOutput();
    document.ShowOutput();
    EXPECT_EQ(document.PageCount(), 1);
}
