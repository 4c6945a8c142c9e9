// Counts the rows that a validation or an export will visit, for the gauge. The driver of a validation and
// the tagged export call it before they begin.
#pragma once

#include "core/application_state.h"
#include "selection/selected_taxa.h"
#include "store/engine.h"

namespace quillon::selection {

// Sets gRecordsTotal, the rows that an export visits, and gValidatedTotal, those that validation visits, for
// the taxa under gRecordFilter. Reference links count in neither; a document counts once for each link. Reads
// the documents of `taxa` if necessary.
void CountBatchRecords(ApplicationState& state, store::Database& database, SelectedTaxa& taxa, Turns turns);

}  // namespace quillon::selection
