#pragma once

#include "platform/database/files/file_engine.h"
#include "platform/database/files/file_look.h"

#include <QDateTime>
#include <QString>
#include <QStringList>
#include <functional>

namespace database {

// How a database takes the place of another.
struct Replacement {
    QString source;
    QString target;
    Tables tables;   // that the new database must hold, and which of their columns
    QString reason;  // what replaces it, for the name under which the old database is kept: "load"
    QDateTime when;  // when it is replaced, which that name tells too
    QString keep_in; // the folder for the old database; where it can't be there, its own folder serves
    QStringList spared = {};    // kept databases that stay though they are the oldest: one in view
    QString* kept_as = nullptr; // set to the file that the old database was kept in, once it stays
};

// Copies whole database files. What fails is a run-time error and leaves the target as it was:
// 53 where the source is missing; 61 disk full; 70 where the account may not write there, or source and
// target are the same file; 76 path not found; 57 for another failure of the device; and the data layer's own
// errors for a file that is no database, is damaged, or is still in use when the wait is over.
class File_Copies {
public:
    virtual ~File_Copies() = default;

    // Copies the source as it is between two transactions of those who write it. A new target keeps its
    // spelling.
    virtual void Copy(const QString& source, const QString& target) = 0;

    // Puts a copy of the source in the target's place, having kept the target as it was up to then beside the
    // archives. The source must be sound and hold the tables; the newest ten of the kept are left, and the
    // source if it is one of them.
    virtual void Replace(const Replacement& order) = 0;
};

// Changes a database so that nothing of what the work removes is left in the file's bytes: it is done on a
// copy, which is compacted and put in the file's place in one transaction. All other rows keep their numbers.
// Throws as the copies do, and then the file is as it was; File_In_Use, which is worth a second try, also
// where others wrote to the file meanwhile.
void Rewrite(const QString& database, const std::function<void(File_Engine&)>& work, int timeout_seconds);

class Safe_Copies final : public File_Copies {
public:
    void Copy(const QString& source, const QString& target) override;
    void Replace(const Replacement& order) override;

    int timeout_seconds = 15; // for a file in use
};

} // namespace database
