#include "share.h"

#include "answering.h"
#include "app/program.h"
#include "console/other_ports.h"
#include "installed_folder.h"
#include "keeping/change_list.h"
#include "keeping/earlier_takings.h"
#include "measuring.h"
#include "platform/desktop/qt_platform.h"
#include "printing/batch_list.h"
#include "pupils/list_view.h"
#include "scoring/cohort.h"
#include "shell/conventions/click_combo.h"
#include "shell/conventions/theme.h"
#include "slow_share.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLineEdit>
#include <QProcess>
#include <QTextStream>
#include <benchmark/benchmark.h>
#include <cmath>
#include <dlfcn.h>
#include <stdexcept>

using namespace Qt::StringLiterals;

namespace bench {
namespace {

constexpr int At_Once = 10; // pupils of an import or a deletion
const QString Do_An_Act = u"--on-a-share"_s;

// The program at work on the school below `folder`, in this process.
class Desk {
    desktop::Qt_Platform platform;
    Yes_To_All boxes;
    console::Hurried_Clock clock;

public:
    explicit Desk(const QString& folder)
        : share(folder + u"/school"_s),
          file_dialogs(folder + u"/class.txt"_s),
          ports(console::With({.boxes = &boxes, .clock = &clock, .file_dialogs = &file_dialogs},
                              platform.Ports())),
          program(ports) {
        program.Start(folder);
        program.Window().showMaximized();
        Until([this] { return Page(u"Form77"_s) != nullptr; });
    }

    void Press(const QString& page, const QString& button) {
        Control<QAbstractButton>(page, button).click();
        Settle();
    }
    // Opens a page of the menu, until the list of pupils stands on it.
    void Open(const QString& entry, const QString& page) {
        Press(u"Form77"_s, entry);
        Until([&] { return Page(page) && Has_A_List(*Page(page)); });
    }
    template<class Type>
    Type& Control(const QString& page, const QString& name) {
        auto* found = Page(page) ? Page(page)->findChild<Type*>(name) : nullptr;
        if (!found) throw std::runtime_error("no " + (page + u' ' + name).toStdString());
        return *found;
    }
    // What timers and the queue have still to do is part of the act.
    static void Settle() {
        constexpr int rounds = 20;
        for (int i = 0; i < rounds; ++i)
            QApplication::processEvents(QEventLoop::AllEvents, 1);
    }

    const QString share; // the folder that the school's file lies in
    One_File file_dialogs;
    desktop::Platform ports;

private:
    QWidget* Page(const QString& name) { return program.Window().findChild<QWidget*>(name); }
    static bool Has_A_List(const QWidget& page) {
        const auto* list = page.findChild<pupils::List_View*>();
        const auto* combo = page.findChild<shell::Click_Combo*>(u"Combo1"_s);
        return list ? list->Count() > 0 : combo->count() > 0;
    }
    template<class Condition>
    static void Until(const Condition& holds) {
        constexpr double longest_ms = 300'000;
        for (const double since = Wall_Ms(); !holds(); QApplication::processEvents(QEventLoop::AllEvents, 1))
            if (Wall_Ms() - since > longest_ms) throw std::runtime_error("an act doesn't end");
        Settle();
    }

