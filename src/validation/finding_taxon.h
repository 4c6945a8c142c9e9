// Finds the taxon to show for a finding.
#pragma once

#include <optional>

#include "store/engine.h"
#include "validation/findings.h"

namespace quillon::validation {

// The qb_id of the taxon itself, or of the first that has the author or refers to the document; empty when
// there is none.
std::optional<int> TaxonOfFinding(store::Database& database, const FindingMark& mark);

}  // namespace quillon::validation
