// The row of qb_taxonomic_units that the form would store, as the parameters of the stored queries "Insert
// Taxon Data" and "Update Taxon Data". The two differ on purpose in many small ways: see UnitsToInsert and
// UnitsToUpdate.
#pragma once

#include <string>

#include "core/current_taxon.h"
#include "editor/taxon_tab.h"
#include "store/query_def.h"

namespace quillon::editor {

// The indicators and names of the four units; "" stands for Null.
struct NameUnits {
    std::string ind1, name1, ind2, name2, ind3, name3, ind4, name4;
};

// A new record. A fourth name without a third one moves up, except in a hybrid formula of rank Species; a
// third name of the zoological kingdoms has no indicator.
NameUnits UnitsToInsert(const TaxonTab& tab);
// A stored record. Here a fourth name alone moves up at every rank, a variety of three names has its
// indicator in every kingdom, and a hybrid formula its mark even without a third name.
NameUnits UnitsToUpdate(const TaxonTab& tab);

// Binds the parameters that both queries have, from the form and from CurrentTaxon (ids, parent, kingdom).
void BindTaxon(store::QueryDef& query, const TaxonTab& tab, const CurrentTaxon& taxon,
               const NameUnits& units);
// "Insert Taxon Data" and "Update Taxon Data", ready to be executed.
store::QueryDef InsertTaxon(store::Database& database, const TaxonTab& tab, const CurrentTaxon& taxon);
store::QueryDef UpdateTaxon(store::Database& database, const TaxonTab& tab, const CurrentTaxon& taxon);

// The kingdoms whose names are "accepted" or "not accepted", by their id.
bool IsBotanical(int kingdom_id);

}  // namespace quillon::editor
