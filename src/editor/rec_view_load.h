// Loading of one taxon into CurrentTaxon, for the main form and whoever else shows a taxon.
#pragma once

#include <string>

#include "core/application_state.h"
#include "core/outside.h"
#include "store/engine.h"

namespace quillon::editor {

// CurrentTaxon as it is for no taxon, but for its qb_id, which says what is to be shown.
void ClearRecordVariables(ApplicationState& state);

// Fills state.currentTaxon from the open DataSet. For a taxon that is gone it says so and leaves CurrentTaxon
// as it was; a missing author is told too, and the rest is loaded. The errors of the store pass through.
void LoadTaxon(ApplicationState& state, Prompter& prompter, int qb_id);

// "<unknown>" when the DataSet has no rank of that id.
std::string GetRankName(store::Database& database, int rank_id);
// 0 for a taxon without one, and for one that is gone.
int GetTSN(store::Database& database, int qb_id);
// The qb_id of the kingdom record; 0 when the DataSet has none.
int GetKingdomId(store::Database& database);

}  // namespace quillon::editor
