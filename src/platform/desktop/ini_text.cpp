#include "platform/desktop/disk_ports.h"

using namespace Qt::StringLiterals;

namespace desktop {

static QString Without_Quotes(const QString& value) {
    const bool quoted = value.size() >= 2 && value.front() == value.back() &&
                        (value.front() == u'"' || value.front() == u'\'');
    return quoted ? value.mid(1, value.size() - 2) : value;
}

QString Ini_Value(const QString& text, const QString& section, const QString& key) {
    QString normal = text;
    normal.replace(u"\r\n"_s, u"\n"_s).replace(u'\r', u'\n');
    const QString heading = u'[' + section + u']';
    bool inside = false;
    for (const QString& raw : normal.split(u'\n')) {
        const QString line = raw.trimmed();
        if (line.startsWith(u'[')) {
            if (inside) break; // the first section of that name is the one that counts
            inside = line.compare(heading, Qt::CaseInsensitive) == 0;
            continue;
        }
        const qsizetype equals = line.indexOf(u'=');
        if (!inside || line.startsWith(u';') || equals < 0) continue;
        if (line.left(equals).trimmed().compare(key, Qt::CaseInsensitive) != 0) continue;
        const QString value = Without_Quotes(line.mid(equals + 1).trimmed());
        return value.isNull() ? u""_s : value;
    }
    return {};
}

} // namespace desktop
