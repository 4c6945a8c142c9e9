// Steps from a taxon to the next, previous, first or last one of its rank in the order of names. Species move
// along the epithets of their genus, subspecies along those of their species, varieties along their fourth
// unit, and all other ranks along their first; where such a series ends, it goes on with the next higher
// name.
//
// It reads the DataSet only, by the stored queries "Get Next Species" and the like.
#pragma once

#include <string_view>

#include "core/current_taxon.h"
#include "store/engine.h"

namespace quillon::editor {

enum class RankStep { First, Previous, Next, Last };

// The qb_id of the taxon that the step from `taxon`, of the rank `rankName`, leads to; 0 when there is none.
// Throws StoreError.
int StepByRank(store::Database& database, const CurrentTaxon& taxon, std::string_view rankName,
               RankStep step);

}  // namespace quillon::editor
