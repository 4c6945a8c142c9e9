// Deletes authors of taxa. The deletion of a taxon uses it; the saving of a record will.
#pragma once

#include "core/value.h"
#include "records/record_store.h"

namespace quillon::records {

// Deletes the author, with its tombstone, unless a taxon other than `qb_id` has it. A failure is reported.
void DeleteAuthorIfUnused(const RecordStore& records, const Value& authorId, int qb_id);

}  // namespace quillon::records
