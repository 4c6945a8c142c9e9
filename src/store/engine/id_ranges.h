// Finds numbers in a DataSet that its fields cannot have. Another program can write them, and an id that is
// read into 32 bits would then become the id of another row. Called at each opening.
#pragma once

#include "store/engine/tables.h"

struct sqlite3;

namespace quillon::store {

// Throws CorruptFile when a field with numbers that begins a key or an index has a value out of its range.
// Looks only at both ends of each index, so that the time does not depend on the number of rows. AutoNumbers
// are checked by their counters.
void RequireIdsInRange(sqlite3* db, const Tables& tables);

}  // namespace quillon::store
