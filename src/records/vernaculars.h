// The vernaculars of a taxon as stored rows, each with its own links to documents. Used by the deletion of a
// taxon; the saving of its vernaculars will use it.
#pragma once

#include <optional>

#include "records/record_store.h"

namespace quillon::records {

// Deletes all vernaculars of the taxon with their links. With `vernId`, those whose qb_vern_id is another
// than that. A failure is reported.
void DeleteVernaculars(const RecordStore& records, int qb_id, std::optional<int> vernId = {});

}  // namespace quillon::records
