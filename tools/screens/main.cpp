// Walks through the program's own pages without a display and writes a picture of each, for a look at what a
// change has done and for machines that have no screen.

#include "app/program.h"
#include "console/other_ports.h"
#include "platform/desktop/qt_platform.h"
#include "platform/desktop/user_settings.h"
#include "shell/conventions/click_combo.h"
#include "shell/conventions/theme.h"

#include <QApplication>
#include <QClipboard>
#include <QDialog>
#include <QDir>
#include <QLineEdit>
#include <QMimeData>
#include <QMouseEvent>
#include <QTemporaryDir>
#include <QTest>
#include <QTextStream>

using namespace Qt::StringLiterals;

namespace {

constexpr QSize Usual_Screen{1280, 720};

// The entry that leads to a page, and the page's name. Each page's HotLabel1 leads back.
using Way = std::pair<QString, QString>;
const Way Previews[] = {{u"HotLabel4"_s, u"Form94"_s}, {u"HotLabel6"_s, u"Form92"_s}};
// What is clicked on a page before a second picture is taken of it, or pointed at in the first, for its help.
struct Visit {
    Way way;
    QStringList clicks;
    QString pointed_at;
};
const Visit Pages_From_The_Menu[] = {
    {{u"HotLabel7"_s, u"Form14"_s}, {}, {}},
    {{u"HotLabel4"_s, u"Form10"_s}, {}, {}},
    {{u"HotLabel2"_s, u"Form42"_s}, {u"PreviewImport"_s}, {}},
    {{u"HotLabel5"_s, u"Form15"_s}, {u"HotLabel4"_s, u"HotLabel5"_s, u"Image1(0)"_s, u"Image1(1)"_s}, {}},
    {{u"HotLabel3"_s, u"Form9"_s}, {u"HotLabel3"_s}, {}},
    {{u"HotLabel14"_s, u"Form2"_s}, {}, {}},
    {{u"HotLabel8"_s, u"Form60"_s}, {}, u"HotLabel3"_s},
    {{u"HotLabel6"_s, u"Form20"_s}, {}, u"lblFlashVersion"_s},
};

// A walk has nobody to answer a question.
class Refusing_Boxes final : public desktop::Message_Boxes {
public:
    explicit Refusing_Boxes(desktop::Processes& processes) : processes(processes) {}
    desktop::Answer Ask(desktop::Box_Style, const QString& title, const QString& text) override {
        QTextStream(stderr) << "The walk met a box: " << title << ": " << text.simplified() << Qt::endl;
        processes.End(1);
    }

private:
    desktop::Processes& processes;
};

void Write_File(const QString& name, const QByteArray& lines) {
    QFile file(name);
    if (!file.open(QIODevice::WriteOnly) || file.write(lines) != lines.size())
        throw std::runtime_error("can't write " + name.toStdString());
}

// Writes the file to import and a school's own list, and gives them when asked.
class Two_Lists final : public desktop::File_Dialogs {
public:
    explicit Two_Lists(const QDir& folder)
        : class_list(folder.filePath(u"class list.txt"_s)), school_list(folder.filePath(u"list.csv"_s)) {
        Write_File(class_list, "Ashdown,Ella,female,14/03/2019,Class 1 Oak,\r\n"
                               "Brook - Lane,Mohammed,M,1 Feb 2019,,robin\r\n\r\n"
                               "O'Connell,Chloe,F,2018-11-30,Nightingales,\r\n");
        Write_File(
            school_list,
            "Hillside Primary School;;;;\nUPN;Pupil name;Sex;Date of birth;Reg group\n"
            "H1;Ashdown, Ella;female;04/03/2019;Oak\nH2;Brook-Lane, Mohammed;male;01/02/2019;St John's\n"
            "H3;O'Connell, Chloe;female;30/11/2018;Nightingales\nH4;Łaś, Zofia;female;07/08/2018;Oak\n"
            "H5;Moss, Albert;male;09/10/11;Oak\nH6;Reed, Sam;;12/12/2018;Oak\n");
    }
    QString Open_File(const desktop::File_Question& question) override {
        return question.title == "Open a list of pupils"_L1 ? school_list : class_list;
    }
    QString Save_File(const desktop::File_Question&) override { return {}; }
    QString Choose_Folder(const QString&, const QString&) override { return {}; }

private:
    QString class_list;
    QString school_list;
};

class Silence final : public desktop::Sound {
public:
    void Play(const QString&) override {}
};

class Pictures {
public:
    explicit Pictures(QDir folder) : folder(std::move(folder)) {}
    void Take(QWidget& window, const QString& name) {
        QApplication::processEvents();
        Keep(window.grab().toImage(), name);
    }
    void Keep(const QImage& picture, const QString& name) {
        const QString file = folder.filePath(name + u".png"_s);
        if (picture.save(file))
            QTextStream(stdout) << file << Qt::endl;
        else
            throw std::runtime_error("can't write " + file.toStdString());
    }

private:
    QDir folder;
};

class Photographed_Dialogs final : public desktop::Modal_Dialogs {
public:
    explicit Photographed_Dialogs(Pictures& pictures) : pictures(pictures) {}
    void Show(QDialog& dialog) override {
        dialog.show();
        pictures.Take(dialog, dialog.objectName());
        dialog.reject();
    }

private:
    Pictures& pictures;
};

class Walk {
public:
    Walk(shell::Page_Host& window, Pictures& pictures) : window(window), pictures(pictures) {}

