#pragma once

#include "scoring/explanation.h"
#include "scoring/notices.h"

namespace scoring {

// A part of an explanation, or of what else is told of a pupil: sentences, and a table below them. Rows are
// empty where there is none.
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

// What an item counts, and why: "2, in place".
QString Points_In_Words(const Traced_Item& item);

// Lines of plain text, the tables' cells divided by tabs.
QString As_Text(const Why_Words& words);

} // namespace scoring
