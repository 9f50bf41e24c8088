#include "platform/database/files/file_rights.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#ifdef _WIN32
#include <windows.h>
#else
#include <algorithm>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#endif

using namespace Qt::StringLiterals;

namespace database {

#ifdef _WIN32

QString Rights_Model(const QString&, const QString&) {
    return {};
}

void Take_Rights(int, const QString&) {
}

void Make_Folder(const QString& folder, const QString&) {
    QDir().mkpath(folder);
}

// Opened with a right and closed again: the system's attributes alone tell of no rights.
static bool May(const QString& place, DWORD right) {
    const QString native = QDir::toNativeSeparators(place);
    const HANDLE opened = CreateFileW(reinterpret_cast<const wchar_t*>(native.utf16()), right,
                                      FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                      OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr);
    if (opened == INVALID_HANDLE_VALUE) return false;
    CloseHandle(opened);
    return true;
}

bool May_Be_Written(const QString& file) {
    return May(file, FILE_WRITE_DATA) && May(QFileInfo(file).absolutePath(), FILE_ADD_FILE);
}

#else

namespace {

constexpr mode_t Of_The_Owner = S_IRUSR | S_IWUSR;
constexpr mode_t Of_The_Group = S_IRWXG;
constexpr mode_t Of_Everybody = S_IRWXO;
constexpr mode_t Of_Files = 0666;
constexpr mode_t Of_Folders = 0777 | S_ISGID; // what is made in it belongs to its group

// The owner's come first, then the group's: the larger number lets more people in. Asked for all at once, the
// system would be asked what this account may, too: three round trips on a share.
int Rights_Of(const QFileInfo& file) {
    QFile::Permissions rights;
    for (const QFile::Permission right : {QFile::ReadOwner, QFile::WriteOwner, QFile::ReadGroup,
                                          QFile::WriteGroup, QFile::ReadOther, QFile::WriteOther})
        rights.setFlag(right, file.permission(right));
    return rights.toInt();
}

// Only an account of a group may give a file to it. To the account's own group it then opens no more than to
// everybody.
mode_t Without_The_Groups(mode_t mode) {
    return (mode & ~Of_The_Group) | (mode & Of_Everybody) << 3;
}

} // namespace

QString Rights_Model(const QString& place, const QString& otherwise) {
    const QFileInfo there(place);
    if (there.isFile()) return place;
    const QFileInfoList beside = there.dir().entryInfoList({u"*.mdb"_s}, QDir::Files);
    const auto widest =
        std::max_element(beside.begin(), beside.end(), [](const QFileInfo& left, const QFileInfo& right) {
            return Rights_Of(left) < Rights_Of(right);
        });
    return widest == beside.end() ? otherwise : widest->filePath();
}

void Take_Rights(int opened, const QString& like) {
    struct stat model {};
    if (stat(QFile::encodeName(like).constData(), &model) != 0) return;
    constexpr uid_t same_owner = static_cast<uid_t>(-1);
    const bool is_of_its_group =
        fchown(opened, model.st_uid, model.st_gid) == 0 || fchown(opened, same_owner, model.st_gid) == 0;
    const mode_t mode = (model.st_mode & (S_ISDIR(model.st_mode) ? Of_Folders : Of_Files)) | Of_The_Owner;
    fchmod(opened, is_of_its_group ? mode : Without_The_Groups(mode));
}

void Make_Folder(const QString& folder, const QString& like) {
    if (QFileInfo::exists(folder) || !QDir().mkpath(folder)) return;
    const int opened =
        open(QFile::encodeName(folder).constData(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC);
    if (opened < 0) return;
    Take_Rights(opened, like);
    close(opened);
}

bool May_Be_Written(const QString& file) {
    const auto may = [](const QString& place) {
        return faccessat(AT_FDCWD, QFile::encodeName(place).constData(), W_OK, AT_EACCESS) == 0;
    };
    return may(file) && may(QFileInfo(file).absolutePath());
}

#endif

} // namespace database
