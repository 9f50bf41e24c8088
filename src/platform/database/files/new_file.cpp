#include "platform/database/files/new_file.h"

#include "platform/basics/system_failure.h"
#include "platform/database/database_file.h"
#include "platform/database/files/file_rights.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QDir>
#include <QFileInfo>
#include <QRegularExpression>

#ifdef _WIN32
#include <io.h>
#include <windows.h>
#else
#include <cstdio>
#include <fcntl.h>
#include <unistd.h>
#endif

using namespace Qt::StringLiterals;

namespace database {
namespace {

const QString Unfinished = u".part"_s;
constexpr int Left_Behind_After_Days = 1;

#ifdef _WIN32

bool Rename_Over(const QString& from, const QString& to) {
    return MoveFileExW(reinterpret_cast<const wchar_t*>(from.utf16()),
                       reinterpret_cast<const wchar_t*>(to.utf16()),
                       MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH) != 0;
}

bool Rename_Unless_Taken(const QString& from, const QString& to) {
    return MoveFileExW(reinterpret_cast<const wchar_t*>(from.utf16()),
                       reinterpret_cast<const wchar_t*>(to.utf16()), MOVEFILE_WRITE_THROUGH) != 0;
}

bool Was_Taken() {
    const DWORD code = GetLastError();
    return code == ERROR_ALREADY_EXISTS || code == ERROR_FILE_EXISTS;
}

#else

// A rename is in the folder, which is written out by itself. Some shares can't; their servers do it.
void Sync_Folder(const QString& folder) {
    const int opened = open(QFile::encodeName(folder).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (opened < 0) return;
    fsync(opened);
    close(opened);
}

bool Rename_Over(const QString& from, const QString& to) {
    if (std::rename(QFile::encodeName(from).constData(), QFile::encodeName(to).constData()) != 0)
        return false;
    Sync_Folder(QFileInfo(to).absolutePath());
    return true;
}

// A second name and the end of the first: unlike a rename, that never takes another file's place. Some file
// systems have no second names; there only a moment lies between looking and renaming.
bool Rename_Unless_Taken(const QString& from, const QString& to) {
    const QByteArray first = QFile::encodeName(from);
    const QByteArray second = QFile::encodeName(to);
    if (link(first.constData(), second.constData()) == 0) {
        unlink(first.constData());
        Sync_Folder(QFileInfo(to).absolutePath());
        return true;
    }
    if (errno == EEXIST || QFileInfo::exists(to)) {
        errno = EEXIST;
        return false;
    }
    return Rename_Over(from, to);
}

bool Was_Taken() {
    return errno == EEXIST;
}

#endif

[[noreturn]] void Raise_Last_Failure() {
    throw basics::Last_Failure();
}

// Whatever it was to be called: the next save has another name, and what was left behind is a whole school.
bool Was_To_Be_A_Database(const QFileInfo& file) {
    static const QRegularExpression form(u"(\\.mdb)?\\.\\d+-\\d+\\.part$"_s,
                                         QRegularExpression::CaseInsensitiveOption);
    const auto match = form.match(file.fileName());
    return match.hasMatch() && (match.hasCaptured(1) || Looks_Like_A_Database(file.filePath()));
}

void Remove_What_Was_Left_Behind(const QDir& folder) {
    const QDateTime oldest = QDateTime::currentDateTime().addDays(-Left_Behind_After_Days);
    for (const QFileInfo& left : folder.entryInfoList({u'*' + Unfinished}, QDir::Files))
        if (left.lastModified() < oldest && Was_To_Be_A_Database(left)) QFile::remove(left.filePath());
}

} // namespace

bool Is_On_The_Disk(const QFile& file) {
#ifdef _WIN32
    return _commit(file.handle()) == 0;
#else
    return fsync(file.handle()) == 0;
#endif
}

New_File::New_File(const QString& place, const QString& otherwise_like) : place(place) {
    Remove_What_Was_Left_Behind(QFileInfo(place).absoluteDir());
    const QString like = Rights_Model(place, otherwise_like);
    // Another machine may have a process of the same number at work in the same folder.
    for (int attempt = 1;; ++attempt) {
        path = u"%1.%2-%3"_s.arg(place).arg(QCoreApplication::applicationPid()).arg(attempt) + Unfinished;
        file.setFileName(path);
        if (Open(like)) return;
        const basics::Run_Time_Error failure = basics::Last_Failure();
        if (!QFileInfo::exists(path)) throw failure;
    }
}

// Nobody else's from its first moment on, until it is known whose it is.
bool New_File::Open(const QString& like) {
    constexpr auto how = QIODevice::WriteOnly | QIODevice::NewOnly | QIODevice::Unbuffered;
    if (like.isEmpty()) return file.open(how);
    if (!file.open(how, QFile::ReadOwner | QFile::WriteOwner)) return false;
    Take_Rights(file.handle(), like);
    return true;
}

New_File::~New_File() {
    file.close();
    if (!moved) QFile::remove(path);
}

void New_File::Write(const QByteArray& bytes) {
    if (file.write(bytes) != bytes.size()) Raise_Last_Failure();
}

void New_File::Flush_And_Close() {
    if (!Is_On_The_Disk(file)) Raise_Last_Failure();
    file.close();
}

void New_File::Move_To_Its_Place() {
    if (!Rename_Over(path, place)) Raise_Last_Failure();
    moved = true;
}

bool New_File::Move_Unless_Taken() {
    moved = Rename_Unless_Taken(path, place);
    if (!moved && !Was_Taken()) Raise_Last_Failure();
    return moved;
}

} // namespace database