    void Through_All_Pages(const QSize& screen) {
        window.resize(screen);
        window.show();
        Wait_For(u"Form77"_s);
        Point_At(u"HotLabel1"_s);
        pictures.Take(window, u"main_menu"_s);
        Click(u"HotLabel1"_s);
        Wait_For(u"Form30"_s);
        Require([this] { return Combo().count() > 0; }, u"the pupil list stayed empty"_s);
        Choose_A_Pupil_With_Marks();
        Through_The_Charts();
        Through_An_Explanation();
        for (const QString& button : {u"BtnEnh11"_s, u"BtnEnh17"_s, u"BtnEnh18"_s, u"BtnEnh19"_s}) {
            Click(button);
            pictures.Take(window, u"reports_detail_"_s + button);
        }
        Click(u"HotLabel7"_s);
        pictures.Take(window, u"reports_summary"_s);
        Click(u"HotLabel5"_s);
        Click(u"HotLabel3"_s);
        Click(u"SaveScores"_s);
        Over_The_Page(u"EarlierResults"_s, u"Earlier_Page"_s, {}, u"Form30"_s);
        for (const auto& [entry, form] : Previews) {
            Click(entry);
            Wait_For(form);
            pictures.Take(window, form);
            if (form == "Form92"_L1) Make_The_Batch();
            Enlarge_And_Copy(form);
            Click(u"HotLabel1"_s);
            Wait_For(u"Form30"_s);
        }
        Click(u"HotLabel1"_s);
        Wait_For(u"Form77"_s);
        for (const Visit& visit : Pages_From_The_Menu)
            Visit_From_The_Menu(visit);
        Through_The_Kept_Copies();
    }

private:
    void Visit_From_The_Menu(const Visit& visit) {
        const auto& [entry, form] = visit.way;
        Click(entry);
        Wait_For(form);
        if (!visit.pointed_at.isEmpty()) Point_At(visit.pointed_at);
        pictures.Take(window, form);
        if (form == "Form15"_L1) Over_The_Page(u"AllData"_s, u"Whole_Data_Page"_s, u"HotLabel5"_s, form);
        for (const QString& clicked : visit.clicks)
            Click(clicked);
        if (form == "Form20"_L1) Through_The_Norms();
        if (form == "Form20"_L1) Over_The_Page(u"ChangesEntry"_s, u"Changes_Page"_s, u"HotLabel5"_s, form);
        if (form == "Form14"_L1) Preview(u"TickList"_s, u"Tick_List"_s, form, {});
        if (form == "Form2"_L1) Preview(u"LoginCards"_s, u"Login_Cards"_s, form, u"ClassList"_s);
        if (form == "Form42"_L1) Name_A_Schools_Folder();
        if (!visit.clicks.isEmpty()) pictures.Take(window, form + u"_in_use"_s);
        if (form == "Form42"_L1) Prepare_A_List();
        Click(u"HotLabel1"_s);
        Wait_For(u"Form77"_s);
    }

