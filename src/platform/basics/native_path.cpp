#include "platform/basics/native_path.h"

#include <QDir>
#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace basics {

#ifdef _WIN32

QString Native_Path(const QString& path) {
    return QDir::toNativeSeparators(QFileInfo(path).absoluteFilePath());
}

#else

static QString Entry_Whatever_Its_Case(const QDir& folder, const QString& name) {
    const QStringList entries =
        folder.entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
    for (const QString& entry : entries)
        if (entry.compare(name, Qt::CaseInsensitive) == 0) return entry;
    return name;
}

QString Native_Path(const QString& path) {
    QString slashed = path;
    slashed.replace(u'\\', u'/');
    const QString absolute = QDir::cleanPath(QFileInfo(slashed).absoluteFilePath());
    if (QFileInfo::exists(absolute)) return absolute;

    QString found = u""_s;
    for (const QString& name : absolute.split(u'/', Qt::SkipEmptyParts)) {
        const QDir folder(found.isEmpty() ? u"/"_s : found);
        found += u'/' + (folder.exists(name) ? name : Entry_Whatever_Its_Case(folder, name));
    }
    return found;
}

#endif

} // namespace basics
