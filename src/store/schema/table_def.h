// What a table of a DataSet looks like: its fields and keys under the schema's names. A description only;
// changing it changes nothing in the file (Database::AppendTable and the dialect's ALTER TABLE do that).
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "store/schema/schema.h"

namespace quillon::store {

struct FieldDef {
    std::string name;
    FieldType type = FieldType::Text;
    int size = 0;                // characters of a Text; 0 otherwise
    bool autoIncrement = false;  // the store provides the value unless the statement does
    bool required = false;
};

struct IndexDef {
    std::string name;
    std::vector<std::string> fields;  // ascending
    bool primary = false;             // primary is unique, and none of its fields may be Null
    // "+qb_id;+geographic_value"
    std::string FieldList() const;
};

struct TableDef {
    std::string name;
    std::vector<FieldDef> fields;
    std::vector<IndexDef> indexes;
    // Of a linked table: the table that it shows, and ";DATABASE=" with the path of that table's DataSet and
    // ";". Empty for a table of the DataSet itself.
    std::string SourceTableName;
    std::string Connect;

    bool IsLinked() const { return !Connect.empty(); }
    // Without regard to case; nullptr when the table has no such field or index.
    const FieldDef* Field(std::string_view fieldName) const;
    const IndexDef* Index(std::string_view indexName) const;
    const IndexDef* PrimaryKey() const;
};

// The description of a table of the schema.
TableDef TableDefOf(const TableSpec& table);

}  // namespace quillon::store
