// Deletes a taxon with everything that belongs to it. The editor's delete command will call it, and the
// closing pass of an import calls it for taxa that a file only refers to.
//
// Each statement is a unit of its own: what was deleted before a failure stays deleted. Rows with a key of
// the authority leave a tombstone.
#pragma once

#include <string>

#include "records/record_store.h"

namespace quillon::records {

// The taxon to delete, as far as the deletion must know it.
struct DeletedTaxon {
    int qb_id = 0;  // 0 for no record
    int tsn = 0;
    std::string usage;  // decides the words of the question
};

// Deletes the taxon, with `ask` after a question. Returns true only when everything went. A taxon with a tsn
// or with children is refused by a message.
bool DeleteTaxon(const RecordStore& records, const DeletedTaxon& taxon, bool ask);

}  // namespace quillon::records
