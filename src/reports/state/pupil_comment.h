#pragma once

#include "foundation/access_holder.h"
#include "foundation/installation.h"
#include "reports/state/report_state.h"
#include "scoring/pupil_lists.h"

namespace reports {

// Reads the comment of the pupil at place p of the list; a NULL gives empty text.
void Load_Comment(int p, const scoring::Pupil_Lists& pupils, const foundation::Installation& installation,
                  foundation::Access_Holder& holder, Comment_In_Hand& comment);

// Writes it to the pupil's row. A row that has gone is a run-time error.
void Save_Comment(int p, const scoring::Pupil_Lists& pupils, const foundation::Installation& installation,
                  foundation::Access_Holder& holder, const Comment_In_Hand& comment);

} // namespace reports
