#include "platform/preview/preview_window.h"

#include "platform/basics/code_page.h"
#include "platform/desktop/qt_printers.h"
#include "platform/preview/page_copy.h"
#include "platform/preview/painters.h"
#include "platform/preview/text_metrics.h"
#include "platform/preview/view_pro.h"
#include "platform/recorded_page.h"
#include "support/files.h"
#include "support/pictures.h"
#include "support/printing.h"
#include "support/scripted_platform.h"
#include "support/told_by.h"

#include <QDataStream>
#include <QPainter>
#include <QScrollBar>
#include <QStandardPaths>
#include <QSvgRenderer>
#include <QTemporaryDir>
#include <QTest>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using preview::Drawing;
using preview::Text_Operation;
using preview::ViewPro;
using namespace test_support;

namespace {

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

int Right_End_Of_Ink(const QImage& picture) {
    for (int x = picture.width() - 1; x >= 0; --x)
        for (int y = 0; y < picture.height(); ++y)
            if (qGray(picture.pixel(x, y)) < 128) return x + 1;
    return 0;
}

QImage Painted_Svg(const QByteArray& svg, const QSize& size) {
    QSvgRenderer renderer(svg);
    QImage picture(size, QImage::Format_RGB32);
    picture.fill(Qt::white);
    QPainter painter(&picture);
    renderer.render(&painter, QRectF(QPointF(0, 0), QSizeF(size)));
    return picture;
}

// A page with something of everything that reports draw.
ViewPro Sample_Report() {
    ViewPro page = New_Page();
    page.FontBold = true;
    page.HeaderText(u"|Greyfriars Primary School|"_s);
    page.TextWidth = 8640;
    page.TextAlign = 1;
    page.FontSize = 12;
    page.Text(u"Summary Sheet and Cognitive Profile"_s);
    page.TableBorders = 1;
    page.TableFormat = u"1440|720|1140"_s;
    page.ObjectBKColor = QColor(192, 192, 192);
    page.TableText(u"Module|Score|Test date;Tolvens|12|12/05/2026;"_s);
    page.FillStyle = 1;
    page.FillColor = Qt::black;
    page.DrawRectangle2(1200, 4320, 8000, 250);
    page.FillColor = Qt::blue;
    page.DrawRectangle2(1680, 9320, 720, -2500);
    page.TextAngle = 900;
    page.DrawText(400, 7000, u"Centiles"_s);
    page.TextAngle = 0;
    page.DrawLine(0, 11192, 10466, 11192);
    page.CurrentY = 11480;
    page.Paragraph(u"Worked with care and asked for a break towards the end of the session. "_s.repeated(6));
    page.EndOutput();
    return page;
}

} // namespace

// ---- text