    void Through_The_Kept_Copies() {
        const Way ways[] = {{u"HotLabel8"_s, u"Form60"_s}, {u"GoBack"_s, u"Form61"_s},
                            {u"HotLabel5"_s, u"Form62"_s}, {u"HotLabel1"_s, u"Form61"_s},
                            {u"HotLabel1"_s, u"Form60"_s}, {u"HotLabel1"_s, u"Form77"_s}};
        for (const auto& [entry, form] : ways) {
            Click(entry);
            Wait_For(form);
            if (form == "Form61"_L1 || form == "Form62"_L1) pictures.Take(window, form);
        }
    }

    void Over_The_Page(const QString& entry, const QString& form, const QString& click,
                       const QString& beneath) {
        Click(entry);
        Wait_For(form);
        pictures.Take(window, form);
        if (!click.isEmpty()) {
            Click(click);
            pictures.Take(window, form + u"_in_use"_s);
        }
        Click(u"HotLabel1"_s);
        Wait_For(beneath);
    }

    void Preview(const QString& entry, const QString& form, const QString& beneath, const QString& click) {
        Click(entry);
        Wait_For(form);
        pictures.Take(window, form);
        Enlarge_And_Copy(form);
        if (!click.isEmpty()) {
            Click(click);
            Enlarge_And_Copy(form + u'_' + click);
        }
        Click(u"HotLabel1"_s);
        Wait_For(beneath);
    }

    // The class list lies in a folder of this machine that has another name each time.
    void Name_A_Schools_Folder() {
        static_cast<QLineEdit&>(Control(u"Text1"_s)).setText(u"/home/school/class list.txt"_s);
    }

    void Prepare_A_List() {
        Click(u"HotLabel5"_s);
        Wait_For(u"Form43"_s);
        pictures.Take(window, u"Form43"_s);
        Click(u"HotLabel2"_s);
        static_cast<QLineEdit&>(Control(u"Text1"_s)).setText(u"/home/school/list.csv"_s);
        pictures.Take(window, u"Form43_in_use"_s);
        Click(u"HotLabel1"_s);
        Wait_For(u"Form42"_s);
    }

    void Through_An_Explanation() {
        Click(u"WhyEntry"_s);
        pictures.Take(window, u"reports_why"_s);
        Click(u"WhyPrint"_s);
        Wait_For(u"Why_Report"_s);
        pictures.Take(window, u"Why_Report"_s);
        Enlarge_And_Copy(u"Why_Report"_s);
        Click(u"HotLabel1"_s);
        Wait_For(u"Form30"_s);
        Click(u"WhyClose"_s);
    }

    void Through_The_Norms() {
        Click(u"NormTables"_s);
        Wait_For(u"Norms_Page"_s);
        pictures.Take(window, u"Norms_Page"_s);
        Click(u"HotLabel1"_s);
        Wait_For(u"Form20"_s);
    }

    void Through_The_Charts() {
        pictures.Take(window, u"reports_centiles"_s);
        Click(u"ShowZScores"_s);
        pictures.Take(window, u"reports_zscores"_s);
        Click(u"HotLabel2"_s);
        pictures.Take(window, u"reports_zscores_times"_s);
        Click(u"ShowCentiles"_s);
        pictures.Take(window, u"reports_centiles_times"_s);
        Click(u"ShowWhite"_s);
        pictures.Take(window, u"reports_centiles_white"_s);
        Click(u"ShowZScores"_s);
        pictures.Take(window, u"reports_zscores_white"_s);
    }

    void Make_The_Batch() {
        Click(u"HotLabel7"_s);
        Click(u"HotLabel9"_s);
        pictures.Take(window, u"Form92_batch"_s);
        Click(u"FullReports"_s);
        static_cast<QLineEdit&>(Control(u"FindName"_s)).setText(u"o"_s);
        pictures.Take(window, u"Form92_found"_s);
    }

    // The sheet comes by way of the clipboard, as a word processor would get it.
    void Enlarge_And_Copy(const QString& form) {
        Click(u"HotLabel5"_s);
        pictures.Take(window, form + u"_enlarged"_s);
        Click(u"FitWidth"_s);
        pictures.Take(window, form + u"_fitted"_s);
        Click(u"HotLabel3"_s);
        pictures.Keep(Picture_On_The_Clipboard(), form + u"_sheet"_s);
    }

