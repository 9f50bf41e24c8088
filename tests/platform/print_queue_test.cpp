#include "platform/basics/run_time_error.h"
#include "platform/desktop/qt_printers.h"
#include "platform/preview/view_pro.h"
#include "support/error_number.h"
#include "support/told_by.h"

#include <QApplication>
#include <QDir>
#include <QPrintDialog>
#include <QPrinterInfo>
#include <QProcess>
#include <QRegularExpression>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <gtest/gtest.h>
#include <memory>

using namespace Qt::StringLiterals;

namespace {

QString Program(const QString& name) {
    return QStandardPaths::findExecutable(name, {u"/usr/sbin"_s, u"/usr/bin"_s, u"/sbin"_s, u"/bin"_s});
}

void Tell(const QString& program, const QStringList& arguments) {
    test_support::Told_By(Program(program), arguments);
}

// A print service of the tests' own. The library that asks for printers reads CUPS_SERVER once, at its first
// use, so this comes before that and serves all tests.
class Service {
public:
    Service() {
        for (const QString& name : {u"root"_s, u"state"_s, u"cache"_s, u"spool"_s})
            QDir(folder.path()).mkdir(name);
        Write(u"cupsd.conf"_s,
              u"Listen @/cups.sock\nDefaultAuthType None\nWebInterface No\nBrowsing No\n"
              "PreserveJobFiles Yes\n<Location />\nOrder allow,deny\nAllow all\n</Location>\n"
              "<Policy default>\n<Limit All>\nOrder deny,allow\n</Limit>\n</Policy>\n"_s);
        Write(u"cups-files.conf"_s,
              u"FileDevice Yes\nServerRoot @/root\nStateDir @/state\nCacheDir @/cache\nRequestRoot @/spool\n"
              "TempDir @/spool\nAccessLog @/access\nErrorLog @/error\nPageLog @/page\n"_s);
        qputenv("CUPS_SERVER", Place(u"cups.sock"_s).toLocal8Bit());
        process.start(Program(u"cupsd"_s),
                      {u"-f"_s, u"-c"_s, Place(u"cupsd.conf"_s), u"-s"_s, Place(u"cups-files.conf"_s)});
    }
    ~Service() {
        process.terminate();
        process.waitForFinished();
    }

    bool Answers() const {
        return QTest::qWaitFor([this] { return QFile::exists(Place(u"cups.sock"_s)); }, 10000);
    }
    QString Place(const QString& name) const { return folder.filePath(name); }

    void Write(const QString& name, QString text) {
        QFile file(Place(name));
        if (file.open(QIODevice::WriteOnly)) file.write(text.replace(u'@', folder.path()).toLocal8Bit());
    }

private:
    QTemporaryDir folder;
    QProcess process;
};

const QString Description_With_Margins = uR"ppd(*PPD-Adobe: "4.3"
*ModelName: "Any"
*NickName: "Any"
*cupsFilter: "application/pdf 0 -"
*OpenUI *PageSize/Media Size: PickOne
*DefaultPageSize: A4
*PageSize A4/A4: "<</PageSize[595 842]>>setpagedevice"
*CloseUI: *PageSize
*DefaultImageableArea: A4
*ImageableArea A4/A4: "40 60 555 782"
*DefaultPaperDimension: A4
*PaperDimension A4/A4: "595 842"
)ppd"_s;

// One printer, "Office", whose jobs are kept as they arrived.
class Print_Queue : public testing::Test {
protected:
    static void SetUpTestSuite() {
        if (!Program(u"cupsd"_s).isEmpty() && !Program(u"lpadmin"_s).isEmpty())
            service = std::make_unique<Service>();
    }
    static void TearDownTestSuite() { service.reset(); }

    void SetUp() override {
        if (!service) GTEST_SKIP() << "no print service is installed";
        ASSERT_TRUE(service->Answers());
        Tell(u"lpadmin"_s, {u"-p"_s, u"Office"_s, u"-E"_s, u"-v"_s, u"file:/dev/null"_s});
        earlier_jobs = Jobs().size();
    }

    static QString Place(const QString& name) { return service->Place(name); }
    static QStringList Jobs() {
        return QDir(Place(u"spool"_s)).entryList({u"d*"_s}, QDir::Files, QDir::Name);
    }
    bool One_Job_Arrives() const {
        return QTest::qWaitFor([this] { return Jobs().size() == earlier_jobs + 1; }, 10000);
    }

    void Print() { printers->Print(Sheet({{1440, 2880}})); }
    int Error_Of_Printing() {
        try {
            Print();
        } catch (const basics::Run_Time_Error& error) {
            EXPECT_TRUE(error.Description.contains(u"'Office'"_s)) << error.what();
            return error.Number;
        }
        return 0;
    }

