// A DataSet full of odd rows, the same for the same seed: ids that lead nowhere, Nulls and zeros in every
// place, documents that share an id, dates of any length.
#pragma once

#include <cstdint>

#include "core/application_state.h"
#include "store/engine.h"

namespace quillon::exporting {

// Fills the open DataSet, which holds a root with the qb_id 1 and nothing else of a user's.
void FillWithOddRows(store::Engine& engine, store::Database& database, std::uint32_t seed);
// Some taxa and documents as refused ones.
void RejectSome(ApplicationState& state, std::uint32_t seed);

}  // namespace quillon::exporting
