#include "platform/database/database_file.h"

#include "platform/database/engine_errors.h"

#include <QFile>
#include <QFileInfo>
#include <sqlite3.h>

using namespace Qt::StringLiterals;

namespace database {
namespace {

constexpr qsizetype Journal_Marks = 18; // two bytes of the header: 2 means a write-ahead log

QByteArray Header_Of(const QString& file) {
    QFile opened(file);
    return opened.open(QIODevice::ReadOnly) ? opened.read(Header_Size) : QByteArray();
}

} // namespace

bool Begins_A_Database(const QByteArray& header) {
    return header.startsWith("SQLite format 3");
}

bool Is_Path_Too_Long(const QString& file) {
    constexpr qsizetype of_journal = 8;
    return file.toUtf8().size() + of_journal > sqlite3_vfs_find(nullptr)->mxPathname;
}

void Refuse_What_Is_No_Database(const QString& file) {
    const QFileInfo info(file);
    if (!info.exists())
        Raise_Engine_Error(errors::Engine_Failure, u"Could not find file '"_s + file + u"'."_s);
    if (!info.isFile())
        Raise_Engine_Error(errors::Engine_Failure,
                           u"'"_s + file + u"' is not a database file but a folder."_s);
    if (Is_Path_Too_Long(file))
        Raise_Engine_Error(errors::Engine_Failure,
                           u"The path of '"_s + file + u"' is too long for a database."_s);
    QFile opened(file);
    if (!opened.open(QIODevice::ReadOnly))
        Raise_Engine_Error(errors::Engine_Failure,
                           u"The file '"_s + file + u"' can't be opened: "_s + opened.errorString());
    const QByteArray header = opened.read(Header_Size);
    if (Begins_A_Database(header)) return;
    if (header.mid(4).startsWith("Standard Jet DB"))
        Raise_Engine_Error(
            errors::Engine_Failure,
            u"The file '"_s + file +
                u"' was saved in the older Access (Jet) format, which must be converted before it can be used. The program mevo-convert does that."_s);
    Raise_Engine_Error(errors::Engine_Failure, u"Unrecognized database format '"_s + file + u"'."_s);
}

bool Has_Write_Ahead_Log(const QByteArray& header) {
    return header.size() == Header_Size && (header[Journal_Marks] == 2 || header[Journal_Marks + 1] == 2);
}

bool Has_Write_Ahead_Log(const QString& file) {
    return Has_Write_Ahead_Log(Header_Of(file));
}

bool Looks_Like_A_Database(const QString& file) {
    return Begins_A_Database(Header_Of(file));
}

} // namespace database