TEST(PreviewText, ALittleTooWideStaysOnItsLine) {
    ViewPro page = New_Page();
    const QString title = u"Mevo multiple graphical profiles (Y-axis in Standard Deviation Units)"_s;
    page.MeasureText(title);
    page.CurrentX = 900;
    page.TextWidth = int(page.TextWidth * 0.97);
    const int room = page.TextWidth;
    page.Text(title);
    EXPECT_EQ(Texts_On(page.Page(1)), QStringList{title});
    EXPECT_LE(Width_Of(Only_Line(page.Page(1), title)), room + 1);
    const QImage picture = Picture_Of_Part(page.Page(1), QRect(0, 0, page.PageWidth(), 1000), 5);
    EXPECT_NEAR(Right_End_Of_Ink(picture) * 5, 900 + room, 25);

    page.TextWidth = room / 2;
    page.CurrentY = 3000;
    page.Text(title);
    const auto lines = All_Of<Text_Operation>(page.Page(1));
    EXPECT_GE(lines.size(), 3);
    for (const Text_Operation& line : lines.mid(1))
        EXPECT_LE(Width_Of(line), room / 2 + 1) << line.text.toStdString();
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
        ASSERT_EQ(Texts_On(page.Page(1)).join(u' '), comment.trimmed()) << "no word is broken";
        const auto lines = All_Of<Text_Operation>(page.Page(1));
        ASSERT_GE(lines.size(), 2);
        for (qsizetype line = 0; line < lines.size(); ++line) {
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
    EXPECT_EQ(Texts_On(page.Page(1)), (QStringList{u"One"_s, u"Three"_s, u"Four"_s}));
    EXPECT_EQ(Only_Line(page.Page(1), u"Three"_s).y, 2 * page.TextHeight()) << "an empty line takes its room";

    ViewPro other = New_Page();
    other.TextWidth = 3000;
    const QString word = QString(200, u'w') + QString(200, u'é');
    other.Paragraph(u"A "_s + word + u" B"_s);
    for (const Text_Operation& line : All_Of<Text_Operation>(other.Page(1))) {
        EXPECT_LE(Width_Of(line), 3000);
        EXPECT_EQ(line.squeeze, 1);
    }
    EXPECT_EQ(Texts_On(other.Page(1)).join(QString()).remove(u' '), u'A' + word + u'B');
}

// Edges of letters are half transparent, and darken when they are painted once more.
TEST(PreviewText, IsPaintedOnceUnlessSomethingCameBetween) {
    const auto painted = [](int times, int cover_at) {
        ViewPro page = New_Page();
        page.FillStyle = 1;
        page.FillColor = QColor(192, 192, 192);
        for (int time = 1; time <= times; ++time) {
            page.DrawText(1000, 1000, u"Assessor's comments"_s);
            page.DrawLine(0, 1000, 3000, 1000); // above the letters
            if (time == 1) page.DrawRectangle2(cover_at, 1000, 400, 400);
        }
        EXPECT_EQ(All_Of<Text_Operation>(page.Page(1)).size(), times) << "all are recorded";
        return Picture_Of_Part(page.Page(1), QRect(0, 1020, 4000, 600), 15);
    };
    EXPECT_EQ(painted(8, 4000), painted(1, 4000));
    EXPECT_NE(painted(2, 1200), painted(1, 1200));
}

TEST(PreviewRectangles, ABoxIsOnlyItsOutlineWhicheverWayItIsDrawn) {
    ViewPro page = New_Page();
    page.CurrentX = page.CurrentY = 800;
    page.DrawBoxTo(200, 300);
    const auto box = All_Of<preview::Rectangle_Operation>(page.Page(1)).value(0);
    EXPECT_EQ(QRect(box.x, box.y, box.width, box.height), QRect(200, 300, 600, 500));
    EXPECT_TRUE(box.outline && !box.fill);
}

// ---- tables

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
        const auto texts = All_Of<Text_Operation>(page.Page(1));
        ASSERT_EQ(texts.size(), 2);
        EXPECT_LE(texts[0].x + Width_Of(texts[0]), 1720);
        EXPECT_EQ(texts[0].squeeze < 1, text == name);
        if (text == name)
            EXPECT_EQ(texts[0].text, name);
        else
            EXPECT_TRUE(texts[0].text.startsWith(u"WWWW"_s) && texts[0].text.endsWith(QChar(0x2026)));
        EXPECT_EQ(page.CurrentY, top + page.TextHeight() + 2 * page.RowPadding);
    }
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
    EXPECT_EQ(Texts_On(page.Page(1)), (QStringList{u"first"_s, u"inner"_s, u"Old School"_s}));
    EXPECT_EQ(Texts_On(page.Page(2)), (QStringList{u"second"_s, u"Old School"_s}));

    page.BeginOutput();
    page.DrawText(100, 1500, u"again"_s);
    page.EndOutput();
    ASSERT_EQ(page.PageCount(), 1);
    EXPECT_EQ(Texts_On(page.Page(1)), QStringList{u"again"_s});
}

// ---- what other programs read

TEST(PreviewCopies, LookAlike) {
    if (QStandardPaths::findExecutable(u"wmf2svg"_s).isEmpty()) GTEST_SKIP() << "wmf2svg isn't installed";
    const desktop::Page_Copy copy = preview::Copy_Of(Sample_Report().Page(1));
    const QImage& seen = copy.picture;
    QTemporaryDir folder;
    Write_Bytes(folder.filePath(u"page.wmf"_s), copy.wmf);
    const QByteArray metafile = Told_By(u"wmf2svg"_s, {folder.filePath(u"page.wmf"_s)}).toUtf8();
    constexpr QSize blocks(40, 56);
    EXPECT_LT(Largest_Distance(seen, Painted_Svg(copy.svg, seen.size()), blocks), 25) << "the SVG";
    EXPECT_LT(Largest_Distance(seen, Painted_Svg(metafile, seen.size()), blocks), 50) << "the metafile";
    EXPECT_NEAR(copy.picture.width() / (copy.picture.dotsPerMeterX() / 1000.0), 210, 1) << "millimetres";
    QImage blank = seen;
    blank.fill(Qt::white);
    EXPECT_GT(Largest_Distance(seen, blank, blocks), 128) << "the measure itself";
}

