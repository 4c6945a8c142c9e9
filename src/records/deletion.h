// Deletes a taxon with everything that belongs to it. The editor's delete command calls it, and so does the
// closing pass of an import, for taxa that a file only refers to.
//
// Each statement runs in its own unit: what was deleted before a failure stays deleted. Rows whose key the
// authority assigned leave a tombstone.
#pragma once

#include <string>

#include "records/record_store.h"

namespace quillon::records {

// What the deletion needs to know about the taxon.
struct DeletedTaxon {
    int qb_id = 0;  // 0 for no record
    int tsn = 0;
    std::string usage;  // decides the words of the question
};

// Deletes the taxon; with `ask`, asks first. Returns true only when everything was deleted. A taxon with a
// tsn or with children is refused with a message.
bool DeleteTaxon(const RecordStore& records, const DeletedTaxon& taxon, bool ask);

}  // namespace quillon::records
