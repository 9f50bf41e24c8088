#pragma once

#include "foundation/access_holder.h"
#include "foundation/installation.h"
#include "scoring/item_arithmetic.h"
#include "scoring/item_store.h"
#include "scoring/norm_tables.h"
#include "scoring/pupil_lists.h"
#include "scoring/score_store.h"
#include "scoring/trace.h"

namespace scoring {

// What scoring keeps for as long as the process runs. One owner makes it.
struct Scoring_Data {
    Pupil_Lists pupils;
    Norm_Tables norms;
    Score_Store scores;
    Item_Store items;
    Work_Lists work;
};

// What a scoring pass is handed: where it reads, and what it may change.
struct Scoring {
    const foundation::Installation& installation;
    foundation::Access_Holder& holder; // scoring's own
    const Pupil_Lists& pupils;
    const Norm_Tables& norms;
    Score_Store& scores;
    Item_Store& items;
    Work_Lists& work;
    Trace* trace = nullptr; // who listens; nobody, as a rule
};

inline Scoring Pass_Over(Scoring_Data& data, const foundation::Installation& installation,
                         foundation::Access_Holder& holder) {
    return {installation, holder, data.pupils, data.norms, data.scores, data.items, data.work};
}

} // namespace scoring
