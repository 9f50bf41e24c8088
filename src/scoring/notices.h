#pragma once

#include "scoring/scoring.h"

#include <QDate>
#include <QList>

namespace scoring {

// What to be careful about in a profile, in a few words.
struct Notice {
    int t; // the test; 0 for all of the profile
    QString text;
};

// Of the pupil at place p, directly after they were scored: while the item store is still theirs.
QList<Notice> Notices_On(int p, const QDate& today, const Scoring& scoring);

inline QString Times_Not_Read() {
    return QStringLiteral("Times not read yet for this pupil");
}

// The tests of notices that read alike are named together, "Ended early: Tolvens, Bliks friends", or counted
// where they are many.
QStringList Gathered(const QList<Notice>& notices);

} // namespace scoring
