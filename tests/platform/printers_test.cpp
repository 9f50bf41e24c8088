#include "platform/basics/run_time_error.h"
#include "platform/desktop/pdf_description.h"
#include "platform/desktop/qt_printers.h"
#include "platform/grid/grid_printing.h"
#include "support/error_number.h"
#include "support/on_windows.h"
#include "support/printing.h"
#include "support/told_by.h"

#include <QBuffer>
#include <QDir>
#include <QHashSeed>
#include <QPainter>
#include <QPrinterInfo>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using test_support::On_Windows;
using test_support::Told_By;

namespace {

// Two sheets with a word at 2 and 3 inches from the paper's corner, in regular on the first and bold on the
// second.
desktop::Printed_Document Two_Sheets() {
    return {u"Two sheets"_s, 2, [](QPainter& painter, int page) {
                painter.setFont(grid::Font_For({u"Arial"_s, 12, page == 2}));
                painter.drawText(QPointF(2 * 1440, 3 * 1440), u"word%1"_s.arg(page));
                painter.fillRect(QRectF(2 * 1440, 4 * 1440, 1440, 1440), Qt::gray);
            }};
}

class Pdf : public testing::Test {
protected:
    QString File(const QString& name) const { return folder.filePath(name); }
    QStringList Files() const {
        return QDir(folder.path()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
    }
    QTemporaryDir folder;
};

// What is in the file, without what tells one writing of it from the next.
QByteArray Lasting_Bytes(const QString& name) {
    QFile file(name);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    static const QRegularExpression date(u"D:\\d{14}Z|\\d{4}-\\d\\d-\\d\\dT[\\d:]{8}Z|<[0-9a-f]{32}>"_s);
    return QString::fromLatin1(file.readAll()).remove(date).toLatin1();
}

// Of the validator for the kind of PDF that archives take.
QString Validator_Path() {
    const QStringList parts{u"preflight"_s,       u"xmpbox"_s,     u"pdfbox2"_s,          u"fontbox2"_s,
                            u"commons-logging"_s, u"commons-io"_s, u"javax.activation"_s, u"jaxb-api"_s};
    return u"/usr/share/java/"_s + parts.join(u".jar:/usr/share/java/"_s) + u".jar"_s;
}

} // namespace

TEST_F(Pdf, IsVectorA4WithItsFontsAndFindableWords) {
    if (On_Windows) GTEST_SKIP() << "no other program reads a PDF there";
    const QString file = File(u"two.pdf"_s);
    desktop::Printed_Document sheets = Two_Sheets();
    sheets.about = u"Mevo, norms 0123"_s;
    desktop::Write_Pdf(sheets, file);
    EXPECT_EQ(Files(), QStringList{u"two.pdf"_s});

    const QString info = Told_By(u"pdfinfo"_s, {file});
    EXPECT_TRUE(info.contains(QRegularExpression(u"Creator: +Mevo, norms 0123\\n"_s))) << info.toStdString();
    EXPECT_TRUE(info.contains(QRegularExpression(u"Pages: +2\\n"_s)) && info.contains(u"(A4)"_s))
        << info.toStdString();
    const QString fonts = Told_By(u"pdffonts"_s, {file}); // below two lines of headings, each embedded
    EXPECT_EQ(fonts.count(u'\n'), 2 + 2) << fonts.toStdString();
    EXPECT_EQ(fonts.count(QRegularExpression(u" yes yes +yes "_s)), 2) << fonts.toStdString();
    const QString pictures = Told_By(u"pdfimages"_s, {u"-list"_s, file});
    EXPECT_EQ(pictures.count(u'\n'), 2) << "more than the headings: something was painted as a picture";

    const QString words = Told_By(u"pdftotext"_s, {u"-bbox"_s, file, u"-"_s});
    static const QRegularExpression placed(
        u"xMin=\"([0-9.]+)\" yMin=\"([0-9.]+)\"[^>]*yMax=\"([0-9.]+)\">(\\w+)<"_s);
    QStringList texts;
    for (const auto& word : placed.globalMatch(words)) {
        EXPECT_NEAR(word.captured(1).toDouble(), 144, 1.5); // points
        EXPECT_LT(word.captured(2).toDouble(), 216 - 6);
        EXPECT_NEAR(word.captured(3).toDouble(), 216 + 12 * 0.212, 1.5); // the baseline and what hangs below
        texts.append(word.captured(4));
    }
    EXPECT_EQ(texts, (QStringList{u"word1"_s, u"word2"_s}));
}

TEST_F(Pdf, TellsWhoseItIsAndLeadsToEachPupil) {
    if (On_Windows) GTEST_SKIP() << "no other program reads a PDF there";
    const QString file = File(u"two.pdf"_s);
    desktop::Printed_Document sheets = Two_Sheets();
    sheets.title = u"Report (Zoë \\ Łuk)"_s;
    sheets.author = u"St Mary's <nursery> & School"_s;
    sheets.bookmarks = {{u"Zoë Łuk"_s, 1}, {u"D'Souza (Mia)"_s, 2}, {u"1 0 R"_s, 2}};
    sheets.paint = [](QPainter& painter, int) { painter.drawText(1440, 1440, u"two words"_s); };
    desktop::Write_Pdf(sheets, file);

    EXPECT_TRUE(Told_By(u"qpdf"_s, {u"--check"_s, file}).contains(u"No syntax or stream encoding errors"_s));
    const QString info = Told_By(u"pdfinfo"_s, {file});
    EXPECT_TRUE(info.contains(sheets.title) && info.contains(sheets.author)) << info.toStdString();
    const QString json = Told_By(u"qpdf"_s, {u"--json"_s, file});
    EXPECT_TRUE(json.contains(u"\"/Lang\": \"u:en-GB\""_s) || json.contains(u"\"/Lang\": \"en-GB\""_s));
    static const QRegularExpression listed(
        u"\"destpageposfrom1\": (\\d)[^{}]*\"kids\"[^{}]*\"title\": \"(.*)\""_s);
    QStringList found;
    for (const auto& bookmark : listed.globalMatch(json))
        found.append(bookmark.captured(2) + u' ' + bookmark.captured(1));
    EXPECT_EQ(found, (QStringList{u"Zoë Łuk 1"_s, u"D'Souza (Mia) 2"_s, u"1 0 R 2"_s}));
    EXPECT_TRUE(Lasting_Bytes(file).contains(" <0020> ")); // between the words, where a tab was named
    EXPECT_FALSE(Lasting_Bytes(file).contains(" <0009> <"));
    if (QFile::exists(u"/usr/share/java/preflight.jar"_s)) {
        EXPECT_TRUE(Told_By(u"java"_s, {u"-cp"_s, Validator_Path(),
                                        u"org.apache.pdfbox.preflight.Validator_A1b"_s, file})
                        .contains(u"is a valid PDF/A-1b file"_s));
    }
}

TEST_F(Pdf, HasTheSameBytesForTheSameSheets) {
    desktop::Printed_Document sheets = Two_Sheets();
    sheets.paint = [](QPainter& painter, int page) { // four parts of fonts, which have no order of their own
        for (int style = 0; style < 4; ++style) {
            painter.setFont(QFont(u"Arial"_s, 12 + page, style % 2 ? QFont::Bold : QFont::Normal, style > 1));
            painter.drawText(1440, 1440 * (style + 1), u"word"_s);
        }
    };
    QByteArray first;
    for (int time = 0; time < 6; ++time) {
        time == 0 ? QHashSeed::setDeterministicGlobalSeed() : QHashSeed::resetRandomGlobalSeed();
        desktop::Write_Pdf(sheets, File(u"again.pdf"_s));
        const QByteArray bytes = Lasting_Bytes(File(u"again.pdf"_s));
        if (time == 0) first = bytes;
        EXPECT_TRUE(bytes == first) << time;
    }
}

TEST(PdfDescription, LeavesAFileThatItDoesNotKnowAsItIs) {
    const QByteArray sound = "%PDF-1.4\n1 0 obj\n<<\n>>\nendobj\nxref\n0 2\n0000000000 65535 f \n"
                             "0000000009 00000 n \ntrailer\n<<\n/Size 2\n>>\nstartxref\n32\n%%EOF\n";
    for (const QByteArray& unknown : {QByteArray(), QByteArray("startxref 99999999999999999999"), sound,
                                      QByteArray(sound).replace("0 2\n", "0 900\n")}) {
        QBuffer device;
        device.open(QIODevice::WriteOnly);
        desktop::Write_Described(unknown, {}, device);
        EXPECT_EQ(device.data(), unknown);
    }
}

TEST_F(Pdf, ThatCannotBeWrittenThrowsAndLeavesNothing) {
    QDir(folder.path()).mkdir(u"taken"_s);
    const QStringList before = Files();
    for (const QString& place : {u"missing/two.pdf"_s, u"taken"_s}) {
        SCOPED_TRACE(place.toStdString());
        try {
            desktop::Write_Pdf(Two_Sheets(), File(place));
            FAIL() << "no error";
        } catch (const basics::Run_Time_Error& error) {
            EXPECT_EQ(error.Number, 75);
            EXPECT_TRUE(error.Description.contains(File(place))) << error.what();
        }
        EXPECT_EQ(Files(), before);
        EXPECT_TRUE(QDir(File(u"taken"_s)).isEmpty());
    }
}

TEST_F(Pdf, ReplacesAnOlderFileOnlyWhenItIsWhole) {
    const QString file = File(u"two.pdf"_s);
    desktop::Write_Pdf(Two_Sheets(), file);
    const qint64 size = QFileInfo(file).size();
    desktop::Printed_Document failing = Two_Sheets();
    failing.paint = [](QPainter&, int page) {
        if (page == 2) throw std::runtime_error("the second sheet fails");
    };
    EXPECT_THROW(desktop::Write_Pdf(failing, file), std::runtime_error);
    EXPECT_EQ(QFileInfo(file).size(), size);
    EXPECT_EQ(Files(), QStringList{u"two.pdf"_s});
}

TEST(Printers, WithoutOneNothingIsChosenAndNothingPrinted) {
    qputenv("CUPS_SERVER", "localhost:1"); // no queue answers there
    if (!QPrinterInfo::availablePrinterNames().isEmpty())
        GTEST_SKIP() << "this system's printers can't be hidden";
    const auto printers = desktop::Make_Qt_Printers();
    EXPECT_FALSE(printers->Is_Any_Set_Up());
    EXPECT_TRUE(printers->Choose());
    EXPECT_EQ(test_support::Error_Number([&] { printers->Print(Two_Sheets()); }), 482);
}
