// What the program takes over from a DataSet that was opened: its kingdom, and the ranks that it has. A
// preference that the DataSet does not know gives way, with a warning; it is kept in gOldKingdomName or
// gOldPrefRank, and holds again with the first DataSet that knows it.
#pragma once

#include <string>

#include "core/application_state.h"
#include "core/outside.h"

namespace quillon::dataset {

// The kingdom that the user prefers, whatever kingdom the open DataSet is of.
const std::string& PreferredKingdom(const ApplicationState& state);
// For a DataSet just made for that kingdom: it holds again, and gKingdomId is its number.
void TakePreferredKingdom(ApplicationState& state);

// The preferred kingdom when the DataSet has it, else the one that held before, else, with a warning, the
// first of the DataSet. Sets gKingdomName, gOldKingdomName and gKingdomId.
void ReadKingdom(ApplicationState& state, Prompter& prompter);
// The preferred rank when the kingdom has it, else the one that held before, else "Kingdom" with a warning;
// no warning where no rank was ever preferred. Sets gPrefRank and gOldPrefRank.
void CheckPreferenceRank(ApplicationState& state, Prompter& prompter);
// gRankGenus and gRankSpecies; 0 for a rank that the kingdom does not have.
void ReadRankIds(ApplicationState& state);

}  // namespace quillon::dataset
