// Deletes the vernaculars of a taxon, each with its links to documents. The deletion of a taxon uses it; the
// saving of its vernaculars will.
#pragma once

#include <optional>

#include "records/record_store.h"

namespace quillon::records {

// Deletes all vernaculars of the taxon with their links. With `vernId`, all except that one. A failure is
// reported.
void DeleteVernaculars(const RecordStore& records, int qb_id, std::optional<int> vernId = {});

}  // namespace quillon::records
