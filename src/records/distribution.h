// Where a taxon lives, as stored rows: one for each region of the world, and one for each jurisdiction with
// its origin. The save of a record uses it.
//
// Every statement is a unit of its own; a failed one is reported, and the others go on.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "records/record_store.h"
#include "records/taxon_key.h"

namespace quillon::records {

using Divisions = std::vector<std::string>;
using Jurisdictions = std::vector<std::pair<std::string, std::string>>;  // value and origin

// The rows of a taxon that has none yet.
void AddDivisions(const RecordStore& records, const TaxonKey& taxon, const Divisions& divisions);
void AddJurisdictions(const RecordStore& records, const TaxonKey& taxon, const Jurisdictions& jurisdictions);

// Replaces all rows of the taxon. For a published one a row that comes back loses its tombstone, and one of
// `old` that does not leaves one; another origin in the same jurisdiction is the same row.
void RewriteDivisions(const RecordStore& records, const TaxonKey& taxon, const Divisions& divisions,
                      const Divisions& old);
void RewriteJurisdictions(const RecordStore& records, const TaxonKey& taxon,
                          const Jurisdictions& jurisdictions, const Jurisdictions& old);

}  // namespace quillon::records
