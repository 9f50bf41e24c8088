#include "platform/desktop/qt_printers.h"

#include "platform/basics/run_time_error.h"
#include "platform/basics/twips.h"
#include "platform/desktop/pdf_description.h"
#include "platform/desktop/windows_services.h"

#include <QApplication>
#include <QBuffer>
#include <QClipboard>
#include <QDateTime>
#include <QImage>
#include <QMimeData>
#include <QPageLayout>
#include <QPainter>
#include <QPdfWriter>
#include <QPrintDialog>
#include <QPrinter>
#include <QPrinterInfo>
#include <QSaveFile>
#include <QScopeGuard>
#include <QTransform>
#include <algorithm>
#include <cmath>
#include <iterator>
#include <optional>

using namespace Qt::StringLiterals;

namespace desktop {
namespace {

constexpr int Pdf_Dots_Per_Inch = 1200;

[[noreturn]] void Raise_Printer_Error(int number, const QString& description) {
    throw basics::Run_Time_Error(number, u"Printer"_s, description);
}

const QRectF Whole_Paper(0, 0, 11906, 16838); // A4, twips

// What isn't blank on a sheet, in twips. It is found in a picture of it, whatever it was painted with.
QRectF Ink_On(const Printed_Document& document, int page) {
    constexpr int twips_per_pixel = 10;
    const QSizeF pixels = Whole_Paper.size() / twips_per_pixel;
    QImage picture(int(std::ceil(pixels.width())), int(std::ceil(pixels.height())),
                   QImage::Format_Grayscale8);
    picture.fill(Qt::white);
    QPainter painter(&picture);
    painter.scale(1.0 / twips_per_pixel, 1.0 / twips_per_pixel);
    document.paint(painter, page);
    painter.end();
    QRect ink;
    for (int y = 0; y < picture.height(); ++y) {
        const uchar* row = picture.constScanLine(y);
        const uchar* end = row + picture.width();
        const auto is_ink = [](uchar grey) { return grey != 0xFF; };
        const uchar* first = std::find_if(row, end, is_ink);
        if (first == end) continue;
        const uchar* behind_last =
            std::find_if(std::make_reverse_iterator(end), std::make_reverse_iterator(first), is_ink).base();
        ink |= QRect(int(first - row), y, int(behind_last - first), 1);
    }
    return {QPointF(ink.topLeft()) * twips_per_pixel, QSizeF(ink.size()) * twips_per_pixel};
}

// The start of a length that is to be centred at `centre`, but must stay between the two ends.
double Start_Between(double from, double to, double centre, double length) {
    return std::max(from, std::min(centre - length / 2, to - length));
}

// Moves the ink as little as it takes to lie where the printer can print, and shrinks it if it is larger.
QTransform Ink_Into(const QRectF& printable, const QRectF& ink) {
    const double scale = std::min({1.0, printable.width() / ink.width(), printable.height() / ink.height()});
    const double x =
        Start_Between(printable.left(), printable.right(), ink.center().x(), ink.width() * scale);
    const double y =
        Start_Between(printable.top(), printable.bottom(), ink.center().y(), ink.height() * scale);
    return QTransform::fromTranslate(x, y).scale(scale, scale).translate(-ink.left(), -ink.top());
}

// A printer that can't print to the paper's edges would lose what lies there. A sheet without ink there is
// painted as it is.
QTransform Placed_For(const QRectF& printable, const Printed_Document& document, int page) {
    if (printable.contains(Whole_Paper)) return {};
    const QRectF ink = Ink_On(document, page);
    return ink.isEmpty() || printable.contains(ink) ? QTransform() : Ink_Into(printable, ink);
}

// `printable` is the part of the paper that the printer reaches, in twips. False if the device refused a new
// page.
bool Paint_Pages(const Printed_Document& document, QPagedPaintDevice& device, QPainter& painter,
                 int dots_per_inch, const QRectF& printable = Whole_Paper) {
    for (int page = 1; page <= document.pages; ++page) {
        if (page > 1 && !device.newPage()) return false;
        painter.save();
        const auto restored = qScopeGuard([&painter] { painter.restore(); }); // a sheet may end in a throw
        const double scale = double(dots_per_inch) / basics::Twips_Per_Inch;
        painter.scale(scale, scale);
        painter.setTransform(Placed_For(printable, document, page), true);
        document.paint(painter, page);
    }
    return true;
}

// One property after the other: a printer that can't print to the edge refuses them as a whole.
void Take_Whole_Sheets(QPagedPaintDevice& device) {
    device.setPageSize(QPageSize(QPageSize::A4));
    device.setPageOrientation(QPageLayout::Portrait);
    device.setPageMargins(QMarginsF(0, 0, 0, 0));
}

// The printer's own margins, which it knows also while it is set to whole sheets.
QRectF Printable_By(const QPrinter& printer) {
    QPageLayout layout = printer.pageLayout();
    layout.setUnits(QPageLayout::Point);
    return Whole_Paper.marginsRemoved(layout.minimumMargins() * basics::Twips_Per_Point);
}

// What the user settled in the printer dialog.
struct Choice {
    QString printer;
    int copies;
    bool collated;
    QPrinter::DuplexMode duplex;
    QPrinter::ColorMode colours;
};

class Qt_Printers final : public Printers {
public:
    bool Is_Any_Set_Up() override { return !QPrinterInfo::availablePrinterNames().isEmpty(); }

