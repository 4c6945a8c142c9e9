// Reads the tables of an open DataSet back from its file. The connection calls it at opening and after a
// change of the schema.
#pragma once

#include <vector>

#include "store/schema/physical_table.h"

struct sqlite3;

namespace quillon::store {

// In the order of creation. The store's own tables are left out, and so is any table with a column that the
// schema cannot describe.
std::vector<PhysicalTable> ReadTables(sqlite3* db);

}  // namespace quillon::store
