#pragma once

#include <QString>
#include <QStringList>
#include <ostream>

// A failing expectation shows the text itself.
inline void PrintTo(const QString& text, std::ostream* out) {
    *out << '"' << text.toStdString() << '"';
}

inline void PrintTo(const QStringList& texts, std::ostream* out) {
    *out << "{";
    for (const QString& text : texts)
        *out << ' ' << '"' << text.toStdString() << '"';
    *out << " }";
}
