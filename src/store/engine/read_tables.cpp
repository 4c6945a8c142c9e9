#include "store/engine/read_tables.h"

#include <algorithm>
#include <map>
#include <string>

#include "store/engine/native.h"

namespace quillon::store {

namespace {

void AddKey(PhysicalTable& table, const std::map<int, std::string>& keyParts) {
    IndexDef key{"PrimaryKey", {}, true};
    for (const auto& [place, name] : keyParts) key.fields.push_back(name);
    if (!key.fields.empty()) table.def.indexes.push_back(std::move(key));
}

// False for a table with an unknown type or a generated column.
bool ReadColumns(sqlite3* db, PhysicalTable& table) {
    NativeStatement columns(db, "SELECT name, type, \"notnull\", pk, hidden FROM pragma_table_xinfo(?1)");
    columns.Bind(1, table.def.name);
    std::map<int, std::string> keyParts;
    while (columns.Step()) {
        FieldDef field;
        field.name = columns.Text(0);
        if (columns.Long(4) != 0) return false;
        const bool rowidKey = SameWord(columns.Text(1), "INTEGER") && columns.Long(3) == 1;
        if (rowidKey) {
            field.type = FieldType::Long;
            field.autoIncrement = true;
            table.key = KeyKind::Rowid;
        } else if (!ParseColumnType(columns.Text(1), field)) {
            return false;
        }
        if (columns.Long(3) > 0) keyParts[static_cast<int>(columns.Long(3))] = field.name;
        field.required = columns.Long(2) != 0 && columns.Long(3) == 0;
        if (field.autoIncrement) table.autoField = field.name;
        table.def.fields.push_back(std::move(field));
    }
    if (table.key == KeyKind::None && !keyParts.empty()) table.key = KeyKind::Clustered;
    AddKey(table, keyParts);
    return true;
}

void ReadIndexes(sqlite3* db, PhysicalTable& table) {
    NativeStatement indexes(db,
                            "SELECT name FROM sqlite_master WHERE type = 'index' AND tbl_name = ?1 "
                            "AND sql IS NOT NULL ORDER BY rowid");
    indexes.Bind(1, table.def.name);
    const std::string prefix = table.def.name + ".";
    while (indexes.Step()) {
        const std::string name(indexes.Text(0));
        if (name.compare(0, prefix.size(), prefix) != 0 || name == prefix + "PrimaryKey") continue;
        IndexDef index{name.substr(prefix.size()), {}, false};
        NativeStatement parts(db, "SELECT name FROM pragma_index_info(?1) ORDER BY seqno");
        parts.Bind(1, name);
        while (parts.Step()) index.fields.emplace_back(parts.Text(0));
        // Only other programs create indexes over expressions.
        const bool known =
            std::all_of(index.fields.begin(), index.fields.end(),
                        [&](const std::string& field) { return table.def.Field(field) != nullptr; });
        if (known) table.def.indexes.push_back(std::move(index));
    }
}

}  // namespace

std::vector<PhysicalTable> ReadTables(sqlite3* db) {
    std::vector<PhysicalTable> tables;
    NativeStatement names(
        db,
        "SELECT name FROM sqlite_master WHERE type = 'table' AND name NOT LIKE 'sqlite\\_%' "
        "ESCAPE '\\' AND name NOT LIKE 'qln\\_%' ESCAPE '\\' ORDER BY rowid");
    while (names.Step()) {
        PhysicalTable table;
        table.def.name = names.Text(0);
        if (!ReadColumns(db, table)) continue;
        ReadIndexes(db, table);
        tables.push_back(std::move(table));
    }
    return tables;
}

}  // namespace quillon::store
