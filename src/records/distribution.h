// Stores the distribution of a taxon: a row for each region of the world, and one for each jurisdiction with
// its origin. The save of a record uses it.
//
// Every statement runs in its own unit; a failed one is reported, and the others continue.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "records/record_store.h"
#include "records/taxon_key.h"

namespace quillon::records {

using Divisions = std::vector<std::string>;
using Jurisdictions = std::vector<std::pair<std::string, std::string>>;  // value and origin

// Add the rows of a taxon that has none yet.
void AddDivisions(const RecordStore& records, const TaxonKey& taxon, const Divisions& divisions);
void AddJurisdictions(const RecordStore& records, const TaxonKey& taxon, const Jurisdictions& jurisdictions);

// Replace all rows of the taxon. For a published taxon, the tombstone of a row that is stored again is
// removed, and a row of `old` that is not stored again gets a tombstone; a changed origin in the same
// jurisdiction is the same row.
void RewriteDivisions(const RecordStore& records, const TaxonKey& taxon, const Divisions& divisions,
                      const Divisions& old);
void RewriteJurisdictions(const RecordStore& records, const TaxonKey& taxon,
                          const Jurisdictions& jurisdictions, const Jurisdictions& old);

}  // namespace quillon::records
