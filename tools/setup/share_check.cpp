#include "setup/share_check.h"

#include "foundation/start_up.h"
#include "platform/basics/native_path.h"
#include "platform/database/database_file.h"
#include "platform/database/engine_handle.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QStorageInfo>
#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <sqlite3.h>

using namespace Qt::StringLiterals;

namespace set_up {

using database::Engine_Handle;
using Mark = Finding::Mark;

QString Word_For(Mark mark) {
    switch (mark) {
    case Mark::Good:
        return u"good"_s;
    case Mark::Doubtful:
        return u"doubtful"_s;
    case Mark::Bad:
        break;
    }
    return u"bad"_s;
}

bool Is_All_Good(const QList<Finding>& findings) {
    return std::all_of(findings.begin(), findings.end(),
                       [](const Finding& finding) { return finding.mark == Mark::Good; });
}

namespace {

struct Engine_Result {
    int result;
};
[[noreturn]] void Throw_Result(sqlite3*, int result) {
    throw Engine_Result{result & 0xff};
}

// SQLITE_OK, or what the engine said to a statement.
int Result_Of(const Engine_Handle& engine, const QString& sql) {
    try {
        engine.Run(sql);
        return SQLITE_OK;
    } catch (const Engine_Result& failed) {
        return failed.result;
    }
}

// A database that nobody knows of, with what the engine may leave beside it.
class Trial {
public:
    explicit Trial(const QString& folder)
        : file(u"%1/mevo-setup-trial-%2.tmp"_s.arg(folder).arg(QCoreApplication::applicationPid())) {}
    ~Trial() {
        for (const QString& ending : {u""_s, u"-journal"_s, u"-wal"_s, u"-shm"_s})
            QFile::remove(file + ending);
    }
    Trial(const Trial&) = delete;
    Trial& operator=(const Trial&) = delete;