// ---- the metafile's own form

namespace {

constexpr quint16 Wmf_Extended_Text = 0x0A32;
constexpr quint16 Wmf_Delete_Object = 0x01F0;

// The functions of a metafile's records, once what its header says of them has been checked.
QList<quint16> Functions_In(const QByteArray& wmf) {
    QDataStream stream(wmf);
    stream.setByteOrder(QDataStream::LittleEndian);
    quint16 word = 0, checksum = 0, objects = 0;
    for (int i = 0; i <= 10; ++i) {
        stream >> word;
        checksum ^= word;
    }
    EXPECT_EQ(checksum, 0);
    stream.skipRawData(6);
    quint32 file_words = 0, longest = 0, longest_met = 0;
    stream >> file_words >> objects >> longest;
    stream.skipRawData(2);
    EXPECT_EQ(file_words * 2, wmf.size() - 22);
    QList<quint16> functions;
    while (!stream.atEnd()) {
        quint32 words = 0;
        stream >> words >> word;
        functions.append(word);
        longest_met = std::max(longest_met, words);
        const int parameters = int(words) * 2 - 6;
        if (stream.skipRawData(parameters) != parameters) throw std::runtime_error("a record is cut off");
    }
    EXPECT_EQ(longest, longest_met);
    EXPECT_EQ(functions.count(0x02FA) + functions.count(0x02FB) + functions.count(0x02FC), objects);
    EXPECT_EQ(functions.count(Wmf_Delete_Object), objects);
    EXPECT_EQ(functions.last(), 0) << "the last record ends the file";
    return functions;
}

} // namespace

TEST(PreviewMetafile, IsPlaceableAndWholeWhateverItHolds) {
    const QByteArray wmf = preview::Copy_Of(Sample_Report().Page(1)).wmf;
    EXPECT_TRUE(wmf.startsWith("\xD7\xCD\xC6\x9A"));
    EXPECT_EQ(wmf.mid(10, 6), QByteArray::fromHex("822ec641a005")) << "A4 in twips, 1440 to the inch";
    EXPECT_GT(Functions_In(wmf).size(), 50);
    Functions_In(preview::Copy_Of(Drawing{100, 100, {}}).wmf);

    ViewPro page = New_Page();
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
    EXPECT_EQ(Functions_In(preview::Copy_Of(page.Page(1)).wmf).count(Wmf_Extended_Text), 5)
        << "all but the accent that has no letter";
}

TEST(PreviewMetafile, WritesTheNearestWesternLetter) {
    QByteArray written;
    for (const char32_t letter : std::u32string_view(U"Aé€’žőŽłșế中\u2011\t\u0301\u037E\u0081"))
        written += basics::To_Code_Page_1252(letter);
    EXPECT_EQ(written, QByteArray("A\xE9\x80\x92\x9Eo\x8Els\xEA?- ;?")) << written.toHex().toStdString();
}

// ---- the window

namespace {

class PreviewWindow : public ::testing::Test {
protected:
    PreviewWindow() {
        window.resize(600, 500);
        window.show();
        document.BeginOutput();
        Fill_Sheet(Qt::red);
        document.DrawText(1000, 1000, u"first"_s);
        document.NewPage();
        Fill_Sheet(Qt::blue);
        document.DrawText(1000, 1000, u"second"_s);
        document.EndOutput();
        document.ShowOutput();
    }

    void Fill_Sheet(const QColor& colour) {
        document.FillStyle = 1;
        document.FillColor = colour;
        document.DrawRectangle2(0, 0, document.PageWidth(), document.PageHeight());
    }
    // Seen at a place within the sheet at any zoom, and off its words.
    QColor Shown_Colour() { return window.viewport()->grab().toImage().pixelColor(300, 300); }

    QPoint Scrolled() const {
        return {window.horizontalScrollBar()->value(), window.verticalScrollBar()->value()};
    }

    ViewPro document;
    test_support::Scripted_Platform scripted;
    preview::Preview_Window window{document, scripted.clipboard};
};

} // namespace

