#pragma once

#include "foundation/access_holder.h"
#include "foundation/installation.h"
#include "scoring/item_arithmetic.h"
#include "scoring/item_store.h"
#include "scoring/norm_tables.h"
#include "scoring/pupil_lists.h"
#include "scoring/score_store.h"

namespace scoring {

// What scoring keeps for as long as the process runs. One owner makes it.
struct Scoring_Data {
    Pupil_Lists Pupils;
    Norm_Tables Norms;
    Score_Store Scores;
    Item_Store Items;
    Work_Lists Work;
};

// What a scoring pass is handed: where it reads, and what it may change.
struct Scoring {
    const foundation::Installation& Installation;
    foundation::Access_Holder& Holder; // scoring's own
    const Pupil_Lists& Pupils;
    const Norm_Tables& Norms;
    Score_Store& Scores;
    Item_Store& Items;
    Work_Lists& Work;

    Scoring(const foundation::Installation& installation, foundation::Access_Holder& holder, Scoring_Data& data)
        : Installation(installation), Holder(holder), Pupils(data.Pupils), Norms(data.Norms),
          Scores(data.Scores), Items(data.Items), Work(data.Work) {}
};

} // namespace scoring
