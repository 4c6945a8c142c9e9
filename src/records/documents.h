// Comments and documents as stored rows. They go with their last link (records/links.h), and the closing pass
// of an import removes those that no link of the file names.
#pragma once

#include <string_view>

#include "records/record_store.h"

namespace quillon::records {

// Each deletes the row and leaves a tombstone when the authority knew it. A failure is reported.
void DeleteComment(const RecordStore& records, int id);
void DeleteExpert(const RecordStore& records, int id);
void DeletePublication(const RecordStore& records, int id);
void DeleteOtherSource(const RecordStore& records, int id);
// The document of a link's prefix: "PUB", "EXP" or "SRC". Nothing for another prefix.
void DeleteDocument(const RecordStore& records, std::string_view prefix, int id);

}  // namespace quillon::records
