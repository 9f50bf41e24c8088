#pragma once

#include "scoring/score_all_tests.h"

#include <QStringList>

namespace scoring {

// Pupils' scores as rows of texts, as they leave the program. In either form the first columns tell who it is
// and of which test, and all others hold numbers, but for words such as the verdict on Pindo.

// A row for each test.
const QStringList& Score_Columns();
inline constexpr int Score_Texts = 3;

// A row for each pupil: for each test the columns of the other form that it can fill, as "Tolvens_raw_score".
const QStringList& Wide_Score_Columns();
inline constexpr int Wide_Score_Texts = 3; // the third is the group

// The nine rows of the pupil at place p, as if they were chosen on the Reports page.
QList<QStringList> Score_Rows(int p, Passes_Wanted wanted, Scoring& pass, Summary_Cells& cells);
// The same rows without the scores.
QList<QStringList> Rows_Without_Scores(int p, const Pupil_Lists& pupils);

QStringList Wide_Score_Row(int p, const Pupil_Lists& pupils, const QList<QStringList>& rows);

} // namespace scoring
