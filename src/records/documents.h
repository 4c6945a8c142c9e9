// Deletes comments and documents. They are deleted with their last link (records/links.h), and the closing
// pass of an import deletes those that no link of the file refers to.
#pragma once

#include <string_view>

#include "core/document_kinds.h"
#include "records/record_store.h"

namespace quillon::records {

// Each deletes the row and leaves a tombstone when the authority assigned its key. A failure is reported.
void DeleteComment(const RecordStore& records, int id);
void DeleteDocument(const RecordStore& records, const DocumentKind& kind, int id);
// Deletes the document that a link refers to by prefix and id. Does nothing for an unknown prefix.
void DeleteDocument(const RecordStore& records, std::string_view prefix, int id);

}  // namespace quillon::records
