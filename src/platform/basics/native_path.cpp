#include "platform/basics/native_path.h"

#include <QDir>
#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace basics {

#ifdef _WIN32

QString Native_Path(const QString& path) {
    return QDir::toNativeSeparators(QFileInfo(path).absoluteFilePath());
}

QString Native_Target(const QString& path) {
    return Native_Path(path);
}

#else

static QString Absolute(const QString& path) {
    QString slashed = path;
    slashed.replace(u'\\', u'/');
    return QDir::cleanPath(QFileInfo(slashed).absoluteFilePath());
}

static QString Entry_Whatever_Its_Case(const QDir& folder, const QString& name) {
    const QStringList entries =
        folder.entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
    for (const QString& entry : entries)
        if (entry.compare(name, Qt::CaseInsensitive) == 0) return entry;
    return name;
}

QString Native_Path(const QString& path) {
    const QString absolute = Absolute(path);
    if (QFileInfo::exists(absolute)) return absolute;

    QString found = u""_s;
    for (const QString& name : absolute.split(u'/', Qt::SkipEmptyParts)) {
        const QDir folder(found.isEmpty() ? u"/"_s : found);
        found += u'/' + (folder.exists(name) ? name : Entry_Whatever_Its_Case(folder, name));
    }
    return found;
}

QString Native_Target(const QString& path) {
    const QFileInfo target(Absolute(path));
    return QDir(Native_Path(target.path())).filePath(target.fileName());
}

#endif

} // namespace basics
