#include "platform/basics/csv_text.h"

using namespace Qt::StringLiterals;

namespace basics {

QString Csv_Line(const QStringList& fields) {
    QStringList written;
    for (QString field : fields) {
        const bool needs_quotes =
            field.contains(u',') || field.contains(u'"') || field.contains(u'\r') || field.contains(u'\n');
        written.append(needs_quotes ? u'"' + field.replace(u"\""_s, u"\"\""_s) + u'"' : field);
    }
    return written.join(u',') + u"\r\n"_s;
}

} // namespace basics
