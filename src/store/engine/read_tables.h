// Reads the tables of an open DataSet from its file. The connection calls it at opening and after a change of
// the schema.
#pragma once

#include <vector>

#include "store/schema/physical_table.h"

struct sqlite3;

namespace quillon::store {

// In the order of creation. Omits the store's own tables, and tables with columns that the schema cannot
// describe.
std::vector<PhysicalTable> ReadTables(sqlite3* db);

}  // namespace quillon::store
