#include "platform/basics/file_stem.h"

#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace basics {

QString File_Stem(const QString& text) {
    constexpr qsizetype longest = 100; // with a folder's path before it, all systems take that many
    static const QRegularExpression refused(u"[\\x{00}-\\x{1F}\\x{7F}\\\\/:*?\"<>|]"_s);
    // Names of devices, whatever their extension.
    static const QRegularExpression device(u"^(con|prn|aux|nul|com\\d|lpt\\d)(\\.|$)"_s,
                                           QRegularExpression::CaseInsensitiveOption);
    QString stem = text.left(longest).trimmed();
    stem.replace(refused, u"_"_s);
    while (stem.endsWith(u'.') || stem.endsWith(u' ')) // one system drops these
        stem.chop(1);
    if (stem.isEmpty() || stem.startsWith(u'.') || device.match(stem).hasMatch()) stem.prepend(u'_');
    return stem;
}

} // namespace basics
