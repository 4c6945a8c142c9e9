// Changes a DataSet's tables and indexes in the file. A failed change leaves the file unchanged. The
// connection calls these inside a write and reads the schema again afterwards.
#pragma once

#include <string_view>
#include <vector>

#include "store/dialect/ast.h"
#include "store/engine/tables.h"

struct sqlite3;

namespace quillon::store {

// ItemNotFound when an index names a field that the table does not have.
void RequireIndexedFields(const TableDef& def);
void CreateTable(sqlite3* db, const TableDef& def);
// Also drops the counter: a new table of this name starts at 1.
void DropTable(sqlite3* db, std::string_view name);
// ALTER TABLE, CREATE INDEX and DROP INDEX.
void ChangeTable(sqlite3* db, const PhysicalTable& table, const dialect::Statement& statement);

// Drops the indexes that only speed up look-ups, for a bulk load, and stores their names in the file.
void DropLookupIndexes(sqlite3* db, const Tables& tables);
// The names stored there.
std::vector<std::string> WaitingIndexes(sqlite3* db);
// Builds those indexes again.
void BuildLookupIndexes(sqlite3* db, const Tables& tables, const std::vector<std::string>& waiting);

// Builds the store's own indexes for look-ups that an older version of the program made otherwise, or not at
// all. False when there were none.
bool RenewLookupIndexes(sqlite3* db, const Tables& tables);

}  // namespace quillon::store