    // Wine gives no bitmap back that it made of another one by itself; the same picture lies there as PNG.
    static QImage Picture_On_The_Clipboard() {
        const QImage picture = QApplication::clipboard()->image();
        if (!picture.isNull()) return picture;
        return QImage::fromData(QApplication::clipboard()->mimeData()->data(u"image/png"_s));
    }

    void Choose_A_Pupil_With_Marks() {
        for (int index = 0; index < Combo().count(); ++index) {
            Combo().Set_ListIndex(index);
            if (Control(u"Image12"_s).isVisible()) return;
        }
        Combo().Set_ListIndex(0);
    }

    QWidget& Control(const QString& name) {
        auto* control = window.Current()->findChild<QWidget*>(name);
        if (!control) throw std::runtime_error("no control " + name.toStdString());
        return *control;
    }
    shell::Click_Combo& Combo() { return static_cast<shell::Click_Combo&>(Control(u"Combo1"_s)); }
    void Click(const QString& name) {
        QTest::mouseClick(&Control(name), Qt::LeftButton);
        QApplication::processEvents();
    }
    void Point_At(const QString& name) {
        QWidget& control = Control(name);
        const QPointF middle = QRectF(control.rect()).center();
        QMouseEvent move(QEvent::MouseMove, middle, control.mapToGlobal(middle), Qt::NoButton, Qt::NoButton,
                         Qt::NoModifier);
        QApplication::sendEvent(&control, &move);
    }
    void Require(const std::function<bool()>& condition, const QString& otherwise) {
        if (!QTest::qWaitFor(condition, 20'000)) throw std::runtime_error(otherwise.toStdString());
    }
    void Wait_For(const QString& page) {
        Require([this, page] { return window.Current() && window.Current()->objectName() == page; },
                page + u" didn't appear"_s);
        QTest::qWait(50); // its timer
    }

    shell::Page_Host& window;
    Pictures& pictures;
};

// Of the window, in pixels; empty if the arguments aren't understood.
QSize Screen_Of(const QStringList& arguments) {
    if (arguments.size() == 2) return Usual_Screen;
    return arguments.size() == 4 ? QSize(arguments.at(2).toInt(), arguments.at(3).toInt()) : QSize();
}

} // namespace

int main(int argc, char** argv) {
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    QStringList arguments = QApplication::arguments();
    const bool dark = arguments.removeAll(u"--dark"_s) > 0;
    const QSize screen = Screen_Of(arguments);
    if (screen.isEmpty()) {
        QTextStream(stderr) << "usage: mevo-screens [--dark] FOLDER [WIDTH HEIGHT]" << Qt::endl;
        return 2;
    }
    const QDir folder(arguments.at(1));
    if (!folder.mkpath(u"."_s)) {
        QTextStream(stderr) << "can't make the folder " << folder.path() << Qt::endl;
        return 2;
    }
    QApplication::setQuitOnLastWindowClosed(false);
    shell::Apply_Theme(application, dark ? shell::Scheme::Dark : shell::Scheme::Light);

    desktop::Qt_Platform real;
    desktop::Platform& ports = real.Ports();
    Pictures pictures(folder);
    Refusing_Boxes boxes(ports.processes);
    console::Hurried_Clock clock;
    Silence sound;
    desktop::No_User_Settings settings; // the pictures are of a new account
    Photographed_Dialogs dialogs(pictures);
    const QTemporaryDir own;
    Two_Lists lists(QDir(own.path()));
    desktop::Platform platform = console::With({.boxes = &boxes,
                                                .clock = &clock,
                                                .sound = &sound,
                                                .dialogs = &dialogs,
                                                .file_dialogs = &lists,
                                                .settings = &settings},
                                               ports);
    app::Program program(platform);
    program.Start(QApplication::applicationDirPath());
    try {
        Walk(program.Window(), pictures).Through_All_Pages(screen);
    } catch (const std::exception& error) {
        QTextStream(stderr) << "mevo-screens: " << error.what() << Qt::endl;
        return 1;
    }
    return 0;
}
