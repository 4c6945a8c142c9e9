// Stores the comments of a taxon for the save of a record. A comment is a row linked to one or more taxa;
// records/links.h removes the links.
#pragma once

#include <string>

#include "records/record_store.h"
#include "records/taxon_key.h"

namespace quillon::records {

struct Comment {
    int qb_comment_id = 0;  // 0 while it is not stored
    int comment_id = 0;     // the authority's; 0 for one that was never published
    std::string commentator, detail;
    std::string timeStamp;  // "ddmmyyyyhhnnss"; identifies a comment together with its commentator
};

// Stores a comment as a new row, linked to the taxon, and sets its qb_comment_id and its time stamp: that of
// `now` ("yyyy-mm-dd hh:mm:ss"), or the first second after it at which the commentator has no comment.
// Reports a failure and returns false.
bool AddComment(const RecordStore& records, const TaxonKey& taxon, Comment& comment, const std::string& now);
// Links a stored comment to the taxon. Reports a failure and returns false.
bool LinkComment(const RecordStore& records, const TaxonKey& taxon, const Comment& comment);
// Rewrites the row of its qb_comment_id, if there is one. Removes the tombstone of its link to the taxon. A
// failure is reported.
void UpdateComment(const RecordStore& records, const TaxonKey& taxon, const Comment& comment);
// Throws StoreError.
bool IsCommentStored(store::Database& database, int qb_comment_id);

}  // namespace quillon::records
