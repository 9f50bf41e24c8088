#include "setup/set_up.h"

#include "conversion/refusal.h"
#include "foundation/database_version.h"
#include "foundation/school_settings.h"
#include "foundation/start_up.h"
#include "platform/basics/native_path.h"
#include "platform/basics/run_time_error.h"
#include "platform/database/database_file.h"
#include "platform/database/engine_handle.h"
#include "setup/folders.h"
#include "setup/quiet_ports.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QProcess>
#include <QSaveFile>
#include <sqlite3.h>

using namespace Qt::StringLiterals;

namespace set_up {

using conversion::Refusal;

namespace {

#ifdef _WIN32
const QString Program_Ending = u".exe"_s;
#else
const QString Program_Ending;
#endif

bool Is_Standard(const QString& folder, const Around& around) {
    return QDir(folder) == QDir(around.standard_folder);
}

void Require_Databases(const Order& order) {
    const Found_Databases found = Databases_In(order.folder);
    if (found.Can_Be_Used()) return;
    if (!found.working)
        throw Refusal(
            u"There is no school's database in %1. Name a new school, or where its files come from."_s.arg(
                order.folder));
    if (!found.empty_template)
        throw Refusal(
            u"The school's own template Mevo05EmptyDatabase.mdb is missing in %1: without it Mevo looks elsewhere."_s
                .arg(order.folder));
    const Found_Database& wrong = found.working->look.kind == foundation::School_Look::Kind::School
                                      ? *found.empty_template
                                      : *found.working;
    throw Refusal(u"%1: %2"_s.arg(wrong.file, wrong.look.why));
}

void Put_School_There(const Order& order, const Around& around) {
    if (order.school)
        Make_Empty_School(order.folder, *order.school, order.from, around.reader, around.watcher);
    else if (!order.from.isEmpty())
        Bring_School(order.folder, order.from, around.reader, around.watcher);
    else
        Require_Databases(order);
}

void Keep_Sheets(const Order& order) {
    if (!order.sheets) return;
    const QString file = foundation::School_Settings_File(order.folder + u'/');
    QSaveFile saved(file);
    const bool within = *order.sheets == Sheets::Within_The_Margins;
    const QByteArray text = foundation::School_Settings_Text(within).toUtf8();
    if (!saved.open(QIODevice::WriteOnly) || saved.write(text) != text.size() || !saved.commit())
        throw Refusal(u"%1 can't be written: %2"_s.arg(QDir::toNativeSeparators(file), saved.errorString()));
    Open_To_Users_Of_Its_Folder(file);
}

} // namespace

Around Surroundings_Here() {
    const QString folder = QCoreApplication::applicationDirPath();
    const desktop::Disk_Ports disk;
    QString all_users;
    disk.folders->Folder_Path(desktop::Common_AppData, all_users);
    const QString standard = basics::Native_Path(foundation::Standard_Folder(all_users));
    return {folder, Plain_Folder(standard), folder + u"/mevo-setup"_s + Program_Ending,
            conversion::Reader_Beside_This_Program()};
}

void Prepare_Folder(const Order& order, const Around& around) {
    const QFileInfo folder(order.folder);
    if (folder.isDir()) return;
    if (!Is_Standard(order.folder, around) && !folder.dir().exists())
        throw Refusal(u"There is no folder %1 to make %2 in."_s.arg(
            QDir::toNativeSeparators(folder.absolutePath()), folder.fileName()));
    Make_Folder(order.folder, order.group);
    // The one that its archive dialogs begin with.
    if (Is_Standard(order.folder, around)) Make_Folder(order.folder + u"/archives"_s, order.group);
}

Done Carry_Out(const Order& order, const Around& around) {
    const bool brings_files = order.school || !order.from.isEmpty();
    if (!brings_files && !QFileInfo(order.folder).isDir())
        throw Refusal(u"There is no folder %1."_s.arg(order.folder));
    Prepare_Folder(order, around);
    try {
        Put_School_There(order, around);
    } catch (const Refusal&) {
        QDir().rmdir(order.folder); // only where nothing lies in it
        throw;
    }
    Keep_Sheets(order);
    return {
        Databases_In(order.folder).In_Words(),
        Tell_Program(around.program_folder, Is_Standard(order.folder, around) ? QString() : order.folder)};
}

bool Start_Beside(const QString& program, const QStringList& arguments, const Around& around) {
    const QString file = u"%1/%2"_s.arg(around.program_folder, program) + Program_Ending;
    return QFileInfo(file).isFile() && QProcess::startDetached(file, arguments);
}

bool Mevo_Finds_Its_Database(const QString& program_folder) {
    Quiet_Ports quiet;
    foundation::Installation installation;
    try {
        foundation::Form8(quiet.Ports(), installation).Find_Database(program_folder);
    } catch (const console::Program_Ended&) {
        return false;
    }
    const QString file = basics::Native_Path(installation.Database_Path);
    try {
        database::Refuse_What_Is_No_Database(file);
        const database::Engine_Handle engine(file, database::Access::Read_Only,
                                             [](sqlite3*, int result) { throw result & 0xff; });
        engine.Run(u"SELECT count(*) FROM sqlite_master"_s);
        return true;
    } catch (const basics::Run_Time_Error&) {
        return false;
    } catch (const int result) {
        // Held by another workstation, or left by one that crashed: both are Mevo's to deal with.
        return result == SQLITE_BUSY || result == SQLITE_READONLY || result == SQLITE_CANTOPEN;
    }
}

} // namespace set_up
