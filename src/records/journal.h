// The journal: the qb_id of each taxon that was saved since the DataSet was made. Validation and export read
// it as the filter of changed taxa.
//
// The saving of a record and the author clean-up will add to it. Nothing ever removes a row, and an import
// adds none.
#pragma once

#include "store/engine.h"

namespace quillon::records {

bool IsInJournal(store::Database& database, int qb_id);
// Adds the taxon unless it is there already. Runs within the caller's unit. Throws StoreError.
void AddToJournal(store::Database& database, int qb_id);

}  // namespace quillon::records
