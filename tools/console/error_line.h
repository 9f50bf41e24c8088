#pragma once

#include <QString>
#include <QTextStream>

namespace console {

// One line for the user of that program, whatever line ends the text has.
inline void Write_Error_Line(const QString& program, const QString& text, QTextStream& errors) {
    errors << program << ": " << text.simplified() << '\n' << Qt::flush;
}

} // namespace console
