// Changes of a DataSet's tables and indexes in the file. Each leaves the file as it was when it fails. The
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
// With its counter: a new table of this name counts from 1.
void DropTable(sqlite3* db, std::string_view name);
// ALTER TABLE, CREATE INDEX and DROP INDEX.
void ChangeTable(sqlite3* db, const PhysicalTable& table, const dialect::Statement& statement);

// Drops the indexes that only speed up look-ups, for a bulk load, and notes their names in the file.
void DropLookupIndexes(sqlite3* db, const Tables& tables);
// The names noted there.
std::vector<std::string> WaitingIndexes(sqlite3* db);
// Builds those indexes again.
void BuildLookupIndexes(sqlite3* db, const Tables& tables, const std::vector<std::string>& waiting);

}  // namespace quillon::store
