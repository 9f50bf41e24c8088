#pragma once

#include "scoring/explanation.h"
#include "scoring/notices.h"

namespace scoring {

// A part of an explanation: sentences, and a table below them. Rows are empty where there is none.
struct Why_Section {
    QString heading;
    QStringList lines;
    QStringList headings; // of the table's columns
    QList<QStringList> rows;
};

// An explanation in words, as it is shown, copied and printed.
struct Why_Words {
    QString title;
    QString pupil;
    QList<Why_Section> sections;
};

Why_Words Put_In_Words(const Explanation& told, const QList<Notice>& notices);

// Lines of plain text, the tables' cells divided by tabs.
QString As_Text(const Why_Words& words);

} // namespace scoring
