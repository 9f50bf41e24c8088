#include "platform/desktop/qt_printers.h"

#include "platform/basics/native_path.h"
#include "platform/basics/run_time_error.h"

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

using namespace Qt::StringLiterals;

namespace desktop {
namespace {

constexpr double Twips_Per_Inch = 1440;
constexpr int Device_Unavailable = 68;
constexpr int Printer_Error = 482;
constexpr int Pdf_Dots_Per_Inch = 1200;

void Paint_Pages(const Printed_Document& document, QPainter& painter, const std::function<void()>& next_page,
                 int dots_per_inch) {
    for (int page = 1; page <= document.pages; ++page) {
        if (page > 1) next_page();
        painter.save();
        painter.scale(dots_per_inch / Twips_Per_Inch, dots_per_inch / Twips_Per_Inch);
        document.paint(painter, page);
        painter.restore();
    }
}

const QPageLayout Whole_Sheet(QPageSize(QPageSize::A4), QPageLayout::Portrait, QMarginsF(0, 0, 0, 0));

[[noreturn]] void Raise_Printer_Error(int number, const QString& description) {
    throw basics::Run_Time_Error(number, u"Printer"_s, description);
}

class Qt_Printers final : public Printers {
public:
    bool Choose() override {
        if (QPrinterInfo::availablePrinterNames().isEmpty()) return true; // a PDF needs no choice
        QPrinter printer(QPrinter::HighResolution);
        if (!chosen.isEmpty()) printer.setPrinterName(chosen);
        QPrintDialog dialog(&printer, QApplication::activeWindow());
        if (dialog.exec() != QDialog::Accepted) return false;
        chosen = printer.printerName();
        return true;
    }

    QString Print(const Printed_Document& document, const QString& pdf_folder) override {
        const QStringList available = QPrinterInfo::availablePrinterNames();
        if (available.isEmpty()) return Print_To_Pdf(document, pdf_folder);
        const QString name = chosen.isEmpty() ? Usual_Printer(available) : chosen;
        Refuse_What_Cannot_Print(name, available);
        Print_On(name, document);
        return {};
    }

private:
    static QString Usual_Printer(const QStringList& available) {
        const QString usual = QPrinterInfo::defaultPrinterName();
        return usual.isEmpty() ? available.first() : usual;
    }

    // The toolkit ignores an unknown name in silence, and takes a job for a stopped printer as done.
    static void Refuse_What_Cannot_Print(const QString& name, const QStringList& available) {
        if (!available.contains(name))
            Raise_Printer_Error(Device_Unavailable,
                                u"The printer '"_s + name + u"' is not there any more."_s);
        if (QPrinterInfo::printerInfo(name).state() == QPrinter::Error)
            Raise_Printer_Error(Printer_Error, u"The printer '"_s + name + u"' is stopped."_s);
    }

    static void Print_On(const QString& name, const Printed_Document& document) {
        QPrinter printer(QPrinter::HighResolution);
        printer.setPrinterName(name);
        printer.setDocName(document.name);
        printer.setFullPage(true);
        printer.setPageLayout(Whole_Sheet);
        QPainter painter;
        if (!painter.begin(&printer))
            Raise_Printer_Error(Printer_Error, u"The printer '"_s + name + u"' can't be used."_s);
        Paint_Pages(
            document, painter, [&] { printer.newPage(); }, printer.resolution());
        if (!painter.end() || printer.printerState() == QPrinter::Error)
            Raise_Printer_Error(Printer_Error, u"The printer '"_s + name + u"' reported an error."_s);
    }

    static QString Print_To_Pdf(const Printed_Document& document, const QString& folder) {
        const QDir archives(basics::Native_Path(folder));
        archives.mkpath(u"."_s);
        const QString stem = document.name + QDateTime::currentDateTime().toString(u" yyyy-MM-dd HHmmss"_s);
        QString file = archives.filePath(stem + u".pdf"_s);
        for (int again = 2; QFile::exists(file); ++again)
            file = archives.filePath(stem + u" (%1).pdf"_s.arg(again));
        Write_Pdf(document, file);
        return file;
    }

    QString chosen;
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
    }
};

} // namespace

void Write_Pdf(const Printed_Document& document, const QString& file) {
    QSaveFile saved(file);
    if (!saved.open(QIODevice::WriteOnly))
        throw basics::Run_Time_Error(
            75, u"Printer"_s, u"The file '"_s + file + u"' can't be written: "_s + saved.errorString());
    {
        QPdfWriter writer(&saved);
        writer.setTitle(document.name);
        writer.setResolution(Pdf_Dots_Per_Inch);
        writer.setPageLayout(Whole_Sheet);
        QPainter painter(&writer);
        Paint_Pages(
            document, painter, [&] { writer.newPage(); }, Pdf_Dots_Per_Inch);
    }
    if (!saved.commit())
        throw basics::Run_Time_Error(
            75, u"Printer"_s, u"The file '"_s + file + u"' can't be written: "_s + saved.errorString());
}

std::unique_ptr<Printers> Make_Qt_Printers() {
    return std::make_unique<Qt_Printers>();
}

std::unique_ptr<Clipboard> Make_Qt_Clipboard() {
    return std::make_unique<Qt_Clipboard>();
}

} // namespace desktop
