#include "convert/progress_line.h"

using namespace Qt::StringLiterals;

namespace convert_command {

void Progress_Line::Show(const conversion::Progress& progress) {
    if (!shown || progress.table.isEmpty()) return;
    const QString line = u"Table %1 of %2, %3: %4 of %5 rows"_s.arg(progress.table_number)
                             .arg(progress.tables)
                             .arg(progress.table)
                             .arg(progress.rows)
                             .arg(progress.of_rows);
    terminal << u'\r' << line.leftJustified(length) << Qt::flush;
    length = line.size();
}

void Progress_Line::Clear() {
    if (length == 0) return;
    terminal << u'\r' << QString(length, u' ') << u'\r' << Qt::flush;
    length = 0;
}

} // namespace convert_command
