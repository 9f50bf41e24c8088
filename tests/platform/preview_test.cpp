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
#include <QScrollBar>
#include <QStandardPaths>
#include <QSvgRenderer>
#include <QTemporaryDir>
#include <QTest>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using preview::Drawing;
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

// ---- text

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
        EXPECT_EQ(All<Text_Operation>(page.Page(1)).size(), size_t(times)) << "all are recorded";
        return Picture_Of_Part(page.Page(1), QRect(0, 1020, 4000, 600), 15);
    };
    EXPECT_EQ(painted(8, 4000), painted(1, 4000));
    EXPECT_NE(painted(2, 1200), painted(1, 1200));
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

// ---- what other programs read

TEST(PreviewCopies, LookAlike) {
    if (Missing(u"wmf2svg"_s)) GTEST_SKIP() << "wmf2svg isn't installed";
    const desktop::Page_Copy copy = preview::Copy_Of(Sample_Report().Page(1));
    const QImage& seen = copy.picture;
    QTemporaryDir folder;
    QFile file(folder.filePath(u"page.wmf"_s));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(copy.wmf);
    file.close();
    const QByteArray metafile = Output_Of(u"wmf2svg"_s, {file.fileName()});
    EXPECT_LT(Largest_Difference(seen, Painted_Svg(copy.svg, seen.size())), 0.1) << "the SVG";
    EXPECT_LT(Largest_Difference(seen, Painted_Svg(metafile, seen.size())), 0.2) << "the metafile";
    EXPECT_NEAR(copy.picture.width() / (copy.picture.dotsPerMeterX() / 1000.0), 210, 1) << "millimetres";
    QImage blank = seen;
    blank.fill(Qt::white);
    EXPECT_GT(Largest_Difference(seen, blank), 0.5) << "the measure itself";
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

TEST(PreviewMetafile, StaysWholeWithOddContent) {
    ViewPro page = New_Page();
    Records_Of(preview::Copy_Of(Drawing{100, 100, {}}).wmf);
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
