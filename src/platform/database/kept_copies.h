#pragma once

#include "platform/database/new_file.h"

#include <QDateTime>
#include <QString>
#include <QStringList>
#include <functional>
#include <memory>

namespace database {

// Databases that were replaced, kept in a folder under names that say why and when. A school that loaded the
// wrong archive finds its pupils there.
inline constexpr int Most_Kept_Copies = 10;

// One that is being kept: it stands in its folder, and goes again unless the replacement succeeds.
class Kept_Copy {
public:
    using Write = std::function<void(New_File&)>;
    // Makes a missing folder. The first of the folders that takes the copy serves; the last one's failure is
    // let through.
    Kept_Copy(const QStringList& folders, const QString& reason, const QDateTime& when, const Write& write);
    ~Kept_Copy();
    Kept_Copy(const Kept_Copy&) = delete;
    Kept_Copy& operator=(const Kept_Copy&) = delete;

    void Stay(); // and removes the oldest beyond the number that is kept, where it may
private:
    void Write_In(const QString& folder, const QString& name, const Write& write);

    QString file;
    bool stays = false;
};

} // namespace database
