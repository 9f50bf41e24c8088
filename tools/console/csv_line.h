#pragma once

#include <QStringList>

namespace console {

// One record of comma-separated values with its line end; a field with a comma, a quote or a line end in it
// is quoted.
inline QString Csv_Line(const QStringList& fields) {
    using namespace Qt::StringLiterals;
    QStringList written;
    for (QString field : fields) {
        const bool needs_quotes =
            field.contains(u',') || field.contains(u'"') || field.contains(u'\r') || field.contains(u'\n');
        written.append(needs_quotes ? u'"' + field.replace(u"\""_s, u"\"\""_s) + u'"' : field);
    }
    return written.join(u',') + u"\r\n"_s;
}

} // namespace console
