#include "platform/database/files/page_copies.h"

#include "platform/basics/native_path.h"
#include "platform/basics/run_time_error.h"
#include "platform/database/database_file.h"
#include "platform/database/engine_errors.h"
#include "platform/database/files/file_engine.h"
#include "platform/database/files/file_look.h"
#include "platform/database/files/file_rights.h"
#include "platform/database/files/new_file.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSet>
#include <algorithm>

using namespace Qt::StringLiterals;

namespace database {

using basics::Native_Path;

namespace {

QByteArray Header_Of(const QString& file) {
    constexpr qint64 header_size = 100; // the count of changes is in it
    QFile opened(file);
    return opened.open(QIODevice::ReadOnly) ? opened.read(header_size) : QByteArray();
}

// Without a lock, which would cost a share's server ten times as much: what somebody is about to write isn't
// in the database yet. A file that was put in its place by other means may have counted as many changes as
// the copy, but is younger.
bool Is_What_Was_Copied(const QString& database, const QString& newest) {
    const QFileInfo is(database);
    const QFileInfo was(newest);
    return was.size() == is.size() && is.lastModified() <= was.lastModified() &&
           Header_Of(database) == Header_Of(newest) && !Has_Write_Ahead_Log(database);
}

QStringList Number_Of_Pupils(File_Engine& engine) {
    return engine.Run(u"SELECT count(*) FROM Mevo_Pupils"_s);
}

struct Content {
    QByteArray bytes;
    QStringList pupils;
};

// Under a read lock, which ends here.
Content Content_Of(const QString& database, int timeout_seconds) {
    Content content;
    Database_At_Rest engine(database, timeout_seconds);
    content.pupils = Number_Of_Pupils(engine);
    engine.Read_All([&content](const QByteArray& piece) { content.bytes += piece; });
    return content;
}

// Read back whole, and looked over in memory: from a share each page would be asked for by itself.
void Require_Whole(const QString& copy, const Content& content) {
    QFile opened(copy);
    if (!opened.open(QIODevice::ReadOnly)) basics::Raise(basics::errors::Permission_Denied);
    const QByteArray found = opened.readAll();
    if (found != content.bytes) basics::Raise(basics::errors::Device_Error);
    const QString damage = Damage_In(found);
    if (!damage.isEmpty()) Raise_Engine_Error(errors::Engine_Failure, damage);
    File_Engine engine(found);
    if (Number_Of_Pupils(engine) != content.pupils)
        Raise_Engine_Error(errors::Engine_Failure, u"The copy holds other pupils than the database."_s);
}

void Remove_Superfluous(const QString& folder, const QString& made, const Page_Copy& order) {
    QStringList spared;
    for (const QString& file : order.spared)
        spared.append(QFileInfo(Native_Path(file)).canonicalFilePath());
    for (const Kept_File& copy : Superfluous(Kept_Files_In(folder), {made, order.reason, order.when})) {
        if (spared.contains(QFileInfo(copy.path).canonicalFilePath())) continue;
        if (QFile::remove(copy.path)) QFile::remove(Companion_Of_Archive(copy.path));
    }
}

} // namespace

QString Copies_Folder(const QString& database) {
    const QFileInfo file(Native_Path(database));
    return file.dir().filePath(file.completeBaseName() + u"_copies"_s);
}

QString Copy_If_Changed(const Page_Copy& order, int timeout_seconds) {
    const QString database = Native_Path(order.database);
    const QString folder = Copies_Folder(database);
    Refuse_What_Is_No_Database(database);
    const QList<Kept_File> copies = Kept_Files_In(folder);
    if (!copies.isEmpty() && Is_What_Was_Copied(database, copies.first().path)) return {};
    const Content content = Content_Of(database, timeout_seconds);
    Make_Folder(folder, QFileInfo(database).absolutePath()); // where it can't, the new file says so
    const QString place = Free_Kept_Name(folder, order.reason, order.when);
    New_File copy(place, database);
    copy.Write(content.bytes);
    copy.Flush_And_Close();
    Require_Whole(copy.Path(), content);
    copy.Move_To_Its_Place();
    if (order.along) order.along(place);
    Remove_Superfluous(folder, place, order);
    return place;
}

QList<Kept_File> Superfluous(const QList<Kept_File>& copies, const Kept_File& made) {
    const auto hour_of = [](const Kept_File& copy) { return copy.when.toString(u"yyyy-MM-dd HH"_s); };
    QList<Kept_File> superfluous;
    QSet<QString> hours;
    int kept = 1; // the one just made
    for (const Kept_File& copy : copies) {
        if (copy.path == made.path) continue;
        const QString hour = hour_of(copy);
        const bool counts = hour == hour_of(made) || !hours.contains(hour);
        hours.insert(hour);
        if (counts && kept < Most_Page_Copies)
            ++kept;
        else
            superfluous.append(copy);
    }
    return superfluous;
}

} // namespace database