    bool Choose() override {
        if (!Is_Any_Set_Up()) {
            choice.reset();
            return true;
        }
        QPrinter printer(QPrinter::HighResolution);
        if (choice) printer.setPrinterName(choice->printer);
        QPrintDialog dialog(&printer, QApplication::activeWindow());
        // All pages go to a printer: no ranges, and no file in a printer's place.
        dialog.setOptions(QAbstractPrintDialog::PrintCollateCopies);
        if (dialog.exec() != QDialog::Accepted) return false;
        choice = Choice{printer.printerName(), printer.copyCount(), printer.collateCopies(), printer.duplex(),
                        printer.colorMode()};
        return true;
    }

    void Print(const Printed_Document& document) override {
        const QStringList available = QPrinterInfo::availablePrinterNames();
        if (available.isEmpty() && !choice)
            Raise_Printer_Error(basics::errors::Printer_Error, u"No printer is set up on this computer."_s);
        const QString name = choice ? choice->printer : Usual_Printer(available);
        Refuse_What_Cannot_Print(name, available);
        Print_On(name, document);
    }

private:
    static QString Usual_Printer(const QStringList& available) {
        const QString usual = QPrinterInfo::defaultPrinterName();
        return usual.isEmpty() ? available.first() : usual;
    }

    // The toolkit ignores an unknown name in silence, and takes a job for a stopped printer as done. A
    // printer that is gone is reported once; then the usual one takes its place.
    void Refuse_What_Cannot_Print(const QString& name, const QStringList& available) {
        if (!available.contains(name)) {
            choice.reset();
            Raise_Printer_Error(basics::errors::Device_Unavailable,
                                u"The printer '"_s + name + u"' is not there any more."_s);
        }
        if (QPrinterInfo::printerInfo(name).state() == QPrinter::Error)
            Raise_Printer_Error(basics::errors::Printer_Error,
                                u"The printer '"_s + name + u"' is stopped."_s);
    }

    void Print_On(const QString& name, const Printed_Document& document) {
        QPrinter printer(QPrinter::HighResolution);
        printer.setPrinterName(name);
        printer.setDocName(document.name);
        Apply_Choice(printer);
        printer.setFullPage(true); // places count from the paper's corner
        Take_Whole_Sheets(printer);
        QPainter painter;
        if (!painter.begin(&printer))
            Raise_Printer_Error(basics::errors::Printer_Error,
                                u"The printer '"_s + name + u"' can't be used."_s);
        const bool painted =
            Paint_Pages(document, printer, painter, printer.resolution(), Printable_By(printer));
        if (!painter.end() || !painted || printer.printerState() == QPrinter::Error)
            Raise_Printer_Error(basics::errors::Printer_Error,
                                u"The printer '"_s + name + u"' reported an error."_s);
    }

    void Apply_Choice(QPrinter& printer) {
        if (!choice) return;
        printer.setCopyCount(choice->copies);
        printer.setCollateCopies(choice->collated);
        printer.setDuplex(choice->duplex);
        printer.setColorMode(choice->colours);
        choice->copies = 1; // asked for this job; one that is printed without the dialog comes once
    }

    std::optional<Choice> choice;
};

class Qt_Clipboard final : public Clipboard {
public:
    void Put(const Page_Copy& page) override {
        auto* content = new QMimeData;
        for (const QString& type :
             {u"image/x-wmf"_s, u"application/x-msmetafile"_s, u"image/wmf"_s, u"windows/metafile"_s})
            content->setData(type, page.wmf);
        content->setData(u"image/svg+xml"_s, page.svg);
        content->setImageData(page.picture);
        QApplication::clipboard()->setMimeData(content);
        Add_Metafile_To_Clipboard(page.wmf);
    }
    QString Text() override { return QApplication::clipboard()->text(); }
    void Put_Text(const QString& text) override { QApplication::clipboard()->setText(text); }
};

} // namespace

[[noreturn]] static void Raise_Cannot_Be_Written(const QSaveFile& file) {
    Raise_Printer_Error(basics::errors::File_Access_Error,
                        u"The file '"_s + file.fileName() + u"' can't be written: "_s + file.errorString());
}

static Pdf_Description Description_Of(const Printed_Document& document) {
    return {document.title.isEmpty() ? document.name : document.title, document.author, document.about,
            QDateTime::currentDateTimeUtc(), document.bookmarks};
}

// The kind for archives can neither have blended colours nor leave a font out, so it looks the same anywhere.
void Write_Pdf(const Printed_Document& document, const QString& file) {
    QSaveFile saved(file);
    if (!saved.open(QIODevice::WriteOnly)) Raise_Cannot_Be_Written(saved);
    const Pdf_Description description = Description_Of(document);
    QBuffer written;
    written.open(QIODevice::WriteOnly);
    {
        QPdfWriter writer(&written);
        writer.setPdfVersion(QPagedPaintDevice::PdfVersion_A1b);
        writer.setTitle(description.title);
        writer.setCreator(description.creator);
        writer.setDocumentXmpMetadata(Metadata_Packet(description));
        writer.setResolution(Pdf_Dots_Per_Inch);
        Take_Whole_Sheets(writer);
        QPainter painter(&writer);
        if (!Paint_Pages(document, writer, painter, Pdf_Dots_Per_Inch)) saved.cancelWriting();
    }
    Write_Described(written.data(), description, saved);
    if (!saved.commit()) Raise_Cannot_Be_Written(saved);
}

std::unique_ptr<Printers> Make_Qt_Printers() {
    return std::make_unique<Qt_Printers>();
}

std::unique_ptr<Clipboard> Make_Qt_Clipboard() {
    return std::make_unique<Qt_Clipboard>();
}

} // namespace desktop
