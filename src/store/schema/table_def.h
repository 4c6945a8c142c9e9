// Describes a table of a DataSet: its fields and keys under the schema's names. Changing a description
// changes nothing in the file; use Database::AppendTable or the dialect's ALTER TABLE for that.
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
    bool autoIncrement = false;  // the store assigns a value unless the statement does
    bool required = false;
};

struct IndexDef {
    std::string name;
    std::vector<std::string> fields;  // ascending
    bool primary = false;             // a primary key is unique, and none of its fields may be Null
    // "+qb_id;+geographic_value"
    std::string FieldList() const;
};

struct TableDef {
    std::string name;
    std::vector<FieldDef> fields;
    std::vector<IndexDef> indexes;
    // For a linked table: the name of the source table, and ";DATABASE=" path ";" of its DataSet. Empty for a
    // table of the DataSet itself.
    std::string SourceTableName;
    std::string Connect;

    bool IsLinked() const { return !Connect.empty(); }
    // Ignore case; nullptr when the table has no such field or index.
    const FieldDef* Field(std::string_view fieldName) const;
    const IndexDef* Index(std::string_view indexName) const;
    const IndexDef* PrimaryKey() const;
};

// The description of a table of the schema.
TableDef TableDefOf(const TableSpec& table);

}  // namespace quillon::store
