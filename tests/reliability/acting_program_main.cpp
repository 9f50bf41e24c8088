// One act of the administration in a process that can be killed: acting_program ACT FOLDER [DESK]. FOLDER
// holds the working database, the template, archives/archive.mdb and class.txt; where several are at work
// each DESK imports a class of its own, class1.txt, deletes pupils with surnames as Zz1, and saves mine1.mdb.
// "ready" on the output tells that the act begins, "stored N" that N pupils of an import are stored, "waited
// N" that it waited N seconds for the file at one time, "done" that the act is over.

#include "conversion/older_files.h"
#include "foundation/database_version.h"
#include "platform/database/busy_waiting.h"
#include "pupils/delete_page.h"
#include "pupils/import_page.h"
#include "shell/archiving.h"
#include "support/controls.h"
#include "support/scripted_platform.h"

#include <QApplication>
#include <QDir>
#include <QRandomGenerator>
#include <algorithm>
#include <iostream>

#ifdef _WIN32
#include <fcntl.h>
#include <io.h>
#endif

using namespace Qt::StringLiterals;
using namespace test_support;
using desktop::Answer;

namespace {

struct Desk {
    Scripted_Platform outside;
    Recording_Navigator navigator;
    foundation::Installation installation;
    shell::Menu_Counts counts;
    database::Safe_Copies copies;
    conversion::Jet_Files older_files;
    scoring::Pupil_Lists lists;
    pupils::Pupil_Records records;
    QString number; // empty: the only one

    void Show(shell::Page& page) {
        page.resize(1366, 768);
        page.show();
        page.Load();
        std::cout << "ready" << std::endl;
    }
    void Answer_With(const QList<Answer>& answers) {
        for (const Answer answer : answers)
            outside.boxes.Will_Answer(answer);
    }
};

// Notes the longest wait for the file; one of less than a second isn't told.
class Stop_Watch final : public QObject {
public:
    int seconds = 0;
    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() != database::Waiting_Event::Kind) return false;
        constexpr int longest = 15;
        const int left = static_cast<database::Waiting_Event*>(event)->seconds_left;
        if (left != database::Waiting_Event::Is_Over) seconds = std::max(seconds, longest - left);
        return false;
    }
};

} // namespace

static void Press_In_Archiving(Desk& desk, const QString& button, const QStringList& file) {
    shell::Form60 page(desk.outside.platform, desk.navigator, desk.installation, desk.counts, desk.copies,
                       desk.older_files);
    desk.outside.file_dialogs.answers = file;
    desk.outside.input_box.answers = {u"secret"_s};
    desk.Show(page);
    Click(page, button);
}

static void Archive(Desk& desk) {
    desk.Answer_With({Answer::Ok});
    Press_In_Archiving(desk, u"HotLabel2"_s,
                       {desk.installation.Archive_Folder + u"/mine%1.mdb"_s.arg(desk.number)});
}

static void Load(Desk& desk) {
    desk.Answer_With({Answer::Yes, Answer::Ok});
    Press_In_Archiving(desk, u"HotLabel4"_s, {desk.installation.Archive_Folder + u"/archive.mdb"_s});
}

static void Start_Clean(Desk& desk) {
    desk.Answer_With({Answer::Yes, Answer::Ok});
    Press_In_Archiving(desk, u"HotLabel5"_s, {});
}

static void Import(Desk& desk) {
    QRandomGenerator generator(1);
    while (desk.outside.random.numbers.size() < 10'007)
        desk.outside.random.numbers.append(generator.generateDouble());
    pupils::List_To_Import prepared;
    pupils::Form42 page(desk.outside.platform, desk.navigator, desk.installation, prepared);
    desk.outside.file_dialogs.answers = {desk.installation.App_Path + u"/class%1.txt"_s.arg(desk.number)};
    Click(page, u"PreviewImport"_s);
    QObject::connect(&Control<QProgressBar>(page, u"ProgressBar1"_s), &QProgressBar::valueChanged, &page,
                     [](int pupils) { std::cout << "stored " << pupils << std::endl; });
    desk.Answer_With({Answer::Yes});
    desk.Show(page);
    Click(page, u"HotLabel3"_s);
}

static void Delete(Desk& desk) {
    pupils::Form9 page(desk.outside.platform, desk.navigator, {desk.installation, desk.lists, desk.records},
                       desk.counts);
    desk.Answer_With({Answer::Yes});
    desk.Show(page);
    constexpr int pupils = 15;
    auto& list = Control<pupils::List_View>(page, u"ListView1"_s);
    for (int i = 0, of_this_desk = 0; i < list.Count() && of_this_desk < pupils; ++i) {
        const bool is_its_own =
            desk.number.isEmpty() || list.topLevelItem(i)->text(0).startsWith(u"Zz"_s + desk.number);
        if (is_its_own) list.topLevelItem(i)->setSelected(true);
        of_this_desk += is_its_own;
    }
    Click(page, u"HotLabel2"_s);
}

static void Convert(Desk& desk) {
    desk.Answer_With({Answer::Ok});
    std::cout << "ready" << std::endl;
    if (!foundation::Database_Is_Version_51(desk.installation))
        foundation::Convert_Database_To_51(desk.installation, desk.outside.platform);
}

static int Act(const QString& name, const QString& folder, const QString& number) {
    static const QMap<QString, void (*)(Desk&)> acts{
        {u"archive"_s, Archive}, {u"load"_s, Load},       {u"clean start"_s, Start_Clean},
        {u"import"_s, Import},   {u"convert"_s, Convert}, {u"delete"_s, Delete},
    };
    const auto act = acts.value(name);
    if (!act) return 2;
    Desk desk;
    desk.number = number;
    desk.installation.App_Path = folder;
    desk.installation.Database_Path = folder + u"/Mevo05Data.mdb"_s;
    desk.installation.Empty_Database_Path = folder + u"/Mevo05EmptyDatabase.mdb"_s;
    desk.installation.Archive_Folder = folder + u"/archives"_s;
    desk.installation.Connection_String = foundation::Connection_String_For(desk.installation.Database_Path);
    desk.installation.Admin_Password = u"secret"_s;
    Stop_Watch watch;
    QCoreApplication::instance()->installEventFilter(&watch);
    act(desk);
    std::cout << "waited " << watch.seconds << '\n';
    for (const Box_Shown& box : std::as_const(desk.outside.boxes.shown))
        std::cout << "box: " << box.text.simplified().toStdString() << '\n';
    std::cout << "done" << std::endl;
    return 0;
}

int main(int argc, char** argv) {
#ifdef _WIN32
    _setmode(_fileno(stdout), _O_BINARY); // who reads it may be a program of another system
#endif
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    const QStringList arguments = QApplication::arguments();
    try {
        return arguments.size() >= 3 ? Act(arguments[1], arguments[2], arguments.value(3)) : 2;
    } catch (const std::exception& error) {
        std::cout << "failed: " << error.what() << std::endl;
    } catch (const Program_Ended&) {
        std::cout << "failed: the program ended itself" << std::endl;
    }
    return 1;
}