TEST_F(PreviewWindow, ShowsOnePageAndKeepsItUntilTheNewOneIsShown) {
    window.Set_ZoomPercent(40);
    window.Set_ShownPage(2);
    EXPECT_EQ(Shown_Colour(), QColor(Qt::blue));
    EXPECT_TRUE(window.accessibleDescription().contains(u"second"_s));
    window.Set_ShownPage(99);
    EXPECT_EQ(window.ShownPage(), 2);
    document.BeginOutput();
    Fill_Sheet(Qt::green);
    document.EndOutput();
    EXPECT_EQ(Shown_Colour(), QColor(Qt::blue));
    document.ShowOutput();
    EXPECT_EQ(Shown_Colour(), QColor(Qt::green));
    EXPECT_EQ(window.ShownPage(), 1) << "the new document has one page only";
}

TEST_F(PreviewWindow, DoubleClickEnlargesAndComesBack) {
    window.Set_ZoomPercent(67);
    for (const int percent : {100, 150, 200, 67, 100}) {
        QTest::mouseDClick(window.viewport(), Qt::LeftButton, {}, QPoint(300, 250));
        EXPECT_EQ(window.ZoomPercent(), percent);
    }
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

// A page key scrolls while the sheet goes on in its direction.
TEST_F(PreviewWindow, ThePageKeysGoOnToTheNextSheetWhereOneEnds) {
    int turned = 0;
    QObject::connect(&window, &preview::Preview_Window::Turned, [&turned] { ++turned; });
    window.Set_ZoomPercent(67);
    const int bottom = window.verticalScrollBar()->maximum();
    ASSERT_GT(bottom, 0);
    ASSERT_LT(bottom, window.verticalScrollBar()->pageStep()) << "one key scrolls to the end";
    const std::tuple<Qt::Key, int, int> keys[] = {
        {Qt::Key_PageDown, 1, bottom}, {Qt::Key_PageDown, 2, 0}, {Qt::Key_PageDown, 2, bottom},
        {Qt::Key_PageDown, 2, bottom}, {Qt::Key_PageUp, 2, 0},   {Qt::Key_PageUp, 1, bottom},
        {Qt::Key_PageUp, 1, 0},        {Qt::Key_PageUp, 1, 0},
    };
    for (const auto& [key, page, place] : keys) {
        QTest::keyClick(&window, key);
        EXPECT_EQ(window.ShownPage(), page);
        EXPECT_EQ(Scrolled().y(), place);
    }
    EXPECT_EQ(turned, 2);
}

TEST_F(PreviewWindow, AFittedWidthHoldsUntilTheSheetIsEnlargedAndWritesNoZoom) {
    window.Set_ZoomPercent(67);
    const auto is_red = [this](int x) {
        return window.viewport()->grab().toImage().pixelColor(x, 200) == QColor(Qt::red);
    };
    window.Fit_Width(true);
    for (const QSize& size : {QSize(600, 500), QSize(1100, 500), QSize(300, 400)}) {
        window.resize(size);
        constexpr int edge = 22; // pixels: the ground around the sheet, and a bit
        EXPECT_TRUE(is_red(edge) && is_red(window.viewport()->width() - edge)) << size.width();
        EXPECT_EQ(window.horizontalScrollBar()->maximum(), 0);
        EXPECT_EQ(window.ZoomPercent(), 67);
    }
    QTest::keyClick(&window, Qt::Key_Plus);
    EXPECT_FALSE(window.Is_Width_Fitted());
    EXPECT_EQ(window.ZoomPercent(), 100);
    QTest::keyClick(&window, Qt::Key_Minus);
    EXPECT_EQ(window.ZoomPercent(), 67);
}

TEST_F(PreviewWindow, PrintsThePagesThatAreAskedFor) {
    window.PrintPages(u"Report"_s, 1, 2,
                      [this](const desktop::Printed_Document& sheets) { scripted.printers.Print(sheets); });
    EXPECT_EQ(scripted.printers.printed, QStringList{u"Report"_s});
    ASSERT_EQ(scripted.printers.pages.size(), 2);
    EXPECT_EQ(scripted.printers.pages[0].pixelColor(400, 900), QColor(Qt::red));
    EXPECT_EQ(scripted.printers.pages[1].pixelColor(400, 900), QColor(Qt::blue));
}
