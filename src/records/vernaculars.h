// The vernaculars of a taxon as stored rows, each with its own links to documents. Used by the deletion of a
// taxon and by the save of its vernaculars.
#pragma once

#include <cstddef>
#include <optional>
#include <string>

#include "records/record_store.h"
#include "records/taxon_key.h"

namespace quillon::records {

struct Vernacular {
    int qb_vern_id = 0;  // 0 while it is not stored
    int vern_id = 0;     // the authority's; 0 for one that was never published
    std::string name, language;
    bool approved = false;
};

// Stores a vernacular as a new row, whatever its qb_vern_id. A failure is reported, and false returned.
bool AddVernacular(const RecordStore& records, const TaxonKey& taxon, const Vernacular& vernacular);
// Rewrites the row of its qb_vern_id. When there is none it is added, and loses its tombstone. A failure is
// reported.
void SaveVernacular(const RecordStore& records, const TaxonKey& taxon, const Vernacular& vernacular);

// How many documents the vernacular is linked to. Throws StoreError.
std::size_t CountVernacularLinks(store::Database& database, int qb_id, int qb_vern_id);
// Deletes one vernacular with its links. A published one of a published name leaves a tombstone. A failure is
// reported.
void DeleteVernacular(const RecordStore& records, const TaxonKey& taxon, int qb_vern_id);

// Deletes all vernaculars of the taxon with their links. With `vernId`, those whose qb_vern_id is another
// than that. A failure is reported.
void DeleteVernaculars(const RecordStore& records, int qb_id, std::optional<int> vernId = {});

}  // namespace quillon::records
