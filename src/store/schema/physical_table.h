// How a table of the schema is stored in an SQLite file: the statements that create it and its indexes.
// Creating, altering and reading a DataSet use it. It opens nothing itself.
//
// A table whose key is one AutoNumber keeps it as its rowid. Any other table with a key is clustered by it
// (WITHOUT ROWID) in byte order, so that other SQLite clients can read it; if the key contains a text, a
// second index enforces it under the program's collation. Indexes on texts are partial (not Null), so that a
// client without the collation never needs them, and the many Nulls of the higher name units need no space.
// Sizes and ranges are CHECK constraints named after their field, so that no program can store an invalid
// value.
//
// Names with a tilde belong to the store and not to the schema: "qb_vernaculars~taxon" is an index that only
// speeds up look-ups, and "name~new" a table that is being rebuilt with another key.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "store/schema/names.h"
#include "store/schema/table_def.h"

namespace quillon::store {

enum class KeyKind { None, Rowid, Clustered };

struct PhysicalTable {
    TableDef def;
    KeyKind key = KeyKind::None;
    std::string autoField;  // empty when the table has no AutoNumber

    // The columns that identify a row: the rowid, or those of the key.
    std::vector<std::string> KeyColumns() const;
};

bool HasText(FieldType type);  // Text or Memo

PhysicalTable PhysicalTableOf(const TableDef& def);
// One CREATE TABLE for the table, under `name`.
std::string CreateTableSql(const PhysicalTable& table, std::string_view name);
// One column of CREATE TABLE or ALTER TABLE ADD COLUMN.
std::string ColumnSql(const FieldDef& field, bool rowidKey);
// Sets type, size and autoIncrement of `field` from a declared column type; false for a type that the schema
// does not have.
bool ParseColumnType(std::string_view declared, FieldDef& field);

struct IndexSql {
    std::string name;
    std::string sql;
    // Can be deferred: it only speeds up look-ups, or prevents the same duplicates as the key.
    bool deferrable = false;
    bool forLookups = false;  // one of the store's own
};
// All indexes of a table: the key under the collation, those of the schema, and those for look-ups.
std::vector<IndexSql> CreateIndexSql(const PhysicalTable& table);
// The fields of type Long, besides the AutoNumber, that begin the key or an index of numbers: their smallest
// and largest values are found without reading the table. Valid as long as `table`.
std::vector<const FieldDef*> IndexedNumbers(const PhysicalTable& table);
std::string IndexName(std::string_view table, std::string_view index);

}  // namespace quillon::store