    static desktop::Printed_Document Sheet(const QList<QPoint>& words) {
        preview::ViewPro sheet;
        sheet.PaperSize = preview::ViewPro::Paper_A4;
        sheet.BeginOutput();
        for (const QPoint& word : words)
            sheet.DrawText(word.x(), word.y(), u"Queued"_s);
        sheet.EndOutput();
        return sheet.Document(u"Sheet"_s, 1, 1);
    }
    // What another program finds in the last job.
    static QString Words_Of_The_Job() {
        return test_support::Told_By(u"pdftotext"_s,
                                     {u"-bbox"_s, Place(u"spool/"_s + Jobs().last()), u"-"_s});
    }
    static QList<QRectF> Places_In(const QString& found) {
        static const QRegularExpression word(
            u"xMin=\"([0-9.]+)\" yMin=\"([0-9.]+)\" xMax=\"([0-9.]+)\" yMax=\"([0-9.]+)\">Queued<"_s);
        QList<QRectF> places; // points
        for (const auto& match : word.globalMatch(found))
            places.append(QRectF(QPointF(match.captured(1).toDouble(), match.captured(2).toDouble()),
                                 QPointF(match.captured(3).toDouble(), match.captured(4).toDouble())));
        return places;
    }

    static inline std::unique_ptr<Service> service;
    const std::unique_ptr<desktop::Printers> printers = desktop::Make_Qt_Printers();
    qsizetype earlier_jobs = 0;
};

} // namespace

// The description is of a printer that leaves 40 points blank at each side, 60 at the top and the bottom.
TEST_F(Print_Queue, InkThatThePrinterCannotReachIsMovedOrShrunkIntoItsMargins) {
    const QRectF printable(QPointF(40, 60), QPointF(555, 782));
    service->Write(u"margins.ppd"_s, Description_With_Margins);
    Tell(u"lpadmin"_s, {u"-p"_s, u"Office"_s, u"-P"_s, Place(u"margins.ppd"_s)});
    struct Case {
        QList<QPoint> words;      // in twips
        double left, top, height; // of the first one, in points
    };
    const Case cases[] = {
        {{{1440, 2880}}, 72, 144, 11.5},            // stays
        {{{144, 200}, {1440, 2880}}, 40, 60, 11.5}, // both move
        {{{40, 60}, {11100, 16600}}, 42, 60, 9.9},  // no way but shrinking
    };
    for (const Case& tried : cases) {
        SCOPED_TRACE(tried.left);
        earlier_jobs = Jobs().size();
        printers->Print(Sheet(tried.words));
        ASSERT_TRUE(One_Job_Arrives());
        const QString found = Words_Of_The_Job();
        EXPECT_TRUE(found.contains(QRegularExpression(u"<page width=\"59[56][0-9.]*\" height=\"84[12]"_s)));
        const QList<QRectF> places = Places_In(found);
        ASSERT_EQ(places.size(), tried.words.size());
        EXPECT_NEAR(places[0].x(), tried.left, 1.5);
        EXPECT_NEAR(places[0].y(), tried.top, 3);
        EXPECT_NEAR(places[0].height(), tried.height, 0.6);
        for (const QRectF& place : places)
            EXPECT_TRUE(printable.adjusted(-0.5, -3, 0.5, 3).contains(place)) << "to the ink, not the line";
    }
    Tell(u"lpadmin"_s, {u"-p"_s, u"Office"_s, u"-m"_s, u"raw"_s});
}

TEST_F(Print_Queue, AStoppedPrinterIsAnErrorUntilItRunsAgain) {
    Tell(u"cupsdisable"_s, {u"Office"_s});
    EXPECT_EQ(Error_Of_Printing(), 482);
    EXPECT_EQ(Jobs().size(), earlier_jobs);
    Tell(u"cupsenable"_s, {u"Office"_s});
    EXPECT_EQ(Error_Of_Printing(), 0);
    EXPECT_TRUE(One_Job_Arrives());
}

TEST_F(Print_Queue, AChosenPrinterThatIsGoneIsToldOnce) {
    QTimer::singleShot(0, [] {
        ASSERT_TRUE(QTest::qWaitFor([] { return QApplication::activeModalWidget() != nullptr; }, 10000));
        auto* dialog = qobject_cast<QPrintDialog*>(QApplication::activeModalWidget());
        ASSERT_TRUE(dialog);
        dialog->accept();
    });
    ASSERT_TRUE(printers->Choose());
    Tell(u"lpadmin"_s, {u"-x"_s, u"Office"_s});
    EXPECT_EQ(Error_Of_Printing(), 68);
    EXPECT_FALSE(printers->Is_Any_Set_Up());
    EXPECT_EQ(test_support::Error_Number([this] { Print(); }), 482);
}