    app::Program program;
};

// ---- the acts

void Nothing(Desk&) {
}

void Open_Reports(Desk& desk) {
    desk.Open(u"HotLabel1"_s, u"Form30"_s);
}
void Open_Security(Desk& desk) {
    desk.Open(u"HotLabel14"_s, u"Form2"_s);
}
void Open_Delete(Desk& desk) {
    desk.Open(u"HotLabel3"_s, u"Form9"_s);
}
void Open_Fine_Tuning(Desk& desk) {
    desk.Open(u"HotLabel5"_s, u"Form15"_s);
}

// From then on a page finds that the newest copy is of the file as it is.
void Have_A_Copy(Desk& desk) {
    Open_Delete(desk);
    desk.Press(u"Form9"_s, u"HotLabel1"_s);
}

void Open_With_Time_Bars(Desk& desk) {
    Open_Reports(desk);
    desk.Press(u"Form30"_s, u"HotLabel2"_s);
}

// Somebody in mid-list.
void Choose_One(Desk& desk) {
    auto& list = desk.Control<shell::Click_Combo>(u"Form30"_s, u"Combo1"_s);
    list.Set_ListIndex(list.count() / 2);
    Desk::Settle();
}

void Score_A_Batch(Desk& desk) {
    desk.Press(u"Form30"_s, u"HotLabel6"_s);
}

// The same reading without a page, from the list of pupils on.
void Score_A_School(Desk& desk) {
    foundation::Installation installation;
    installation.Connection_String = foundation::Connection_String_For(desk.share + u"/Mevo05Data.mdb"_s);
    foundation::Access_Holder holder(desk.ports);
    const auto data = std::make_unique<scoring::Scoring_Data>();
    const auto cohort = std::make_unique<scoring::Cohort_Tables>();
    scoring::Scoring scoring = scoring::Pass_Over(*data, installation, holder);
    scoring::Load_Pupil_Lists(holder, installation, desk.ports.clock, data->pupils);
    scoring::Load_All_Norms(holder, installation, data->norms);
    printing::Compute_All_Scores([](const QString&) {}, *cohort, scoring);
}

void Open_Register(Desk& desk) {
    desk.Press(u"Form77"_s, u"HotLabel4"_s);
    desk.Control<QLineEdit>(u"Form10"_s, u"Text3"_s).setText(u"Newcomer"_s);
    desk.Control<QLineEdit>(u"Form10"_s, u"Text4"_s).setText(u"Noor"_s);
}
void Register_One(Desk& desk) {
    desk.Press(u"Form10"_s, u"HotLabel2"_s);
}

void Preview_A_Class(Desk& desk) {
    desk.Press(u"Form77"_s, u"HotLabel2"_s);
    desk.Press(u"Form42"_s, u"PreviewImport"_s);
}
void Import_It(Desk& desk) {
    desk.Press(u"Form42"_s, u"HotLabel3"_s);
}

void Select_Pupils(Desk& desk) {
    Open_Delete(desk);
    auto& list = desk.Control<pupils::List_View>(u"Form9"_s, u"ListView1"_s);
    for (int i = 0; i < At_Once; ++i)
        list.topLevelItem(i)->setSelected(true);
}
void Delete_Them(Desk& desk) {
    desk.Press(u"Form9"_s, u"HotLabel2"_s);
}

void Push_A_Group(Desk& desk) {
    desk.Press(u"Form2"_s, u"HotLabel6"_s);
}

void Open_Archiving(Desk& desk) {
    desk.Press(u"Form77"_s, u"HotLabel8"_s);
    desk.file_dialogs = One_File(desk.share + u"/archive.mdb"_s);
}
void Save_An_Archive(Desk& desk) {
    desk.Press(u"Form60"_s, u"HotLabel2"_s);
}

// ---- what an act does besides the told one, for the files beside the database

void Note_It(const Desk& desk) {
    foundation::Installation installation;
    installation.Database_Path = desk.share + u"/Mevo05Data.mdb"_s;
    installation.Connection_String = foundation::Connection_String_For(installation.Database_Path);
    keeping::Note(installation, desk.ports.clock, keeping::Act::Registered, {u"SUBJECT"_s});
}
void Forget_And_Note_It(const Desk& desk) {
    keeping::Remove_Takings(keeping::Companion_Of(desk.share + u"/Mevo05Data.mdb"_s), {u"SUBJECT"_s});
    Note_It(desk);
}
void Copy_And_Note_It(const Desk& desk) {
    keeping::Copy_Companion(desk.share + u"/Mevo05Data.mdb"_s, desk.share + u"/archive.mdb"_s);
    Note_It(desk);
}

constexpr long In_Large_Pieces = -1; // as many as reading and writing the file takes, and a fifth more
constexpr int Usual_School = 300;
constexpr int Scored_School = 2000;

struct Act {
    const char* name;
    long limit; // round trips of one
    void (*make_ready)(Desk&);
    void (*work)(Desk&);
    int at_once = 1;
    int pupils = Usual_School;
    void (*addition)(const Desk&) = nullptr;
};

// The first counts from the process's own beginning.
const Act Acts[] = {
    {"start", 150, Nothing, Nothing},
    {"open_reports", 180, Nothing, Open_Reports},
    {"open_security", 100, Have_A_Copy, Open_Security},
    {"open_delete", 100, Have_A_Copy, Open_Delete},
    {"open_fine_tuning", 100, Have_A_Copy, Open_Fine_Tuning},
    {"open_delete_with_a_copy", 170, Nothing,
     Open_Delete}, // the first that opens behind a change copies the file
    {"choose_a_pupil", 70, Open_Reports, Choose_One},
    {"choose_with_time_bars", 75, Open_With_Time_Bars, Choose_One},
    {"score_a_school", 2500, Nothing, Score_A_School, 1, Scored_School},
    {"score_a_batch", 2500, Open_Reports, Score_A_Batch, 1, Scored_School},
    {"register", 250, Open_Register, Register_One, 1, Usual_School, Note_It},
    {"import_a_pupil", 220, Preview_A_Class, Import_It, At_Once, Usual_School, Note_It},
    {"delete_a_pupil", 220, Select_Pupils, Delete_Them, At_Once, Usual_School, Forget_And_Note_It},
    {"update_a_group", 250, Open_Security, Push_A_Group, 1, Usual_School, Note_It},
    {"archive", In_Large_Pieces, Open_Archiving, Save_An_Archive, 1, Usual_School, Copy_And_Note_It},
};

// ---- in the process that does an act

long Told_By_The_Library(const char* name) {
    auto* const told = reinterpret_cast<decltype(&mevo_share_trips)>(dlsym(RTLD_DEFAULT, name));
    return told ? told() : 0;
}

// Once more by itself, in the state that the act found. What is asked about the database and its folder for
// it is part of the act's own count.
long Asked_For_The_Addition(const Act& act, const Desk& desk) {
    if (!act.addition) return 0;
    QFile::remove(keeping::Changes_Of(desk.share + u"/Mevo05Data.mdb"_s));
    const long before = Told_By_The_Library("mevo_share_trips");
    act.addition(desk);
    return Told_By_The_Library("mevo_share_trips") - before;
}

int Do(const Act& act, const QString& folder, double begun_ms) {
    Desk desk(folder);
    const bool from_the_beginning = act.work == Nothing;
    act.make_ready(desk);
    const long before = from_the_beginning ? 0 : Told_By_The_Library("mevo_share_trips");
    const long beside = from_the_beginning ? 0 : Told_By_The_Library("mevo_share_trips_beside");
    if (!from_the_beginning) begun_ms = Wall_Ms();
    act.work(desk);
    const double took_ms = Wall_Ms() - begun_ms;
    const long asked = Told_By_The_Library("mevo_share_trips") - before;
    const long asked_beside = Told_By_The_Library("mevo_share_trips_beside") - beside;
    QTextStream(stdout) << asked << ' ' << asked_beside << ' ' << Asked_For_The_Addition(act, desk) << ' '
                        << took_ms << Qt::endl;
    return 0;
}

// ---- in the process that measures

QString Library() {
    return QApplication::applicationDirPath() + u"/libslow_share.so"_s;
}

struct Done {
    double trips;     // about the database, its journal and its folder, for one
    double additions; // how many of these for the files beside it
    double beside;    // about other files
    double ms;        // of all at once
    double limit;     // of the trips without the additions

