#include "platform/database/journal_rights.h"

#ifndef _WIN32
#include <QFile>
#include <QFileInfo>
#include <sys/stat.h>
#include <unistd.h>
#endif

using namespace Qt::StringLiterals;

namespace database {

#ifdef _WIN32

// A file takes its folder's rights there, which may allow new files but forbid to change those of others; and
// emptying a journal takes no fewer round trips than removing it.
bool Journal_May_Stay(const QString&) {
    return false;
}

#else

namespace {

bool Look_At(const QString& place, struct stat& found) {
    return stat(QFile::encodeName(place).constData(), &found) == 0;
}

// The engine gives a new journal the database's mode; whose it is, the system says, or else the
// administrator, whose journal is given away.
struct stat Journal_To_Come(const struct stat& database, const struct stat& folder) {
    struct stat journal = database;
    if (geteuid() == 0) return journal;
    journal.st_uid = geteuid();
    journal.st_gid = folder.st_mode & S_ISGID ? folder.st_gid : getegid();
    return journal;
}

bool Lets_The_Same_People_In(const struct stat& journal, const struct stat& database) {
    constexpr mode_t all = 0666;
    constexpr mode_t everybody = 0006;
    const mode_t mode = database.st_mode & all;
    const bool group_is_like_others = ((mode >> 3) & everybody) == (mode & everybody);
    const bool owner_gets_in =
        journal.st_uid == database.st_uid || database.st_uid == 0 || (mode & everybody) == everybody;
    return (journal.st_mode & all) == mode && owner_gets_in &&
           (journal.st_gid == database.st_gid || group_is_like_others);
}

} // namespace

bool Journal_May_Stay(const QString& file) {
    struct stat database {};
    struct stat journal {};
    if (!Look_At(file, database)) return false;
    if (!Look_At(file + u"-journal"_s, journal)) {
        struct stat folder {};
        if (!Look_At(QFileInfo(file).path(), folder)) return false;
        if (folder.st_mode & S_ISVTX) return false; // what lies there, only its owner removes
        journal = Journal_To_Come(database, folder);
    }
    return Lets_The_Same_People_In(journal, database);
}

#endif

} // namespace database
