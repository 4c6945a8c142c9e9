// Translates a statement of the dialect to SQLite: looks up names in the schema, compares texts by the
// program's collation, and writes functions and joins in SQLite's syntax.
//
// A name without a qualifier is first a column of the tables in scope, then a parameter: a column hides a
// parameter of the same name. A name that is neither is the error TooFewParameters. A stored query may be
// used as a table.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "store/dialect/ast.h"
#include "store/schema/physical_table.h"

namespace quillon::store::dialect {

// The tables and queries of a DataSet. Names are compared ignoring case.
class Schema {
public:
    virtual ~Schema() = default;
    virtual const PhysicalTable* Table(std::string_view name) const = 0;
    // The text of a stored query; nullptr when there is none.
    virtual const std::string* Query(std::string_view name) const = 0;
};

enum class ValueType { Any, Text, Number, Boolean, Date };

struct OutputColumn {
    std::string name;
    ValueType type = ValueType::Any;
    std::string field;  // a field of the table of an updatable select; empty for an expression
};

// A placeholder of the SQLite statement.
struct Slot {
    int parameter = -1;  // index of the declared parameter, or -1 for the constant
    Value constant;
    std::optional<FieldDef> field;  // the field that stores the value, which is converted and checked
};

struct Translation {
    StatementKind kind = StatementKind::Select;
    std::vector<Declaration> parameters;
    std::string sql;
    std::vector<Slot> slots;
    std::vector<OutputColumn> columns;
    std::string table;  // changed by an INSERT, UPDATE or DELETE
    // For an updatable select: its table, and after the output columns the key columns of the row.
    std::string updatableTable;
    std::size_t keyColumns = 0;
};

// Translates SELECT, INSERT, UPDATE and DELETE. Throws StoreError for errors in the statement.
Translation Translate(const Statement& statement, std::string_view text, const Schema& schema);

}  // namespace quillon::store::dialect
