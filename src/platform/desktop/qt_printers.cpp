#include "platform/desktop/qt_printers.h"

#include "platform/basics/native_path.h"
#include "platform/basics/run_time_error.h"
#include "platform/desktop/windows_services.h"

#include <QApplication>
#include <QClipboard>
#include <QDateTime>
#include <QDir>
#include <QMimeData>
#include <QPageLayout>
#include <QPainter>
#include <QPdfWriter>
#include <QPrintDialog>
#include <QPrinter>
#include <QPrinterInfo>
#include <QSaveFile>
#include <optional>

using namespace Qt::StringLiterals;

namespace desktop {
namespace {

constexpr double Twips_Per_Inch = 1440;
constexpr int Pdf_Dots_Per_Inch = 1200;

[[noreturn]] void Raise_Printer_Error(int number, const QString& description) {
    throw basics::Run_Time_Error(number, u"Printer"_s, description);
}

// False if the device refused a new page.
bool Paint_Pages(const Printed_Document& document, QPagedPaintDevice& device, QPainter& painter,
                 int dots_per_inch) {
    for (int page = 1; page <= document.pages; ++page) {
        if (page > 1 && !device.newPage()) return false;
        painter.save();
        painter.scale(dots_per_inch / Twips_Per_Inch, dots_per_inch / Twips_Per_Inch);
        document.paint(painter, page);
        painter.restore();
    }
    return true;
}

// One property after the other: a printer that can't print to the edge refuses them as a whole.
void Take_Whole_Sheets(QPagedPaintDevice& device) {
    device.setPageSize(QPageSize(QPageSize::A4));
    device.setPageOrientation(QPageLayout::Portrait);
    device.setPageMargins(QMarginsF(0, 0, 0, 0));
}

// A document's name as the name of a file on any system.
QString File_Stem(QString name) {
    static const QString forbidden = u"\\/:*?\"<>|"_s;
    for (QChar& character : name)
        if (forbidden.contains(character) || character.category() == QChar::Other_Control) character = u'_';
    return name;
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
    bool Choose() override {
        if (QPrinterInfo::availablePrinterNames().isEmpty()) {
            choice.reset();
            return true; // a PDF needs no choice
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

    QString Print(const Printed_Document& document, const QString& pdf_folder) override {
        const QStringList available = QPrinterInfo::availablePrinterNames();
        if (available.isEmpty() && !choice) return Print_To_Pdf(document, pdf_folder);
        const QString name = choice ? choice->printer : Usual_Printer(available);
        Refuse_What_Cannot_Print(name, available);
        Print_On(name, document);
        return {};
    }

private:
    static QString Usual_Printer(const QStringList& available) {
        const QString usual = QPrinterInfo::defaultPrinterName();
        return usual.isEmpty() ? available.first() : usual;
    }

    // The toolkit ignores an unknown name in silence, and takes a job for a stopped printer as done. A
    // printer that is gone is told once; then the usual one takes its place, or a PDF.
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
        const bool painted = Paint_Pages(document, printer, painter, printer.resolution());
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

    static QString Print_To_Pdf(const Printed_Document& document, const QString& folder) {
        const QDir archives(basics::Native_Path(folder));
        archives.mkpath(u"."_s);
        const QString stem =
            File_Stem(document.name) + QDateTime::currentDateTime().toString(u" yyyy-MM-dd HHmmss"_s);
        QString file = archives.filePath(stem + u".pdf"_s);
        for (int again = 2; QFile::exists(file); ++again)
            file = archives.filePath(stem + u" (%1).pdf"_s.arg(again));
        Write_Pdf(document, file);
        return file;
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
};

} // namespace

[[noreturn]] static void Raise_Cannot_Be_Written(const QSaveFile& file) {
    Raise_Printer_Error(basics::errors::File_Access_Error,
                        u"The file '"_s + file.fileName() + u"' can't be written: "_s + file.errorString());
}

void Write_Pdf(const Printed_Document& document, const QString& file) {
    QSaveFile saved(file);
    if (!saved.open(QIODevice::WriteOnly)) Raise_Cannot_Be_Written(saved);
    {
        QPdfWriter writer(&saved);
        writer.setTitle(document.name);
        writer.setResolution(Pdf_Dots_Per_Inch);
        Take_Whole_Sheets(writer);
        QPainter painter(&writer);
        if (!Paint_Pages(document, writer, painter, Pdf_Dots_Per_Inch)) saved.cancelWriting();
    }
    if (!saved.commit()) Raise_Cannot_Be_Written(saved);
}

std::unique_ptr<Printers> Make_Qt_Printers() {
    return std::make_unique<Qt_Printers>();
}

std::unique_ptr<Clipboard> Make_Qt_Clipboard() {
    return std::make_unique<Qt_Clipboard>();
}

} // namespace desktop
