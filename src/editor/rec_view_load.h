// Loads one taxon into CurrentTaxon, for RecView and every other form that shows a taxon.
#pragma once

#include <string>

#include "core/application_state.h"
#include "core/outside.h"
#include "store/engine.h"

namespace quillon::editor {

// Empties CurrentTaxon except for its qb_id, the taxon to show.
void ClearRecordVariables(ApplicationState& state);

// Fills state.currentTaxon from the open DataSet. A taxon that does not exist is reported and leaves
// CurrentTaxon unchanged; a missing author is reported and the rest is loaded. Throws StoreError.
void LoadTaxon(ApplicationState& state, Prompter& prompter, int qb_id);

// "<unknown>" when the DataSet has no rank of that id.
std::string GetRankName(store::Database& database, int rank_id);
// 0 for a taxon that has none or does not exist.
int GetTSN(store::Database& database, int qb_id);
// The qb_id of the kingdom record; 0 when the DataSet has none.
int GetKingdomId(store::Database& database);

}  // namespace quillon::editor