    bool Is_Within() const { return trips - additions <= limit; }
};

void Write_A_Class(const QString& file) {
    QFile list(file);
    if (!list.open(QIODevice::WriteOnly)) throw std::runtime_error("can't write the list");
    for (int i = 0; i < At_Once; ++i)
        list.write("Aa" + QByteArray(1, static_cast<char>('a' + i)) + ",Newcomer,F,14/03/2019,,\r\n");
}

double Limit_Of(const Act& act, const QString& school) {
    constexpr qint64 piece = 65536;
    constexpr double reads_and_writes = 2;
    constexpr double at_most = 1.2;
    if (act.limit != In_Large_Pieces) return static_cast<double>(act.limit);
    return std::floor(at_most * reads_and_writes *
                      static_cast<double>((QFileInfo(school).size() + piece - 1) / piece));
}

Done Do_Elsewhere(const Act& act, int delay_us) {
    const Installed_Folder installed(act.pupils);
    Write_A_Class(installed.Path() + u"/class.txt"_s);
    const double limit = Limit_Of(act, installed.School() + u"/Mevo05Data.mdb"_s);
    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(u"LD_PRELOAD"_s, Library());
    environment.insert(u"SHARE_FOLDER"_s, installed.School());
    environment.insert(u"SHARE_DELAY_US"_s, QString::number(delay_us));
    process.setProcessEnvironment(environment);
    process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    process.start(QApplication::applicationFilePath(),
                  {Do_An_Act, QString::fromLatin1(act.name), installed.Path()});
    constexpr int longest_ms = 600'000;
    process.waitForFinished(longest_ms);
    QTextStream told(process.readAllStandardOutput());
    Done done{-1, 0, 0, 0, limit};
    told >> done.trips >> done.beside >> done.additions >> done.ms;
    if (process.exitCode() != 0 || done.trips < 0) throw std::runtime_error("an act failed");
    for (double* count : {&done.trips, &done.beside})
        *count = std::ceil(*count / act.at_once);
    done.additions = std::floor(done.additions / act.at_once);
    return done;
}

void On_A_Share(benchmark::State& state, const Act& act) {
    constexpr int a_millisecond_us = 1000;
    constexpr double ms_in_a_second = 1000;
    for ([[maybe_unused]] auto _ : state) {
        const Done done = Do_Elsewhere(act, a_millisecond_us);
        state.SetIterationTime(done.ms / ms_in_a_second);
        state.counters["trips"] = done.trips;
        state.counters["limit"] = done.limit;
        state.counters["additions"] = done.additions;
        state.counters["beside"] = done.beside;
        state.counters["at_once"] = act.at_once;
        state.SetLabel(done.Is_Within() ? "within" : "NOT within");
    }
}

} // namespace

void Register_Share() {
    if (!QFile::exists(Library())) return;
    for (const Act& act : Acts)
        benchmark::RegisterBenchmark((std::string("share/") + act.name).c_str(), On_A_Share, std::cref(act))
            ->Unit(benchmark::kMillisecond)
            ->UseManualTime()
            ->Iterations(1);
}

int Tell_Round_Trips() {
    QTextStream out(stdout);
    constexpr int skipped = 77;
    if (!QFile::exists(Library())) {
        out << "Skipped: this build has no " << QFileInfo(Library()).fileName() << Qt::endl;
        return skipped;
    }
    const auto row = [&out](const QString& act, const QStringList& cells) {
        out << act.leftJustified(24);
        for (const QString& cell : cells)
            out << cell.rightJustified(11);
        out << Qt::endl;
    };
    bool all_within = true;
    row(u"Round trips"_s, {u"to server"_s, u"additions"_s, u"told act"_s, u"limit"_s, u"beside"_s});
    for (const Act& act : Acts) {
        const Done done = Do_Elsewhere(act, 0);
        all_within = all_within && done.Is_Within();
        QStringList cells;
        for (const double count :
             {done.trips, done.additions, done.trips - done.additions, done.limit, done.beside})
            cells.append(QString::number(count));
        row(QString::fromLatin1(act.name), cells << (done.Is_Within() ? u""_s : u"NOT within"_s));
    }
    return all_within ? 0 : 1;
}

std::optional<int> Started_On_A_Share(int argc, char** argv) {
    if (argc != 4 || Do_An_Act != QLatin1StringView(argv[1])) return {};
    const double begun_ms = Wall_Ms();
    QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    shell::Apply_Theme(application);
    for (const Act& act : Acts)
        if (QLatin1StringView(act.name) == QLatin1StringView(argv[2]))
            return Do(act, QString::fromLocal8Bit(argv[3]), begun_ms);
    return 2;
}

} // namespace bench
