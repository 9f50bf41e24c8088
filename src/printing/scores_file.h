#pragma once

#include "platform/desktop/ports.h"
#include "printing/batch_list.h"
#include "scoring/scoring.h"

#include <functional>

namespace printing {

// Called as pupils are scored, for the eye: the number of them that are done.
using Show_Done = std::function<void(int done)>;

// Asks for the form and the place of a file for spreadsheets, and writes the scores of the pupils found,
// their times with them; `name` is offered for the file. It works on stores of its own, so that what the page
// shows stays as it is. Pupils who can't be scored stand there without scores, and are named at the end as
// those are who weren't found. Where the answers can't be read, that is told and nothing is written.
void Save_Scores(const Found_Entries& chosen, const QString& name, const scoring::Scoring& page,
                 const Show_Done& show, desktop::Platform& platform);

} // namespace printing