    bool Make() const {
        QFile made(file);
        if (!made.open(QIODevice::WriteOnly | QIODevice::NewOnly)) return false;
        made.close();
        try {
            const Engine_Handle engine(file, database::Access::Read_Write, Throw_Result);
            return Result_Of(engine, u"CREATE TABLE trial (x); INSERT INTO trial VALUES (1)"_s) == SQLITE_OK;
        } catch (const Engine_Result&) {
            return false;
        }
    }
    const QString file;
};

Finding Writing(bool can_be_written) {
    if (can_be_written) return {Mark::Good, u"Files can be made and changed in the folder."_s, {}};
    return {
        Mark::Bad, u"This account can't make or change files in the folder."_s,
        u"Give the accounts that use Mevo the right to make, change and remove files in it, and not in single files alone."_s};
}

// Whether another process sees a lock that one holds.
Finding Locks(const Trial& trial, const QString& own_program) {
    constexpr int longest_ms = 10'000;
    const QString advice =
        u"Don't let two computers use this folder at one time. Ask whoever looks after the share to allow locks on it, or use another one."_s;
    QProcess other;
    other.start(own_program, {u"--hold-lock"_s, trial.file});
    const bool holds = other.waitForStarted(longest_ms) && other.waitForReadyRead(longest_ms) &&
                       other.readAllStandardOutput().startsWith("held");
    Finding finding{Mark::Doubtful,
                    u"No lock could be taken for the trial, so it isn't known whether locks hold."_s, advice};
    if (holds) {
        const Engine_Handle own(trial.file, database::Access::Read_Write, Throw_Result);
        const bool seen = Result_Of(own, u"BEGIN IMMEDIATE"_s) == SQLITE_BUSY;
        finding =
            seen ? Finding{Mark::Good, u"A lock of one process is seen by another."_s, {}}
                 : Finding{Mark::Bad,
                           u"A lock of one process isn't seen by another: answers could be lost."_s, advice};
    }
    other.closeWriteChannel();
    if (!other.waitForFinished(longest_ms)) other.kill();
    return finding;
}

Finding Journal(const Trial& trial) {
    const QString journal = trial.file + u"-journal"_s;
    const Engine_Handle engine(trial.file, database::Access::Read_Write, Throw_Result);
    const bool changed = Result_Of(engine, u"BEGIN IMMEDIATE; UPDATE trial SET x = 2"_s) == SQLITE_OK;
    const bool made = QFileInfo::exists(journal);
    const bool kept = Result_Of(engine, u"COMMIT"_s) == SQLITE_OK;
    if (changed && made && kept && !QFileInfo::exists(journal))
        return {Mark::Good, u"A journal beside the database can be made and removed."_s, {}};
    return {
        Mark::Bad, u"A journal beside the database can't be made and removed again."_s,
        u"Give the accounts that use Mevo the right to make and to remove files in the folder: a change isn't safe without a journal."_s};
}

struct File_System {
    QString type; // as the system calls it; "fuse." stands for all that begin so
    QString name;
    bool is_unreliable;
};

const QList<File_System>& Shared_File_Systems() {
    static const QList<File_System> systems = {
        {u"nfs"_s, u"an NFS share"_s, true},
        {u"nfs4"_s, u"an NFS share of version 4"_s, false},
        {u"cifs"_s, u"a Windows share"_s, false},
        {u"smb3"_s, u"a Windows share"_s, false},
        {u"smbfs"_s, u"a Windows share of the older kind"_s, true},
        {u"9p"_s, u"a folder of a host machine"_s, true},
        {u"vboxsf"_s, u"a folder of a host machine"_s, true},
        {u"fuse.glusterfs"_s, u"a Gluster volume"_s, false},
        {u"fuseblk"_s, u"a disk of this computer"_s, false},
        {u"fuse."_s, u"a share that a program mounts"_s, true},
        {u"davfs"_s, u"a folder of a web server"_s, true},
        {u"afs"_s, u"an AFS volume"_s, true},
    };
    return systems;
}

Finding Kind_Of(const QStorageInfo& storage) {
    const QString type = QString::fromUtf8(storage.fileSystemType());
    for (const File_System& system : Shared_File_Systems()) {
        if (type != system.type && !(system.type.endsWith(u'.') && type.startsWith(system.type))) continue;
        if (!system.is_unreliable)
            return {Mark::Good, u"The folder lies on %1 (%2)."_s.arg(system.name, type), {}};
        return {
            Mark::Doubtful,
            u"The folder lies on %1 (%2), whose locks are known to be unreliable."_s.arg(system.name, type),
            u"Let one computer at a time use it, or take a Windows share (SMB) or NFS of version 4."_s};
    }
    if (type.isEmpty())
        return {Mark::Doubtful, u"It can't be told on what file system the folder lies."_s,
                u"Ask whoever looks after the share whether locks on it are reliable."_s};
    return {Mark::Good, u"The folder's file system is %1, of which nothing bad is known."_s.arg(type), {}};
}

Finding Log(const QString& working) {
    const bool has_log = QFileInfo::exists(working + u"-wal"_s) ||
                         (QFileInfo(working).isFile() && database::Has_Write_Ahead_Log(working));
    if (!has_log) return {Mark::Good, u"No write-ahead file lies beside the database."_s, {}};
    return {
        Mark::Doubtful, u"The database is written through a write-ahead file, which computers can't share."_s,
        u"End every program that has it open, then open it with Mevo once: that turns it back into one file."_s};
}

Finding Room(const QString& folder, const QString& working) {
    constexpr qint64 mebibyte = 1024 * 1024;
    constexpr qint64 least = 4 * mebibyte; // what a school grows to
    constexpr int copies = 10;
    const qint64 wanted = copies * std::max(least, QFileInfo(working).size());
    std::error_code unknown;
    const auto space = std::filesystem::space(folder.toStdU16String(), unknown);
    const qint64 left = unknown ? 0 : static_cast<qint64>(space.available);
    if (left >= wanted) return {Mark::Good, u"There is room for ten copies of the database."_s, {}};
    return {
        Mark::Bad,
        u"There is room for %1 MB, and ten copies of the database take %2 MB."_s.arg(left / mebibyte)
            .arg(wanted / mebibyte),
        u"Remove what isn't needed from that disk: Mevo keeps the ten databases that were replaced last."_s};
}

} // namespace

QList<Finding> Check_Folder(const QString& folder, const QString& own_program) {
    if (!QFileInfo(folder).isDir())
        return {{Mark::Bad, u"There is no folder %1."_s.arg(folder),
                 u"Connect the share that it lies on, or make it."_s}};
    QList<Finding> findings;
    const Trial trial(folder);
    const bool can_be_written = trial.Make();
    findings.append(Writing(can_be_written));
    if (can_be_written) {
        findings.append(Locks(trial, own_program));
        findings.append(Journal(trial));
    }
    const QString working = basics::Native_Path(folder + u'/' + foundation::Working_File);
    return findings += {Kind_Of(QStorageInfo(folder)), Log(working), Room(folder, working)};
}

int Hold_Lock(const QString& file) {
    try {
        const Engine_Handle engine(file, database::Access::Read_Write, Throw_Result);
        engine.Run(u"BEGIN EXCLUSIVE"_s);
        std::puts("held");
        std::fflush(stdout);
        while (std::getchar() != EOF) {
        }
        return 0;
    } catch (const Engine_Result&) {
        return 2;
    }
}

} // namespace set_up
