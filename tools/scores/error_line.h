#pragma once

#include <QString>
#include <QTextStream>

namespace score_export {

// One line for the user, whatever line ends the text has.
inline void Write_Error_Line(const QString& text, QTextStream& errors) {
    errors << "mevo-scores: " << text.simplified() << '\n' << Qt::flush;
}

} // namespace score_export
