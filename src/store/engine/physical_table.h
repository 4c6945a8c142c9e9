// How a table of the schema stands in the SQLite file, and how the schema is read back from there.
//
// A table whose key is one AutoNumber keeps it as its rowid. Any other table with a key is clustered by it
// (WITHOUT ROWID) in plain byte order, so that a stock client reads it; where the key holds a text, a second
// index enforces it under the program's collation. Indexes on texts are partial (not Null), so that a client
// without the collation never needs them, and the many Nulls of the higher name units cost nothing. Sizes and
// ranges stand as CHECK constraints named after their field: no writer, ours or another, can store a value
// that breaks them.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "store/table_def.h"

struct sqlite3;

namespace quillon::store {

enum class KeyKind { None, Rowid, Clustered };

struct PhysicalTable {
    TableDef def;
    KeyKind key = KeyKind::None;
    std::string autoField;  // empty when the table has no AutoNumber

    // The columns that find a row again: the rowid, or those of the key.
    std::vector<std::string> KeyColumns() const;
};

inline constexpr std::string_view kCollation = "QLN";

bool HasText(FieldType type);  // Text or Memo
bool IsNumber(FieldType type);
std::string QuoteName(std::string_view name);
std::string QuoteLiteral(std::string_view text);

PhysicalTable PhysicalTableOf(const TableDef& def);
// One CREATE TABLE for the table, under `name`.
std::string CreateTableSql(const PhysicalTable& table, std::string_view name);
// One column of CREATE TABLE or ALTER TABLE ADD COLUMN.
std::string ColumnSql(const FieldDef& field, bool rowidKey);

struct IndexSql {
    std::string name;
    std::string sql;
    bool deferrable =
        false;  // building may wait: it only speeds up look-ups, or keeps out what the key does too
};
// All indexes of a table: its key under the collation, the schema's, and the store's own for look-ups.
std::vector<IndexSql> CreateIndexSql(const PhysicalTable& table);
std::string IndexName(std::string_view table, std::string_view index);

// The tables of an open file, in the order of creation; the store's own and whatever is odd are left out.
std::vector<PhysicalTable> ReadTables(sqlite3* db);

}  // namespace quillon::store
