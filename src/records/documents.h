// Comments and documents as stored rows. They go with their last link (records/links.h), and the closing pass
// of an import removes those that no link of the file names.
#pragma once

#include <string_view>

#include "core/document_kinds.h"
#include "records/record_store.h"

namespace quillon::records {

// Each deletes the row and leaves a tombstone when the authority knew it. A failure is reported.
void DeleteComment(const RecordStore& records, int id);
void DeleteDocument(const RecordStore& records, const DocumentKind& kind, int id);
// The document that a link names by its prefix. Nothing for a prefix that is none of the kinds'.
void DeleteDocument(const RecordStore& records, std::string_view prefix, int id);

}  // namespace quillon::records
