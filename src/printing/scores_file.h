#pragma once

#include "platform/desktop/ports.h"
#include "scoring/scoring.h"

#include <QList>
#include <QStringList>
#include <functional>

namespace printing {

// Called as pupils are scored, for the eye: the number of them that are done.
using Show_Done = std::function<void(int done)>;

struct Scores_Wanted {
    QList<qint16> places; // in the list of pupils
    QStringList lost;     // who aren't on it, as the page names them
    QString name;         // offered for the file
};

// Asks for the form and the place of a file for spreadsheets, and writes the scores of these pupils, their
// times with them. It works on stores of its own, so that what the page shows stays as it is. Pupils who
// can't be scored stand there without scores; they are named at the end, and so are those who are lost. Where
// the answers can't be read, that is told and nothing is written.
void Save_Scores(const Scores_Wanted& wanted, const scoring::Scoring& page, const Show_Done& show,
                 desktop::Platform& platform);

} // namespace printing
