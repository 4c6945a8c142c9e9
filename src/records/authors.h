// The authors of taxa as stored rows. The saving and the deletion of a record use it.
#pragma once

#include <string_view>

#include "core/value.h"
#include "records/record_store.h"

namespace quillon::records {

// The qb_taxon_author_id of the author with exactly this text, as the stored query "Get Author ID" finds it;
// 0 when there is none.
int FindAuthor(store::Database& database, std::string_view author);
// Adds an author and returns its id; 0 after a failure, which is reported.
int AddAuthor(const RecordStore& records, std::string_view author, int kingdom_id);
// Deletes the author, with its tombstone, unless a taxon other than `qb_id` has it. A failure is reported.
void DeleteAuthorIfUnused(const RecordStore& records, const Value& authorId, int qb_id);

}  // namespace quillon::records
