// What the program takes over from a DataSet that was opened: its kingdom, and the ranks that it has. A
// preference that the DataSet does not know gives way, with a warning.
#pragma once

#include "core/application_state.h"
#include "core/outside.h"

namespace quillon::dataset {

// gKingdomId of gKingdomName; the first kingdom of the DataSet, with a warning, when it does not have that.
void ReadKingdom(ApplicationState& state, Prompter& prompter);
// gPrefRank becomes "Kingdom", with a warning, when the kingdom has no such rank.
void CheckPreferenceRank(ApplicationState& state, Prompter& prompter);
// gRankGenus and gRankSpecies; 0 for a rank that the kingdom does not have.
void ReadRankIds(ApplicationState& state);

}  // namespace quillon::dataset
