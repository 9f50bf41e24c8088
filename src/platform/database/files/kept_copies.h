#pragma once

#include "platform/database/files/new_file.h"
#include "platform/database/files/safe_copy.h"

#include <QDateTime>
#include <QFileInfo>
#include <QList>
#include <QString>
#include <QStringList>
#include <functional>
#include <memory>

namespace database {

// Databases that were replaced, kept in a folder under names that say why and when. A school that loaded the
// wrong archive finds its pupils there.
inline constexpr int Most_Kept_Copies = 10;

struct Kept_File {
    QString path;
    QString reason; // "load"
    QDateTime when;
};

// Those of a folder, the latest by their names first.
QList<Kept_File> Kept_Files_In(const QString& folder);

// A name in the folder that nothing bears yet and that says why and when.
QString Free_Kept_Name(const QString& folder, const QString& reason, const QDateTime& when);

// Whether a file has such a name, in any letter case.
bool Has_Name_Of_Kept_Copy(const QString& file);

// Where what is remembered beside an archive or a kept copy lies; it goes with it.
QString Companion_Of_Archive(const QString& archive);

// A copy that is being kept: it stands in its folder already, and is removed again unless Stay is called.
class Kept_Copy {
public:
    using Write = std::function<void(New_File&)>;
    // Copies what the order replaces into the folder that the order names, which is made if it is missing;
    // where that fails, beside what is replaced. A failure there is thrown.
    Kept_Copy(const Replacement& order, const Write& write);
    ~Kept_Copy();
    Kept_Copy(const Kept_Copy&) = delete;
    Kept_Copy& operator=(const Kept_Copy&) = delete;

    // Keeps it for good, and removes the oldest beyond the number that is kept, where it may; never itself,
    // what the order spares, or what was just put in the other's place.
    void Stay();

private:
    void Write_In(const QString& folder, const Replacement& order, const Write& write);
    bool Is_Spared(const Kept_File& kept) const;

    QString file;
    QStringList spared; // canonical
    QString* kept_as = nullptr;
    bool stays = false;
};

} // namespace database
