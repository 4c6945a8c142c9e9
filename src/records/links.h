// The links of a taxon to comments, documents and other names. A comment or document goes with its last link.
//
// Links with a key of the authority leave a tombstone. Every procedure reports its failures and returns.
#pragma once

#include <cstdint>
#include <string_view>

#include "records/record_store.h"
#include "records/taxon_key.h"

namespace quillon::records {

void DeleteCommentLink(const RecordStore& records, int qb_id, int commentId);
void DeleteReferenceLink(const RecordStore& records, int qb_id, int docId, std::string_view prefix);
// `value` is the document's id, "|", and the qb_vern_id.
void DeleteVernRefLink(const RecordStore& records, int qb_id, std::string_view prefix,
                       std::string_view value);

// Remove one link, but never its document. False when that failed, which has been reported.
bool RemoveReferenceLink(const RecordStore& records, int qb_id, int docId, std::string_view prefix);
bool RemoveVernRefLink(const RecordStore& records, int qb_id, int docId, std::int64_t qb_vern_id,
                       std::string_view prefix);
// Lets the link refer to another vernacular of the taxon, under `vernacular_name`. The link that it was
// leaves its tombstone. False when that failed, which has been reported.
bool MoveVernRefLink(const RecordStore& records, int qb_id, int docId, std::string_view prefix,
                     std::int64_t from, std::int64_t to, std::string_view vernacular_name);

// Delete all links of the taxon. These two throw StoreError when the links cannot be read.
void DeleteCommentLinks(const RecordStore& records, int qb_id);
void DeleteReferenceLinks(const RecordStore& records, int qb_id);

// Stores that `synonym` is a synonym of `accepted`, and removes the tombstone of that link. False after a
// failure.
bool AddSynonymLink(const RecordStore& records, const TaxonKey& synonym, const TaxonKey& accepted);
// Delete the links in which the taxon is the synonym, or the accepted name, but not the names themselves.
void DeleteSynonymLinks(const RecordStore& records, int qb_id);
void DeleteSynonymsOfAccepted(const RecordStore& records, int qb_id);

}  // namespace quillon::records
