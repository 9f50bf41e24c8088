#include "setup/folders.h"

#include "conversion/refusal.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#ifndef _WIN32
#include <grp.h>
#include <sys/stat.h>
#include <unistd.h>
#endif

using namespace Qt::StringLiterals;

namespace set_up {

using conversion::Refusal;

QString Plain_Folder(const QString& text) {
    const QString folder = QDir::cleanPath(QDir(QDir::fromNativeSeparators(text)).absolutePath());
    return QDir::toNativeSeparators(folder);
}

namespace {

void Make_It(const QString& folder, const QString& command) {
    if (QDir().mkpath(folder)) return;
    throw Refusal(u"The folder %1 can't be made by this account. An administrator's command for it: %2"_s.arg(
        folder, command));
}

} // namespace

#ifdef _WIN32

void Make_Folder(const QString& folder, const QString& group) {
    if (!group.isEmpty())
        throw Refusal(
            u"Groups aren't set up here on Windows: the installer gives the folder's rights, or an administrator in its properties."_s);
    if (!QFileInfo(folder).isDir()) Make_It(folder, u"mkdir "_s + Quoted_For_Console(folder));
}

void Open_To_Users_Of_Its_Folder(const QString&) {
}

QStringList Groups_Of_Accounts() {
    return {};
}

QString Quoted_For_Console(const QString& text) {
    return u'"' + text + u'"';
}

#else

void Make_Folder(const QString& folder, const QString& group) {
    if (QFileInfo(folder).isDir()) return;
    const struct group* const found = group.isEmpty() ? nullptr : getgrnam(group.toUtf8().constData());
    if (!group.isEmpty() && !found) throw Refusal(u"There is no group %1 on this computer."_s.arg(group));
    const QString whose = group.isEmpty() ? QString() : u"-m 2770 -g %1 "_s.arg(Quoted_For_Console(group));
    const QString command = u"sudo install -d %1%2"_s.arg(whose, Quoted_For_Console(folder));
    Make_It(folder, command);
    if (!found) return;
    const QByteArray path = QFile::encodeName(folder);
    constexpr uid_t same_owner = static_cast<uid_t>(-1);
    constexpr mode_t all_of_the_group = 02770; // and what is made in it is the group's
    if (chown(path.constData(), same_owner, found->gr_gid) == 0 &&
        chmod(path.constData(), all_of_the_group) == 0)
        return;
    QDir().rmdir(folder);
    throw Refusal(
        u"This account may not give a folder to the group %1. An administrator's command for it: %2"_s.arg(
            group, command));
}

void Open_To_Users_Of_Its_Folder(const QString& file) {
    const QByteArray path = QFile::encodeName(file);
    struct stat folder {};
    struct stat own {};
    if (stat(QFile::encodeName(QFileInfo(file).absolutePath()).constData(), &folder) != 0 ||
        stat(path.constData(), &own) != 0)
        return;
    constexpr uid_t same_owner = static_cast<uid_t>(-1);
    const bool is_the_groups =
        own.st_gid == folder.st_gid || chown(path.constData(), same_owner, folder.st_gid) == 0;
    mode_t mode = own.st_mode & 0777;
    if (is_the_groups && (folder.st_mode & S_IWGRP)) mode |= S_IRGRP | S_IWGRP;
    if (folder.st_mode & S_IWOTH) mode |= S_IROTH | S_IWOTH;
    if (!(folder.st_mode & S_IRWXO)) mode &= ~S_IRWXO; // also once it is moved elsewhere
    if (mode != (own.st_mode & 0777)) chmod(path.constData(), mode);
}

// Those that people are put into; the system's own have lower numbers, and that of nobody a higher one.
QStringList Groups_Of_Accounts() {
    constexpr gid_t first = 1000;
    constexpr gid_t last = 59999;
    QStringList names;
    setgrent();
    while (const struct group* group = getgrent())
        if (group->gr_gid >= first && group->gr_gid <= last) names.append(QString::fromUtf8(group->gr_name));
    endgrent();
    names.sort();
    return names;
}

QString Quoted_For_Console(const QString& text) {
    QString inside = text;
    return u'\'' + inside.replace(u'\'', u"'\\''"_s) + u'\'';
}

#endif

} // namespace set_up
