// Loading of one taxon into CurrentTaxon, for the main form and whoever else shows a taxon.
#pragma once

#include "core/application_state.h"
#include "core/outside.h"

namespace quillon::editor {

// Fills state.currentTaxon from the open DataSet. For a taxon that is gone it says so and leaves CurrentTaxon
// as it was; a missing author is told too, and the rest is loaded. The errors of the store pass through.
void LoadTaxon(ApplicationState& state, Prompter& prompter, int qb_id);

// The composed scientific name of a taxon that has been loaded.
std::string NameOf(const CurrentTaxon& taxon);

}  // namespace quillon::editor
