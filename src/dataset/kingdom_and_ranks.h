// Reads the kingdom and the ranks of a DataSet that was opened. A preference that the DataSet does not have
// is overridden with a warning and kept in gOldKingdomName or gOldPrefRank; it applies again with the next
// DataSet that has it.
#pragma once

#include <string>

#include "core/application_state.h"
#include "core/outside.h"

namespace quillon::dataset {

// The preferred kingdom, even if the open DataSet has another one.
const std::string& PreferredKingdom(const ApplicationState& state);
// For a DataSet just made for the preferred kingdom: applies the preference again and sets gKingdomId.
void TakePreferredKingdom(ApplicationState& state);

// Chooses the preferred kingdom if the DataSet has it, else the previous one, else, with a warning, the first
// of the DataSet. Sets gKingdomName, gOldKingdomName and gKingdomId.
void ReadKingdom(ApplicationState& state, Prompter& prompter);
// Chooses the preferred rank if the kingdom has it, else the previous one, else "Kingdom" with a warning.
// Does not warn when no rank was ever preferred. Sets gPrefRank and gOldPrefRank.
void CheckPreferenceRank(ApplicationState& state, Prompter& prompter);
// Sets gRankGenus and gRankSpecies; 0 for a rank that the kingdom does not have.
void ReadRankIds(ApplicationState& state);

}  // namespace quillon::dataset
