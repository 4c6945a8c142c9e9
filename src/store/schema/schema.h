// The tables of a DataSet as data: fields, sizes and keys, in the order of creation.
//
// Creating a DataSet makes them all; the two temporary ones exist only while queries that use them are stored
// and while a compare runs. There are no relations: the program maintains every link between tables.
#pragma once

#include <span>
#include <string_view>

namespace quillon::store {

// Byte is 8 bits unsigned, Integer 16 and Long 32 bits signed, Memo up to 65,535 characters.
enum class FieldType { Boolean, Byte, Integer, Long, DateTime, Text, Memo };

struct FieldSpec {
    std::string_view name;
    FieldType type;
    int size;            // characters of a Text; 0 otherwise
    bool autoIncrement;  // a Long that counts from 1; numbers are not reused
    bool required;       // may not be Null
};

struct IndexSpec {
    std::string_view name;
    std::string_view
        fields;    // "+qb_id;+geographic_value": each with a plus (ascending), separated by semicolons
    bool primary;  // named "PrimaryKey"; unique, no field Null. Secondary indexes are neither
};

struct TableSpec {
    std::string_view name;
    std::span<const FieldSpec> fields;
    std::span<const IndexSpec> indexes;  // the primary key first; empty for a table without any
    bool temporary;                      // deleted in the last step of creating a DataSet
};

// All 27 tables. The data are static.
std::span<const TableSpec> DataSetTables();

}  // namespace quillon::store
