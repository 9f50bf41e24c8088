#include "support/narrow_places.h"

#include "support/files.h"

#include <QDir>
#include <QFileInfo>

#ifndef _WIN32
#include <csignal>
#include <cstdlib>
#include <sys/mount.h>
#include <sys/resource.h>
#include <sys/statvfs.h>
#include <unistd.h>
#endif

using namespace Qt::StringLiterals;

namespace test_support {

#ifndef _WIN32

Small_Disk::Small_Disk(int kilobytes) {
    QByteArray place = QFile::encodeName(QDir::temp().filePath(u"mevo-small-disk-XXXXXX"_s));
    if (!mkdtemp(place.data())) return;
    const QByteArray size = "mode=0777,size=" + QByteArray::number(kilobytes) + "k";
    if (mount("tmpfs", place.constData(), "tmpfs", 0, size.constData()) == 0)
        folder = QFile::decodeName(place);
    else
        rmdir(place.constData());
}

Small_Disk::~Small_Disk() {
    if (!Is_There()) return;
    const QByteArray place = QFile::encodeName(folder);
    umount2(place.constData(), MNT_DETACH);
    rmdir(place.constData());
}

void Small_Disk::Fill_Up_To(int free_kilobytes) const {
    const QString ballast = folder + u"/ballast"_s;
    QFile::remove(ballast);
    struct statvfs state {};
    statvfs(QFile::encodeName(folder).constData(), &state);
    const auto left = static_cast<qint64>(state.f_bavail * state.f_bsize) - qint64(free_kilobytes) * 1024;
    if (left > 0) Write_Bytes(ballast, QByteArray(left, 'x'));
}

void Small_Disk::Allow_Reading_Only() const {
    mount("tmpfs", QFile::encodeName(folder).constData(), nullptr, MS_REMOUNT | MS_RDONLY, nullptr);
}

static void Set_File_Size_Limit(rlim_t bytes) {
    rlimit limit{};
    getrlimit(RLIMIT_FSIZE, &limit);
    limit.rlim_cur = bytes;
    setrlimit(RLIMIT_FSIZE, &limit);
}

Bounded_Files::Bounded_Files(qint64 bytes) : there(true) {
    std::signal(SIGXFSZ, SIG_IGN); // a write that is too long then fails instead of ending the process
    Set_File_Size_Limit(static_cast<rlim_t>(bytes));
}

Bounded_Files::~Bounded_Files() {
    Set_File_Size_Limit(RLIM_INFINITY);
}

Plain_Account::Plain_Account() {
    constexpr uid_t nobody = 65534;
    changed = geteuid() == 0 && seteuid(nobody) == 0;
    there = geteuid() != 0;
}

Plain_Account::~Plain_Account() {
    if (changed && seteuid(0) != 0) std::abort(); // all further tests would run as somebody else
}

#else

Small_Disk::Small_Disk(int) {
}
Small_Disk::~Small_Disk() = default;
void Small_Disk::Fill_Up_To(int) const {
}
void Small_Disk::Allow_Reading_Only() const {
}
Bounded_Files::Bounded_Files(qint64) {
}
Bounded_Files::~Bounded_Files() = default;
Plain_Account::Plain_Account() = default;
Plain_Account::~Plain_Account() = default;

#endif

} // namespace test_support
